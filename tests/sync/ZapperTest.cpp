#include "Store.h"
#include "SyncFixture.h"
#include "TestSupport.h"
#include "Zapper.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace SyncFixture;

// Switching the box to a channel: which entry may be zapped, the request and its outcome.
class ZapperTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void zappableEntry();
    void zap_data();
    void zap();
    void zapFocused();

private:
    static Bouquet firstBouquet(const Store &store);
    QList<FakeBoxRequest> zaps(const FakeBox &box) const { return requests(box, u"/web/zap"_s); }
};

void ZapperTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    if (TestSupport::corpusDir().isEmpty())
        QSKIP("the corpus of channel lists is missing");
}

Bouquet ZapperTest::firstBouquet(const Store &store)
{
    for (const Bouquet &bouquet : store.bouquets().value(MediaKind::tv)) {
        if (bouquet.entries.size() >= 2)
            return bouquet;
    }
    return {};
}

void ZapperTest::zappableEntry()
{
    Store store;
    store.load(corpusFolder(u"mtcnl-ziggo-cable"_s));
    Zapper zapper(store);
    store.setSelectedBouquetID(QUuid());
    QCOMPARE(zapper.zappableEntry(), std::nullopt);

    const Bouquet bouquet = firstBouquet(store);
    QVERIFY(bouquet.entries.size() >= 2);
    const BouquetEntry first = bouquet.entries.at(0);
    // Selected while no bouquet is: not in the selected bouquet.
    store.setEntrySelection({first.id});
    QCOMPARE(zapper.zappableEntry(), std::nullopt);

    store.setSelectedBouquetID(bouquet.id);
    store.setEntrySelection({first.id});
    QCOMPARE(zapper.zappableEntry(), std::optional<BouquetEntry>(first));
    store.setEntrySelection({first.id, bouquet.entries.at(1).id});
    QCOMPARE(zapper.zappableEntry(), std::nullopt);

    store.addMarker(u"Nachrichten"_s);
    const BouquetEntry marker = store.selectedBouquet()->entries.last();
    QVERIFY(marker.isMarker());
    store.setEntrySelection({marker.id});
    QCOMPARE(zapper.zappableEntry(), std::nullopt);

    const QList<Bouquet> tv = store.bouquets().value(MediaKind::tv);
    const auto other = std::find_if(tv.cbegin(), tv.cend(), [&](const Bouquet &candidate) {
        return candidate.id != bouquet.id && !candidate.entries.isEmpty();
    });
    QVERIFY(other != tv.cend());
    store.setEntrySelection({other->entries.first().id});
    QCOMPARE(zapper.zappableEntry(), std::nullopt);
}

void ZapperTest::zap_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("reference");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("error");

    QTest::newRow("service") << QString() << u"1:0:19:2B66:401:1:C00000:0:0:0:"_s
                             << u"Box auf „Das Erste HD“ umgeschaltet."_s << QString();
    QTest::newRow("stream with escaped colons")
        << QString() << u"4097:0:1:0:0:0:0:0:0:0:http%3a//example.com/live.m3u8?a=1&b=%25:Live"_s
        << u"Box auf „Das Erste HD“ umgeschaltet."_s << QString();
    QTest::newRow("refused") << u"401"_s << u"1:0:19:2B66:401:1:C00000:0:0:0:"_s << QString()
                             << u"Umschalten fehlgeschlagen: HTTP-Fehler 401 beim Neuladen der Senderliste."_s;
    QTest::newRow("unreachable") << u"unreachable"_s << u"1:0:19:2B66:401:1:C00000:0:0:0:"_s << QString()
                                 << u"Umschalten fehlgeschlagen: "_s;
}

void ZapperTest::zap()
{
    QFETCH(QString, fault);
    QFETCH(QString, reference);
    QFETCH(QString, status);
    QFETCH(QString, error);

    FakeBoxOptions options;
    if (fault == u"401")
        options.httpStatus = 401;
    FakeBox box(options);
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    Store store;
    store.setSettings(fault == u"unreachable" ? unreachableSettings() : settingsFor(box));
    const QString before = store.status();
    Zapper zapper(store);
    QSignalSpy busy(&store, &Store::busyChanged);

    QCoro::waitFor(zapper.zap(reference, u"Das Erste HD"_s));
    QCOMPARE(busy.size(), 0);
    if (error.isEmpty()) {
        QCOMPARE(store.errorMessage(), std::nullopt);
        QCOMPARE(store.status(), status);
        const QList<FakeBoxRequest> sent = zaps(box);
        QCOMPARE(sent.size(), 1);
        QVERIFY(sent.first().authorized);
        // The box decodes the query once: the reference must arrive exactly as it is.
        QCOMPARE(sent.first().value(u"sRef"_s), reference);
    } else {
        QVERIFY2(store.errorMessage().value_or(QString()).startsWith(error),
                 qPrintable(store.errorMessage().value_or(QString())));
        QCOMPARE(store.status(), before);
    }
}

void ZapperTest::zapFocused()
{
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    Store store;
    store.load(corpusFolder(u"mtcnl-ziggo-cable"_s));
    store.setSettings(settingsFor(box));
    Zapper zapper(store);

    // The entry list has the focus.
    const Bouquet bouquet = firstBouquet(store);
    store.setSelectedBouquetID(bouquet.id);
    const BouquetEntry entry = bouquet.entries.first();
    store.setEntrySelection({entry.id});
    QVERIFY(store.entryListActive());
    QCoro::waitFor(zapper.zapFocused());
    QCOMPARE(zaps(box).size(), 1);
    QCOMPARE(zaps(box).last().value(u"sRef"_s), entry.reference);
    QCOMPARE(store.status(), u"Box auf „%1“ umgeschaltet."_s.arg(store.displayName(entry)));

    store.setEntrySelection({entry.id, bouquet.entries.at(1).id});
    QCoro::waitFor(zapper.zapFocused());
    QCOMPARE(zaps(box).size(), 1);

    // The service table has the focus.
    store.setEntryListActive(false);
    const Service service = store.services().at(store.services().size() / 2);
    store.setServiceSelection({service.key});
    QCoro::waitFor(zapper.zapFocused());
    QCOMPARE(zaps(box).size(), 2);
    QCOMPARE(zaps(box).last().value(u"sRef"_s), reference(service));
    QCOMPARE(store.status(), u"Box auf „%1“ umgeschaltet."_s.arg(service.name));

    store.setServiceSelection({service.key, store.services().first().key});
    QCoro::waitFor(zapper.zapFocused());
    store.setServiceSelection({});
    QCoro::waitFor(zapper.zapFocused());
    QCOMPARE(zaps(box).size(), 2);
}

QTEST_GUILESS_MAIN(ZapperTest)
#include "ZapperTest.moc"
