// Every list file of the bundled example list and of the corpus of real lists: read, rewritten and
// edited byte for byte, and what the example list must show.

#include "Bouquet.h"
#include "BouquetIndex.h"
#include "LameDB.h"
#include "Picon.h"
#include "Satellites.h"
#include "TestSupport.h"
#include "Utf8.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// What writing a read bouquet must give, worked out without the reader: the last "#NAME " line
// (or the file name), then every "#SERVICE " line with the first "#DESCRIPTION " line after it.
QByteArray expectedRewrite(const QByteArray &file, const QString &fileName)
{
    QByteArray name = fileName.toUtf8(), body;
    bool describable = false;
    for (QByteArray line : file.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.startsWith("#NAME ")) {
            name = line.mid(6);
        } else if (line.startsWith("#SERVICE ") || (line.startsWith("#DESCRIPTION ") && describable)) {
            body += line + '\n';
            describable = line.startsWith("#SERVICE ");
        }
    }
    return "#NAME " + name + '\n' + body;
}

QStringList filesBelow(const QString &folder, const QStringList &patterns)
{
    QStringList files;
    for (QDirIterator it(folder, patterns, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        files << it.next();
    return files;
}

} // namespace

class CorpusTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::isolateUserFolders(); }

    void folders_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("examples") << TestSupport::examplesDir();
        for (const QString &folder : TestSupport::corpusListFolders())
            QTest::newRow(qPrintable(QDir(TestSupport::corpusDir()).relativeFilePath(folder))) << folder;
    }

    void folders()
    {
        QFETCH(QString, folder);
        QList<LameDB::Database> databases;
        for (const QString &name : {u"lamedb"_s, u"lamedb5"_s}) {
            if (!QFileInfo::exists(folder + u'/' + name))
                continue;
            const QByteArray text = Utf8::repaired(TestSupport::readFile(folder + u'/' + name));
            const bool format5 = name == u"lamedb5";
            const auto database = LameDB::parse(text);
            databases << database;
            QVERIFY(!database.transponders.isEmpty());
            // The lines of every service record, found without the reader.
            const QList<QByteArray> lines = text.split('\n');
            QList<qsizetype> records;
            const qsizetype end = format5 ? lines.size() : lines.indexOf("end", lines.indexOf("services"));
            for (qsizetype i = format5 ? 0 : lines.indexOf("services") + 1; i + (format5 ? 0 : 2) < end;
                 i += format5 ? 1 : 3) {
                if (!format5 || lines[i].startsWith("s:"))
                    records << i;
            }
            QCOMPARE(database.services.size(), records.size());

            // Nothing to edit writes back every byte; an edit changes exactly the lines of its
            // service, one whose key occurs once, near the middle.
            QCOMPARE(LameDB::applying({}, text), text);
            QCOMPARE(LameDB::applying({{ServiceKey{0xfffffff, 1, 2, 3}, ServiceEdit::deletion()}}, text), text);
            QHash<ServiceKey, int> counts;
            for (const Service &service : database.services)
                ++counts[service.key];
            qsizetype index = database.services.size() / 2;
            while (index < database.services.size() && counts.value(database.services[index].key) > 1)
                ++index;
            QVERIFY(index < database.services.size());
            const ServiceKey key = database.services[index].key;
            QList<QByteArray> renamed = lines;
            QByteArray &line = renamed[records[index] + (format5 ? 0 : 1)];
            const qsizetype open = line.indexOf('"');
            line = format5 ? line.left(open + 1) + "Umbenannt 'neu'" + line.mid(line.indexOf('"', open + 1))
                           : QByteArray("Umbenannt \"neu\"");
            QCOMPARE(LameDB::applying({{key, ServiceEdit::rename(u"Umbenannt \"neu\""_s)}}, text), renamed.join('\n'));
            QList<Service> expected = database.services;
            expected[index].name = format5 ? u"Umbenannt 'neu'"_s : u"Umbenannt \"neu\""_s;
            QCOMPARE(LameDB::parse(renamed.join('\n')).services, expected);
            QList<QByteArray> deleted = lines;
            deleted.remove(records[index], format5 ? 1 : 3);
            QCOMPARE(LameDB::applying({{key, ServiceEdit::deletion()}}, text), deleted.join('\n'));
            expected.remove(index);
            const auto afterDeletion = LameDB::parse(deleted.join('\n'));
            QCOMPARE(afterDeletion.services, expected);
            QCOMPARE(afterDeletion.transponders, database.transponders);
        }
        // Both databases hold the same services (some names were edited in one).
        if (databases.size() == 2) {
            QCOMPARE(databases[0].services.size(), databases[1].services.size());
            for (qsizetype i = 0; i < databases[0].services.size(); ++i) {
                const Service &a = databases[0].services[i], &b = databases[1].services[i];
                QVERIFY(a.key == b.key && a.type == b.type && a.position == b.position);
            }
            QCOMPARE(databases[0].transponders.size(), databases[1].transponders.size());
        }

        // The index names every file behind the first FROM BOUQUET of a #SERVICE line.
        static const QRegularExpression phrase(u"^#SERVICE.*?FROM BOUQUET \"([^\"\n]*)\""_s,
                                               QRegularExpression::MultilineOption);
        for (const QString &name : QDir(folder).entryList({u"bouquets.tv"_s, u"bouquets.radio"_s}, QDir::Files)) {
            const QByteArray text = Utf8::repaired(TestSupport::readFile(folder + u'/' + name));
            QStringList expected;
            for (auto it = phrase.globalMatch(QString::fromUtf8(text)); it.hasNext();)
                expected << it.next().captured(1);
            QVERIFY(!expected.isEmpty());
            QCOMPARE(BouquetIndex::fileNames(text), expected);
            for (const QString &fileName : expected)
                QVERIFY2(BouquetIndex::isSafeFileName(fileName), qPrintable(fileName));
        }
        // Writing what was read gives the file less the lines the format drops, with line feeds.
        for (const QString &name : QDir(folder).entryList({u"userbouquet.*"_s, u"subbouquet.*"_s}, QDir::Files)) {
            const QByteArray text = Utf8::repaired(TestSupport::readFile(folder + u'/' + name));
            const Bouquet bouquet = Bouquet::parse(name, MediaKind::tv, text);
            QCOMPARE(bouquet.serialized(), expectedRewrite(text, name));
            QCOMPARE(bouquet.entries.size(), text.count("\n#SERVICE ") + text.startsWith("#SERVICE "));
        }
    }

    void satellitesAndPicons()
    {
        static const QRegularExpression satTag(u"<sat [^>]*position=\"(-?[0-9]+)\""_s);
        const QStringList files = filesBelow(TestSupport::corpusDir(), {u"satellites.xml"_s});
        for (const QString &path : files) {
            const QByteArray bytes = TestSupport::readFile(path);
            QSet<QString> labels;
            for (auto it = satTag.globalMatch(QString::fromUtf8(Utf8::repaired(bytes))); it.hasNext();)
                labels.insert(Satellites::key(it.next().captured(1).toInt()));
            QVERIFY(labels.size() > 50);
            const auto names = Satellites::parse(Utf8::repaired(bytes));
            QCOMPARE(QSet<QString>(names.keyBegin(), names.keyEnd()), labels);
            QVERIFY(names.value(u"19.2E"_s).contains(u"Astra"_s));
            // The Latin-1 file: its umlauts arrive as replacement characters, nothing is lost.
            if (!Utf8::isValid(bytes))
                QVERIFY(std::any_of(names.cbegin(), names.cend(), [](const QString &name) { return name.contains(u"T\ufffdrksat"_s); }));
        }
        // Every picon is found under the first name of its service's reference.
        const QStringList picons = filesBelow(TestSupport::corpusDir(), {u"*.png"_s})
                                 + filesBelow(TestSupport::examplesDir() + u"/picons"_s, {u"*.png"_s});
        for (const QString &path : picons) {
            const QString file = QFileInfo(path).fileName();
            QCOMPARE(Picon::fileNames(file.chopped(4).replace(u'_', u':') + u':').value(0), file);
        }
        if (files.isEmpty() || picons.isEmpty())
            QSKIP("corpus not present");
    }

    // The example list shows what the editor does: both formats alike and written as the box writes
    // them, every kind of position, repairs to make, every bouquet file named once and resolved.
    void exampleList()
    {
        const QDir dir(TestSupport::examplesDir());
        const auto file = [&](const QString &name) { return TestSupport::readFile(dir.filePath(name)); };
        const QByteArray v4Text = file(u"lamedb"_s), v5Text = file(u"lamedb5"_s);
        const auto v4 = LameDB::parse(v4Text), v5 = LameDB::parse(v5Text);
        QCOMPARE(v4.services, v5.services);
        QCOMPARE(v4.transponders, v5.transponders);
        QVERIFY(v5.services.size() >= 60 && v5.services.size() <= 120);
        QVERIFY(v5.transponders.size() >= 8 && v5.transponders.size() <= 12);
        for (const QByteArray &text : {v4Text, v5Text})
            QVERIFY(!text.contains('\r') && text.endsWith('\n') && Utf8::isValid(text));
        static const QRegularExpression key(u"^[0-9a-f]{4}:[0-9a-f]{8}:[0-9a-f]{4}:[0-9a-f]{4}:[0-9]+:0$"_s);
        const QList<QByteArray> lines = v4Text.split('\n');
        const qsizetype services = lines.indexOf("services");
        for (qsizetype i = services + 1; i < lines.indexOf("end", services); i += 3) {
            QVERIFY2(key.match(QString::fromUtf8(lines[i])).hasMatch(), lines[i].constData());
            QVERIFY(lines[i + 2].startsWith("p:"));
        }
        QVERIFY(v4Text.contains(":3592:") && v5Text.contains("\nt:ffff0000:") && v5Text.contains("\nt:eeee0000:"));
        QVERIFY(v5Text.contains("\"Ã–1\"")); // stored mis-encoded, read repaired
        QSet<QString> texts;
        QSet<ServiceKey> keys;
        for (const Service &service : v5.services) {
            texts << service.position << service.name << service.provider;
            keys << service.key;
        }
        for (const QString &text : {u"19.2E"_s, u"13.0E"_s, u"0.8W"_s, u"Kabel"_s, u"Terrestrisch"_s, u"Ö1"_s})
            QVERIFY2(texts.contains(text), qPrintable(text));
        QVERIFY(std::any_of(texts.cbegin(), texts.cend(), [](const QString &text) { return text.contains(u"13.0°E"_s); }));
        QVERIFY(std::any_of(v5.services.cbegin(), v5.services.cend(), [](const Service &s) { return s.kind() == MediaKind::radio; }));
        QVERIFY(std::all_of(v5.services.cbegin(), v5.services.cend(), [](const Service &s) { return !s.position.isEmpty(); }));

        QVERIFY(file(u"bouquets.tv"_s).endsWith("\r\n") && file(u"bouquets.radio"_s).endsWith("\r\n"));
        QStringList named = BouquetIndex::fileNames(file(u"bouquets.tv"_s)) + BouquetIndex::fileNames(file(u"bouquets.radio"_s));
        int markers = 0, streams = 0, overrides = 0;
        const QStringList files = dir.entryList({u"userbouquet.*"_s, u"subbouquet.*"_s}, QDir::Files, QDir::Name);
        for (const QString &fileName : files) {
            const QByteArray text = file(fileName);
            QVERIFY2(text.endsWith("\r\n") && !text.contains("\n\n"), qPrintable(fileName));
            const Bouquet bouquet = Bouquet::parse(fileName, MediaKind::tv, text);
            QVERIFY(bouquet.name != fileName && !bouquet.entries.isEmpty());
            for (const BouquetEntry &entry : bouquet.entries) {
                if (entry.isMarker()) {
                    ++markers;
                    QVERIFY(entry.description && !entry.description->isEmpty());
                } else if (const auto key = entry.serviceKey()) {
                    QVERIFY2(keys.contains(*key), qPrintable(entry.reference));
                    overrides += entry.description.has_value();
                } else if (entry.reference.startsWith(u"4097:"_s)) {
                    ++streams;
                    QVERIFY(entry.reference.contains(u"http%3a//"_s));
                } else {
                    named += BouquetIndex::fileNames("#SERVICE " + entry.reference.toUtf8()); // a sub-bouquet
                }
            }
        }
        QVERIFY(markers >= 5 && streams >= 1 && overrides >= 1 && files.size() >= 4);
        named.sort();
        QCOMPARE(named, files); // each once, the sub-bouquet too
        QVERIFY(std::any_of(files.cbegin(), files.cend(), [](const QString &name) { return name.startsWith(u"sub"_s); }));

        const auto satellites = Satellites::parse(file(u"satellites.xml"_s));
        QCOMPARE(satellites.value(u"0.8W"_s), u"Thor 5/6/7 & Intelsat 10-02 (0.8W)"_s);
        for (const Transponder &transponder : v4.transponders) {
            if (transponder.data.startsWith(u"s "_s))
                QVERIFY2(satellites.contains(*transponder.position()), qPrintable(*transponder.position()));
        }
    }
};

QTEST_GUILESS_MAIN(CorpusTest)
#include "CorpusTest.moc"
