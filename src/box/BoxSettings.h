#pragma once

#include <QString>

// How to reach the box: address, ports, login, the folder of the channel lists, the user's own
// Telnet command and the picon folder. Handed by value to every box client.
struct BoxSettings
{
    QString host;
    int ftpPort = 21;
    int httpPort = 80;
    QString user = QStringLiteral("root");
    // Kept in the password store only, never in the settings file.
    QString password;
    QString directory = QStringLiteral("/etc/enigma2/");
    int telnetPort = 23;
    QString customCommand;
    // Empty: not known yet, to be discovered on the box.
    QString piconDirectory;

    // Reads the settings (after the migration) and the password of user@host.
    static BoxSettings load();
    // Writes the settings, and the password unless the cache already holds exactly it.
    void save() const;
    // Takes over settings and password from the former application once.
    static void migrateFromOldName();

    // The directory with a leading and a trailing slash, otherwise unchanged.
    QString normalizedDirectory() const;
    // The same rule for any folder on the box.
    static QString withSlashes(QString directory);
    // user@host, the account of the password.
    QString account() const;

    bool operator==(const BoxSettings &other) const = default;
};
