#pragma once

#include "BoxSettings.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QHashFunctions>
#include <QList>
#include <QString>
#include <QStringList>

#include <QCoroTask>

// Moves files between the computer and the box. Every operation is one run of the curl program,
// configured through its standard input, so that no password ever shows in a process list.
// Failures are thrown as BoxError; every run is written to the box log.
class FTPClient
{
    Q_DECLARE_TR_FUNCTIONS(FTPClient)

public:
    // A local file and the name it gets on the box.
    struct Upload
    {
        QString file;
        QString name;
        bool operator==(const Upload &other) const = default;
    };

    explicit FTPClient(BoxSettings settings);

    // The names in the settings' folder, in the box's order.
    QCoro::Task<QStringList> listFiles() const;
    QCoro::Task<QStringList> list(QString directory) const;
    // A file of the settings' folder, into memory.
    QCoro::Task<QByteArray> download(QString name) const;
    // A local file into the settings' folder under the given name. Names that would leave the
    // folder are refused with a MessageError before anything runs.
    QCoro::Task<void> upload(QString file, QString as) const;
    // Several files in one connection into a folder that is created when missing.
    QCoro::Task<void> upload(QList<Upload> files, QString to) const;
    // Several files in one connection; names missing on the box, and names that would leave the
    // local folder, are skipped. Returns how many of the names now exist in the local folder.
    QCoro::Task<int> download(QStringList names, QString from, QString to) const;
    // One curl run with the operation's configuration lines; returns curl's standard output.
    QCoro::Task<QByteArray> run(QStringList lines) const;

    // The pure parts, tested without a network.
    QString baseURL() const;
    QString fileURL(const QString &directory, const QString &file) const;
    QString configuration(const QStringList &lines) const;
    static QString escaped(const QString &value);
    // The lines that let one run move several files over a few connections at once.
    static QStringList manyFileLines(qsizetype count);
    static QString line(const QString &key, const QString &value);
    static QString action(const QStringList &lines);
    static QString target(const QStringList &lines);
    static QStringList listing(const QByteArray &output);
    static QString successMessage(const QString &action, double seconds, qint64 bytes, const QString &notes);
    static QString failureMessage(const QString &action, double seconds, int status, const QString &errorText);
    // A name that stays inside its folder: not empty, not "." or "..", no slash.
    static bool isPlainName(const QString &name);
    // /usr/bin/curl, else the curl found on PATH.
    static QString curlProgram();

    // Seconds below one byte per second after which curl gives up (tests shorten it).
    void setSpeedTime(int seconds) { m_speedTime = seconds; }
    // Another program in place of curl (tests use a missing one).
    void setProgram(const QString &program) { m_program = program; }

private:
    QString host() const;

    BoxSettings m_settings;
    int m_speedTime = 30;
    QString m_program;
};

inline size_t qHash(const FTPClient::Upload &upload, size_t seed = 0)
{
    return qHashMulti(seed, upload.file, upload.name);
}
