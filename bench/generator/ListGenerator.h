#pragma once

#include "MediaKind.h"
#include "Service.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// Deterministic channel lists of any size for the benchmarks: the same options always give the
// same bytes. The files look like a receiver's: lower-case zero-padded keys and line feeds in the
// databases, CR LF in the bouquet files, several satellites plus cable and terrestrial, a few
// mis-encoded names and providers, markers, name overrides and stream entries in the bouquets.
namespace ListGenerator {

struct Options
{
    int services = 100000;
    int transponders = 5000;
    int bouquets = 200;          // TV and radio together
    int radioBouquets = 20;      // of `bouquets`
    int entriesPerBouquet = 500; // markers and streams included
    quint64 seed = 1;
};

struct BouquetFile
{
    QString fileName;
    MediaKind kind;
    QByteArray text;
};

struct List
{
    QByteArray lamedb;  // format 4
    QByteArray lamedb5; // the same services and transponders in format 5
    QByteArray bouquetsTv;
    QByteArray bouquetsRadio;
    QList<BouquetFile> bouquets; // in index order, TV first
    QByteArray satellitesXml;
    // What a reader must make of the databases, in file order: names and providers repaired,
    // positions labelled.
    QList<Service> services;
};

List generate(const Options &options = {});

// Writes lamedb, lamedb5, bouquets.tv, bouquets.radio, every bouquet file and satellites.xml
// into `folder`, creating it. Returns false when a file cannot be written.
bool writeFolder(const List &list, const QString &folder);

// Every file name writeFolder writes for this list.
QStringList fileNames(const List &list);

} // namespace ListGenerator
