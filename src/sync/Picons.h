#pragma once

#include "PiconPackage.h"
#include "PiconUploadPlan.h"

#include <QCache>
#include <QCoro/QCoroTask>
#include <QImage>
#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>

class Store;
struct Service;

// A picon folder on the box and the names listed in it.
struct PiconDirectory
{
    QString directory;
    QStringList names;

    friend bool operator==(const PiconDirectory &, const PiconDirectory &) = default;
};

// The picons of the current box: the search for its picon folder, the download into the local
// cache per box, the index of that cache with the images of single services, and the upload of
// picon packages. The operations run through Store::perform; each returns its task, which may be
// awaited or dropped.
class Picons : public QObject
{
    Q_OBJECT

public:
    // Names per FTP run, for downloads and uploads alike.
    static constexpr qsizetype batchSize = 200;

    explicit Picons(Store &store, QObject *parent = nullptr);
    ~Picons() override;

    // The folders to search on the box, in order: the settings' own folder alone, when it is set.
    QStringList piconCandidates() const;
    static const QStringList &defaultCandidates();
    // Lists the candidates in turn and returns the first holding a PNG file. Without one, the
    // download fails, while the upload takes the first folder that could be listed (or the first
    // candidate).
    QCoro::Task<PiconDirectory> findPiconDirectory(QStringList candidates, bool forUpload);

    // Fetches the picons of the loaded services that the box has and the cache lacks.
    QCoro::Task<> downloadPicons();
    // Rereads the cache folder of the current box; empties the image cache.
    void reloadPiconIndex();
    // Picons/<box folder name> in the data folder.
    QString piconFolder();
    std::optional<QImage> picon(const Service &service);
    std::optional<QImage> picon(const QString &reference);

    // Opens a package, finds the target folder on the box and fills the upload plan.
    QCoro::Task<> preparePiconUpload(const QString &url);
    const std::optional<PiconUploadPlan> &piconUploadPlan() const { return m_plan; }
    void setPiconUploadPlan(const std::optional<PiconUploadPlan> &plan);
    void setUploadAll(bool uploadAll);
    void setOverwrite(bool overwrite);
    // Sends the plan's files, copies them into the local cache and closes the plan.
    QCoro::Task<> uploadPicons();
    // Closes the plan and removes its extraction folder.
    void cancelPiconUpload();
    void discardExtracted(const PiconPackage &package);

    // Images kept in memory, in kilobytes.
    static constexpr int imageCacheKilobytes = 64 * 1024;

signals:
    void piconUploadPlanChanged();
    // The index was reloaded: piconNames and piconCount may have changed.
    void piconsChanged();

private:
    QCoro::Task<> fetch();
    QCoro::Task<> prepare(QString url);
    QCoro::Task<> upload();
    void setChoice(bool PiconUploadPlan::*choice, bool value);

    Store &m_store;
    // The folder the index was read from; picon() loads its images from there.
    QString m_indexFolder;
    QCache<QString, QImage> m_images;
    std::optional<PiconUploadPlan> m_plan;
};
