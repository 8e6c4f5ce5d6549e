#include "PiconArchives.h"
#include "PiconPackage.h"
#include "PiconUploadPlan.h"
#include "TestSupport.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace PiconArchives;

Q_DECLARE_METATYPE(PiconArchives::Format)

namespace {

const QByteArray nameA = "1_0_19_283D_3FB_1_C00000_0_0_0.png";
const QByteArray nameB = "1_0_1_445D_453_1_C00000_0_0_0.png";

QStringList namesOf(const QList<PiconFile> &files)
{
    QStringList names;
    for (const PiconFile &file : files)
        names << file.name;
    return names;
}

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

// Every path below the folder whose file name is `name`.
QStringList findAll(const QString &folder, const QString &name)
{
    QStringList found;
    QDirIterator it(folder, QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        if (it.fileName() == name)
            found << it.filePath();
    }
    return found;
}

} // namespace

class PiconPackageTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void canonicalName_data();
    void canonicalName();
    void archiveNames_data();
    void archiveNames();
    void openArchive_data();
    void openArchive();
    void openIpk();
    void nestedArchivesOneLevel();
    void openFolderInPlace();
    void reopenReplacesExtraction();
    void linksInsideThePackage();
    void damagedArchive_data();
    void damagedArchive();
    void hostileArchive_data();
    void hostileArchive();
    void contentFromElsewhere();
    void hostileFileName();
    void packageWithoutPicons();
    void discardOnlyOwnFolders();
    void uploadPlan();
    void uploadPlanChoices_data();
    void uploadPlanChoices();

private:
    QString workBase() const { return m_dir->filePath(u"work"_s); }
    QString packagePath(const QString &name) const { return m_dir->filePath(u"packages/"_s + name); }
    QString extractionFolder(const QString &name) const { return workBase() + u"/Picon-Pakete/"_s + name; }

    std::unique_ptr<QTemporaryDir> m_dir;
    QList<Entry> m_corpus;
};

void PiconPackageTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    m_corpus = corpusPicons("picons/");
}

void PiconPackageTest::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    QDir().mkpath(m_dir->filePath(u"packages"_s));
    QDir().mkpath(workBase());
}

void PiconPackageTest::canonicalName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("canonical");

    QTest::newRow("lower case, upper-case ending") << u"1_0_19_283d_3fb_1_c00000_0_0_0.PNG"_s
                                                   << u"1_0_19_283D_3FB_1_C00000_0_0_0.png"_s;
    QTest::newRow("ten pieces") << u"1_0_1_ABC_1_1_0_0_0_0.png"_s << u"1_0_1_ABC_1_1_0_0_0_0.png"_s;
    QTest::newRow("mixed ending") << u"1_0_1_abc_1_1_0_0_0_0.Png"_s << u"1_0_1_ABC_1_1_0_0_0_0.png"_s;
    QTest::newRow("nine pieces") << u"1_0_1_ABC_1_1_0_0_0.png"_s << QString();
    QTest::newRow("eleven pieces") << u"1_0_1_ABC_1_1_0_0_0_0_0.png"_s << QString();
    QTest::newRow("first piece 2") << u"2_0_1_ABC_1_1_0_0_0_0.png"_s << QString();
    QTest::newRow("first piece 01") << u"01_0_1_ABC_1_1_0_0_0_0.png"_s << QString();
    QTest::newRow("piece G1") << u"1_0_1_G1_1_1_0_0_0_0.png"_s << QString();
    QTest::newRow("full-width digit") << u"1_0_1_１_1_1_0_0_0_0.png"_s << QString();
    QTest::newRow("blank in a piece") << u"1_0_1_AB C_1_1_0_0_0_0.png"_s << QString();
    QTest::newRow("svg") << u"1_0_1_ABC_1_1_0_0_0_0.svg"_s << QString();
    QTest::newRow("png.bak") << u"1_0_1_ABC_1_1_0_0_0_0.png.bak"_s << QString();
    QTest::newRow("logo") << u"logo.png"_s << QString();
    QTest::newRow("ending only") << u".png"_s << QString();
}

