#include "BoxLog.h"
#include "LogView.h"
#include "TestSupport.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QCheckBox>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

// The log window over the program's own log: what it shows, the error filter with its
// placeholders, copying and emptying.
class LogViewTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void filterCopyAndClear();
    void followsTheEnd();

private:
    static void clearLog();
};

void LogViewTest::initTestCase()
{
    TestSupport::isolateUserFolders();
}

void LogViewTest::clearLog()
{
    BoxLog::shared().clear();
    BoxLog::shared().flush();
}

void LogViewTest::filterCopyAndClear()
{
    clearLog();
    LogView view;
    view.show();
    auto *text = view.findChild<QPlainTextEdit *>(u"text"_s);
    auto *onlyErrors = view.findChild<QCheckBox *>(u"onlyErrors"_s);
    QCOMPARE(text->toPlainText(), QString());
    QCOMPARE(text->placeholderText(), u"Noch keine Einträge."_s);
    onlyErrors->setChecked(true);
    QCOMPARE(text->placeholderText(), u"Keine Fehler – alles hat geklappt."_s);

    // Written while the window is open: it follows on its own.
    BoxLog &log = BoxLog::shared();
    log.write(BoxLog::Level::info, u"FTP"_s, u"Herunterladen: ftp://box/lamedb"_s);
    log.write(BoxLog::Level::error, u"FTP"_s, u"Herunterladen fehlgeschlagen nach 0.10 s: curl-Code 7"_s);
    log.write(BoxLog::Level::ok, u"HTTP"_s, u"GET box:80/web/signal → 200"_s);
    log.write(BoxLog::Level::error, u"Telnet"_s, u"fehlgeschlagen nach 1.00 s: Zeitüberschreitung"_s);
    log.flush();
    onlyErrors->setChecked(false);
    QTRY_VERIFY(text->toPlainText().contains(u"web/signal"_s));
    QCOMPARE(text->toPlainText(), BoxLog::shared().tail(LogView::tailBytes));
    // The day header, then the four entries.
    QCOMPARE(text->toPlainText().split(u'\n', Qt::SkipEmptyParts).size(), 5);

    onlyErrors->setChecked(true);
    const QStringList errors = text->toPlainText().split(u'\n');
    QCOMPARE(errors.size(), 2);
    QVERIFY(errors[0].contains(u"  ERR  FTP        Herunterladen fehlgeschlagen"_s));
    QVERIFY(errors[1].contains(u"  ERR  Telnet     fehlgeschlagen"_s));

    view.findChild<QPushButton *>(u"copy"_s)->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), errors.join(u'\n'));

    view.findChild<QPushButton *>(u"clear"_s)->click();
    QTRY_COMPARE(text->toPlainText(), QString());
    QCOMPARE(text->placeholderText(), u"Keine Fehler – alles hat geklappt."_s);
    onlyErrors->setChecked(false);
    QCOMPARE(text->toPlainText(), QString());
}

void LogViewTest::followsTheEnd()
{
    clearLog();
    for (int i = 0; i < 500; ++i)
        BoxLog::shared().write(BoxLog::Level::info, u"App"_s, u"Eintrag %1"_s.arg(i));
    BoxLog::shared().flush();
    LogView view;
    view.show();
    auto *text = view.findChild<QPlainTextEdit *>(u"text"_s);
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QScrollBar *bar = text->verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    QCOMPARE(bar->value(), bar->maximum());

    BoxLog::shared().write(BoxLog::Level::info, u"App"_s, u"Der letzte"_s);
    QTRY_VERIFY(text->toPlainText().endsWith(u"Der letzte\n"_s));
    QCOMPARE(bar->value(), bar->maximum());
}

QTEST_MAIN(LogViewTest)
#include "LogViewTest.moc"
