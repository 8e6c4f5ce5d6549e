#pragma once

#include "Store.h"
#include "TestSupport.h"

#include <QStringList>

// A small channel list written as real files for the store tests: two satellites, TV and radio
// services, two TV bouquets (with a marker, a sub-bouquet and an unknown service) and one radio
// bouquet that also lists a TV service. And ways to look at a store holding it.
namespace ListFixture {

using namespace Qt::StringLiterals;

struct FixtureService
{
    quint32 sid;
    quint32 type;
    QString name;
    QString provider;
};

// TV: 0x83 "Das Erste HD", 0x84 "ZDF HD", 0x85 "arte HD", 0x86 "Österreich 1", 0x87 "zdf hd",
// 0x88 "Unbenutzt", 0x89 "Nur im Radio"; radio: 0x100 "Bayern 3", 0x101 "Antenne Bayern".
inline QList<FixtureService> services()
{
    return {{0x83, 1, u"Das Erste HD"_s, u"ARD"_s},  {0x84, 25, u"ZDF HD"_s, u"ZDF"_s},
            {0x85, 1, u"arte HD"_s, u"ARD"_s},       {0x86, 1, u"Österreich 1"_s, u"ORF"_s},
            {0x87, 1, u"zdf hd"_s, u"ZDF"_s},        {0x88, 1, u"Unbenutzt"_s, QString()},
            {0x89, 1, u"Nur im Radio"_s, u"BR"_s},   {0x100, 2, u"Bayern 3"_s, u"BR"_s},
            {0x101, 2, u"Antenne Bayern"_s, u"Antenne"_s}};
}

// 0x86 and 0x101 are on Hot Bird, the others on Astra.
inline ServiceKey key(quint32 sid)
{
    const bool hotbird = sid == 0x86 || sid == 0x101;
    return ServiceKey{sid, hotbird ? 0x1388u : 0x0437u, 1, hotbird ? 0x00820000u : 0x00c00000u};
}

inline QString reference(quint32 sid, quint32 type = 1)
{
    const ServiceKey k = key(sid);
    return u"1:0:%1:%2:%3:%4:%5:0:0:0:"_s.arg(type, 0, 16).arg(k.sid, 0, 16).arg(k.tsid, 0, 16).arg(k.onid, 0, 16)
        .arg(k.ns, 0, 16).toUpper();
}

// The key fields of a service line in both database formats.
inline QString header(const FixtureService &service)
{
    const ServiceKey k = key(service.sid);
    const QChar zero = u'0';
    return u"%1:%2:%3:%4:%5:0"_s.arg(k.sid, 4, 16, zero).arg(k.ns, 8, 16, zero).arg(k.tsid, 4, 16, zero)
        .arg(k.onid, 4, 16, zero).arg(service.type);
}

inline QByteArray lamedb5(const QList<FixtureService> &services)
{
    QString text = u"eDVB services /5/\n# Transponders: t:dvb_namespace:transport_stream_id:original_network_id,FEPARMS\n"
                   u"t:00c00000:0437:0001,s:11836500:27500000:1:2:192:2:0\n"
                   u"t:00820000:1388:0001,s:11034000:27500000:1:2:130:2:0\n"_s;
    for (const FixtureService &service : services) {
        text += u"s:"_s + header(service) + u",\""_s + service.name + u'"' +
                (service.provider.isEmpty() ? QString() : u",p:"_s + service.provider) + u",c:000065\n"_s;
    }
    return text.toUtf8();
}

inline QByteArray lamedb4(const QList<FixtureService> &services)
{
    QString text = u"eDVB services /4/\ntransponders\n00c00000:0437:0001\n\ts 11836500:27500000:1:2:192:2:0\n/\n"
                   u"00820000:1388:0001\n\ts 11034000:27500000:1:2:130:2:0\n/\nend\nservices\n"_s;
    for (const FixtureService &service : services)
        text += header(service) + u'\n' + service.name + u"\np:"_s + service.provider + u",c:000065\n"_s;
    return (text + u"end\nHave a lot of bugs!\n"_s).toUtf8();
}

// Writes lamedb5, bouquets.tv (userbouquet.favourites.tv "Favoriten", userbouquet.sport.tv
// "Sport"), bouquets.radio (userbouquet.radio.radio "Radio") and satellites.xml into the folder.
inline void write(const QString &folder)
{
    const auto file = [&](const QString &name, const QString &text) {
        TestSupport::writeFile(folder + u'/' + name, text.toUtf8());
    };
    const QString index = u"#SERVICE 1:7:%1:0:0:0:0:0:0:0:FROM BOUQUET \"%2\" ORDER BY bouquet\n"_s;
    TestSupport::writeFile(folder + u"/lamedb5"_s, lamedb5(services()));
    file(u"bouquets.tv"_s, u"#NAME User - Bouquets (TV)\n"_s + index.arg(1).arg(u"userbouquet.favourites.tv"_s) +
                               index.arg(1).arg(u"userbouquet.sport.tv"_s));
    file(u"bouquets.radio"_s, u"#NAME User - Bouquets (Radio)\n"_s + index.arg(2).arg(u"userbouquet.radio.radio"_s));
    file(u"userbouquet.favourites.tv"_s,
         u"#NAME Favoriten\n#SERVICE %1\n#SERVICE 1:64:0:0:0:0:0:0:0:0:\n#DESCRIPTION Nachrichten\n#SERVICE %2\n"
         u"#SERVICE %3\n"_s.arg(reference(0x83), reference(0x84, 0x19), reference(0x85)));
    file(u"userbouquet.sport.tv"_s,
         u"#NAME Sport\n#SERVICE %1\n#SERVICE %2\n#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"subbouquet.extra.tv\" "
         u"ORDER BY bouquet\n#SERVICE 1:0:1:999:437:1:C00000:0:0:0:\n"_s.arg(reference(0x84, 0x19), reference(0x83)));
    file(u"userbouquet.radio.radio"_s, u"#NAME Radio\n#SERVICE %1\n#SERVICE %2\n#SERVICE %3\n"_s.arg(
                                           reference(0x100, 2), reference(0x101, 2), reference(0x89)));
    file(u"satellites.xml"_s,
         u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<satellites>\n"
         u"\t<sat name=\"Astra 1KR/1L/1M/1N (19.2E)\" flags=\"1\" position=\"192\">\n\t</sat>\n"
         u"\t<sat name=\"Hot Bird 13B/13C/13E (13.0E)\" flags=\"1\" position=\"130\"/>\n</satellites>\n"_s);
}

// The bouquet of either kind with this name.
inline Bouquet bouquetNamed(const Store &store, const QString &name)
{
    for (const QList<Bouquet> &list : store.bouquets()) {
        for (const Bouquet &bouquet : list) {
            if (bouquet.name == name)
                return bouquet;
        }
    }
    qFatal("no bouquet named %s", qPrintable(name));
}

// The names the entry list shows for the bouquet with this name.
inline QStringList entryNames(const Store &store, const QString &bouquet)
{
    QStringList names;
    for (const BouquetEntry &entry : bouquetNamed(store, bouquet).entries)
        names << store.displayName(entry);
    return names;
}

// The names of the current kind's bouquets, in their order.
inline QStringList bouquetNames(const Store &store)
{
    QStringList names;
    for (const Bouquet &bouquet : store.currentBouquets())
        names << bouquet.name;
    return names;
}

} // namespace ListFixture
