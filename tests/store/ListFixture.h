#pragma once

#include "ServiceKey.h"

#include <QByteArray>
#include <QList>
#include <QString>

// A small channel list written as real files for the store tests: two satellites, TV and radio
// services, two TV bouquets (with a marker, a sub-bouquet and an unknown service) and one radio
// bouquet that also lists a TV service.
namespace ListFixture {

struct FixtureService
{
    quint32 sid;
    quint32 type;
    QString name;
    QString provider;
    bool onHotbird = false;
};

// TV: 0x83 "Das Erste HD", 0x84 "ZDF HD", 0x85 "arte HD", 0x86 "Österreich 1", 0x87 "zdf hd",
// 0x88 "Unbenutzt", 0x89 "Nur im Radio"; radio: 0x100 "Bayern 3", 0x101 "Antenne Bayern".
QList<FixtureService> services();
ServiceKey key(quint32 sid);
QString reference(quint32 sid, quint32 type = 1);

QByteArray lamedb5(const QList<FixtureService> &services);
QByteArray lamedb4(const QList<FixtureService> &services);
QByteArray index(const QString &kind, const QStringList &fileNames);

// Writes lamedb5, bouquets.tv (userbouquet.favourites.tv "Favoriten", userbouquet.sport.tv
// "Sport"), bouquets.radio (userbouquet.radio.radio "Radio") and satellites.xml into `folder`.
void write(const QString &folder);

} // namespace ListFixture
