#include "BoxError.h"

#include <QCoreApplication>

BoxError::BoxError(Kind kind, QString message, int status)
    : m_kind(kind)
    , m_message(std::move(message))
    , m_status(status)
{
}

BoxError BoxError::curl(const QString &message)
{
    return BoxError(Kind::curl, message, 0);
}

BoxError BoxError::http(int status)
{
    return BoxError(Kind::http, {}, status);
}

BoxError BoxError::noHost()
{
    return BoxError(Kind::noHost, {}, 0);
}

QString BoxError::description() const
{
    switch (m_kind) {
    case Kind::curl:
        return QCoreApplication::translate("BoxError", "FTP-Fehler: ") + m_message;
    case Kind::http:
        return QCoreApplication::translate("BoxError", "HTTP-Fehler %1 beim Neuladen der Senderliste.").arg(m_status);
    case Kind::noHost:
        return QCoreApplication::translate("BoxError",
                                           "Bitte zuerst in den Einstellungen die IP-Adresse der Box eintragen.");
    }
    return {};
}
