#pragma once

#include "BoxSettings.h"
#include "FakeBox.h"

// Settings that reach the receiver test double.
inline BoxSettings settingsFor(const FakeBox &box)
{
    const FakeBoxConnection connection = box.connection();
    BoxSettings settings;
    settings.host = connection.host;
    settings.ftpPort = connection.ftpPort;
    settings.httpPort = connection.httpPort;
    settings.telnetPort = connection.telnetPort;
    settings.user = connection.user;
    settings.password = connection.password;
    return settings;
}
