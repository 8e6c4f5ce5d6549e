#include "Error.h"

const char *Error::what() const noexcept
{
    if (m_what.isEmpty())
        m_what = description().toUtf8();
    return m_what.constData();
}

MessageError::MessageError(QString description, QString domain, int code)
    : m_description(std::move(description))
    , m_domain(std::move(domain))
    , m_code(code)
{
}
