#include "ListReport.h"

#include "BoxSettings.h"
#include "Console.h"
#include "FolderScan.h"
#include "LameDB.h"
#include "Store.h"
#include "Translations.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ListReport {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("ListReport", text);
}

// Loads into the store or says why not.
bool load(Store &store, const QString &folder)
{
    try {
        store.load(folder);
        return true;
    } catch (const std::exception &error) {
        Console::error(FolderScan::loadFailure(folder, error));
        return false;
    }
}

QList<Bouquet> allBouquets(const Store &store)
{
    QList<Bouquet> all;
    for (MediaKind kind : MediaKind::allCases())
        all << store.bouquets().value(kind);
    return all;
}

void printPositions(const Store &store)
{
    QHash<QString, qsizetype> counts;
    for (const Service &service : store.services())
        ++counts[service.position];
    QList<QPair<QString, qsizetype>> sorted;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        sorted.append({it.key(), it.value()});
    std::sort(sorted.begin(), sorted.end(), [](const auto &a, const auto &b) {
        return a.second != b.second ? a.second > b.second : a.first < b.first;
    });
    QList<QStringList> rows;
    for (const auto &[position, count] : std::as_const(sorted)) {
        rows << QStringList{position.isEmpty() ? tr("ohne Position") : position, QString::number(count),
                            store.satelliteNames().value(position)};
    }
    Console::table(rows, u"  "_s);
}

} // namespace

int info(const QString &folder)
{
    // Without the editor's connection settings: a list folder needs no box and no password.
    Store store{BoxSettings{}};
    if (!load(store, folder)) return 2;
    Console::line(store.status());

    qsizetype radio = 0;
    for (const Service &service : store.services())
        radio += service.kind() == MediaKind::radio;
    Console::line(tr("Sender: %1 (TV: %2, Radio: %3)")
                      .arg(store.services().size())
                      .arg(store.services().size() - radio)
                      .arg(radio));
    Console::line(tr("Sender je Position:"));
    printPositions(store);
    const QByteArray database = store.lamedbTexts().value(FolderScan::primaryDatabase(store.lamedbTexts()));
    Console::line(tr("Transponder: %1").arg(LameDB::parse(database).transponders.size()));

    qsizetype markers = 0, subBouquets = 0, streams = 0;
    for (MediaKind kind : MediaKind::allCases()) {
        const QList<Bouquet> bouquets = store.bouquets().value(kind);
        qsizetype entries = 0;
        for (const Bouquet &bouquet : bouquets) {
            entries += bouquet.entries.size();
            for (const BouquetEntry &entry : bouquet.entries) {
                markers += entry.isMarker();
                subBouquets += FolderScan::isSubBouquet(entry.reference);
                streams += FolderScan::isStream(entry.reference);
            }
        }
        Console::line(
            tr("%1-Bouquets: %2 mit %3 Einträgen").arg(kind.title()).arg(bouquets.size()).arg(entries));
    }
    Console::line(tr("Markierungen: %1").arg(markers));
    Console::line(tr("Unter-Bouquet-Verweise: %1").arg(subBouquets));
    Console::line(tr("Stream-Einträge: %1").arg(streams));
    Console::line(tr("Unbenutzte Sender: %1").arg(store.unusedServiceKeys().size()));

    // Named in an index but not loaded: the store skipped them as missing.
    QStringList missing;
    for (const FolderScan::IndexLine &line : FolderScan::indexLines(folder)) {
        const QList<Bouquet> loaded = store.bouquets().value(line.kind);
        if (std::none_of(loaded.cbegin(), loaded.cend(),
                         [&](const Bouquet &bouquet) { return bouquet.fileName == line.fileName; }))
            missing << line.fileName;
    }
    QString missingLine = tr("Fehlende Bouquet-Dateien: %1").arg(missing.size());
    if (!missing.isEmpty()) missingLine += u" ("_s + missing.join(u", "_s) + u')';
    Console::line(missingLine);
    return 0;
}

int dump(const QString &folder, bool json)
{
    Store store{BoxSettings{}};
    if (!load(store, folder)) return 2;
    if (json) {
        Console::write(document(store).toJson(QJsonDocument::Indented));
        return 0;
    }

    // In file order, as the database lists them.
    const QList<Service> &services = store.baseServices();
    Console::line(
        tr("%1 Sender aus %2:").arg(services.size()).arg(FolderScan::primaryDatabase(store.lamedbTexts())));
    QList<QStringList> rows{{tr("Referenz"), tr("Typ"), tr("Name"), tr("Anbieter"), tr("Position")}};
    for (const Service &service : services)
        rows << QStringList{reference(service), QString::number(service.type), service.name, service.provider,
                            service.position};
    Console::table(rows);
    for (const Bouquet &bouquet : allBouquets(store)) {
        Console::line({});
        Console::line(tr("%1-Bouquet %2: „%3“, %4 Einträge")
                          .arg(bouquet.kind.title(), bouquet.fileName, bouquet.name,
                               QString::number(bouquet.entries.size())));
        QList<QStringList> entryRows{{tr("Nr."), tr("Referenz"), tr("Eigener Name"), tr("Anzeigename")}};
        for (qsizetype i = 0; i < bouquet.entries.size(); ++i) {
            const BouquetEntry &entry = bouquet.entries.at(i);
            entryRows << QStringList{QString::number(i + 1), entry.reference,
                                     entry.description.value_or(QString()), store.displayName(entry)};
        }
        Console::table(entryRows, u"  "_s);
    }
    return 0;
}

QJsonDocument document(const Store &store)
{
    // Machine-readable values stay in German whatever the user's language: the positions of
    // cable and terrestrial services, and the display names the store makes up.
    Translations::Untranslated german;
    const QString primary = FolderScan::primaryDatabase(store.lamedbTexts());
    QJsonArray services;
    for (const Service &service : LameDB::parse(store.lamedbTexts().value(primary)).services) {
        services.append(QJsonObject{{u"reference"_s, reference(service)},
                                    {u"type"_s, qint64(service.type)},
                                    {u"name"_s, service.name},
                                    {u"provider"_s, service.provider},
                                    {u"position"_s, service.position}});
    }
    QJsonArray bouquets;
    for (const Bouquet &bouquet : allBouquets(store)) {
        QJsonArray entries;
        for (const BouquetEntry &entry : bouquet.entries) {
            entries.append(QJsonObject{
                {u"reference"_s, entry.reference},
                {u"description"_s, entry.description ? QJsonValue(*entry.description) : QJsonValue()},
                {u"displayName"_s, store.displayName(entry)}});
        }
        bouquets.append(QJsonObject{{u"fileName"_s, bouquet.fileName},
                                    {u"name"_s, bouquet.name},
                                    {u"kind"_s, bouquet.kind.rawValue()},
                                    {u"entries"_s, entries}});
    }
    return QJsonDocument(QJsonObject{{u"format"_s, 1},
                                     {u"folder"_s, store.folder()},
                                     {u"database"_s, primary},
                                     {u"services"_s, services},
                                     {u"bouquets"_s, bouquets}});
}

} // namespace ListReport