void PiconPackageTest::canonicalName()
{
    QFETCH(QString, name);
    QFETCH(QString, canonical);
    QCOMPARE(PiconPackage::canonicalName(name).value_or(QString()), canonical);
}

void PiconPackageTest::archiveNames_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<bool>("archive");
    QTest::addColumn<QString>("baseName");

    QTest::newRow("zip, upper case") << u"/data/Picons.ZIP"_s << true << u"Picons"_s;
    QTest::newRow("tar.gz") << u"a.b.tar.gz"_s << true << u"a.b"_s;
    QTest::newRow("tgz") << u"x.tgz"_s << true << u"x"_s;
    QTest::newRow("tar.xz") << u"x.tar.xz"_s << true << u"x"_s;
    QTest::newRow("txz") << u"x.txz"_s << true << u"x"_s;
    QTest::newRow("tar.bz2") << u"x.tar.bz2"_s << true << u"x"_s;
    QTest::newRow("tbz2") << u"x.tbz2"_s << true << u"x"_s;
    QTest::newRow("tar") << u"x.tar"_s << true << u"x"_s;
    QTest::newRow("ipk") << u"/tmp/enigma2-picons_1.0_all.ipk"_s << true << u"enigma2-picons_1.0_all"_s;
    QTest::newRow("7z") << u"x.7z"_s << true << u"x"_s;
    QTest::newRow("file url") << u"file:///tmp/My%20Picons.zip"_s << true << u"My Picons"_s;
    QTest::newRow("gz alone") << u"x.gz"_s << false << u"x.gz"_s;
    QTest::newRow("png") << u"x.png"_s << false << u"x.png"_s;
    QTest::newRow("ending inside") << u"x.zip.png"_s << false << u"x.zip.png"_s;
}

void PiconPackageTest::archiveNames()
{
    QFETCH(QString, url);
    QFETCH(bool, archive);
    QFETCH(QString, baseName);
    QCOMPARE(PiconPackage::isArchive(QFileInfo(url).fileName()), archive);
    QCOMPARE(PiconPackage::baseName(url), baseName);
}

void PiconPackageTest::openArchive_data()
{
    QTest::addColumn<Format>("format");
    QTest::addColumn<QString>("fileName");

    QTest::newRow("zip") << Format::zip << u"srp.zip"_s;
    QTest::newRow("tar.gz") << Format::tarGz << u"srp.tar.gz"_s;
    QTest::newRow("tgz") << Format::tarGz << u"srp.tgz"_s;
    QTest::newRow("tar.xz") << Format::tarXz << u"srp.tar.xz"_s;
    QTest::newRow("tar.bz2") << Format::tarBz2 << u"srp.tar.bz2"_s;
    QTest::newRow("tar") << Format::tar << u"srp.tar"_s;
    QTest::newRow("7z") << Format::sevenZip << u"srp.7z"_s;
}

