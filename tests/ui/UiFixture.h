#pragma once

#include "AppContext.h"
#include "MainWindow.h"

#include <QApplication>
#include <QPoint>
#include <QString>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class FakeBox;
class QAbstractItemView;
class QMimeData;

// What the GUI tests share: a copy of the example list opened in a real main window on the
// offscreen platform, and real drag-and-drop events sent to the views.
namespace UiFixture {

// The example list copied into `folder`, so that tests may save and damage it.
void copyExamples(const QString &folder);

// Points the store's connection settings at the receiver test double.
void pointAt(Store &store, const FakeBox &box);

// A main window over a fresh application context with a copy of the example list loaded.
class Window
{
public:
    Window();
    ~Window();

    AppContext &context() { return *m_context; }
    Store &store() { return m_context->store(); }
    MainWindow &window() { return *m_window; }
    // The copy of the example list that is open.
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<AppContext> m_context;
    std::unique_ptr<MainWindow> m_window;
};

// Sends drag enter, drag move and drop with `data` to the view's viewport at `position`, as a
// drag from elsewhere would. Returns whether the view accepted the drop.
bool drop(QAbstractItemView *view, const QMimeData *data, QPoint position);
// The mime data the view's model makes for these rows when they are dragged.
std::unique_ptr<QMimeData> dragData(QAbstractItemView *view, const QList<int> &rows);
// A point just inside the top or bottom edge of a row: a drop there lands above or below it.
QPoint topEdge(QAbstractItemView *view, int row);
QPoint bottomEdge(QAbstractItemView *view, int row);
// The middle of a row.
QPoint middle(QAbstractItemView *view, int row);

// The modal dialog of this type in front of the window, once it is there.
template<typename Dialog>
Dialog *dialog()
{
    Dialog *found = nullptr;
    const auto find = [&] {
        found = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        return found != nullptr;
    };
    if (!QTest::qWaitFor(find, 5000))
        return nullptr;
    return found;
}

} // namespace UiFixture
