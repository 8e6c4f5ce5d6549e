#pragma once

#include "BoxSettings.h"

#include <QByteArray>
#include <QString>
#include <QStringDecoder>
#include <QStringList>

#include <QCoroTask>

#include <chrono>
#include <memory>

class QTcpSocket;

// Runs one shell command on the box over Telnet and returns what it printed. Each run opens a
// fresh connection, answers the option negotiation, logs in when asked, sends the command with an
// end marker and closes again. Failures are thrown as TelnetError and written to the box log.
class TelnetClient
{
public:
    // How long each step may wait for the box; tests shorten them.
    struct Limits
    {
        std::chrono::milliseconds connect{10'000};
        std::chrono::milliseconds login{10'000};
        // Per chunk of output: a command may run longer as long as it keeps printing.
        std::chrono::milliseconds command{15'000};
    };

    // The client holds the connection while run() is under way: keep it alive until run() ends.
    explicit TelnetClient(BoxSettings settings);
    ~TelnetClient();

    void setLimits(const Limits &limits) { m_limits = limits; }
    QCoro::Task<QString> run(QString command);

    // Typed after the command: the shell prints the marker without the quotes, the echo of the
    // typed line keeps them, so only the real end of the output matches.
    static const QString suffix;
    static const QString marker;

    // The pure parts of the dialogue, tested without a network.
    // Removes Telnet commands from the bytes and collects the answers to send. A command cut off
    // at the end of a chunk waits in carry for the next one.
    static QByteArray handleIAC(const QByteArray &bytes, QByteArray &carry, QByteArray &reply);
    // The command's output without control sequences, echo, marker and surrounding blank lines.
    static QString clean(const QString &output, const QString &command);
    // A shell waiting for input: the last line ends in "# " or "$ ".
    static bool endsWithShellPrompt(QStringView text);

private:
    enum class Seen { marker, prompt, loginPrompt };
    struct Match
    {
        Seen seen;
        QString marker;
    };

    QCoro::Task<void> connect();
    QCoro::Task<void> login();
    void send(const QString &text);
    QCoro::Task<QByteArray> receiveChunk(std::chrono::milliseconds timeout);
    // Reads until one of the markers (or, when asked, a shell prompt) is in the text.
    QCoro::Task<Match> read(QStringList until, std::chrono::milliseconds timeout, bool orPrompt);
    void close();

    BoxSettings m_settings;
    Limits m_limits;
    std::unique_ptr<QTcpSocket> m_socket;
    QByteArray m_carry;
    QStringDecoder m_decoder{QStringDecoder::Utf8};
    QString m_text;
};
