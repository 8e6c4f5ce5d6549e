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
    std::vector<double> common(0x800, -1);
    QHash<char16_t, double> rare;
    const auto advance = [&](QChar c) {
        if (c.unicode() < common.size()) {
            double &known = common[c.unicode()];
            if (known < 0)
                known = metrics.horizontalAdvance(c);
            return known;
        }
        auto it = rare.find(c.unicode());
        if (it == rare.end())
            it = rare.insert(c.unicode(), metrics.horizontalAdvance(c));
        return *it;
    };
    std::vector<std::pair<double, qsizetype>> estimates;
    estimates.reserve(size_t(texts.size()));
    for (qsizetype i = 0; i < texts.size(); ++i) {
        double estimate = 0;
        for (QChar c : texts.at(i))
            estimate += advance(c);
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

ColumnWidths fitted(const QList<Service> &services, MediaKind kind, const UsageCounts &usage,
                    const QStringList &titles, const QFont &cellFont, const QFont &titleFont, double nameExtra)
{
    // Names are nearly all distinct; the other columns repeat a few texts.
    QList<QString> names;
    QSet<QString> providers;
    QSet<QString> positions;
    QSet<int> uses;
    for (const Service &service : services) {
        if (service.kind() != kind)
            continue;
        names << service.name;
        providers.insert(service.provider);
        positions.insert(service.position);
        uses.insert(usage.value(service.key));
    }
    QList<QString> useTexts;
    for (int count : std::as_const(uses))
        useTexts << QString::number(count);
    const QList<QList<QString>> columns{names, QList<QString>(providers.cbegin(), providers.cend()),
                                        QList<QString>(positions.cbegin(), positions.cend()), useTexts};
    const QStringList keys = identifiers();
    const QFontMetricsF titleMetrics(titleFont);
    ColumnWidths widths;
    for (qsizetype column = 0; column < keys.size(); ++column) {
        const double title = titleMetrics.horizontalAdvance(titles.value(column));
        const double extra = column == 0 && !names.isEmpty() ? nameExtra : 0;
        widths.insert(keys.at(column), fittedWidth(std::max(title, widestText(columns.at(column), cellFont) + extra)));
    }
    return widths;
}

std::optional<ColumnWidths> saved(MediaKind kind)
{
    // A map from an older version or edited by hand may lack a column or hold nonsense.
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
