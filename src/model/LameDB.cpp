#include "LameDB.h"

#include "TextRepair.h"
#include "TextScan.h"

#include <QCoreApplication>

#include <charconv>
#include <cstring>

using namespace Qt::StringLiterals;
using TextScan::Lines;

QString LameDBError::description() const
{
    return QCoreApplication::translate("LameDB", "Unbekanntes lamedb-Format.");
}

namespace LameDB {

namespace {

constexpr QByteArrayView format5Header = "eDVB services /5/";

// Transponder identity as numbers, so that a parse never builds key strings per service.
struct TransponderId
{
    quint32 ns;
    quint32 tsid;
    quint32 onid;
    friend bool operator==(const TransponderId &, const TransponderId &) = default;
};

size_t qHash(const TransponderId &id, size_t seed = 0) noexcept
{
    return qHashMulti(seed, id.ns, id.tsid, id.onid);
}

struct ServiceHeader
{
    ServiceKey key;
    quint32 type = 1;
};

// The layout the box writes, "%04x:%08x:%04x:%04x:type:number", read without splitting. Any other
// text gives none, and the general reading below decides.
std::optional<ServiceHeader> boxHeader(QByteArrayView text, int minimumPieces)
{
    const char *p = text.data();
    if (text.size() < 26 || p[4] != ':' || p[13] != ':' || p[18] != ':' || p[23] != ':')
        return std::nullopt;
    const auto sid = TextScan::fixedHex<4>(p);
    const auto ns = TextScan::fixedHex<8>(p + 5);
    const auto tsid = TextScan::fixedHex<4>(p + 14);
    const auto onid = TextScan::fixedHex<4>(p + 19);
    QByteArrayView rest[2];
    if (!sid || !ns || !tsid || !onid || TextScan::splitPieces(text.sliced(24), ':', rest, 2) < minimumPieces - 4)
        return std::nullopt;
    return ServiceHeader{ServiceKey{*sid, *tsid, *onid, *ns}, TextScan::unsignedDecimal(rest[0]).value_or(1)};
}

// "sid:namespace:tsid:onid:type[:number...]" with at least `minimumPieces` non-empty pieces.
std::optional<ServiceHeader> serviceHeader(QByteArrayView text, int minimumPieces)
{
    if (const auto header = boxHeader(text, minimumPieces))
        return header;
    QByteArrayView pieces[6];
    std::optional<quint32> values[6];
    if (TextScan::splitHexPieces(text, ':', pieces, values, minimumPieces) < minimumPieces)
        return std::nullopt;
    // A piece that is not plain digits may still be hexadecimal between blanks.
    const auto number = [&](int i) { return values[i] ? *values[i] : hex(pieces[i]); };
    ServiceHeader header;
    header.key = ServiceKey{number(0), number(2), number(3), number(1)};
    header.type = TextScan::unsignedDecimal(pieces[4]).value_or(1);
    return header;
}

// A format-5 service line: its header and where the name's quotes stand.
struct ServiceLine
{
    ServiceHeader header;
    qsizetype open = 0;
    qsizetype close = 0;
};

std::optional<ServiceLine> serviceLine(QByteArrayView line)
{
    ServiceLine result;
    result.open = TextScan::indexOf(line, '"');
    if (result.open < 0)
        return std::nullopt;
    // The header ends one character before the quote, where a well-formed line has its comma.
    QByteArray storage;
    const auto header = serviceHeader(TextScan::withoutLastCharacter(line.sliced(2, result.open - 2), storage), 5);
    if (!header)
        return std::nullopt;
    result.header = *header;
    result.close = TextScan::indexOf(line, '"', result.open + 1);
    if (result.close < 0)
        return std::nullopt;
    return result;
}

// The bytes after "p:" of the first comma-separated piece that starts with it.
std::optional<QByteArrayView> providerBytes(QByteArrayView line)
{
    // Format 5 puts it first: ",p:name,c:...".
    qsizetype start = line.startsWith(",p:") ? 1 : 0;
    while (start < line.size()) {
        qsizetype end = TextScan::indexOf(line, ',', start);
        if (end < 0)
            end = line.size();
        const QByteArrayView piece = line.sliced(start, end - start);
        if (piece.startsWith("p:"))
            return piece.sliced(2);
        start = end + 1;
    }
    return std::nullopt;
}

// Moves past the next line that equals `wanted`; false when there is none.
bool skipPast(Lines &lines, QByteArrayView wanted)
{
    while (const auto line = lines.peek()) {
        lines.advance();
        if (*line == wanted)
            return true;
    }
    return false;
}

// Lines of a text counted at line feeds only: cheap, and close enough to size the service list.
qsizetype lineFeeds(QByteArrayView text)
{
    qsizetype count = 0;
    for (qsizetype at = TextScan::indexOf(text, '\n'); at >= 0; at = TextScan::indexOf(text, '\n', at + 1))
        ++count;
    return count;
}

// Builds one parse result; repeated providers and positions share one string each.
class DatabaseBuilder
{
public:
    explicit DatabaseBuilder(qsizetype expectedServices) { m_database.services.reserve(expectedServices); }

