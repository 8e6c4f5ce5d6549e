#include "TelnetClient.h"

#include "BoxError.h"
#include "BoxLog.h"
#include "EventWait.h"
#include "TelnetError.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

namespace {

constexpr char iac = char(255);
constexpr char dont = char(254);
constexpr char doOption = char(253);
constexpr char wont = char(252);
constexpr char will = char(251);
constexpr char subnegotiation = char(250);
constexpr char subnegotiationEnd = char(240);
// A box that opens a subnegotiation and never ends it must not make the carry grow forever.
constexpr qsizetype maxCarry = 4096;

QByteArray command(char verb, char option)
{
    QByteArray bytes(1, iac);
    bytes += verb;
    bytes += option;
    return bytes;
}

QString seconds(const QElapsedTimer &clock)
{
    return QString::asprintf("%.2f s", clock.elapsed() / 1000.0);
}

} // namespace

const QString TelnetClient::suffix = u"; echo __CV_\"\"DONE__\r\n"_s;
const QString TelnetClient::marker = u"__CV_DONE__"_s;

TelnetClient::TelnetClient(BoxSettings settings)
    : m_settings(std::move(settings))
{
}

TelnetClient::~TelnetClient() = default;

QByteArray TelnetClient::handleIAC(const QByteArray &bytes, QByteArray &carry, QByteArray &reply)
{
    const QByteArray data = carry + bytes;
    carry.clear();
    QByteArray out;
    out.reserve(data.size());
    qsizetype i = 0;
    while (i < data.size()) {
        if (data[i] != iac) {
            out += data[i++];
            continue;
        }
        if (i + 1 >= data.size())
            break;
        const char command = data[i + 1];
        if (command == doOption || command == dont || command == will || command == wont) {
            if (i + 2 >= data.size())
                break;
            const char option = data[i + 2];
            // The client offers nothing and accepts whatever the box offers (echo, no go-ahead).
            if (command == doOption)
                reply += ::command(wont, option);
            else if (command == will)
                reply += ::command(doOption, option);
            i += 3;
        } else if (command == subnegotiation) {
            const qsizetype end = data.indexOf(QByteArray(1, iac) + subnegotiationEnd, i + 2);
            if (end < 0)
                break;
            i = end + 2;
        } else {
            i += 2;
        }
    }
    if (i < data.size() && data.size() - i <= maxCarry)
        carry = data.mid(i);
    return out;
}

QString TelnetClient::clean(const QString &output, const QString &command)
{
    static const QRegularExpression controlSequences(u"\x1b\\[[0-9;?]*[A-Za-z]"_s);
    QString text = output;
    text.remove(controlSequences);
    const qsizetype end = text.indexOf(marker);
    if (end >= 0)
        text.truncate(end);
    text.remove(u'\r');

    // The echo of the typed line ends with the quoted marker; it and whatever came before it (a
    // late prompt, the rest of a greeting) are not output. The command itself is not searched for:
    // the terminal may have wrapped its echo.
    Q_UNUSED(command);
    QStringList lines = text.split(u'\n');
    const QString echoedMarker = suffix.trimmed().mid(2);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].contains(echoedMarker)) {
            lines.remove(0, i + 1);
            break;
        }
    }
    while (!lines.isEmpty() && lines.first().trimmed().isEmpty())
        lines.removeFirst();
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty())
        lines.removeLast();
    return lines.join(u'\n');
}

bool TelnetClient::endsWithShellPrompt(QStringView text)
{
    return text.endsWith(u"# ") || text.endsWith(u"$ ");
}

QCoro::Task<QString> TelnetClient::run(QString command)
{
    const QString host = m_settings.host.trimmed();
    if (host.isEmpty())
        throw BoxError::noHost();
    BoxLog &log = BoxLog::shared();
    log.write(BoxLog::Level::info, u"Telnet"_s,
              host + u':' + QString::number(m_settings.telnetPort) + u" Befehl: "_s + command);
    QElapsedTimer clock;
    clock.start();
    try {
        co_await connect();
        co_await login();
        m_text.clear();
        send(command + suffix);
        // (Lists are built outside co_await: GCC 12 cannot keep a braced list across it.)
        const QStringList end{marker};
        co_await read(end, m_limits.command, false);
        const QString output = clean(m_text, command);
        close();
        log.write(BoxLog::Level::ok, u"Telnet"_s,
                  seconds(clock) + u", "_s + QString::number(output.size()) + u" Zeichen Ausgabe"_s);
        co_return output;
    } catch (const TelnetError &error) {
        close();
        log.write(BoxLog::Level::error, u"Telnet"_s, u"fehlgeschlagen nach "_s + seconds(clock) + u": "_s +
                                                         error.description());
        throw;
    }
}

