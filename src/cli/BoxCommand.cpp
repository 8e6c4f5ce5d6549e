#include "BoxCommand.h"

#include "Console.h"
#include "Error.h"
#include "FolderScan.h"
#include "ListFolder.h"
#include "WebIf.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

// The files of the work folder into the target folder, each replaced whole.
void copyFiles(const QString &from, const QString &to)
{
    if (!QDir().mkpath(to)) {
        throw MessageError(
            QCoreApplication::translate("Store", "Der Ordner „%1“ konnte nicht angelegt werden.").arg(to));
    }
    const QStringList names = QDir(from).entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        QFile file(QDir(from).filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            throw MessageError(
                QCoreApplication::translate("ListFolder", "„%1“ konnte nicht gelesen werden: %2")
                    .arg(name, file.errorString()));
        }
        ListFolder::writeFile(to, name, file.readAll());
    }
}

} // namespace

BoxCommand::BoxCommand(const BoxSettings &settings, QObject *parent)
    : QObject(parent)
    , m_store(settings)
{
    connect(&m_store, &Store::busyChanged, this, [this] {
        if (m_store.busy()) Console::error(*m_store.busy());
    });
}

int BoxCommand::outcome()
{
    if (const std::optional<QString> message = m_store.errorMessage()) {
        Console::error(*message);
        return 1;
    }
    Console::line(m_store.status());
    return 0;
}

QCoro::Task<int> BoxCommand::download(QString folder)
{
    // Checked first: a download that cannot be put anywhere is not started.
    if (QFileInfo(folder).exists() && !QFileInfo(folder).isDir()) {
        Console::error(tr("„%1“ ist kein Ordner.").arg(folder));
        co_return 2;
    }
    co_await m_sync.downloadFromBox();
    if (const std::optional<QString> message = m_store.errorMessage()) {
        Console::error(*message);
        co_return 1;
    }
    try {
        copyFiles(m_store.folder(), folder);
    } catch (const std::exception &error) {
        Console::error(Console::describe(error));
        co_return 1;
    }
    Console::line(m_store.status());
    Console::line(QCoreApplication::translate("Store", "Gespeichert in %1.").arg(folder));
    co_return 0;
}

QCoro::Task<int> BoxCommand::upload(QString folder)
{
    try {
        m_store.load(folder);
    } catch (const std::exception &error) {
        Console::error(FolderScan::loadFailure(folder, error));
        co_return 2;
    }
    co_await m_sync.uploadToBox();
    co_return outcome();
}

QCoro::Task<int> BoxCommand::backup()
{
    const QStringList before = m_store.backups();
    co_await m_backups.backupNow();
    const int status = outcome();
    // A box without list files gets no backup.
    if (status == 0 && m_store.backups() != before && !m_store.backups().isEmpty())
        Console::line(m_store.backups().first());
    co_return status;
}

QCoro::Task<int> BoxCommand::reload(int mode)
{
    const BoxSettings settings = m_store.settings();
    // Named, not a temporary: GCC 12 destroys a lambda inside a co_await expression twice.
    std::function<QCoro::Task<>()> operation = [this, settings, mode]() -> QCoro::Task<> {
        co_await WebIf(settings).reloadServices(mode);
        m_store.setStatus(tr("Die Box hat ihre Senderliste neu geladen (Modus %1).").arg(mode));
    };
    co_await m_store.perform(tr("Lade Bouquets auf der Box neu…"), std::move(operation));
    co_return outcome();
}

QCoro::Task<int> BoxCommand::test()
{
    co_await m_sync.testConnection();
    co_return outcome();
}
