#include "SyncFixture.h"

#include "BoxListing.h"
#include "BoxLog.h"
#include "Error.h"
#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTest>

using namespace Qt::StringLiterals;

namespace SyncFixture {

Session::Session(const BoxSettings &settings)
{
    store.setSettings(settings);
}

BoxSettings settingsFor(const FakeBox &box)
{
    return box.settingsAs<BoxSettings>();
}

BoxSettings unreachableSettings()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    BoxSettings settings;
    settings.host = u"127.0.0.1"_s;
    settings.ftpPort = server.serverPort();
    settings.httpPort = server.serverPort();
    settings.password = u"secret"_s;
    return settings;
}

QString corpusFolder(const QString &name)
{
    const QString corpus = TestSupport::corpusDir();
    if (corpus.isEmpty())
        return {};
    return corpus + u'/' + name;
}

QStringList listFileNames(const QString &folder)
{
    QStringList names = BoxListing::listFiles(QDir(folder).entryList(QDir::Files));
    names.sort();
    return names;
}

void copyToBox(const FakeBox &box, const QString &folder, const QStringList &names)
{
    const QStringList files = names.isEmpty() ? QDir(folder).entryList(QDir::Files) : names;
    for (const QString &name : files)
        TestSupport::writeFile(box.path(u"/etc/enigma2/"_s + name), TestSupport::readFile(folder + u'/' + name));
}

QStringList entries(const QString &folder)
{
    QStringList names = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    names.sort();
    return names;
}

bool sameFiles(const QString &folder, const QString &other, const QStringList &names)
{
    for (const QString &name : names) {
        QFile a(folder + u'/' + name);
        QFile b(other + u'/' + name);
        if (!a.open(QIODevice::ReadOnly) || !b.open(QIODevice::ReadOnly)) {
            qWarning("missing: %s", qPrintable(name));
            return false;
        }
        if (a.readAll() != b.readAll()) {
            qWarning("different: %s", qPrintable(name));
            return false;
        }
    }
    return true;
}

namespace {

QCoro::Task<std::optional<Failure>> caught(QCoro::Task<> task)
{
    try {
        co_await std::move(task);
    } catch (const Error &error) {
        co_return Failure{error.description(), error.domain(), error.code()};
    }
    co_return std::nullopt;
}

} // namespace

std::optional<Failure> failureOf(QCoro::Task<> task)
{
    return QCoro::waitFor(caught(std::move(task)));
}

QList<FakeBoxRequest> requests(const FakeBox &box, const QString &path)
{
    QList<FakeBoxRequest> found;
    const QList<FakeBoxRequest> all = box.journal();
    for (const FakeBoxRequest &request : all) {
        if (request.path == path)
            found << request;
    }
    return found;
}

BusyTrail::BusyTrail(Store &store)
{
    connect(&store, &Store::busyChanged, this, [this, &store] {
        const QString label = store.busy().value_or(u"-"_s);
        m_labels << label;
        if (m_action && m_test(label))
            std::exchange(m_action, nullptr)();
    });
}

void BusyTrail::onLabel(std::function<bool(const QString &)> test, std::function<void()> action)
{
    m_test = std::move(test);
    m_action = std::move(action);
}

std::optional<QStringList> progress(const QStringList &labels, const QString &verb, bool complete)
{
    const QRegularExpression pattern(u'^' + QRegularExpression::escape(verb) + u" (.+) \\((\\d+)/(\\d+)\\)…$"_s);
    QStringList names;
    qsizetype total = -1;
    for (const QString &label : labels) {
        const QRegularExpressionMatch match = pattern.match(label);
        if (!match.hasMatch())
            continue;
        names << match.captured(1);
        if (match.captured(2).toLongLong() != names.size())
            return std::nullopt;
        if (total >= 0 && match.captured(3).toLongLong() != total)
            return std::nullopt;
        total = match.captured(3).toLongLong();
    }
    if (complete && names.size() != std::max<qsizetype>(total, 0))
        return std::nullopt;
    return names;
}

LogWatch::LogWatch()
{
    BoxLog::shared().flush();
    m_start = QFile(BoxLog::shared().filePath()).size();
}

QStringList LogWatch::entries() const
{
    BoxLog::shared().flush();
    QFile file(BoxLog::shared().filePath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    file.seek(m_start);
    QStringList result;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        // "HH:mm:ss  " comes first; day headers have no entry to show.
        if (BoxLog::dayOfHeader(line).isNull())
            result << line.mid(10);
    }
    return result;
}

} // namespace SyncFixture
