#include "SpaceZap.h"

#include "Zapper.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>

namespace {

const char *const listProperty = "corvandelZapList";

} // namespace

void SpaceZap::install(Zapper &zapper)
{
    static QPointer<SpaceZap> installed;
    if (!installed) {
        installed = new SpaceZap(qApp);
        qApp->installEventFilter(installed);
    }
    if (!installed->m_zapper)
        installed->m_zapper = &zapper;
}

void SpaceZap::markList(QAbstractItemView *view)
{
    view->setProperty(listProperty, true);
}

bool SpaceZap::isMarkedList(const QObject *object)
{
    return object && object->property(listProperty).toBool();
}

bool SpaceZap::eventFilter(QObject *watched, QEvent *event)
{
    // Key events reach the window first and then the focus widget; only the latter is judged.
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_Space || key->modifiers() != Qt::NoModifier)
        return false;
    if (QApplication::activeModalWidget())
        return false;
    QWidget *focus = QApplication::focusWidget();
    if (!focus || !isMarkedList(focus))
        return false;
    // Holding the key down would send a zap request per repeat.
    if (!key->isAutoRepeat() && m_zapper)
        m_zapper->zapFocused();
    return true;
}