void PiconPackageTest::openArchive()
{
    QFETCH(Format, format);
    QFETCH(QString, fileName);
    if (m_corpus.isEmpty())
        QSKIP("the corpus picons are missing");

    // The corpus picons, one of them stored in lower case, beside files that are no picons.
    QList<Entry> entries{directory("picons/")};
    entries << m_corpus;
    entries << file("extra/1_0_19_2b66_3f3_1_c00000_0_0_0.png", m_corpus.first().data)
            << file("picons/logo.png", "not a service picon") << file("README.txt", "Picons");
    const QString archive = packagePath(fileName);
    QVERIFY(write(archive, format, entries));

    const PiconPackage package = PiconPackage::open(archive, workBase());
    QCOMPARE(package.source, archive);
    QCOMPARE(package.root, extractionFolder(u"srp"_s));
    QVERIFY(package.isExtracted());

    QStringList expected{u"1_0_19_2B66_3F3_1_C00000_0_0_0.png"_s};
    for (const Entry &entry : std::as_const(m_corpus))
        expected << QFileInfo(QString::fromUtf8(entry.path)).fileName();
    expected.sort();
    QCOMPARE(namesOf(package.files), expected);
    // Every picon holds the bytes of the archive entry at its place.
    QHash<QString, QByteArray> stored;
    for (const Entry &entry : std::as_const(entries))
        stored.insert(QString::fromUtf8(entry.path), entry.data);
    for (const PiconFile &picon : package.files) {
        const QString inPackage = QDir(package.root).relativeFilePath(picon.path);
        QVERIFY2(stored.contains(inPackage), qPrintable(picon.path));
        QCOMPARE(TestSupport::readFile(picon.path), stored.value(inPackage));
    }
    QVERIFY(QFileInfo::exists(package.root + u"/README.txt"_s));
}

void PiconPackageTest::openIpk()
{
    const QString ipk = packagePath(u"enigma2-picons-srp_1.0_all.ipk"_s);
    QVERIFY(writeIpk(ipk, {directory("usr/share/enigma2/picon/"), file("usr/share/enigma2/picon/" + nameA, "A"),
                           file("usr/share/enigma2/picon/" + nameB, "B")}));

    const PiconPackage package = PiconPackage::open(ipk, workBase());
    QCOMPARE(package.root, extractionFolder(u"enigma2-picons-srp_1.0_all"_s));
    QCOMPARE(namesOf(package.files), (QStringList{QString::fromUtf8(nameA), QString::fromUtf8(nameB)}));
    const QString pictures = package.root + u"/data-inhalt/usr/share/enigma2/picon/"_s;
    QCOMPARE(package.files.at(0).path, pictures + QString::fromUtf8(nameA));
    QCOMPARE(TestSupport::readFile(package.files.at(1).path), QByteArray("B"));
    // The control archive is unpacked as well; it holds no picons.
    QVERIFY(TestSupport::readFile(package.root + u"/control-inhalt/control"_s).startsWith("Package: "));
    QCOMPARE(TestSupport::readFile(package.root + u"/debian-binary"_s), QByteArray("2.0\n"));
}

void PiconPackageTest::nestedArchivesOneLevel()
{
    const QByteArray nameC = "1_0_1_1134_2AF8_13E_820000_0_0_0.png";
    const QByteArray innermost = bytes(Format::zip, {file(nameC, "C")});
    const QByteArray inner = bytes(Format::tarXz, {file("logos/" + nameB, "B"), file("innermost.zip", innermost)});
    QVERIFY(!inner.isEmpty());
    const QString archive = packagePath(u"nested.zip"_s);
    QVERIFY(write(archive, Format::zip, {file(nameA, "A"), file("sub/inner.TAR.XZ", inner)}));

    const PiconPackage package = PiconPackage::open(archive, workBase());
    QCOMPARE(namesOf(package.files), (QStringList{QString::fromUtf8(nameA), QString::fromUtf8(nameB)}));
    QCOMPARE(package.files.at(1).path, package.root + u"/sub/inner-inhalt/logos/"_s + QString::fromUtf8(nameB));
    // One level only: the archive inside the inner one stays packed.
    QVERIFY(QFileInfo::exists(package.root + u"/sub/inner-inhalt/innermost.zip"_s));
    QVERIFY(!QFileInfo::exists(package.root + u"/sub/inner-inhalt/innermost-inhalt"_s));
}

