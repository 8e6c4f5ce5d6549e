#pragma once

#include "Error.h"

// A failure of a Telnet command: no connection, no answer in time, a refused login, or a box that hung up.
class TelnetError : public Error
{
public:
    enum class Kind { unreachable, timeout, loginFailed, closed };

    static TelnetError unreachable(int port);
    static TelnetError timeout();
    static TelnetError loginFailed();
    static TelnetError closed();

    Kind kind() const { return m_kind; }
    QString description() const override;

private:
    TelnetError(Kind kind, int port);

    Kind m_kind;
    int m_port = 0;
};
