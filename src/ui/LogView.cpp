#include "LogView.h"

#include "BoxLog.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QShowEvent>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

LogView::LogView(QWidget *parent)
    : QWidget(parent, Qt::Window)
{
    setWindowTitle(tr("Protokoll"));
    m_view = new QPlainTextEdit;
    m_view->setObjectName(u"text"_s);
    m_view->setReadOnly(true);
    m_view->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    m_onlyErrors = new QCheckBox(tr("Nur Fehler"));
    m_onlyErrors->setObjectName(u"onlyErrors"_s);
    connect(m_onlyErrors, &QCheckBox::toggled, this, &LogView::showText);

    auto *copy = new QPushButton(tr("Kopieren"));
    copy->setObjectName(u"copy"_s);
    copy->setToolTip(tr("Protokoll in die Zwischenablage, z. B. für eine Fehlermeldung"));
    connect(copy, &QPushButton::clicked, this, [this] { QGuiApplication::clipboard()->setText(shown()); });
    auto *revealButton = new QPushButton(tr("Im Dateimanager zeigen"));
    revealButton->setObjectName(u"reveal"_s);
    connect(revealButton, &QPushButton::clicked, this, [] { reveal(BoxLog::shared().filePath()); });
    auto *clear = new QPushButton(tr("Leeren"));
    clear->setObjectName(u"clear"_s);
    connect(clear, &QPushButton::clicked, this, [] { BoxLog::shared().clear(); });

    auto *divider = new QFrame;
    divider->setFrameShape(QFrame::HLine);
    divider->setFrameShadow(QFrame::Sunken);
    auto *row = new QHBoxLayout;
    row->addWidget(m_onlyErrors);
    row->addStretch();
    row->addWidget(copy);
    row->addWidget(revealButton);
    row->addWidget(clear);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_view, 1);
    layout->addWidget(divider);
    layout->addLayout(row);
    resize(760, 480);

    m_reloadTimer.setSingleShot(true);
    m_reloadTimer.setInterval(100);
    connect(&m_reloadTimer, &QTimer::timeout, this, &LogView::reload);
    // Not restarted while pending: a steady stream of entries still shows every tenth of a second.
    connect(&BoxLog::shared(), &BoxLog::changed, this, [this] {
        if (isVisible() && !m_reloadTimer.isActive())
            m_reloadTimer.start();
    });
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);
    showText();
}

QString LogView::shown() const
{
    return m_onlyErrors->isChecked() ? errorLines(m_text) : m_text;
}

QString LogView::errorLines(const QString &text)
{
    const QString marker = u"  "_s + BoxLog::marker(BoxLog::Level::error) + u"  "_s;
    QStringList errors;
    for (QStringView line : QStringView(text).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.contains(marker))
            errors << line.toString();
    }
    return errors.join(u'\n');
}

void LogView::reveal(const QString &path)
{
    const QFileInfo file(path);
    const QUrl folder = QUrl::fromLocalFile(file.absolutePath());
    // Without a bus address, asking for the session bus would try to start one.
    const bool busKnown = !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS");
    if (!file.exists() || !busKnown || !QDBusConnection::sessionBus().isConnected()) {
        QDesktopServices::openUrl(folder);
        return;
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusMessage call = QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                                       u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    call << QStringList{QUrl::fromLocalFile(file.absoluteFilePath()).toString()} << QString();
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [folder](QDBusPendingCallWatcher *done) {
        // No file manager that offers the call: the folder is the next best thing.
        if (done->isError())
            QDesktopServices::openUrl(folder);
        done->deleteLater();
    });
}

void LogView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        reload();
}

void LogView::reload()
{
    m_text = BoxLog::shared().tail(tailBytes);
    showText();
}

void LogView::showText()
{
    const bool onlyErrors = m_onlyErrors->isChecked();
    m_view->setPlaceholderText(onlyErrors ? tr("Keine Fehler – alles hat geklappt.") : tr("Noch keine Einträge."));
    m_view->setPlainText(shown());
    m_view->moveCursor(QTextCursor::End);
    m_view->ensureCursorVisible();
}
