#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>

#include <functional>

class QThread;

// The protocol of everything the program does with the box: one text file, appended to by a worker
// thread in call order, with a header line per day and one older generation kept on rotation.
class BoxLog : public QObject
{
    Q_OBJECT

public:
    enum class Level { info, ok, error, task };
    using Clock = std::function<QDateTime()>;

    // Above this size the file is moved to Box.1.log before the next entry.
    static constexpr qint64 maxSize = 2'000'000;
    // Recovering the last day header reads at most this much of the file's end.
    static constexpr qint64 dayScanBytes = 200'000;

    // A log in the given folder (created when missing). The clock gives the time of each entry;
    // tests inject one, the program uses the current local time.
    explicit BoxLog(const QString &folder, Clock clock = {}, QObject *parent = nullptr);
    ~BoxLog() override;

    // The program's log in Paths::stateDir(), created on first use with the start banner. Its
    // change signal is delivered on the application's main thread.
    static BoxLog &shared();

    // Callable from any thread; returns at once, the file work is queued.
    void write(Level level, const QString &category, const QString &message);
    // At most maxBytes from the end of the file, decoded as UTF-8.
    QString tail(qint64 maxBytes) const;
    // Empties the file (queued) and starts the next entry with a day header.
    void clear();
    QString filePath() const;
    // Waits until every queued write and clear is done.
    void flush();
    // "Corvandel v… (Build …) gestartet", level info, category "App".
    void writeBanner();

    static QString curlHint(int code);
    // The pure parts of the file layout.
    static QString marker(Level level);
    static QString dayText(const QDate &date);
    static QString dayHeader(const QString &dayText);
    static QString entryLine(const QTime &time, Level level, const QString &category, const QString &message);
    // The day text of a header line, or a null string for any other line.
    static QString dayOfHeader(QStringView line);
    static QString bannerMessage();
    // "Corvandel v… (Build …)": the version as the banner and the settings window show it.
    static QString versionLine();

signals:
    // After every write and clear, in the thread the log lives in.
    void changed();

private:
    class Worker;

    QString m_folder;
    QString m_filePath;
    Clock m_clock;
    QThread *m_thread = nullptr;
    Worker *m_worker = nullptr;
};
