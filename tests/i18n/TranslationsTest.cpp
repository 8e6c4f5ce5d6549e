#include "Translations.h"
#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::StringLiterals;

class TranslationsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void tsFiles_data();
    void tsFiles();
    void languageAfterRestart_data();
    void languageAfterRestart();
};

namespace {

// "%1", "%L2", "%n" in order of size, so that a moved placeholder is no difference but a lost or
// doubled one is.
QStringList placeholders(const QString &text)
{
    static const QRegularExpression pattern(u"%L?(\\d|n)"_s);
    QStringList found;
    for (auto it = pattern.globalMatch(text); it.hasNext();)
        found << it.next().captured();
    found.sort();
    return found;
}

// Every message that is not a finished translation with the source's placeholders, as "context:
// source: what is wrong".
QStringList problems(const QString &path, const QString &language)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {path + u": "_s + file.errorString()};
    QStringList found;
    QXmlStreamReader xml(&file);
    QString context, source;
    bool numerus = false;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        const auto name = xml.name();
        const QXmlStreamAttributes attributes = xml.attributes();
        if (name == u"TS") {
            if (attributes.value(QLatin1String("language")) != language ||
                attributes.value(QLatin1String("sourcelanguage")) != u"de")
                found << u"not a translation from German to "_s + language;
        } else if (name == u"name") {
            context = xml.readElementText();
        } else if (name == u"message") {
            numerus = attributes.value(QLatin1String("numerus")) == u"yes";
        } else if (name == u"source") {
            source = xml.readElementText();
        } else if (name == u"translation") {
            const QString what = context + u": "_s + source + u": "_s;
            const QString type = attributes.value(QLatin1String("type")).toString();
            QStringList forms;
            if (!numerus) forms << xml.readElementText();
            while (numerus && xml.readNextStartElement())
                forms << xml.readElementText();
            if (!type.isEmpty())
                found << what + type;
            else if (forms.isEmpty() || std::any_of(forms.cbegin(), forms.cend(), [](const QString &form) {
                         return form.trimmed().isEmpty();
                     }))
                found << what + u"empty"_s;
            for (const QString &form : std::as_const(forms)) {
                if (placeholders(form) != placeholders(source))
                    found << what + u"other placeholders in \""_s + form + u'"';
            }
        }
    }
    if (xml.hasError()) found << path + u": "_s + xml.errorString();
    return found;
}

// Runs a built program with the preference "language" set as the settings window sets it.
QString output(const QString &program, const QStringList &arguments, const QString &language,
               const QStringList &environment = {})
{
    Translations::setPreference(language);
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(u"LANGUAGE"_s);
    for (const QString &pair : environment)
        env.insert(pair.section(u'=', 0, 0), pair.section(u'=', 1));
    process.setProcessEnvironment(env);
    process.start(program, arguments);
    if (!process.waitForFinished(30000)) return u"did not finish: "_s + process.errorString();
    return QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError());
}

} // namespace

void TranslationsTest::initTestCase()
{
    TestSupport::isolateUserFolders();
}

void TranslationsTest::tsFiles_data()
{
    QTest::addColumn<QString>("language");
    for (const char *language : {"en", "fr", "es"})
        QTest::newRow(language) << QString::fromLatin1(language);
}

void TranslationsTest::tsFiles()
{
    QFETCH(QString, language);
    const QString name = u"corvandel_"_s + language + u".ts"_s;
    const QString committed = TestSupport::sourceDir() + u"/i18n/"_s + name;
    QStringList found = problems(committed, language);
    QVERIFY2(found.isEmpty(), qPrintable(found.join(u'\n')));

    // lupdate over the sources adds their new texts as unfinished and marks removed ones vanished.
    QTemporaryDir dir;
    const QString copy = dir.filePath(name);
    QVERIFY(QFile::copy(committed, copy));
    QVERIFY(QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner));
    QProcess lupdate;
    lupdate.start(QStringLiteral(CORVANDEL_LUPDATE),
                  QStringLiteral(CORVANDEL_LUPDATE_OPTIONS).split(u'|') + QStringList{u"-ts"_s, copy});
    QVERIFY(lupdate.waitForFinished(60000));
    QCOMPARE(lupdate.exitCode(), 0);
    // A tr() that lupdate cannot place in a context is a text it silently leaves out.
    const QString warnings = QString::fromUtf8(lupdate.readAllStandardError());
    QVERIFY2(!warnings.contains(u"without context"_s) && !warnings.contains(u"unknown namespace/class"_s),
             qPrintable(warnings));
    found = problems(copy, language);
    QVERIFY2(found.isEmpty(),
             qPrintable(u"Not in step with the sources (build corvandel_update_translations):\n"_s +
                        found.join(u'\n')));
}

void TranslationsTest::languageAfterRestart_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("environment");
    QTest::addColumn<QString>("expected");

    const QString editor = QStringLiteral(CORVANDEL_EDITOR);
    const QString cli = QStringLiteral(CORVANDEL_CLI);
    const QStringList help{u"--help"_s};
    QTest::newRow("editor en") << editor << help << u"en"_s << QStringList() << u"Edits the channel lists"_s;
    QTest::newRow("editor de") << editor << help << u"de"_s << QStringList()
                               << u"Bearbeitet die Senderlisten"_s;
    QTest::newRow("cli fr") << cli << help << u"fr"_s << QStringList()
                            << u"corvandel-cli COMMANDE [options]"_s;
    QTest::newRow("cli es") << cli << help << u"es"_s << QStringList() << u"Uso: corvandel-cli"_s;
    // The empty preference follows the system's languages, of which German is the first that counts.
    QTest::newRow("system es") << cli << help << QString() << QStringList{u"LC_ALL=es_ES.UTF-8"_s}
                               << u"Uso: corvandel-cli"_s;
    QTest::newRow("system de before en")
        << cli << help << QString() << QStringList{u"LC_ALL=de_DE.UTF-8"_s, u"LANGUAGE=de:en"_s}
        << u"Aufruf: corvandel-cli"_s;
    QTest::newRow("system it before en")
        << cli << help << QString() << QStringList{u"LC_ALL=it_IT.UTF-8"_s, u"LANGUAGE=it:en"_s}
        << u"Usage: corvandel-cli"_s;
    // Machine-readable output stays German in any language.
    QTest::newRow("json en") << cli << QStringList{u"dump"_s, u"--json"_s, TestSupport::examplesDir()}
                             << u"en"_s << QStringList() << u"\"position\": \"Kabel\""_s;
}

void TranslationsTest::languageAfterRestart()
{
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    QFETCH(QString, language);
    QFETCH(QStringList, environment);
    QFETCH(QString, expected);
    const QString text = output(program, arguments, language, environment);
    QVERIFY2(text.contains(expected), qPrintable(text));
}

QTEST_GUILESS_MAIN(TranslationsTest)
#include "TranslationsTest.moc"
