#include "UiFixture.h"

#include "FakeBox.h"
#include "TestSupport.h"

#include <QAbstractItemView>
#include <QDir>
#include <QDirIterator>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>

using namespace Qt::StringLiterals;

namespace UiFixture {

void copyExamples(const QString &folder)
{
    const QString source = TestSupport::examplesDir();
    QDirIterator it(source, QDir::Files);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString target = folder + u'/' + it.fileName();
        QFile::copy(path, target);
        QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    }
}

void pointAt(Store &store, const FakeBox &box)
{
    BoxSettings settings = store.settings();
    const FakeBoxConnection connection = box.connection();
    settings.host = connection.host;
    settings.ftpPort = connection.ftpPort;
    settings.httpPort = connection.httpPort;
    settings.telnetPort = connection.telnetPort;
    settings.user = connection.user;
    settings.password = connection.password;
    store.setSettings(settings);
}

Window::Window()
{
    copyExamples(m_folder.path());
    m_context = std::make_unique<AppContext>();
    m_window = std::make_unique<MainWindow>(*m_context);
    m_window->setInitialFolder(m_folder.path());
    m_window->show();
    // The window opens its folder once it is on screen.
    if (!QTest::qWaitFor([this] { return !m_context->store().services().isEmpty(); }, 5000))
        qWarning("the example list did not open");
}

Window::~Window()
{
    // Dialogs left open by a failed test must not outlive the window.
    m_window.reset();
    m_context.reset();
}

bool drop(QAbstractItemView *view, const QMimeData *data, QPoint position)
{
    QWidget *target = view->viewport();
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(position, actions, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted())
        return false;
    QDragMoveEvent move(position, actions, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &move);
    if (!move.isAccepted())
        return false;
    QDropEvent dropped(QPointF(position), actions, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &dropped);
    return dropped.isAccepted();
}

std::unique_ptr<QMimeData> dragData(QAbstractItemView *view, const QList<int> &rows)
{
    QModelIndexList indexes;
    for (int row : rows)
        indexes << view->model()->index(row, 0);
    return std::unique_ptr<QMimeData>(view->model()->mimeData(indexes));
}

QPoint topEdge(QAbstractItemView *view, int row)
{
    const QRect rect = view->visualRect(view->model()->index(row, 0));
    return QPoint(rect.center().x(), rect.top() + 1);
}

QPoint bottomEdge(QAbstractItemView *view, int row)
{
    const QRect rect = view->visualRect(view->model()->index(row, 0));
    return QPoint(rect.center().x(), rect.bottom() - 1);
}

QPoint middle(QAbstractItemView *view, int row)
{
    return view->visualRect(view->model()->index(row, 0)).center();
}

} // namespace UiFixture
