#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Paths and small file helpers shared by the test programs.
namespace TestSupport {

// Points XDG_CONFIG_HOME, XDG_DATA_HOME, XDG_STATE_HOME and XDG_CACHE_HOME at a fresh temporary
// folder that lives as long as the process, so that no test touches a user's settings, log,
// password file or data, and cuts the session bus so that no password reaches the desktop's
// keyring (unless CORVANDEL_TEST_KEYRING is set, by tests/box/with-keyring.sh). Call it first
// thing (initTestCase), before any settings are read.
// Returns that folder.
QString isolateUserFolders();

// The project's source folder.
QString sourceDir();
// The real channel lists beside the project (../shared/corpus); empty when they are absent.
QString corpusDir();
// Every list folder of the corpus: folders holding a lamedb, lamedb5 or bouquets.tv.
QStringList corpusListFolders();
// The bundled example list.
QString examplesDir();

QByteArray readFile(const QString &path);
// Writes (creating parent folders) and fails the calling test on error.
bool writeFile(const QString &path, const QByteArray &bytes);

} // namespace TestSupport
