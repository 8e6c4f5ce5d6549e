#pragma once

#include "AppContext.h"
#include "MainWindow.h"
#include "TestSupport.h"

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

// What the GUI tests and the screenshot tool share: a copy of the example list opened in a real
// main window on the offscreen platform, and the dialogs it opens.
namespace UiFixture {

// The example list copied into `folder`, so that tests may save and damage it.
inline void copyExamples(const QString &folder)
{
    QDirIterator it(TestSupport::examplesDir(), QDir::Files);
    while (it.hasNext()) {
        const QString target = folder + u'/' + QFileInfo(it.next()).fileName();
        QFile::copy(it.filePath(), target);
        QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    }
}

// A main window over a fresh application context with a copy of the example list loaded.
class Window
{
public:
    Window()
    {
        copyExamples(m_folder.path());
        m_window->setInitialFolder(m_folder.path());
        m_window->show();
        // The window opens its folder once it is on screen.
        if (!QTest::qWaitFor([this] { return !m_context->store().services().isEmpty(); }, 5000))
            qWarning("the example list did not open");
    }

    AppContext &context() { return *m_context; }
    Store &store() { return m_context->store(); }
    MainWindow &window() { return *m_window; }
    // The copy of the example list that is open.
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<AppContext> m_context = std::make_unique<AppContext>();
    // Declared last, so that it goes first, with any dialog a failed test left open.
    std::unique_ptr<MainWindow> m_window = std::make_unique<MainWindow>(*m_context);
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
