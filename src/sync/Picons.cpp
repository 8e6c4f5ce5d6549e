#include "Picons.h"

#include "BoxError.h"
#include "EventWait.h"
#include "FTPClient.h"
#include "ListFolder.h"
#include "Paths.h"
#include "Picon.h"
#include "Service.h"
#include "Store.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QRegularExpression>
#include <QSaveFile>
#include <QThread>

#include <algorithm>
#include <exception>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QCoro::Task<> nothing()
{
    co_return;
}

// Unpacking a large package takes seconds; the window keeps painting meanwhile.
QCoro::Task<PiconPackage> openAside(QString url, QString workBase)
{
    PiconPackage package;
    std::exception_ptr failure;
    std::unique_ptr<QThread> thread(QThread::create([&package, &failure, url, workBase] {
        try {
            package = PiconPackage::open(url, workBase);
        } catch (...) {
            failure = std::current_exception();
        }
    }));
    EventWait done;
    done.on(thread.get(), &QThread::finished, 0);
    thread->start();
    co_await done.outcome();
    // finished() comes just before the thread ends; this covers only that moment.
    thread->wait();
    if (failure)
        std::rethrow_exception(failure);
    co_return package;
}

// A listing that failed because the box cannot be reached or refuses the login says nothing
// about the folder; trying the other candidates would only repeat it.
bool boxUnreachable(const BoxError &error)
{
    if (error.kind() != BoxError::Kind::curl)
        return true;
    static const QRegularExpression code(u"\\((\\d+)\\)"_s);
    const QRegularExpressionMatch match = code.match(error.message());
    const int status = match.hasMatch() ? match.captured(1).toInt() : 0;
    return status == 6 || status == 7 || status == 28 || status == 67;
}

bool holdsPng(const QStringList &names)
{
    return std::any_of(names.cbegin(), names.cend(),
                       [](const QString &name) { return name.endsWith(u".png", Qt::CaseInsensitive); });
}

QSet<QString> pngNames(const QString &folder)
{
    QSet<QString> names;
    QDirIterator it(folder, QDir::Files | QDir::Hidden);
    while (it.hasNext()) {
        it.next();
        const QString name = it.fileName();
        if (name.endsWith(u".png"))
            names.insert(name);
    }
    return names;
}

// The cache only mirrors the box: a picon that cannot be copied is fetched again by the next
// download, so a failure here does not fail the upload that already succeeded.
void copyIntoCache(const PiconFile &file, const QString &folder)
{
    QFile source(file.path);
    if (!source.open(QIODevice::ReadOnly))
        return;
    QSaveFile target(folder + u'/' + file.name);
    if (target.open(QIODevice::WriteOnly) && target.write(source.readAll()) >= 0)
        target.commit();
}

QString displayName(const QString &source)
{
    return QFileInfo(ListFolder::standardized(source)).fileName();
}

} // namespace

