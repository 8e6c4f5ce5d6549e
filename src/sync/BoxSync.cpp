#include "BoxSync.h"

#include "Backups.h"
#include "BoxListing.h"
#include "BoxLog.h"
#include "Error.h"
#include "FTPClient.h"
#include "ListFolder.h"
#include "StagingFolder.h"
#include "Store.h"
#include "TextRepair.h"
#include "Utf8.h"
#include "WebIf.h"

#include <QDir>
#include <QFile>
#include <QPointer>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

// Where satellites.xml may lie on a box, in the order it is looked for.
const QStringList satelliteFolders{u"/etc/enigma2/"_s, u"/etc/tuxbox/"_s};

QString describe(const std::exception &error)
{
    if (const auto *own = dynamic_cast<const Error *>(&error))
        return own->description();
    return QString::fromUtf8(error.what());
}

} // namespace

const QStringList BoxSync::lamedbNames{u"lamedb"_s, u"lamedb5"_s};

BoxSync::BoxSync(Store &store, Backups &backups, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_backups(backups)
{
}

QCoro::Task<> BoxSync::testConnection()
{
    return m_store.perform(tr("Teste Verbindung…"), [this] { return runConnectionTest(); });
}

QCoro::Task<> BoxSync::downloadFromBox()
{
    return m_store.perform(tr("Lade von der Box…"), [this] { return runDownload(); });
}

QCoro::Task<> BoxSync::uploadToBox()
{
    return m_store.perform(tr("Sichere die Liste auf der Box…"), [this] { return runUpload(); });
}

QCoro::Task<> BoxSync::repairLamedbOnBox()
{
    // Confirmed: the question is answered.
    m_store.setLamedbRepairCount(std::nullopt);
    QPointer<BoxSync> self(this);
    bool repaired = false;
    // Named, not a temporary: GCC 12 destroys a lambda inside a co_await expression twice when the
    // awaited task has already finished.
    std::function<QCoro::Task<>()> operation = [this, &repaired]() -> QCoro::Task<> {
        repaired = co_await runRepair();
    };
    co_await m_store.perform(tr("Repariere Zeichen in der lamedb…"), std::move(operation));
    // The open document should show what the box now holds.
    if (self && repaired)
        co_await downloadFromBox();
}

void BoxSync::prepareLamedbRepair()
{
    const QString folder = m_store.folder();
    if (folder.isEmpty())
        return;
    int total = 0;
    for (const QString &name : lamedbNames) {
        QFile file(QDir(folder).filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        total += TextRepair::fixFile(Utf8::repaired(file.readAll())).fixedLines;
    }
    if (total > 0)
        m_store.setLamedbRepairCount(total);
    else
        m_store.setStatus(tr("In der lamedb gibt es keine falsch kodierten Zeichen."));
}

QCoro::Task<> BoxSync::runConnectionTest()
{
    const BoxSettings settings = m_store.settings();
    const QStringList names = co_await FTPClient(settings).listFiles();
    const bool found = names.contains(u"lamedb"_s) || names.contains(u"lamedb5"_s);
    m_store.setStatus(tr("Verbindung OK: %1 Dateien in %2").arg(QString::number(names.size()), settings.normalizedDirectory())
                      + (found ? tr(", lamedb gefunden.") : tr(", aber keine lamedb!")));
}

QCoro::Task<> BoxSync::runDownload()
{
    const BoxSettings settings = m_store.settings();
    // First, because resolving the host may fold older folders of this box into its address.
    const QString workDir = m_store.workDir();
    const FTPClient ftp(settings);
    const QStringList names = BoxListing::listFiles(co_await ftp.listFiles());
    if (!names.contains(u"lamedb"_s) && !names.contains(u"lamedb5"_s)) {
        throw MessageError(tr("Weder lamedb noch lamedb5 im Verzeichnis %1 auf der Box gefunden.")
                               .arg(settings.normalizedDirectory()),
                           u"Corvandel"_s, 2);
    }

    // Fetched beside the work folder, which is replaced only once everything has arrived and the
    // list opens: a failure leaves both the folder and the open document as they were.
    StagingFolder staging(workDir);
    for (qsizetype i = 0; i < names.size(); ++i) {
        const QString &name = names.at(i);
        m_store.setBusy(tr("Lade %1 (%2/%3)…").arg(name).arg(i + 1).arg(names.size()));
        ListFolder::writeFile(staging.path(), name, co_await ftp.download(name));
    }
    for (const QString &folder : satelliteFolders) {
        QStringList listing;
        try {
            listing = co_await ftp.list(folder);
        } catch (const Error &) {
            continue;
        }
        if (!listing.contains(u"satellites.xml"_s))
            continue;
        m_store.setBusy(tr("Lade satellites.xml…"));
        co_await ftp.download(QStringList(u"satellites.xml"_s), folder, staging.path());
        break;
    }

    staging.install([&] { m_store.load(workDir); });
    m_backups.reloadBackups();
    m_store.setStatus(tr("Von %1 geladen: %2").arg(settings.host, m_store.status()));
}

QCoro::Task<> BoxSync::runUpload()
{
    const BoxSettings settings = m_store.settings();
    const FTPClient ftp(settings);
    const QString workDir = m_store.workDir();
    std::optional<QString> backupFailure;
    try {
        co_await m_backups.backupBox(ftp);
    } catch (const std::exception &error) {
        backupFailure = describe(error);
    }
    if (backupFailure) {
        throw MessageError(tr("Sicherung fehlgeschlagen, es wurde nichts gesendet: %1").arg(*backupFailure),
                           u"Corvandel"_s, 3);
    }

    m_store.setBusy(tr("Sende an die Box…"));
    const quint64 revision = m_store.revision();
    QStringList written = m_store.save(workDir);
    // The save never writes such names; nothing that could land elsewhere on the box is sent.
    written.removeIf([](const QString &name) { return BoxListing::isHostile(name); });
    const bool database =
        std::any_of(written.cbegin(), written.cend(), [](const QString &name) { return name.startsWith(u"lamedb"); });
    for (qsizetype i = 0; i < written.size(); ++i) {
        const QString &name = written.at(i);
        m_store.setBusy(tr("Sende %1 (%2/%3)…").arg(name).arg(i + 1).arg(written.size()));
        co_await ftp.upload(QDir(workDir).filePath(name), name);
    }
    // An edit made while the files travelled is not on the box.
    if (m_store.revision() == revision)
        m_store.setDirty(false);

    m_store.setBusy(tr("Lade Bouquets auf der Box neu…"));
    std::optional<QString> reloadFailure;
    try {
        co_await WebIf(settings).reloadServices(database ? 0 : 2);
    } catch (const std::exception &error) {
        reloadFailure = describe(error);
    }
    if (reloadFailure) {
        m_store.setStatus(tr("%1 Dateien gesendet. Neuladen per HTTP fehlgeschlagen: %2")
                              .arg(QString::number(written.size()), *reloadFailure));
    } else {
        m_store.setStatus(tr("%1 Dateien gesendet, Bouquets auf der Box neu geladen.").arg(written.size()));
    }
}

QCoro::Task<bool> BoxSync::runRepair()
{
    const BoxSettings settings = m_store.settings();
    const FTPClient ftp(settings);
    const QString workDir = m_store.workDir();
    co_await m_backups.backupBox(ftp);

    const QStringList listing = co_await ftp.listFiles();
    if (!QDir().mkpath(workDir))
        throw MessageError(tr("Der Ordner „%1“ konnte nicht angelegt werden.").arg(workDir));
    int total = 0;
    for (const QString &name : lamedbNames) {
        if (!listing.contains(name))
            continue;
        m_store.setBusy(tr("Repariere %1…").arg(name));
        const TextRepair::FixedFile fixed = TextRepair::fixFile(Utf8::repaired(co_await ftp.download(name)));
        if (fixed.fixedLines == 0)
            continue;
        ListFolder::writeFile(workDir, name, fixed.text);
        co_await ftp.upload(QDir(workDir).filePath(name), name);
        BoxLog::shared().write(BoxLog::Level::info, u"Reparatur"_s,
                               u"%1: %2 Zeilen korrigiert"_s.arg(name).arg(fixed.fixedLines));
        total += fixed.fixedLines;
    }
    if (total == 0) {
        m_store.setStatus(tr("Nichts zu reparieren."));
        co_return false;
    }

    m_store.setBusy(tr("Lade die Senderliste auf der Box neu…"));
    co_await WebIf(settings).reloadServices(0);
    m_store.setStatus(tr("%1 Zeilen in der lamedb repariert und auf der Box neu geladen (vorher gesichert).").arg(total));
    co_return true;
}