    void addTransponder(quint32 ns, quint32 tsid, quint32 onid, QString data)
    {
        Transponder transponder{ns, tsid, onid, std::move(data)};
        m_positions.insert(TransponderId{ns, tsid, onid}, intern(transponder.position().value_or(QString())));
        m_lastTransponder.reset();
        m_database.transponders.insert(tpKey(ns, tsid, onid), std::move(transponder));
    }

    void addService(const ServiceHeader &header, QByteArrayView name, QByteArrayView data)
    {
        m_database.services.append(Service{header.key, header.type, repairedName(name),
                                           m_strings.at(provider(data)), m_strings.at(position(header.key))});
    }

    Database take()
    {
        // A line count overestimates a little; only a gross overestimate is worth a copy.
        if (m_database.services.capacity() > m_database.services.size() * 5 / 4 + 64)
            m_database.services.squeeze();
        return std::move(m_database);
    }

private:
    static QString repairedName(QByteArrayView bytes)
    {
        QString text = TextScan::decoded(bytes);
        return mayNeedRepair(bytes) ? TextRepair::fix(text) : text;
    }

    // The repair only acts on texts holding "Â", "Ã" or "â": C3 82, C3 83 or C3 A2 in UTF-8.
    static bool mayNeedRepair(QByteArrayView bytes)
    {
        for (qsizetype at = TextScan::indexOf(bytes, '\xc3'); at >= 0; at = TextScan::indexOf(bytes, '\xc3', at + 1)) {
            const char next = at + 1 < bytes.size() ? bytes[at + 1] : 0;
            if (next == '\x82' || next == '\x83' || next == '\xa2')
                return true;
        }
        return false;
    }

    qsizetype intern(const QString &text)
    {
        m_strings.append(text);
        return m_strings.size() - 1;
    }

    // Services of one transponder stand together and mostly share their provider, so the last
    // look-up of each kind is remembered (as an index: copying strings costs atomic operations).
    qsizetype provider(QByteArrayView data)
    {
        const QByteArrayView bytes = providerBytes(data).value_or(QByteArrayView());
        if (!m_lastProvider || bytes != m_lastProviderBytes) {
            auto it = m_providers.constFind(bytes);
            if (it == m_providers.cend())
                it = m_providers.insert(bytes, intern(repairedName(bytes)));
            m_lastProviderBytes = bytes;
            m_lastProvider = *it;
        }
        return *m_lastProvider;
    }

    qsizetype position(const ServiceKey &key)
    {
        const TransponderId id{key.ns, key.tsid, key.onid};
        if (!m_lastTransponder || !(*m_lastTransponder == id)) {
            if (!m_unknownPosition)
                m_unknownPosition = intern(QString());
            m_lastTransponder = id;
            m_lastPosition = m_positions.value(id, *m_unknownPosition);
        }
        return m_lastPosition;
    }

    Database m_database;
    QList<QString> m_strings; // providers and position labels, each once
    QHash<TransponderId, qsizetype> m_positions;
    QHash<QByteArrayView, qsizetype> m_providers; // views into the text being parsed
    std::optional<qsizetype> m_unknownPosition;
    QByteArrayView m_lastProviderBytes;
    std::optional<qsizetype> m_lastProvider;
    std::optional<TransponderId> m_lastTransponder;
    qsizetype m_lastPosition = 0;
};

// Copies the text line by line into a new one only once the first line changes.
class Rewriter
{
public:
    explicit Rewriter(const QByteArray &source) : m_source(source) {}

    void drop(QByteArrayView line)
    {
        flushUntil(line);
        m_copied = offset(line) + line.size();
        if (m_copied < m_source.size())
            ++m_copied; // its line feed
        else
            m_droppedLast = true;
    }

    void replace(QByteArrayView line, const QByteArray &with)
    {
        flushUntil(line);
        m_out.append(with);
        m_copied = offset(line) + line.size();
    }

    QByteArray result()
    {
        if (!m_changed)
            return m_source;
        m_out.append(m_source.constData() + m_copied, m_source.size() - m_copied);
        // Lines are joined by line feeds: without its last line the text loses the feed before it.
        if (m_droppedLast && m_out.endsWith('\n'))
            m_out.chop(1);
        return m_out;
    }

private:
    qsizetype offset(QByteArrayView line) const { return line.data() - m_source.constData(); }

    void flushUntil(QByteArrayView line)
    {
        if (!m_changed) {
            m_out.reserve(m_source.size());
            m_changed = true;
        }
        m_out.append(m_source.constData() + m_copied, offset(line) - m_copied);
    }