Picons::Picons(Store &store, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_images(imageCacheKilobytes)
{
    connect(&m_store, &Store::folderLoaded, this, &Picons::reloadPiconIndex);
    // The box folder name follows the host.
    connect(&m_store, &Store::settingsChanged, this, &Picons::reloadPiconIndex);
}

Picons::~Picons()
{
    if (m_plan)
        discardExtracted(m_plan->package);
}

const QStringList &Picons::defaultCandidates()
{
    static const QStringList candidates{u"/usr/share/enigma2/picon/"_s, u"/media/hdd/picon/"_s,
                                        u"/media/usb/picon/"_s,        u"/media/mmc/picon/"_s,
                                        u"/media/sdcard/picon/"_s,     u"/picon/"_s,
                                        u"/data/picon/"_s,             u"/usr/share/enigma2/XPicons/picon/"_s};
    return candidates;
}

QStringList Picons::piconCandidates() const
{
    const QString own = m_store.settings().piconDirectory.trimmed();
    if (own.isEmpty())
        return defaultCandidates();
    // Written with the slashes of the list folder.
    BoxSettings normalized;
    normalized.directory = own;
    return {normalized.normalizedDirectory()};
}

QCoro::Task<PiconDirectory> Picons::findPiconDirectory(QStringList candidates, bool forUpload)
{
    QPointer<Picons> self(this);
    const FTPClient client(m_store.settings());
    std::optional<PiconDirectory> firstListed;
    for (const QString &directory : std::as_const(candidates)) {
        m_store.setBusy(tr("Suche Picons in %1…").arg(directory));
        std::optional<QStringList> names;
        try {
            names = co_await client.list(directory);
        } catch (const BoxError &error) {
            if (boxUnreachable(error))
                throw;
        }
        if (!self)
            co_return {};
        if (!names)
            continue;
        if (!firstListed)
            firstListed = PiconDirectory{directory, *names};
        if (holdsPng(*names))
            co_return PiconDirectory{directory, *names};
    }
    if (!forUpload) {
        throw MessageError(tr("Keine Picons auf der Box gefunden. Geprüft: %1. ").arg(candidates.join(u", "_s)) +
                               tr("Das Verzeichnis kannst du in den Einstellungen angeben."),
                           u"Corvandel"_s, 3);
    }
    if (firstListed)
        co_return *firstListed;
    co_return PiconDirectory{candidates.value(0), {}};
}

// MARK: download and index

QCoro::Task<> Picons::downloadPicons()
{
    if (m_store.services().isEmpty()) {
        m_store.setErrorMessage(tr("Bitte zuerst eine Senderliste laden – Picons werden passend zu den Sendern geladen."));
        return nothing();
    }
    return m_store.perform(tr("Suche Picons auf der Box…"), [this] { return fetch(); });
}

QCoro::Task<> Picons::fetch()
{
    QPointer<Picons> self(this);
    const QString folder = piconFolder();
    const FTPClient client(m_store.settings());
    const PiconDirectory found = co_await findPiconDirectory(piconCandidates(), false);
    if (!self)
        co_return;
    if (!QDir().mkpath(folder))
        throw MessageError(tr("Der Ordner „%1“ kann nicht angelegt werden.").arg(folder));

    const QSet<QString> local = pngNames(folder);
    const QSet<QString> onBox(found.names.cbegin(), found.names.cend());
    QStringList wanted;
    QSet<QString> taken;
    int present = 0;
    for (const Service &service : m_store.services()) {
        for (const QString &name : Picon::fileNames(reference(service))) {
            if (!onBox.contains(name) || taken.contains(name))
                continue;
            taken.insert(name);
            if (local.contains(name))
                ++present;
            else
                wanted.append(name);
        }
    }

    int fetched = 0;
    for (qsizetype start = 0; start < wanted.size(); start += batchSize) {
        const QStringList batch = wanted.mid(start, batchSize);
        m_store.setBusy(tr("Lade Picons %1/%2…").arg(start + batch.size()).arg(wanted.size()));
        fetched += co_await client.download(batch, found.directory, folder);
        if (!self)
            co_return;
    }
    reloadPiconIndex();
    m_store.setStatus(tr("Picons aus %1: %2 neu geladen, %3 vorhanden (%4 Dateien auf der Box).")
                          .arg(found.directory)
                          .arg(fetched)
                          .arg(present)
                          .arg(found.names.size()));
}

QString Picons::piconFolder()
{
    return Paths::dataDir() + u"/Picons/"_s + m_store.boxFolderName();
}

void Picons::reloadPiconIndex()
{
    m_indexFolder = piconFolder();
    const QSet<QString> names = pngNames(m_indexFolder);
    m_store.setPiconNames(names);
    m_store.setPiconCount(int(names.size()));
    m_images.clear();
    emit piconsChanged();
}

std::optional<QImage> Picons::picon(const Service &service)
{
    return picon(reference(service));
}

std::optional<QImage> Picons::picon(const QString &reference)
{
    const QSet<QString> &names = m_store.piconNames();
    for (const QString &name : Picon::fileNames(reference)) {
        if (!names.contains(name))
            continue;
        if (const QImage *cached = m_images.object(name))
            return *cached;
        const QImage image(m_indexFolder + u'/' + name);
        if (image.isNull())
            return std::nullopt;
        m_images.insert(name, new QImage(image), int(image.sizeInBytes() / 1024) + 1);
        return image;
    }
    return std::nullopt;
}

// MARK: upload

QCoro::Task<> Picons::preparePiconUpload(const QString &url)
{
    return m_store.perform(tr("Öffne Picon-Paket…"), [this, url] { return prepare(url); });
}

QCoro::Task<> Picons::prepare(QString url)
{
    QPointer<Picons> self(this);
    cancelPiconUpload();
    const QString workBase = Paths::dataDir();
    const PiconPackage package = co_await openAside(url, workBase);
    if (!self) {
        PiconPackage::discardExtracted(package, workBase);
        co_return;
    }
    if (package.files.isEmpty()) {
        discardExtracted(package);
        throw MessageError(tr("In „%1“ wurden keine Picons mit Service-Referenz-Namen (1_0_…png) gefunden.")
                               .arg(displayName(package.source)));
    }

    std::optional<PiconDirectory> target;
    try {
        target = co_await findPiconDirectory(piconCandidates(), true);
    } catch (...) {
        PiconPackage::discardExtracted(package, workBase);
        throw;
    }
    if (!self) {
        PiconPackage::discardExtracted(package, workBase);
        co_return;
    }
    const PiconUploadPlan plan = PiconUploadPlan::build(package, target->directory, target->names, m_store.services());
    setPiconUploadPlan(plan);
    m_store.setStatus(tr("Picon-Paket „%1“: %2 Picons, %3 passend zur Liste, Ziel %4.")
                          .arg(displayName(package.source))
                          .arg(plan.total())
                          .arg(plan.matchingCount())
                          .arg(plan.directory));
}

void Picons::setPiconUploadPlan(const std::optional<PiconUploadPlan> &plan)
{
    if (m_plan == plan)
        return;
    m_plan = plan;
    emit piconUploadPlanChanged();
}

void Picons::setUploadAll(bool uploadAll)
{
    setChoice(&PiconUploadPlan::uploadAll, uploadAll);
}

void Picons::setOverwrite(bool overwrite)
{
    setChoice(&PiconUploadPlan::overwrite, overwrite);
}

void Picons::setChoice(bool PiconUploadPlan::*choice, bool value)
{
    if (!m_plan || (*m_plan).*choice == value)
        return;
    (*m_plan).*choice = value;
    emit piconUploadPlanChanged();
}

QCoro::Task<> Picons::uploadPicons()
{
    if (!m_plan)
        return nothing();
    return m_store.perform(tr("Lade Picons hoch…"), [this] { return upload(); });
}

QCoro::Task<> Picons::upload()
{
    QPointer<Picons> self(this);
    if (!m_plan)
        co_return;
    const PiconUploadPlan plan = *m_plan;
    const QList<PiconFile> files = plan.files();
    const QString folder = piconFolder();
    QDir().mkpath(folder);
    const FTPClient client(m_store.settings());
    for (qsizetype start = 0; start < files.size(); start += batchSize) {
        const QList<PiconFile> batch = files.mid(start, batchSize);
        m_store.setBusy(tr("Lade Picons hoch %1/%2…").arg(start + batch.size()).arg(files.size()));
        QList<FTPClient::Upload> uploads;
        for (const PiconFile &file : batch)
            uploads.append(FTPClient::Upload{file.path, file.name});
        co_await client.upload(uploads, plan.directory);
        if (!self)
            co_return;
        for (const PiconFile &file : batch)
            copyIntoCache(file, folder);
    }
    reloadPiconIndex();
    m_store.setStatus(tr("%1 Picons nach %2 hochgeladen.").arg(files.size()).arg(plan.directory));
    discardExtracted(plan.package);
    setPiconUploadPlan(std::nullopt);
}

void Picons::cancelPiconUpload()
{
    if (!m_plan)
        return;
    discardExtracted(m_plan->package);
    setPiconUploadPlan(std::nullopt);
}

void Picons::discardExtracted(const PiconPackage &package)
{
    PiconPackage::discardExtracted(package, Paths::dataDir());
}
