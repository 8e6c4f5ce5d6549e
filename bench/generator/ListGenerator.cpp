#include "ListGenerator.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdarg>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace ListGenerator {

namespace {

// splitmix64: tiny and the same on every platform, unlike the standard distributions.
class Random
{
public:
    explicit Random(quint64 seed) : m_state(seed) {}

    quint64 next()
    {
        quint64 z = (m_state += 0x9e3779b97f4a7c15ULL);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
        return z ^ (z >> 31);
    }
    int below(int n) { return n > 0 ? int(next() % quint64(n)) : 0; }
    bool chance(int percent) { return below(100) < percent; }
    template<typename T, size_t N>
    const T &pick(const T (&items)[N])
    {
        return items[below(int(N))];
    }

private:
    quint64 m_state;
};

void appendf(QByteArray &out, const char *format, ...) Q_ATTRIBUTE_FORMAT_PRINTF(2, 3);
void appendf(QByteArray &out, const char *format, ...)
{
    char buffer[512];
    va_list args;
    va_start(args, format);
    const int length = std::vsnprintf(buffer, sizeof buffer, format, args);
    va_end(args);
    out.append(buffer, qMin(length, int(sizeof buffer) - 1));
}

struct Orbit
{
    int position; // as the tuning line writes it: tenths of a degree east, 3600 - p for west
    quint32 ns;
    quint32 onid;
    const char *label;
    const char *satellite;
};

constexpr Orbit orbits[] = {
    {192, 0x00c00000, 0x0001, "19.2E", "Astra 1KR/1L/1M/1N (19.2E)"},
    {130, 0x00820000, 0x013e, "13.0E", "Hot Bird 13F/13G (13.0E)"},
    {282, 0x011a0000, 0x0002, "28.2E", "Astra 2E/2F/2G (28.2E)"},
    {235, 0x00eb0000, 0x0003, "23.5E", "Astra 3C (23.5E)"},
    {90, 0x005a0000, 0x0110, "9.0E", "Eutelsat 9B (9.0E)"},
    {3592, 0x0e080000, 0x0046, "0.8W", "Thor 5/6/7 &amp; Intelsat 10-02 (0.8W)"},
    {3550, 0x0dde0000, 0x0055, "5.0W", "Eutelsat 5 West B (5.0W)"},
};

struct Stem
{
    const char *name;
    const char *misEncoded; // as a tool that read UTF-8 as Windows-1252 wrote it back; null if ASCII
};

constexpr Stem tvStems[] = {
    {"Das Erste", nullptr}, {"ZDF", nullptr},         {"RTL", nullptr},
    {"Sat.1", nullptr},     {"ProSieben", nullptr},   {"VOX", nullptr},
    {"arte", nullptr},      {"3sat", nullptr},        {"Sport", nullptr},
    {"Kino", nullptr},      {"Doku", nullptr},        {"Musik", nullptr},
    {"Nachrichten", nullptr}, {"Kinder", nullptr},    {"Krimi", nullptr},
    {"Serien", nullptr},    {"Rai", nullptr},         {"Canale", nullptr},
    {"TVP", nullptr},       {"Nova", nullptr},        {"Canal+", nullptr},
    {"Télé", "TÃ©lÃ©"},    {"Zürich", "ZÃ¼rich"},   {"Österreich", "Ã–sterreich"},
    {"Köln", "KÃ¶ln"},      {"Planète", "PlanÃ¨te"}, {"Česká", "ÄŒeskÃ¡"},
    {"Ελληνική", nullptr},  {"Россия", nullptr},      {"Shopping", nullptr},
};

constexpr Stem radioStems[] = {
    {"Radio", nullptr}, {"Bayern 3", nullptr}, {"hr3", nullptr},       {"SWR3", nullptr},
    {"Klassik", nullptr}, {"Jazz", nullptr},  {"Schlager", nullptr},  {"Rock", nullptr},
    {"Ö1", "Ã–1"},      {"FM4", nullptr},      {"Radio Zürich", "Radio ZÃ¼rich"},
};

constexpr const char *suffixes[] = {"", "", " HD", " HD", " UHD", " SD", " +1", " Plus", " International"};

constexpr const char *providers[] = {
    "ARD",          "ZDFvision",        "ORF",           "SRG SSR",         "BetaDigital",
    "CANAL+",       "Sky Deutschland",  "RAI",           "Mediaset",        "M7 Group",
    "Globecast",    "Paramount",        "Discovery",     "BBC",             "ITV",
    "TVP",          "Polsat",           "Telenor",       "Viasat",          "Digi TV",
    "Vodafone",     "ProSiebenSat.1",   "Mediengruppe RTL", "Deutschlandradio", "Ö1",
    "Télévision Française", "Schweizer Radio und Fernsehen", "Hellas Sat", "Eutelsat", "SES",
};

struct GeneratedTransponder
{
    quint32 ns;
    quint32 tsid;
    quint32 onid;
    QByteArray tuning; // format-4 form without the system tag: "11836500:27500000:..."
    char system;       // 's', 'c' or 't'
    QString label;
};

GeneratedTransponder transponder(int index, Random &random)
{
    GeneratedTransponder tp;
    tp.tsid = quint32(index + 1);
    const int kind = random.below(100);
    if (kind < 90) {
        const Orbit &orbit = random.pick(orbits);
        const int frequency = 10700000 + random.below(2050) * 1000;
        tp.system = 's';
        // Many boxes keep frequency bits in the low half of a satellite namespace.
        tp.ns = orbit.ns | (random.chance(30) ? quint32(frequency / 1000) & 0xffff : 0);
        tp.onid = orbit.onid;
        tp.label = QString::fromLatin1(orbit.label);
        static constexpr int symbolRates[] = {22000000, 27500000, 29700000, 30000000};
        appendf(tp.tuning, "%d:%d:%d:%d:%d:2:0", frequency, random.pick(symbolRates), random.below(2),
                random.below(9), orbit.position);
        if (random.chance(50))
            appendf(tp.tuning, ":1:%d:0:2", 1 + random.below(2));
    } else if (kind < 96) {
        tp.system = 'c';
        tp.ns = 0xffff0000;
        tp.onid = 0x03e8;
        tp.label = QCoreApplication::translate("Transponder", "Kabel");
        appendf(tp.tuning, "%d:6900000:2:5:0:0:0", 306000 + 8000 * random.below(80));
    } else {
        tp.system = 't';
        tp.ns = 0xeeee0000;
        tp.onid = 0x22d4;
        tp.label = QCoreApplication::translate("Transponder", "Terrestrisch");
        appendf(tp.tuning, "%d:0:5:5:3:2:4:4:2:0:0:0", 474000000 + 8000000 * random.below(40));
    }
    return tp;
}

// Name as stored and name as a reader must repair it.
std::pair<QByteArray, QString> serviceName(bool radio, Random &random)
{
    const Stem &stem = radio ? random.pick(radioStems) : random.pick(tvStems);
    const bool misEncoded = stem.misEncoded && random.chance(30);
    QByteArray tail;
    if (random.chance(70))
        appendf(tail, " %d", 1 + random.below(99));
    tail += random.pick(suffixes);
    const QByteArray stored = QByteArray(misEncoded ? stem.misEncoded : stem.name) + tail;
    return {stored, QString::fromUtf8(QByteArray(stem.name) + tail)};
}

std::pair<QByteArray, QString> providerName(const GeneratedTransponder &tp, Random &random)
{
    const int kind = random.below(100);
    if (kind < 5)
        return {};
    if (kind < 15 && tp.system == 's') {
        // Scanner-made providers naming the transponder, with a mis-encoded degree sign.
        const QByteArray label = tp.label.toLatin1();
        const QByteArray head = "DVB-S2 8PSK " + tp.tuning.left(tp.tuning.indexOf(':')) + "V " + label.chopped(1);
        return {head + "Â°" + label.right(1), QString::fromUtf8(head + "°" + label.right(1))};
    }
    const char *name = random.pick(providers);
    return {QByteArray(name), QString::fromUtf8(name)};
}

QByteArray cachedPids(Random &random)
{
    QByteArray pids;
    const int count = 2 + random.below(4);
    for (int i = 0; i < count; ++i)
        appendf(pids, ",c:%02x%04x", i, 0x20 + random.below(0x1fe0));
    if (random.chance(30))
        pids += ",f:40";
    return pids;
}

QString bouquetName(bool radio, int number, Random &random)
{
    static constexpr const char *tvThemes[] = {"Sport", "Filme", "Nachrichten", "Kinder", "Dokumentationen",
                                               "Österreich & Schweiz", "Italia", "Polska", "Ελλάδα", "HD"};
    static constexpr const char *radioThemes[] = {"Radio", "Musik", "Klassik & Jazz", "Regional"};
    const char *theme = radio ? random.pick(radioThemes) : random.pick(tvThemes);
    return QString::fromUtf8(theme) + u' ' + QString::number(number);
}

QByteArray bouquetText(const QString &name, const QList<int> &pool, const List &list, int entries, Random &random)
{
    QByteArray text = "#NAME " + name.toUtf8() + "\r\n";
    for (int e = 0; e < entries; ++e) {
        if (e % 50 == 0) {
            appendf(text, "#SERVICE 1:64:%X:0:0:0:0:0:0:0:\r\n#DESCRIPTION --- Gruppe %d ---\r\n", e / 50 + 1,
                    e / 50 + 1);
            continue;
        }
        const Service &service = list.services.at(pool.at(random.below(int(pool.size()))));
        const ServiceKey &key = service.key;
        if (random.chance(3)) {
            // A stream relayed by another box: the reference carries the URL and a name.
            appendf(text, "#SERVICE 4097:0:1:%X:%X:%X:%X:0:0:0:http%%3a//192.168.1.%d%%3a8001/", key.sid, key.tsid,
                    key.onid, key.ns, 2 + random.below(250));
            appendf(text, "1%%3a0%%3a1%%3a%X%%3a%X%%3a%X%%3a%X%%3a0%%3a0%%3a0%%3a:Relay %d\r\n#DESCRIPTION Relay %d\r\n",
                    key.sid, key.tsid, key.onid, key.ns, e, e);
            continue;
        }
        appendf(text, "#SERVICE 1:0:%X:%X:%X:%X:%X:0:0:0:\r\n", service.type, key.sid, key.tsid, key.onid, key.ns);
        if (random.chance(5))
            text += "#DESCRIPTION " + service.name.toUtf8() + " (Favorit)\r\n";
    }
    return text;
}

QByteArray indexText(MediaKind kind, const QList<BouquetFile> &bouquets)
{
    const bool radio = kind == MediaKind::radio;
    QByteArray text = radio ? "#NAME User - Bouquets (Radio)\r\n" : "#NAME User - Bouquets (TV)\r\n";
    for (const BouquetFile &bouquet : bouquets) {
        if (bouquet.kind == kind)
            appendf(text, "#SERVICE 1:7:%d:0:0:0:0:0:0:0:FROM BOUQUET \"%s\" ORDER BY bouquet\r\n", radio ? 2 : 1,
                    bouquet.fileName.toUtf8().constData());
    }
    return text;
}

QByteArray satellitesXml()
{
    QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<satellites>\n";
    for (const Orbit &orbit : orbits) {
        // satellites.xml writes western positions as negative tenths.
        const int position = orbit.position > 1800 ? orbit.position - 3600 : orbit.position;
        appendf(text,
                "\t<sat name=\"%s\" flags=\"1\" position=\"%d\">\n\t\t<transponder frequency=\"11836000\" "
                "symbol_rate=\"27500000\" polarization=\"0\" fec_inner=\"3\" system=\"0\" modulation=\"1\"/>\n\t</sat>\n",
                orbit.satellite, position);
    }
    return text + "</satellites>\n";
}

} // namespace

