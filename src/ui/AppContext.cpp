#include "AppContext.h"

AppContext::AppContext(QObject *parent)
    : QObject(parent)
    , m_backups(m_store)
    , m_boxSync(m_store, m_backups)
    , m_zapper(m_store)
    , m_picons(m_store)
{
}

AppContext::~AppContext() = default;
