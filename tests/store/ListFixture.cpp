#include "ListFixture.h"

#include "TestSupport.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace ListFixture {

namespace {

constexpr quint32 astraNs = 0x00c00000;
constexpr quint32 hotbirdNs = 0x00820000;

QString hex(quint32 value, int width)
{
    return u"%1"_s.arg(value, width, 16, QLatin1Char('0'));
}

QString header(const FixtureService &service)
{
    const quint32 ns = service.onHotbird ? hotbirdNs : astraNs;
    const quint32 tsid = service.onHotbird ? 0x1388 : 0x0437;
    return hex(service.sid, 4) + u':' + hex(ns, 8) + u':' + hex(tsid, 4) + u":0001:"_s +
           QString::number(service.type) + u":0"_s;
}

} // namespace

QList<FixtureService> services()
{
    return {
        {0x83, 1, u"Das Erste HD"_s, u"ARD"_s},
        {0x84, 25, u"ZDF HD"_s, u"ZDF"_s},
        {0x85, 1, u"arte HD"_s, u"ARD"_s},
        {0x86, 1, u"Österreich 1"_s, u"ORF"_s, true},
        {0x87, 1, u"zdf hd"_s, u"ZDF"_s},
        {0x88, 1, u"Unbenutzt"_s, u""_s},
        {0x89, 1, u"Nur im Radio"_s, u"BR"_s},
        {0x100, 2, u"Bayern 3"_s, u"BR"_s},
        {0x101, 2, u"Antenne Bayern"_s, u"Antenne"_s, true},
    };
}

ServiceKey key(quint32 sid)
{
    const bool hotbird = sid == 0x86 || sid == 0x101;
    return ServiceKey{sid, hotbird ? 0x1388u : 0x0437u, 1, hotbird ? hotbirdNs : astraNs};
}

QString reference(quint32 sid, quint32 type)
{
    const ServiceKey k = key(sid);
    return u"1:0:%1:%2:%3:%4:%5:0:0:0:"_s.arg(type, 0, 16)
        .arg(k.sid, 0, 16)
        .arg(k.tsid, 0, 16)
        .arg(k.onid, 0, 16)
        .arg(k.ns, 0, 16)
        .toUpper();
}

QByteArray lamedb5(const QList<FixtureService> &services)
{
    QString text = u"eDVB services /5/\n# Transponders: "
                   u"t:dvb_namespace:transport_stream_id:original_network_id,FEPARMS\n"
                   u"t:00c00000:0437:0001,s:11836500:27500000:1:2:192:2:0\n"
                   u"t:00820000:1388:0001,s:11034000:27500000:1:2:130:2:0\n"_s;
    for (const FixtureService &service : services) {
        text += u"s:"_s + header(service) + u",\""_s + service.name + u'"';
        if (!service.provider.isEmpty()) text += u",p:"_s + service.provider;
        text += u",c:000065\n"_s;
    }
    return text.toUtf8();
}

QByteArray lamedb4(const QList<FixtureService> &services)
{
    QString text = u"eDVB services /4/\ntransponders\n"
                   u"00c00000:0437:0001\n\ts 11836500:27500000:1:2:192:2:0\n/\n"
                   u"00820000:1388:0001\n\ts 11034000:27500000:1:2:130:2:0\n/\n"
                   u"end\nservices\n"_s;
    for (const FixtureService &service : services)
        text += header(service) + u'\n' + service.name + u"\np:"_s + service.provider + u",c:000065\n"_s;
    text += u"end\nHave a lot of bugs!\n"_s;
    return text.toUtf8();
}

QByteArray index(const QString &kind, const QStringList &fileNames)
{
    QString text = kind == u"tv" ? u"#NAME User - Bouquets (TV)\n"_s : u"#NAME User - Bouquets (Radio)\n"_s;
    for (const QString &name : fileNames) {
        text += u"#SERVICE 1:7:%1:0:0:0:0:0:0:0:FROM BOUQUET \"%2\" ORDER BY bouquet\n"_s.arg(
            kind == u"tv" ? u"1"_s : u"2"_s, name);
    }
    return text.toUtf8();
}

void write(const QString &folder)
{
    const auto file = [&](const QString &name, const QString &text) {
        TestSupport::writeFile(folder + u'/' + name, text.toUtf8());
    };
    TestSupport::writeFile(folder + u"/lamedb5"_s, lamedb5(services()));
    TestSupport::writeFile(folder + u"/bouquets.tv"_s,
                           index(u"tv"_s, {u"userbouquet.favourites.tv"_s, u"userbouquet.sport.tv"_s}));
    TestSupport::writeFile(folder + u"/bouquets.radio"_s, index(u"radio"_s, {u"userbouquet.radio.radio"_s}));
    file(u"userbouquet.favourites.tv"_s, u"#NAME Favoriten\n#SERVICE "_s + reference(0x83) +
                                             u"\n#SERVICE 1:64:0:0:0:0:0:0:0:0:\n"
                                             u"#DESCRIPTION Nachrichten\n#SERVICE "_s +
                                             reference(0x84, 0x19) + u"\n#SERVICE "_s + reference(0x85) +
                                             u'\n');
    file(u"userbouquet.sport.tv"_s,
         u"#NAME Sport\n#SERVICE "_s + reference(0x84, 0x19) + u"\n#SERVICE "_s + reference(0x83) +
             u"\n#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"subbouquet.extra.tv\" ORDER BY bouquet\n"
             u"#SERVICE 1:0:1:999:437:1:C00000:0:0:0:\n"_s);
    file(u"userbouquet.radio.radio"_s, u"#NAME Radio\n#SERVICE "_s + reference(0x100, 2) + u"\n#SERVICE "_s +
                                           reference(0x101, 2) + u"\n#SERVICE "_s + reference(0x89) + u'\n');
    file(u"satellites.xml"_s,
         u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<satellites>\n"
         u"\t<sat name=\"Astra 1KR/1L/1M/1N (19.2E)\" flags=\"1\" position=\"192\">\n\t</sat>\n"
         u"\t<sat name=\"Hot Bird 13B/13C/13E (13.0E)\" flags=\"1\" position=\"130\"/>\n</satellites>\n"_s);
}

} // namespace ListFixture