void PiconPackageTest::openFolderInPlace()
{
    const QString folder = m_dir->filePath(u"unpacked"_s);
    QVERIFY(TestSupport::writeFile(folder + u"/a/b/"_s + QString::fromUtf8(nameB), "B"));
    QVERIFY(TestSupport::writeFile(folder + u"/"_s + QString::fromUtf8(nameA).toLower(), "A"));
    QVERIFY(TestSupport::writeFile(folder + u"/picons.zip"_s, "an archive in a picked folder stays packed"));

    const PiconPackage package = PiconPackage::open(folder, workBase());
    QCOMPARE(package.root, folder);
    QVERIFY(!package.isExtracted());
    QCOMPARE(namesOf(package.files), (QStringList{QString::fromUtf8(nameA), QString::fromUtf8(nameB)}));
    QCOMPARE(package.files.at(0).path, folder + u"/"_s + QString::fromUtf8(nameA).toLower());
    QVERIFY(!QFileInfo::exists(workBase() + u"/Picon-Pakete"_s));

    QVERIFY(!PiconPackage::discardExtracted(package, workBase()));
    QVERIFY(QFileInfo::exists(package.files.at(1).path));
}

void PiconPackageTest::reopenReplacesExtraction()
{
    const QString archive = packagePath(u"p.tar.gz"_s);
    QVERIFY(write(archive, Format::tarGz, {file(nameA, "first")}));
    const PiconPackage first = PiconPackage::open(archive, workBase());
    QVERIFY(TestSupport::writeFile(first.root + u"/stale/"_s + QString::fromUtf8(nameB), "stale"));

    QVERIFY(write(archive, Format::tarGz, {file(nameA, "second")}));
    const PiconPackage second = PiconPackage::open(archive, workBase());
    QCOMPARE(second.root, first.root);
    QCOMPARE(namesOf(second.files), QStringList{QString::fromUtf8(nameA)});
    QCOMPARE(TestSupport::readFile(second.files.first().path), QByteArray("second"));
    QVERIFY(!QFileInfo::exists(first.root + u"/stale"_s));

    QVERIFY(PiconPackage::discardExtracted(second, workBase()));
    QVERIFY(!QFileInfo::exists(second.root));
    QVERIFY(QFileInfo::exists(archive));
}

void PiconPackageTest::linksInsideThePackage()
{
    // Picon sets alias one logo under several services with relative links.
    const QString archive = packagePath(u"links.tar"_s);
    QVERIFY(write(archive, Format::tar,
                  {file("logos/a.png", "logo"), softLink("picon/" + nameA, "../logos/a.png"),
                   hardLink("picon/" + nameB, "logos/a.png")}));
    const PiconPackage package = PiconPackage::open(archive, workBase());
    QCOMPARE(namesOf(package.files), (QStringList{QString::fromUtf8(nameA), QString::fromUtf8(nameB)}));
    QVERIFY(QFileInfo(package.files.at(0).path).isSymLink());
    QCOMPARE(TestSupport::readFile(package.files.at(0).path), QByteArray("logo"));
    QCOMPARE(TestSupport::readFile(package.files.at(1).path), QByteArray("logo"));
}

void PiconPackageTest::damagedArchive_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("content");

    const QByteArray tarGz = bytes(Format::tarGz, {file(nameA, QByteArray(200000, 'x'))});
    const QByteArray zip = bytes(Format::zip, {file(nameA, QByteArray(200000, 'x')), file(nameB, "B")});
    QTest::newRow("truncated tar.gz") << u"cut.tar.gz"_s << tarGz.left(tarGz.size() / 2);
    QTest::newRow("truncated zip") << u"cut.zip"_s << zip.left(zip.size() / 2);
    QTest::newRow("no archive at all") << u"text.zip"_s << QByteArray("This is not a zip file.\n");
    QTemporaryDir dir;
    QVERIFY(writeIpk(dir.filePath(u"p.ipk"_s), {file(nameA, QByteArray(100000, 'x'))}));
    const QByteArray ipk = TestSupport::readFile(dir.filePath(u"p.ipk"_s));
    QTest::newRow("truncated ipk") << u"cut.ipk"_s << ipk.left(ipk.size() - 100);
}

