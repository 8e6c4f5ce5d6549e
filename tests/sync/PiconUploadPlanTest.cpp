#include "PiconUploadPlan.h"
#include "TestSupport.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

Service service(quint32 sid, quint32 type)
{
    Service s;
    s.key = ServiceKey{sid, 1, 1, 0xC00000};
    s.type = type;
    s.name = u"S"_s + QString::number(sid);
    return s;
}

QString pngName(quint32 type, quint32 sid)
{
    return u"1_0_%1_%2_1_1_C00000_0_0_0.png"_s.arg(QString::number(type, 16).toUpper(), QString::number(sid, 16).toUpper());
}

QStringList namesOf(const QList<PiconFile> &files)
{
    QStringList names;
    for (const PiconFile &file : files)
        names << file.name;
    return names;
}

} // namespace

class PiconUploadPlanTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::isolateUserFolders(); }
    void build();
    void choices_data();
    void choices();
};

void PiconUploadPlanTest::build()
{
    // Service 0xA of type 0x19 matches its own name and the type-1 name; 0xB only its own.
    PiconPackage package{u"/p.zip"_s, u"/x/p"_s, {}};
    for (const QString &name : {pngName(1, 0xA), pngName(0x19, 0xA), pngName(0x19, 0xB), pngName(1, 0xB), pngName(1, 0xC)})
        package.files.append({u"/x/p/"_s + name, name});
    const PiconUploadPlan plan = PiconUploadPlan::build(package, u"/picon/"_s, {pngName(1, 0xA), u"notes.txt"_s},
                                                        {service(0xA, 0x19), service(0xB, 0x19), service(0xD, 1)});
    QCOMPARE(plan.directory, u"/picon/"_s);
    QCOMPARE(plan.existing, (QSet<QString>{pngName(1, 0xA), u"notes.txt"_s}));
    QCOMPARE(plan.matching, (QSet<QString>{pngName(1, 0xA), pngName(0x19, 0xA), pngName(0x19, 0xB), pngName(1, 0xB)}));
    QCOMPARE(plan.total(), 5);
    QCOMPARE(plan.matchingCount(), 4);
    QCOMPARE(plan.existingCount(false), 1);
    QCOMPARE(plan.existingCount(true), 1);

    // Without a list nothing matches.
    QVERIFY(PiconUploadPlan::build(package, u"/picon/"_s, {}, {}).matching.isEmpty());
}

void PiconUploadPlanTest::choices_data()
{
    QTest::addColumn<bool>("uploadAll");
    QTest::addColumn<bool>("overwrite");
    QTest::addColumn<QStringList>("expected");

    // The package: A, B, C, D (D twice, in two folders); the list: A, B, D; the box: B, C.
    QTest::newRow("missing matching") << false << false << QStringList{u"A"_s, u"D"_s};
    QTest::newRow("matching, overwrite") << false << true << QStringList{u"A"_s, u"B"_s, u"D"_s};
    QTest::newRow("all, missing") << true << false << QStringList{u"A"_s, u"D"_s};
    QTest::newRow("all, overwrite") << true << true << QStringList{u"A"_s, u"B"_s, u"C"_s, u"D"_s};
}

void PiconUploadPlanTest::choices()
{
    QFETCH(bool, uploadAll);
    QFETCH(bool, overwrite);
    QFETCH(QStringList, expected);

    const QString a = pngName(1, 0xA), b = pngName(1, 0xB), c = pngName(1, 0xC), d = pngName(1, 0xD);
    PiconUploadPlan plan;
    // Unsorted on purpose: the plan sends in name order, each name once, from its first path.
    plan.package.files = {{u"/p/z/"_s + d, d}, {u"/p/"_s + c, c}, {u"/p/"_s + a, a}, {u"/p/"_s + b, b}, {u"/p/y/"_s + d, d}};
    plan.matching = {a, b, d};
    plan.existing = {b, c};
    plan.uploadAll = uploadAll;
    plan.overwrite = overwrite;

    QStringList names;
    for (const QString &letter : expected)
        names << pngName(1, letter == u"A" ? 0xA : letter == u"B" ? 0xB : letter == u"C" ? 0xC : 0xD);
    QCOMPARE(namesOf(plan.files()), names);
    QCOMPARE(plan.files(), plan.files(uploadAll, overwrite));
    QCOMPARE(plan.count(uploadAll, overwrite), int(names.size()));
    QCOMPARE(plan.files().last().path, names.last() == d ? u"/p/z/"_s + d : u"/p/"_s + names.last());
    QCOMPARE(plan.total(), 4);
    QCOMPARE(plan.existingCount(uploadAll), uploadAll ? 2 : 1);
}

QTEST_GUILESS_MAIN(PiconUploadPlanTest)
#include "PiconUploadPlanTest.moc"
