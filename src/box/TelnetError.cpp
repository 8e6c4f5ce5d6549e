#include "TelnetError.h"

#include <QCoreApplication>

TelnetError::TelnetError(Kind kind, int port)
    : m_kind(kind)
    , m_port(port)
{
}

TelnetError TelnetError::unreachable(int port)
{
    return TelnetError(Kind::unreachable, port);
}

TelnetError TelnetError::timeout()
{
    return TelnetError(Kind::timeout, 0);
}

TelnetError TelnetError::loginFailed()
{
    return TelnetError(Kind::loginFailed, 0);
}

TelnetError TelnetError::closed()
{
    return TelnetError(Kind::closed, 0);
}

QString TelnetError::description() const
{
    switch (m_kind) {
    case Kind::unreachable:
        return QCoreApplication::translate("TelnetError",
                                           "Telnet: Keine Verbindung zu Port %1. Ist Telnet auf der Box aktiviert?")
            .arg(m_port);
    case Kind::timeout:
        return QCoreApplication::translate("TelnetError", "Telnet: Zeitüberschreitung – keine Antwort von der Box.");
    case Kind::loginFailed:
        return QCoreApplication::translate("TelnetError",
                                           "Telnet: Anmeldung fehlgeschlagen. Benutzer und Passwort prüfen.");
    case Kind::closed:
        return QCoreApplication::translate("TelnetError", "Telnet: Die Box hat die Verbindung getrennt.");
    }
    return {};
}
