// The satellites.xml tag scanner: labels, attributes, entities, and both satellites.xml files of
// the corpus (one of them Latin-1, so not valid UTF-8).

#include "Satellites.h"
#include "TestSupport.h"
#include "Utf8.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(std::optional<QString>)

class SatellitesTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::isolateUserFolders(); }

    void key_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("label");
        QTest::newRow("Astra") << 192 << u"19.2E"_s;
        QTest::newRow("zero") << 0 << u"0.0E"_s;
        QTest::newRow("east limit") << 1800 << u"180.0E"_s;
        QTest::newRow("west limit") << 1801 << u"179.9W"_s;
        QTest::newRow("west as 3600 - p") << 3550 << u"5.0W"_s;
        QTest::newRow("west as negative") << -50 << u"5.0W"_s;
        QTest::newRow("Thor") << -8 << u"0.8W"_s;
        QTest::newRow("far west") << -1771 << u"177.1W"_s;
        QTest::newRow("negative east after adding") << -1800 << u"180.0E"_s;
        QTest::newRow("beyond a turn") << 3601 << u"-0.1W"_s;
        QTest::newRow("below a turn") << -3601 << u"-0.1E"_s;
        QTest::newRow("int limit") << std::numeric_limits<int>::min() << u"-214748004.8E"_s;
    }

    void key()
    {
        QFETCH(int, position);
        QFETCH(QString, label);
        QCOMPARE(Satellites::key(position), label);
    }

    void attribute_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<QString>("name");
        QTest::addColumn<std::optional<QString>>("value");
        const auto some = [](const char *text) { return std::optional(QString::fromUtf8(text)); };
        QTest::newRow("double quotes") << u"name=\"Astra\" position=\"192\""_s << u"position"_s << some("192");
        QTest::newRow("at the start") << u"name=\"Astra\" position=\"192\""_s << u"name"_s << some("Astra");
        QTest::newRow("apostrophes") << u"name='Astra' position='192'"_s << u"position"_s << some("192");
        QTest::newRow("blanks around =") << u"name=\"A\" position = \"192\""_s << u"position"_s << std::optional<QString>();
        QTest::newRow("tab before") << u"name=\"A\"\tposition=\"192\""_s << u"position"_s << std::optional<QString>();
        QTest::newRow("suffix of another name") << u"satname=\"A\""_s << u"name"_s << std::optional<QString>();
        QTest::newRow("no closing quote, then apostrophes") << u"x name=\"A name='B'"_s << u"name"_s << some("B");
        QTest::newRow("no closing quote at all") << u"x name=\"A"_s << u"name"_s << std::optional<QString>();
        QTest::newRow("first occurrence") << u"x name=\"A\" name=\"B\""_s << u"name"_s << some("A");
        QTest::newRow("double quote first") << u"x name='A' name=\"B\""_s << u"name"_s << some("B");
        QTest::newRow("empty value") << u"x position=\"\""_s << u"position"_s << some("");
        QTest::newRow("inside another value") << u"x flags=\" position=\"7\" position=\"192\""_s << u"position"_s
                                              << some("7");
        QTest::newRow("missing") << u"name=\"A\""_s << u"position"_s << std::optional<QString>();
    }

    void attribute()
    {
        QFETCH(QString, tag);
        QFETCH(QString, name);
        QFETCH(std::optional<QString>, value);
        QCOMPARE(Satellites::attribute(name, tag), value);
    }

    void parse()
    {
        const QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- <sat name=\"comment\" -->\n"
                                "<satellites>\n"
                                "\t<sat name=\"Astra 1KR/1L/1M/1N (19.2E)\" flags=\"1\" position=\"192\">\n"
                                "\t\t<transponder frequency=\"10714000\" position=\"130\"/>\n\t</sat>\n"
                                "\t<sat name=\"Old 5W\" position=\"-50\"/>\n"
                                "\t<sat name=\"New 5W &amp;amp; &quot;x&quot; &apos;y&apos; &lt;z&gt; &#233;\" position=\"3550\"/>\n"
                                "\t<sat position='130' name='Hot Bird'>\n"
                                "\t<sat name=\"spaced\" position = \"282\">\n"
                                "\t<sat name=\"decimal\" position=\"28.2\">\n"
                                "\t<sat name=\"plus\" position=\"+235\">\n"
                                "\t<sat name=\"\" position=\"90\">\n"
                                "\t<sat name=\"no position\">\n"
                                "\t<sat name=\"empty\" position=\"\">\n"
                                "\t<sat\tname=\"tab\" position=\"100\">\n"
                                "\t<SAT name=\"upper\" position=\"110\">\n"
                                "</satellites>\n";
        const QHash<QString, QString> expected{
            {u"19.2E"_s, u"Astra 1KR/1L/1M/1N (19.2E)"_s},
            {u"5.0W"_s, u"New 5W &amp; \"x\" 'y' <z> &#233;"_s},
            {u"13.0E"_s, u"Hot Bird"_s},
            {u"23.5E"_s, u"plus"_s},
            {u"9.0E"_s, QString()},
        };
        QCOMPARE(Satellites::parse(text), expected);
    }

    void brokenFiles()
    {
        QCOMPARE(Satellites::parse({}).size(), 0);
        QCOMPARE(Satellites::parse("<satellites></satellites>").size(), 0);
        // A tag cut off before its ">" is not read, nor anything after it.
        QCOMPARE(Satellites::parse("<sat name=\"A\" position=\"192\"").size(), 0);
        QCOMPARE(Satellites::parse("<sat name=\"A\" position=\"192\"><sat name=\"B\" position=\"130\"").size(), 1);
        // A ">" inside a value ends the tag there.
        QCOMPARE(Satellites::parse("<sat name=\"a>b\" position=\"192\">").size(), 0);
        // Positions beyond any integer are skipped.
        QCOMPARE(Satellites::parse("<sat name=\"A\" position=\"99999999999999999999\">").size(), 0);
        // Invalid UTF-8 in a name reads as replacement characters.
        QCOMPARE(Satellites::parse("<sat name=\"T\xfcrksat\" position=\"420\">").value(u"42.0E"_s), u"T\ufffdrksat"_s);
    }

    void corpus()
    {
        QStringList files;
        if (!TestSupport::corpusDir().isEmpty()) {
            QDirIterator it(TestSupport::corpusDir(), {u"satellites.xml"_s}, QDir::Files, QDirIterator::Subdirectories);
            while (it.hasNext())
                files << it.next();
        }
        if (files.isEmpty())
            QSKIP("corpus not present");
        static const QRegularExpression satTag(u"<sat [^>]*position=\"(-?[0-9]+)\""_s);
        for (const QString &path : files) {
            const QByteArray bytes = TestSupport::readFile(path);
            const QByteArray text = Utf8::repaired(bytes);
            QSet<QString> labels;
            for (auto it = satTag.globalMatch(QString::fromUtf8(text)); it.hasNext();)
                labels.insert(Satellites::key(it.next().captured(1).toInt()));
            QVERIFY(labels.size() > 50);
            const auto names = Satellites::parse(text);
            QCOMPARE(QSet<QString>(names.keyBegin(), names.keyEnd()), labels);
            QVERIFY(names.value(u"19.2E"_s).contains(u"Astra"_s));
            if (!Utf8::isValid(bytes)) {
                // The Latin-1 file: its umlauts arrive as replacement characters, nothing is lost.
                QVERIFY(std::any_of(names.cbegin(), names.cend(),
                                    [](const QString &name) { return name.contains(u"T\ufffdrksat"_s); }));
            }
        }
    }
};

QTEST_GUILESS_MAIN(SatellitesTest)
#include "SatellitesTest.moc"
