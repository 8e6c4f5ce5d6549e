#pragma once

#include "Backups.h"
#include "BoxSettings.h"
#include "BoxSync.h"
#include "FakeBox.h"
#include "Store.h"

#include <QCoroTask>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

// Helpers of the tests of the box operations: settings for the receiver test double, channel
// lists copied onto it, awaiting operations that throw, and what the store and the log showed.
namespace SyncFixture {

// A store with its backups and box operations, pointed at a box.
struct Session
{
    explicit Session(const BoxSettings &settings);
    Store store;
    Backups backups{store};
    BoxSync sync{store, backups};
};

BoxSettings settingsFor(const FakeBox &box);
// Settings that reach nobody: a loopback port on which nothing listens.
BoxSettings unreachableSettings();

// A list folder of the corpus, e.g. "mtcnl-ziggo-cable"; the test is skipped without the corpus.
QString corpusFolder(const QString &name);
// The channel-list files of a corpus folder, sorted: the files a download fetches.
QStringList listFileNames(const QString &folder);
// Copies the named files (all when empty) of a folder onto the box's /etc/enigma2/, as
// writable copies.
void copyToBox(const FakeBox &box, const QString &folder, const QStringList &names = {});
// The names in a folder, sorted, hidden ones included.
QStringList entries(const QString &folder);
// Whether two folders hold the same names with the same bytes.
bool sameFiles(const QString &folder, const QString &other, const QStringList &names);

struct Failure
{
    QString description;
    QString domain;
    int code = 0;
};
// Awaits a task and returns the Error it threw, or none when it succeeded.
std::optional<Failure> failureOf(QCoro::Task<> task);

// The requests for a web path in the double's journal.
QList<FakeBoxRequest> requests(const FakeBox &box, const QString &path);

// Every value the store's busy label took while it lived, in order; "-" for none.
class BusyTrail : public QObject
{
public:
    explicit BusyTrail(Store &store);
    QStringList labels() const { return m_labels; }
    void clear() { m_labels.clear(); }
    // Runs action once, the first time the busy label passes the test.
    void onLabel(std::function<bool(const QString &)> test, std::function<void()> action);

private:
    QStringList m_labels;
    std::function<bool(const QString &)> m_test;
    std::function<void()> m_action;
};

// The names of the labels "<verb> NAME (i/n)…" among the labels, in order; none unless the
// counters run from 1 without a gap, up to n when the work was complete.
std::optional<QStringList> progress(const QStringList &labels, const QString &verb, bool complete = true);

// The entries the shared box log received since this watch was made, without their times.
class LogWatch
{
public:
    LogWatch();
    QStringList entries() const;

private:
    qint64 m_start = 0;
};

} // namespace SyncFixture
