#pragma once

#include <QObject>
#include <QPointer>

class QAbstractItemView;
class Zapper;

// The space bar switches the box to the focused service while one of the two lists (bouquet
// entries, service table) has the keyboard focus and no dialog is open. Everywhere else the key
// passes on unchanged, so that text fields still get their blanks.
class SpaceZap : public QObject
{
    Q_OBJECT

public:
    // Installs the application's key filter once; a later call only re-targets it when the
    // zapper it served is gone.
    static void install(Zapper &zapper);
    // A list whose focus lets the space bar zap.
    static void markList(QAbstractItemView *view);
    static bool isMarkedList(const QObject *object);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit SpaceZap(QObject *parent) : QObject(parent) {}

    QPointer<Zapper> m_zapper;
};
