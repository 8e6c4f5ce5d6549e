#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>

// A hidden folder beside a target folder that is filled completely before it takes the target's
// place, so that a download or restore that fails half-way leaves the target as it was. Removed
// on destruction unless it was installed.
class StagingFolder
{
    Q_DECLARE_TR_FUNCTIONS(StagingFolder)

public:
    // Creates the folder (and the target's parent); throws MessageError when it cannot.
    explicit StagingFolder(const QString &target);
    ~StagingFolder();
    StagingFolder(const StagingFolder &) = delete;
    StagingFolder &operator=(const StagingFolder &) = delete;

    QString path() const { return m_path; }

    // Puts the staged content in the place of the target and then calls open(). When the swap or
    // open() fails, the previous target comes back and the error is passed on.
    void install(const std::function<void()> &open);

    // Copies the files and sub-folders of `from` into the existing folder `to`; throws
    // MessageError on the first failure. Links are not followed.
    static void copyTree(const QString &from, const QString &to);

private:
    QString m_target;
    QString m_path;
    bool m_installed = false;
};
