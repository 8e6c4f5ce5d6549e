#include "Zapper.h"

#include "Error.h"
#include "Service.h"
#include "Store.h"
#include "WebIf.h"

#include <QPointer>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

Zapper::Zapper(Store &store, QObject *parent)
    : QObject(parent)
    , m_store(store)
{
}

QCoro::Task<> Zapper::zap(QString reference, QString name)
{
    QPointer<Store> store(&m_store);
    const WebIf webIf(m_store.settings());
    std::optional<QString> failure;
    try {
        WebIf::Query query;
        query.insert(u"sRef"_s, reference);
        co_await webIf.get(u"/web/zap"_s, query, 15s, false);
    } catch (const Error &error) {
        failure = error.description();
    } catch (const std::exception &error) {
        failure = QString::fromUtf8(error.what());
    }
    if (!store)
        co_return;
    if (failure)
        store->setErrorMessage(tr("Umschalten fehlgeschlagen: %1").arg(*failure));
    else
        store->setStatus(tr("Box auf „%1“ umgeschaltet.").arg(name));
}

QCoro::Task<> Zapper::zapFocused()
{
    if (m_store.entryListActive()) {
        if (const std::optional<BouquetEntry> entry = zappableEntry())
            return zap(entry->reference, m_store.displayName(*entry));
        return []() -> QCoro::Task<> { co_return; }();
    }
    const ServiceKeys &selection = m_store.serviceSelection();
    if (selection.size() == 1) {
        const auto found = m_store.serviceIndex().constFind(*selection.cbegin());
        if (found != m_store.serviceIndex().cend())
            return zap(reference(*found), found->name);
    }
    return []() -> QCoro::Task<> { co_return; }();
}

std::optional<BouquetEntry> Zapper::zappableEntry() const
{
    const EntryIds &selection = m_store.entrySelection();
    if (selection.size() != 1)
        return std::nullopt;
    const std::optional<Bouquet> bouquet = m_store.selectedBouquet();
    if (!bouquet)
        return std::nullopt;
    const QUuid id = *selection.cbegin();
    const auto entry = std::find_if(bouquet->entries.cbegin(), bouquet->entries.cend(),
                                    [&](const BouquetEntry &candidate) { return candidate.id == id; });
    // Markers are captions, not channels.
    if (entry == bouquet->entries.cend() || entry->isMarker())
        return std::nullopt;
    return *entry;
}
