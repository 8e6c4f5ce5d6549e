#include "ColumnLayout.h"

#include <QFontMetricsF>
#include <QHash>
#include <QSet>
#include <QSettings>
#include <QVariantMap>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace ColumnLayout {

namespace {

constexpr double minimumWidth = 40;
constexpr double maximumWidth = 400;
constexpr double padding = 20;

QString settingsKey(MediaKind kind)
{
    return u"columnWidths."_s + kind.rawValue();
}

QSettings preferences()
{
    return QSettings(u"Corvandel"_s, u"Corvandel"_s);
}

} // namespace

QStringList identifiers()
{
    return {u"name"_s, u"provider"_s, u"position"_s, u"usage"_s};
}

double fittedWidth(double widest)
{
    return std::clamp(std::ceil(widest) + padding, minimumWidth, maximumWidth);
}

double widestText(const QList<QString> &texts, const QFont &font)
{
    const QFontMetricsF metrics(font);
    // Shaping 100,000 names one by one is slow. The sum of the characters' own advances comes
    // within a few percent of the shaped width, so only texts near the widest estimate are shaped.
    QHash<char16_t, double> advances;
    std::vector<std::pair<double, qsizetype>> estimates;
    estimates.reserve(size_t(texts.size()));
    for (qsizetype i = 0; i < texts.size(); ++i) {
        double estimate = 0;
        for (QChar c : texts.at(i)) {
            auto it = advances.find(c.unicode());
            if (it == advances.end())
                it = advances.insert(c.unicode(), metrics.horizontalAdvance(c));
            estimate += *it;
        }
        estimates.emplace_back(estimate, i);
    }
    std::sort(estimates.begin(), estimates.end(), [](const auto &a, const auto &b) { return a.first > b.first; });
    double widest = 0;
    for (const auto &[estimate, i] : estimates) {
        // Past the maximum nothing wider matters.
        if (estimate * 1.15 < widest || widest + padding >= maximumWidth)
            break;
        widest = std::max(widest, metrics.horizontalAdvance(texts.at(i)));
    }
    return widest;
}

ColumnWidths fitted(const QList<Service> &services, const UsageCounts &usage, const QStringList &titles,
                    const QFont &cellFont, const QFont &titleFont)
{
    QList<QSet<QString>> distinct(4);
    for (const Service &service : services) {
        distinct[0].insert(service.name);
        distinct[1].insert(service.provider);
        distinct[2].insert(service.position);
        distinct[3].insert(QString::number(usage.value(service.key)));
    }
    const QStringList names = identifiers();
    const QFontMetricsF titleMetrics(titleFont);
    ColumnWidths widths;
    for (qsizetype column = 0; column < names.size(); ++column) {
        const QList<QString> texts(distinct.at(column).cbegin(), distinct.at(column).cend());
        const double title = titleMetrics.horizontalAdvance(titles.value(column));
        widths.insert(names.at(column), fittedWidth(std::max(title, widestText(texts, cellFont))));
    }
    return widths;
}

std::optional<ColumnWidths> saved(MediaKind kind)
{
    const QVariantMap map = preferences().value(settingsKey(kind)).toMap();
    ColumnWidths widths;
    for (const QString &name : identifiers()) {
        bool ok = false;
        const double width = map.value(name).toDouble(&ok);
        if (!ok || width <= 0)
            return std::nullopt;
        widths.insert(name, width);
    }
    return widths;
}

void save(MediaKind kind, const ColumnWidths &widths)
{
    QVariantMap map;
    for (auto it = widths.cbegin(); it != widths.cend(); ++it)
        map.insert(it.key(), it.value());
    preferences().setValue(settingsKey(kind), map);
}

void forget(MediaKind kind)
{
    preferences().remove(settingsKey(kind));
}

} // namespace ColumnLayout