List generate(const Options &options)
{
    Random random(options.seed);
    List list;
    const int transponderCount = qMax(1, options.transponders);

    QList<GeneratedTransponder> transponders;
    transponders.reserve(transponderCount);
    list.lamedb = "eDVB services /4/\ntransponders\n";
    list.lamedb5 = "eDVB services /5/\n# Transponders: t:dvb_namespace:transport_stream_id:original_network_id,FEPARMS\n"
                   "# Services: s:service_id:dvb_namespace:transport_stream_id:original_network_id:service_type:"
                   "service_number,\"service_name\"[,p:provider_name][,c:cached_pid]*[,C:cached_capid]*[,f:flags]\n";
    for (int i = 0; i < transponderCount; ++i) {
        const GeneratedTransponder tp = transponder(i, random);
        appendf(list.lamedb, "%08x:%04x:%04x\n\t%c %s\n/\n", tp.ns, tp.tsid, tp.onid, tp.system, tp.tuning.constData());
        appendf(list.lamedb5, "t:%08x:%04x:%04x,%c:%s\n", tp.ns, tp.tsid, tp.onid, tp.system, tp.tuning.constData());
        transponders.append(tp);
    }
    list.lamedb += "end\nservices\n";

    list.services.reserve(options.services);
    QList<int> tvPool, radioPool;
    for (int i = 0; i < options.services; ++i) {
        const int t = int(qint64(i) * transponderCount / qMax(1, options.services));
        const GeneratedTransponder &tp = transponders.at(t);
        const bool radio = random.chance(12);
        static constexpr quint32 tvTypes[] = {1, 1, 1, 1, 1, 1, 0x19, 0x19, 0x19, 0x1f, 0x16};
        const quint32 type = radio ? 2 : random.pick(tvTypes);
        // Services of one transponder count up from a per-transponder base, so keys stay unique.
        const ServiceKey key{quint32(0x100 + (i % 1000) * 4 + t % 4), tp.tsid, tp.onid, tp.ns};
        const auto [storedName, name] = serviceName(radio, random);
        const auto [storedProvider, provider] = providerName(tp, random);
        const QByteArray pids = cachedPids(random);

        appendf(list.lamedb, "%04x:%08x:%04x:%04x:%u:0\n", key.sid, key.ns, key.tsid, key.onid, type);
        list.lamedb += storedName + "\np:" + storedProvider + pids + '\n';
        appendf(list.lamedb5, "s:%04x:%08x:%04x:%04x:%u:0,\"", key.sid, key.ns, key.tsid, key.onid, type);
        list.lamedb5 += storedName + '"' + (storedProvider.isEmpty() ? QByteArray() : ",p:" + storedProvider) + pids
            + '\n';

        (radio ? radioPool : tvPool).append(int(list.services.size()));
        list.services.append(Service{key, type, name, provider, tp.label});
    }
    list.lamedb += "end\nEdited by the benchmark generator\n";
    list.lamedb5 += "# Edited by the benchmark generator\n";

    const int radioBouquets = qBound(0, options.radioBouquets, options.bouquets);
    for (int b = 0; b < options.bouquets; ++b) {
        const bool radio = b >= options.bouquets - radioBouquets;
        const QList<int> &pool = radio && !radioPool.isEmpty() ? radioPool : tvPool.isEmpty() ? radioPool : tvPool;
        if (pool.isEmpty())
            break;
        BouquetFile file;
        file.kind = radio ? MediaKind::radio : MediaKind::tv;
        file.fileName = QString::asprintf("userbouquet.bench_%03d.", b + 1) + file.kind.rawValue();
        file.text = bouquetText(bouquetName(radio, b + 1, random), pool, list, options.entriesPerBouquet, random);
        list.bouquets.append(file);
    }
    list.bouquetsTv = indexText(MediaKind::tv, list.bouquets);
    list.bouquetsRadio = indexText(MediaKind::radio, list.bouquets);
    list.satellitesXml = satellitesXml();
    return list;
}

QStringList fileNames(const List &list)
{
    QStringList names{u"lamedb"_s, u"lamedb5"_s, u"bouquets.tv"_s, u"bouquets.radio"_s, u"satellites.xml"_s};
    for (const BouquetFile &bouquet : list.bouquets)
        names.append(bouquet.fileName);
    return names;
}

bool writeFolder(const List &list, const QString &folder)
{
    if (!QDir().mkpath(folder))
        return false;
    const auto write = [&folder](const QString &name, const QByteArray &bytes) {
        QFile file(folder + u'/' + name);
        return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
    };
    bool ok = write(u"lamedb"_s, list.lamedb) && write(u"lamedb5"_s, list.lamedb5)
        && write(u"bouquets.tv"_s, list.bouquetsTv) && write(u"bouquets.radio"_s, list.bouquetsRadio)
        && write(u"satellites.xml"_s, list.satellitesXml);
    for (const BouquetFile &bouquet : list.bouquets)
        ok = ok && write(bouquet.fileName, bouquet.text);
    return ok;
}

} // namespace ListGenerator