void PiconPackageTest::damagedArchive()
{
    QFETCH(QString, fileName);
    QFETCH(QByteArray, content);
    const QString archive = packagePath(fileName);
    QVERIFY(TestSupport::writeFile(archive, content));
    try {
        PiconPackage::open(archive, workBase());
        QFAIL("a damaged archive was opened");
    } catch (const PackageError &error) {
        QVERIFY2(error.description().startsWith(u"Das Paket konnte nicht entpackt werden: "_s),
                 qPrintable(error.description()));
        QVERIFY(!error.text().isEmpty());
    }
    // Nothing half unpacked is left behind, and the package itself is untouched.
    QVERIFY(!QFileInfo::exists(extractionFolder(PiconPackage::baseName(fileName))));
    QCOMPARE(TestSupport::readFile(archive), content);

    QVERIFY_THROWS_EXCEPTION(PackageError, PiconPackage::open(packagePath(u"missing.zip"_s), workBase()));
}

void PiconPackageTest::hostileArchive_data()
{
    QTest::addColumn<Format>("format");
    QTest::addColumn<QList<Entry>>("entries");

    // The folder that an escaping entry would reach; the test fills in its absolute path.
    const QByteArray outside = "@OUTSIDE@";
    QTest::newRow("dot-dot file, tar") << Format::tar << QList<Entry>{file("../../evil.png", "evil")};
    QTest::newRow("dot-dot file, zip") << Format::zip << QList<Entry>{file("ok/../../../evil.png", "evil")};
    QTest::newRow("absolute path") << Format::tarGz << QList<Entry>{file(outside + "/evil.png", "evil")};
    QTest::newRow("absolute link, then through it")
        << Format::tar << QList<Entry>{softLink("link", outside), file("link/evil.png", "evil")};
    QTest::newRow("relative link out, then through it")
        << Format::zip << QList<Entry>{softLink("link", "../../../outside"), file("link/evil.png", "evil")};
    QTest::newRow("picon linked to a file not there yet")
        << Format::zip << QList<Entry>{softLink(nameA, "../../../outside/later.png")};
    QTest::newRow("picon linked to a secret")
        << Format::tar << QList<Entry>{softLink(nameA, outside + "/secret.txt")};
    // By its text the second link stays inside; through the first one it climbs three levels.
    QTest::newRow("link out through another link")
        << Format::tar
        << QList<Entry>{directory("d1/d2/d3/"), softLink("d1/d2/d3/x", "../../.."),
                        softLink(nameA, "d1/d2/d3/x/../../../outside/secret.txt")};
    QTest::newRow("hard link out") << Format::tar << QList<Entry>{hardLink(nameA, "../../outside/secret.txt")};
}

void PiconPackageTest::hostileArchive()
{
    QFETCH(Format, format);
    QFETCH(QList<Entry>, entries);
    // work/Picon-Pakete/hostile/../../.. is the temporary folder, which holds "outside".
    const QString outside = m_dir->filePath(u"outside"_s);
    QVERIFY(TestSupport::writeFile(outside + u"/secret.txt"_s, "secret"));
    for (Entry &entry : entries) {
        entry.path.replace("@OUTSIDE@", QFile::encodeName(outside));
        entry.target.replace("@OUTSIDE@", QFile::encodeName(outside));
    }
    const QString archive = packagePath(u"hostile.tar"_s);
    QVERIFY(write(archive, format, entries));

    try {
        PiconPackage::open(archive, workBase());
        QFAIL("a hostile archive was opened");
    } catch (const PackageError &error) {
        QVERIFY2(error.description().startsWith(u"Das Paket konnte nicht entpackt werden: "_s),
                 qPrintable(error.description()));
    }
    QCOMPARE(findAll(m_dir->path(), u"evil.png"_s), QStringList());
    QCOMPARE(QDir(outside).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{u"secret.txt"_s});
    QCOMPARE(TestSupport::readFile(outside + u"/secret.txt"_s), QByteArray("secret"));
    QVERIFY(!QFileInfo::exists(extractionFolder(u"hostile"_s)));
}

