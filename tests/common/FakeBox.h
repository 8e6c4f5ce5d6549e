#pragma once

#include <QList>
#include <QPair>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

// How the receiver test double behaves. The defaults make a healthy box that asks for a password.
struct FakeBoxOptions
{
    // The folder served as the box's "/"; empty: a fresh temporary folder. etc/enigma2/ is created.
    QString root;
    QString user = QStringLiteral("root");
    // Empty: the Telnet login asks for no password, as on many images.
    QString password = QStringLiteral("secret");
    // Web requests need Basic authorization with user and password.
    bool httpAuth = true;
    // Seconds before "Login incorrect" over Telnet.
    double loginDelay = 0.3;
    // The service on screen; an empty reference means nothing is tuned.
    QString serviceRef = QStringLiteral("1:0:19:2B66:401:1:C00000:0:0:0:");
    QString serviceName = QStringLiteral("Example HD");

    // Faults.
    bool refuseLogins = false;
    // Close the connection after this many bytes of FTP data or Telnet output.
    qint64 dropAfter = -1;
    // Seconds without a byte: inside FTP downloads (after stallAfter bytes) and before HTTP answers.
    double stall = 0;
    qint64 stallAfter = 0;
    // Answer every /web/ request with this status.
    int httpStatus = 0;
    // Telnet: the shell prompt at once, or no prompt at all after the banner.
    bool telnetNoLogin = false;
    bool telnetSilent = false;
};

// What a box client needs to reach the double; tests copy the fields into their settings.
struct FakeBoxConnection
{
    QString host = QStringLiteral("127.0.0.1");
    int ftpPort = 0;
    int httpPort = 0;
    int telnetPort = 0;
    QString user;
    QString password;
};

// One request the double received: a web request, or a Telnet command line.
struct FakeBoxRequest
{
    QString protocol; // "http" or "telnet"
    QString path;
    QList<QPair<QString, QString>> query; // decoded once, as the box decodes it
    QString rawQuery;
    // The Authorization header as sent; a null string when there was none.
    QString authorization;
    bool authorized = false;
    int status = 0;
    QString command;

    // The first value of a query parameter; a null string when absent.
    QString value(const QString &key) const;
};

// Starts tests/fakebox/fakebox.py on loopback with free ports and stops it in the destructor.
class FakeBox
{
public:
    explicit FakeBox(FakeBoxOptions options = {});
    ~FakeBox();
    FakeBox(const FakeBox &) = delete;
    FakeBox &operator=(const FakeBox &) = delete;

    // False when the double did not come up; errorString() says why.
    bool isRunning() const;
    QString errorString() const;

    // The folder served as "/", and a path below it ("/etc/enigma2/lamedb").
    QString root() const;
    QString path(const QString &boxPath) const;
    FakeBoxConnection connection() const;
    // The connection as any settings record with the fields host, ftpPort, httpPort, telnetPort,
    // user and password, e.g. box.settingsAs<BoxSettings>(); this library does not link the box's.
    template<typename Settings>
    Settings settingsAs() const
    {
        Settings settings;
        settings.host = m_connection.host;
        settings.ftpPort = m_connection.ftpPort;
        settings.httpPort = m_connection.httpPort;
        settings.telnetPort = m_connection.telnetPort;
        settings.user = m_connection.user;
        settings.password = m_connection.password;
        return settings;
    }
    // Every request so far, in arrival order.
    QList<FakeBoxRequest> journal() const;

    static QString scriptPath();

private:
    FakeBoxOptions m_options;
    std::unique_ptr<QTemporaryDir> m_ownRoot;
    QTemporaryDir m_work;
    QProcess m_process;
    FakeBoxConnection m_connection;
    QString m_error;
    bool m_running = false;
};
