#pragma once

#include "Error.h"

// A failure of an FTP transfer or a web request, or settings without a box address.
class BoxError : public Error
{
public:
    enum class Kind { curl, http, noHost };

    // curl's own error text (it carries the exit code in parentheses).
    static BoxError curl(const QString &message);
    static BoxError http(int status);
    static BoxError noHost();

    Kind kind() const { return m_kind; }
    QString message() const { return m_message; }
    int status() const { return m_status; }

    QString description() const override;

private:
    BoxError(Kind kind, QString message, int status);

    Kind m_kind;
    QString m_message;
    int m_status = 0;
};