void PiconPackageTest::contentFromElsewhere()
{
    // An mtree listing names files of this computer as the content of its entries.
    const QString secret = m_dir->filePath(u"outside/secret.txt"_s);
    QVERIFY(TestSupport::writeFile(secret, "secret"));
    const QString archive = packagePath(u"listing.tar"_s);
    QVERIFY(TestSupport::writeFile(archive, "#mtree\n" + nameA + " type=file contents=" + QFile::encodeName(secret) + "\n"));
    QVERIFY_THROWS_EXCEPTION(PackageError, PiconPackage::open(archive, workBase()));
    QCOMPARE(findAll(workBase(), QString::fromUtf8(nameA)), QStringList());
}

void PiconPackageTest::hostileFileName()
{
    // A package named "..zip" must not unpack into (and first empty) the folder of all packages.
    QVERIFY(TestSupport::writeFile(extractionFolder(u"kept"_s) + u"/file"_s, "kept"));
    const QString archive = packagePath(u"..zip"_s);
    QVERIFY(write(archive, Format::zip, {file(nameA, "A")}));
    const PiconPackage package = PiconPackage::open(archive, workBase());
    QCOMPARE(QFileInfo(package.root).path(), workBase() + u"/Picon-Pakete"_s);
    QVERIFY(package.root != workBase() + u"/Picon-Pakete"_s);
    QCOMPARE(namesOf(package.files), QStringList{QString::fromUtf8(nameA)});
    QVERIFY(PiconPackage::discardExtracted(package, workBase()));
    QCOMPARE(TestSupport::readFile(extractionFolder(u"kept"_s) + u"/file"_s), QByteArray("kept"));
}

void PiconPackageTest::packageWithoutPicons()
{
    const QString archive = packagePath(u"leer.zip"_s);
    QVERIFY(write(archive, Format::zip, {file("logo.png", "x"), file("1_0_1_ABC.png", "x")}));
    const PiconPackage package = PiconPackage::open(archive, workBase());
    QVERIFY(package.files.isEmpty());
    QVERIFY(QFileInfo::exists(package.root + u"/logo.png"_s));
}

void PiconPackageTest::discardOnlyOwnFolders()
{
    const QString stranger = m_dir->filePath(u"stranger"_s);
    QVERIFY(TestSupport::writeFile(stranger + u"/file"_s, "x"));
    QVERIFY(TestSupport::writeFile(extractionFolder(u"other"_s) + u"/file"_s, "x"));

    const QList<PiconPackage> refused{
        PiconPackage{packagePath(u"a.zip"_s), stranger, {}},
        PiconPackage{packagePath(u"a.zip"_s), workBase() + u"/Picon-Pakete"_s, {}},
        PiconPackage{packagePath(u"a.zip"_s), extractionFolder(u"x/../../.."_s), {}},
        PiconPackage{extractionFolder(u"other"_s), extractionFolder(u"other"_s), {}},
    };
    for (const PiconPackage &package : refused)
        QVERIFY2(!PiconPackage::discardExtracted(package, workBase()), qPrintable(package.root));
    QVERIFY(QFileInfo::exists(stranger + u"/file"_s));
    QVERIFY(QFileInfo::exists(extractionFolder(u"other"_s) + u"/file"_s));
    QVERIFY(QFileInfo::exists(workBase()));

    QVERIFY(PiconPackage::discardExtracted(PiconPackage{packagePath(u"o.zip"_s), extractionFolder(u"other"_s), {}},
                                           workBase()));
    QVERIFY(!QFileInfo::exists(extractionFolder(u"other"_s)));
}

void PiconPackageTest::uploadPlan()
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

void PiconPackageTest::uploadPlanChoices_data()
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

void PiconPackageTest::uploadPlanChoices()
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

QTEST_GUILESS_MAIN(PiconPackageTest)
#include "PiconPackageTest.moc"
