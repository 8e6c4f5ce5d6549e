#include "PiconUploadPlan.h"

#include "Picon.h"

#include <algorithm>

namespace {

bool selected(const PiconUploadPlan &plan, const QString &name, bool uploadAll, bool overwrite)
{
    return (uploadAll || plan.matching.contains(name)) && (overwrite || !plan.existing.contains(name));
}

} // namespace

PiconUploadPlan PiconUploadPlan::build(const PiconPackage &package, const QString &directory,
                                       const QStringList &listing, const QList<Service> &services)
{
    PiconUploadPlan plan;
    plan.package = package;
    plan.directory = directory;
    plan.existing = QSet<QString>(listing.cbegin(), listing.cend());
    const QSet<QString> names = package.names();
    for (const Service &service : services) {
        for (const QString &name : Picon::fileNames(reference(service))) {
            if (names.contains(name))
                plan.matching.insert(name);
        }
    }
    return plan;
}

QList<PiconFile> PiconUploadPlan::allFiles() const
{
    const auto byName = [](const PiconFile &a, const PiconFile &b) { return a.name < b.name; };
    QList<PiconFile> sorted = package.files;
    // Packages come sorted from their scan; only a plan put together by hand needs the sort.
    if (!std::is_sorted(sorted.cbegin(), sorted.cend(), byName))
        std::stable_sort(sorted.begin(), sorted.end(), byName);
    // The same picon in two folders of a package is sent once, from the first path.
    const auto end = std::unique(sorted.begin(), sorted.end(),
                                 [](const PiconFile &a, const PiconFile &b) { return a.name == b.name; });
    sorted.erase(end, sorted.end());
    return sorted;
}

QList<PiconFile> PiconUploadPlan::files(bool uploadAll, bool overwrite) const
{
    QList<PiconFile> chosen;
    for (const PiconFile &file : allFiles()) {
        if (selected(*this, file.name, uploadAll, overwrite))
            chosen.append(file);
    }
    return chosen;
}

int PiconUploadPlan::count(bool uploadAll, bool overwrite) const
{
    const QList<PiconFile> all = allFiles();
    return int(std::count_if(all.cbegin(), all.cend(), [&](const PiconFile &file) {
        return selected(*this, file.name, uploadAll, overwrite);
    }));
}

int PiconUploadPlan::total() const
{
    return int(allFiles().size());
}

int PiconUploadPlan::existingCount(bool uploadAll) const
{
    return count(uploadAll, true) - count(uploadAll, false);
}