    const QByteArray &m_source;
    QByteArray m_out;
    qsizetype m_copied = 0;
    bool m_changed = false;
    bool m_droppedLast = false;
};

} // namespace

Database parse(QByteArrayView text)
{
    if (text.startsWith(format5Header))
        return parseV5(text);
    if (text.startsWith("eDVB services /4/") || text.startsWith("eDVB services /3/"))
        return parseV4(text);
    throw LameDBError(LameDBError::unknownFormat);
}

Database parseV4(QByteArrayView text)
{
    DatabaseBuilder builder(lineFeeds(text) / 3);
    Lines lines(text);
    if (!skipPast(lines, "transponders"))
        return builder.take();

    while (const auto line = lines.peek()) {
        if (*line == "end")
            break;
        QByteArrayView pieces[3];
        if (TextScan::splitPieces(*line, ':', pieces, 3) < 3) {
            lines.advance();
            continue;
        }
        const auto data = lines.peek(1);
        if (!data)
            return builder.take();
        builder.addTransponder(hex(pieces[0]), hex(pieces[1]), hex(pieces[2]), TextScan::decoded(*data).trimmed());
        // The third line, "/" in a well-formed file, is not looked at.
        lines.advance(3);
    }

    if (!skipPast(lines, "services"))
        return builder.take();

    while (const auto data = lines.peek(2)) {
        const QByteArrayView header = *lines.peek(0);
        if (header == "end")
            break;
        if (const auto service = serviceHeader(header, 6))
            builder.addService(*service, *lines.peek(1), *data);
        lines.advance(3);
    }
    return builder.take();
}

Database parseV5(QByteArrayView text)
{
    DatabaseBuilder builder(lineFeeds(text));
    TextScan::forEachLine(text, TextScan::Breaks::unicode, [&builder](QByteArrayView line) {
        if (line.size() < 2 || line[1] != ':')
            return;
        if (line[0] == 's') {
            if (const auto service = serviceLine(line)) {
                const QByteArrayView name = line.sliced(service->open + 1, service->close - service->open - 1);
                builder.addService(service->header, name, line.sliced(service->close + 1));
            }
        } else if (line[0] == 't') {
            const qsizetype comma = TextScan::indexOf(line, ',');
            if (comma < 0)
                return;
            QByteArrayView pieces[3];
            if (TextScan::splitPieces(line.sliced(2, comma - 2), ':', pieces, 3) < 3)
                return;
            QString data = TextScan::decoded(line.sliced(comma + 1));
            // "s:11836500:..." becomes "s 11836500:...", the form of format 4.
            const int first = data.size() >= 2 && data[0].isHighSurrogate() && data[1].isLowSurrogate() ? 2 : 1;
            if (data.size() > first && data[first] == u':')
                data.replace(first, 1, u' ');
            builder.addTransponder(hex(pieces[0]), hex(pieces[1]), hex(pieces[2]), std::move(data));
        }
    });
    return builder.take();
}

quint32 hex(QByteArrayView piece)
{
    if (const auto value = TextScan::strictHex(piece))
        return *value;
    // Rare: white space around the digits, possibly beyond ASCII.
    return TextScan::strictHex(QStringView(TextScan::decoded(piece).trimmed())).value_or(0);
}

QString tpKey(quint32 ns, quint32 tsid, quint32 onid)
{
    char buffer[32];
    char *end = buffer;
    for (quint32 number : {ns, tsid, onid}) {
        if (end != buffer)
            *end++ = ':';
        end = std::to_chars(end, buffer + sizeof buffer, number).ptr;
    }
    return QString::fromLatin1(buffer, end - buffer);
}

QString provider(QByteArrayView from)
{
    return TextScan::decoded(providerBytes(from).value_or(QByteArrayView()));
}

QByteArray applying(const ServiceEdits &edits, const QByteArray &to)
{
    if (edits.isEmpty())
        return to;
    Rewriter out(to);
    Lines lines(to, TextScan::Breaks::lineFeed);
    if (to.startsWith(format5Header)) {
        while (const auto line = lines.peek()) {
            lines.advance();
            if (!line->startsWith("s:"))
                continue;
            const auto service = serviceLine(*line);
            if (!service)
                continue;
            const auto edit = edits.constFind(service->header.key);
            if (edit == edits.cend())
                continue;
            if (edit->isDeletion()) {
                out.drop(*line);
                continue;
            }
            QString name = edit->newName();
            name.replace(u'"', u'\'');
            out.replace(*line, line->first(service->open + 1).toByteArray() + name.toUtf8()
                                   + line->sliced(service->close).toByteArray());
        }
        return out.result();
    }

    bool inServices = false;
    while (const auto line = lines.peek()) {
        if (!inServices || *line == "end") {
            // "services" opens the block, "end" closes it; both lines are kept.
            inServices = !inServices && *line == "services";
            lines.advance();
            continue;
        }
        const auto data = lines.peek(2);
        const auto header = data ? serviceHeader(*line, 6) : std::nullopt;
        if (!header) {
            lines.advance();
            continue;
        }
        const auto edit = edits.constFind(header->key);
        if (edit != edits.cend()) {
            const QByteArrayView name = *lines.peek(1);
            if (edit->isDeletion()) {
                out.drop(*line);
                out.drop(name);
                out.drop(*data);
            } else {
                // Written as typed: no quote replacement and no repair.
                out.replace(name, edit->newName().toUtf8());
            }
        }
        lines.advance(3);
    }
    return out.result();
}

} // namespace LameDB
