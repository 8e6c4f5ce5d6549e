#pragma once

#include <QString>

#include <optional>

// The password store: the desktop's secret service through QtKeychain (items keyed by service and
// account), with a process-wide cache of the program's own items. Without a reachable secret
// service, a file readable only by the user in the data folder takes its place.
namespace Keychain {

// The program's service, and the former application's (read during the migration only).
inline const QString currentService = QStringLiteral("Corvandel");
inline const QString formerService = QStringLiteral("Tessavrin");

// The stored password, or none (also when the store cannot be read or holds invalid UTF-8).
// A read of the program's own service fills the cache.
std::optional<QString> read(const QString &account, const QString &service);
// Stores or replaces the password; an empty value deletes the item. Failures are dropped.
void write(const QString &value, const QString &account, const QString &service);
// The cache only; never touches the store.
std::optional<QString> cached(const QString &account);

// True while no secret service answers on the session bus, so that passwords go to the file
// below; the settings window then says that the password is stored unencrypted.
bool usesFallbackFile();
QString fallbackFilePath();

} // namespace Keychain
