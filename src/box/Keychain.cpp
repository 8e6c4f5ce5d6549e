#include "Keychain.h"

#include "Paths.h"
#include "Utf8.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QMutex>
#include <QSaveFile>
#include <QSemaphore>
#include <QThread>

#include <qt6keychain/keychain.h>

#include <functional>
#include <memory>
#include <mutex>

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(lcKeychain, "corvandel.box.keychain")

namespace {

// How long a caller waits for the secret service, e.g. while it asks the user to unlock.
constexpr int jobLimitMs = 15'000;
constexpr int busCallLimitMs = 2'000;

QMutex cacheMutex;
QHash<QString, QString> &cache()
{
    static QHash<QString, QString> entries;
    return entries;
}

QMutex fileMutex;

struct JobOutcome
{
    QKeychain::Error error = QKeychain::OtherError;
    QByteArray data;
};

// QtKeychain jobs finish asynchronously through an event loop. Settings are loaded and saved
// synchronously on the GUI thread, so the jobs run in a thread of their own while the caller
// waits, bounded, on a semaphore: no nested event loop re-enters the GUI.
class JobThread
{
public:
    JobThread()
    {
        m_thread.setObjectName(u"Corvandel.Keychain"_s);
        m_context.moveToThread(&m_thread);
        m_thread.start();
    }
    ~JobThread() { stop(); }

    void stop()
    {
        m_thread.quit();
        m_thread.wait();
    }

    std::optional<JobOutcome> run(std::function<QKeychain::Job *()> makeJob)
    {
        if (!m_thread.isRunning())
            return std::nullopt;
        struct State
        {
            QSemaphore done;
            JobOutcome outcome;
        };
        auto state = std::make_shared<State>();
        QMetaObject::invokeMethod(
            &m_context,
            [state, makeJob, context = &m_context] {
                QKeychain::Job *job = makeJob();
                job->setAutoDelete(true);
                QObject::connect(job, &QKeychain::Job::finished, context, [state](QKeychain::Job *finished) {
                    state->outcome.error = finished->error();
                    if (auto *read = qobject_cast<QKeychain::ReadPasswordJob *>(finished))
                        state->outcome.data = read->binaryData();
                    state->done.release();
                });
                job->start();
            },
            Qt::QueuedConnection);
        if (!state->done.tryAcquire(1, jobLimitMs)) {
            qCWarning(lcKeychain) << "secret service did not answer in time";
            return std::nullopt;
        }
        return state->outcome;
    }

private:
    QThread m_thread;
    QObject m_context;
};

JobThread &jobThread()
{
    static JobThread thread;
    static std::once_flag once;
    std::call_once(once, [] {
        if (QCoreApplication::instance())
            qAddPostRoutine([] { jobThread().stop(); });
    });
    return thread;
}

std::optional<QByteArray> storeRead(const QString &account, const QString &service)
{
    const auto outcome = jobThread().run([=] {
        auto *job = new QKeychain::ReadPasswordJob(service);
        job->setKey(account);
        return job;
    });
    if (!outcome || outcome->error != QKeychain::NoError)
        return std::nullopt;
    return outcome->data;
}

void storeWrite(const QString &value, const QString &account, const QString &service)
{
    const auto outcome = jobThread().run([=]() -> QKeychain::Job * {
        if (value.isEmpty()) {
            auto *job = new QKeychain::DeletePasswordJob(service);
            job->setKey(account);
            return job;
        }
        auto *job = new QKeychain::WritePasswordJob(service);
        job->setKey(account);
        // Stored as text, so that the desktop's password manager shows it readably.
        job->setTextData(value);
        return job;
    });
    if (outcome && outcome->error != QKeychain::NoError && outcome->error != QKeychain::EntryNotFound)
        qCWarning(lcKeychain) << "secret service refused a change, error" << outcome->error;
}

// The fallback file: {"service": {"account": "password"}}, mode 0600.
QJsonObject loadFile()
{
    QFile file(Keychain::fallbackFilePath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

void saveFile(const QJsonObject &content)
{
    const QString path = Keychain::fallbackFilePath();
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        qCWarning(lcKeychain) << "cannot write" << path << file.errorString();
        return;
    }
    // Restrict the file before a single byte of a password is in it.
    file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    file.write(QJsonDocument(content).toJson());
    if (!file.commit())
        qCWarning(lcKeychain) << "cannot write" << path << file.errorString();
}

std::optional<QByteArray> fileRead(const QString &account, const QString &service)
{
    QMutexLocker lock(&fileMutex);
    const QJsonValue value = loadFile().value(service).toObject().value(account);
    if (!value.isString())
        return std::nullopt;
    return value.toString().toUtf8();
}

void fileWrite(const QString &value, const QString &account, const QString &service)
{
    QMutexLocker lock(&fileMutex);
    QJsonObject content = loadFile();
    QJsonObject accounts = content.value(service).toObject();
    if (value.isEmpty() && !accounts.contains(account))
        return;
    if (value.isEmpty())
        accounts.remove(account);
    else
        accounts.insert(account, value);
    if (accounts.isEmpty())
        content.remove(service);
    else
        content.insert(service, accounts);
    saveFile(content);
}

bool secretServiceReachable()
{
    // Without a bus address, libdbus would try to autolaunch one; ask only when a bus exists.
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) {
        const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
        if (runtime.isEmpty() || !QFileInfo::exists(runtime + u"/bus"_s))
            return false;
    }
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage call = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                       u"org.freedesktop.DBus"_s, u"NameHasOwner"_s);
    call << u"org.freedesktop.secrets"_s;
    const QDBusMessage reply = bus.call(call, QDBus::Block, busCallLimitMs);
    return reply.type() == QDBusMessage::ReplyMessage && reply.arguments().value(0).toBool();
}

} // namespace

namespace Keychain {

std::optional<QString> read(const QString &account, const QString &service)
{
    // Read as bytes, so that an item that is not UTF-8 counts as no password.
    const std::optional<QByteArray> bytes =
        usesFallbackFile() ? fileRead(account, service) : storeRead(account, service);
    if (!bytes || !Utf8::isValid(*bytes))
        return std::nullopt;
    const QString text = QString::fromUtf8(*bytes);
    if (service == currentService) {
        QMutexLocker lock(&cacheMutex);
        cache().insert(account, text);
    }
    return text;
}

void write(const QString &value, const QString &account, const QString &service)
{
    if (service == currentService) {
        QMutexLocker lock(&cacheMutex);
        cache().insert(account, value);
    }
    if (usesFallbackFile())
        fileWrite(value, account, service);
    else
        storeWrite(value, account, service);
}

std::optional<QString> cached(const QString &account)
{
    QMutexLocker lock(&cacheMutex);
    const auto it = cache().constFind(account);
    if (it == cache().constEnd())
        return std::nullopt;
    return *it;
}

bool usesFallbackFile()
{
    return !secretServiceReachable();
}

QString fallbackFilePath()
{
    return Paths::dataDir() + u"/passwords.json"_s;
}

} // namespace Keychain
