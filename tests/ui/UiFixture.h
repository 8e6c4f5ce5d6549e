#pragma once

#include "AppContext.h"
#include "MainWindow.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

// What the GUI tests and the screenshot tool share: a copy of the example list opened in a real
// main window on the offscreen platform, and the dialogs it opens.
namespace UiFixture {

// The example list copied into `folder`, so that tests may save and damage it.
void copyExamples(const QString &folder);

// A main window over a fresh application context with a copy of the example list loaded.
class Window
{
public:
    Window();

    AppContext &context() { return *m_context; }
    Store &store() { return m_context->store(); }
    MainWindow &window() { return *m_window; }
    // The copy of the example list that is open.
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<AppContext> m_context;
    // Declared last, so that it goes first, with any dialog a failed test left open.
    std::unique_ptr<MainWindow> m_window;
};

// The modal dialog of this type in front of the window, once it is there.
template<typename Dialog>
Dialog *dialog()
{
    Dialog *found = nullptr;
    const auto find = [&] { return (found = qobject_cast<Dialog *>(QApplication::activeModalWidget())) != nullptr; };
    return QTest::qWaitFor(find, 5000) ? found : nullptr;
}

} // namespace UiFixture
