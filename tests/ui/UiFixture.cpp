#include "UiFixture.h"

#include "TestSupport.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace UiFixture {

void copyExamples(const QString &folder)
{
    QDirIterator it(TestSupport::examplesDir(), QDir::Files);
    while (it.hasNext()) {
        const QString target = folder + u'/' + QFileInfo(it.next()).fileName();
        QFile::copy(it.filePath(), target);
        QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    }
}

Window::Window()
    : m_context(std::make_unique<AppContext>())
    , m_window(std::make_unique<MainWindow>(*m_context))
{
    copyExamples(m_folder.path());
    m_window->setInitialFolder(m_folder.path());
    m_window->show();
    // The window opens its folder once it is on screen.
    if (!QTest::qWaitFor([this] { return !m_context->store().services().isEmpty(); }, 5000))
        qWarning("the example list did not open");
}

} // namespace UiFixture