QCoro::Task<void> TelnetClient::connect()
{
    m_socket = std::make_unique<QTcpSocket>();
    m_carry.clear();
    m_decoder.resetState();
    EventWait connected(m_limits.connect);
    connected.on(m_socket.get(), &QTcpSocket::connected, 1);
    connected.on(m_socket.get(), &QTcpSocket::errorOccurred, 0);
    m_socket->connectToHost(m_settings.host.trimmed(), quint16(m_settings.telnetPort));
    if (co_await connected.outcome() != 1)
        throw TelnetError::unreachable(m_settings.telnetPort);
}

QCoro::Task<void> TelnetClient::login()
{
    m_text.clear();
    // Some boxes show the shell at once, without any login.
    const QStringList prompts{u"login:"_s, u"ogin:"_s, u"assword:"_s};
    const Match first = co_await read(prompts, m_limits.login, true);
    if (first.seen == Seen::prompt)
        co_return;
    if (first.marker != u"assword:") {
        m_text.clear();
        send(m_settings.user + u"\r\n"_s);
        const QStringList answers{u"assword:"_s, u"incorrect"_s, u"failed"_s};
        const Match next = co_await read(answers, m_limits.login, true);
        // An empty root password: the shell follows the user name directly.
        if (next.seen == Seen::prompt)
            co_return;
        if (next.marker != u"assword:")
            throw TelnetError::loginFailed();
    }
    m_text.clear();
    send(m_settings.password + u"\r\n"_s);
    Match after{Seen::prompt, {}};
    try {
        const QStringList refusals{u"incorrect"_s, u"failed"_s, u"ogin:"_s};
        after = co_await read(refusals, m_limits.login, true);
    } catch (const TelnetError &error) {
        // No sign of a refusal in time: the box took the password but shows an unusual prompt.
        if (error.kind() != TelnetError::Kind::timeout)
            throw;
    }
    if (after.seen == Seen::marker)
        throw TelnetError::loginFailed();
}

void TelnetClient::send(const QString &text)
{
    m_socket->write(text.toUtf8());
}

QCoro::Task<QByteArray> TelnetClient::receiveChunk(std::chrono::milliseconds timeout)
{
    if (m_socket->bytesAvailable() == 0) {
        if (m_socket->state() != QAbstractSocket::ConnectedState)
            throw TelnetError::closed();
        enum { data, gone };
        EventWait wait(timeout);
        wait.on(m_socket.get(), &QTcpSocket::readyRead, data);
        wait.on(m_socket.get(), &QTcpSocket::disconnected, gone);
        wait.on(m_socket.get(), &QTcpSocket::errorOccurred, gone);
        if (co_await wait.outcome() == EventWait::timedOut)
            throw TelnetError::timeout();
    }
    const QByteArray bytes = m_socket->readAll();
    if (bytes.isEmpty())
        throw TelnetError::closed();
    QByteArray reply;
    const QByteArray rest = handleIAC(bytes, m_carry, reply);
    // Answers go out at once, before the data is looked at.
    if (!reply.isEmpty())
        m_socket->write(reply);
    co_return rest;
}

QCoro::Task<TelnetClient::Match> TelnetClient::read(QStringList until, std::chrono::milliseconds timeout,
                                                    bool orPrompt)
{
    while (true) {
        for (const QString &wanted : std::as_const(until)) {
            if (m_text.contains(wanted))
                co_return Match{Seen::marker, wanted};
        }
        if (orPrompt && endsWithShellPrompt(m_text))
            co_return Match{Seen::prompt, {}};
        const QByteArray chunk = co_await receiveChunk(timeout);
        // The decoder keeps a character split between two chunks whole.
        m_text += m_decoder.decode(chunk);
    }
}

void TelnetClient::close()
{
    if (m_socket)
        m_socket->abort();
    m_socket.reset();
}
