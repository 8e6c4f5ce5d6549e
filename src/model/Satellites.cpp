#include "Satellites.h"

#include "TextScan.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace Satellites {

QHash<QString, QString> parse(QByteArrayView text)
{
    QHash<QString, QString> names;
    qsizetype from = 0;
    while (true) {
        const qsizetype open = text.indexOf("<sat ", from);
        if (open < 0)
            return names;
        const qsizetype start = open + 5;
        const qsizetype close = text.indexOf('>', start);
        if (close < 0)
            return names;
        from = close + 1;

        const QString tag = TextScan::decoded(text.sliced(start, close - start));
        const auto name = attribute(u"name", tag);
        const auto position = attribute(u"position", tag);
        if (!name || !position || position->isEmpty())
            continue;
        const auto tenths = TextScan::signedDecimal(QStringView(*position));
        if (!tenths || *tenths < std::numeric_limits<int>::min() || *tenths > std::numeric_limits<int>::max())
            continue;
        // "&amp;" goes last, so that "&amp;amp;" loses one level only.
        QString unescaped = *name;
        unescaped.replace(u"&quot;"_s, u"\""_s)
            .replace(u"&apos;"_s, u"'"_s)
            .replace(u"&lt;"_s, u"<"_s)
            .replace(u"&gt;"_s, u">"_s)
            .replace(u"&amp;"_s, u"&"_s);
        names.insert(key(int(*tenths)), unescaped);
    }
}

QString key(int position)
{
    // Western positions written as negative numbers count like their 3600 - p form.
    const qint64 p = position < 0 ? qint64(position) + 3600 : position;
    if (p < 1801)
        return TextScan::degreeLabel(p, 'E');
    return TextScan::degreeLabel(3600 - p, 'W');
}

std::optional<QString> attribute(QStringView name, QStringView in)
{
    for (QChar quote : {u'"', u'\''}) {
        const QString assignment = name.toString() + u'=' + quote;
        qsizetype at = in.indexOf(u' ' + assignment);
        if (at >= 0)
            at += assignment.size() + 1;
        else if (in.startsWith(assignment))
            at = assignment.size();
        else
            continue;
        const qsizetype end = in.indexOf(quote, at);
        if (end >= 0)
            return in.sliced(at, end - at).toString();
    }
    return std::nullopt;
}

} // namespace Satellites
