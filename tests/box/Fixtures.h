#pragma once

#include "BoxSettings.h"
#include "FakeBox.h"

#include <QTcpServer>
#include <QTest>

#include <memory>

// Situations that the FTP, Telnet and web tests share.
namespace Fixtures {

// A box and settings it refuses: a wrong password, or a box that refuses everyone.
struct Refusal
{
    std::unique_ptr<FakeBox> box;
    BoxSettings settings;
};

inline void addRefusalRows()
{
    QTest::addColumn<bool>("boxRefuses");
    QTest::newRow("wrong password") << false;
    QTest::newRow("box refuses everyone") << true;
}

inline Refusal refusal(bool boxRefuses)
{
    FakeBoxOptions options;
    options.refuseLogins = boxRefuses;
    Refusal result{std::make_unique<FakeBox>(options), {}};
    result.settings = result.box->settingsAs<BoxSettings>();
    if (!boxRefuses)
        result.settings.password = QStringLiteral("falsch");
    return result;
}

// A loopback port on which nothing listens.
inline int closedPort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost);
    return probe.serverPort();
}

} // namespace Fixtures
