#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

// Base of every failure the program reports to the user. The description is the German text that
// also serves as the key of its translations; domain and code are set where the program defines them.
class Error : public std::exception
{
public:
    ~Error() override = default;

    virtual QString description() const = 0;
    virtual QString domain() const { return {}; }
    virtual int code() const { return 0; }

    const char *what() const noexcept override;

private:
    mutable QByteArray m_what;
};

// An error that is nothing but its text: the program's own errors with domain and code, and
// failures of the platform (a file that cannot be written, a program that cannot be started).
class MessageError : public Error
{
public:
    explicit MessageError(QString description, QString domain = {}, int code = 0);

    QString description() const override { return m_description; }
    QString domain() const override { return m_domain; }
    int code() const override { return m_code; }

private:
    QString m_description;
    QString m_domain;
    int m_code = 0;
};
