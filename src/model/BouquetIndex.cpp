#include "BouquetIndex.h"

#include "TextScan.h"

#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace BouquetIndex {

QByteArray serialized(MediaKind kind, const QList<Bouquet> &bouquets)
{
    const bool radio = kind == MediaKind::radio;
    QString text = radio ? u"#NAME User - Bouquets (Radio)\n"_s : u"#NAME User - Bouquets (TV)\n"_s;
    const QString prefix = radio ? u"#SERVICE 1:7:2:0:0:0:0:0:0:0:FROM BOUQUET \""_s
                                 : u"#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \""_s;
    for (const Bouquet &bouquet : bouquets)
        text += prefix + bouquet.fileName + u"\" ORDER BY bouquet\n"_s;
    return text.toUtf8();
}

QStringList fileNames(QByteArrayView text)
{
    static constexpr QByteArrayView marker = "FROM BOUQUET \"";
    QStringList names;
    TextScan::Lines lines(text);
    while (const auto line = lines.peek()) {
        lines.advance();
        if (!line->startsWith("#SERVICE"))
            continue;
        const qsizetype at = line->indexOf(marker);
        if (at < 0)
            continue;
        const qsizetype start = at + marker.size();
        const qsizetype end = line->indexOf('"', start);
        if (end < 0)
            continue;
        names.append(TextScan::decoded(line->sliced(start, end - start)));
    }
    return names;
}

QString newFileName(const QString &name, MediaKind kind, const QSet<QString> &existing)
{
    // Lower case, then the accents dropped: "Ä" becomes "a" + U+0308, and the mark goes.
    const QString decomposed = name.toLower().normalized(QString::NormalizationForm_D);
    QString folded;
    folded.reserve(decomposed.size());
    for (QChar c : decomposed) {
        if (c.category() != QChar::Mark_NonSpacing)
            folded += c;
    }
    // Recomposed, so that scripts decomposed without any accent (Hangul) come back whole.
    folded = folded.normalized(QString::NormalizationForm_C);

    // One "_" per user-perceived character that does not start with a letter or a number.
    QString base;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, folded);
    qsizetype start = 0;
    for (qsizetype end = finder.toNextBoundary(); end > 0; end = finder.toNextBoundary()) {
        const QStringView character = QStringView(folded).sliced(start, end - start);
        const char32_t first = character.toUcs4().value(0);
        base += QChar::isLetterOrNumber(first) ? character : u"_";
        start = end;
    }
    if (base.isEmpty())
        base = u"neu"_s;

    const QString extension = u'.' + kind.rawValue();
    QString candidate = u"userbouquet."_s + base + extension;
    for (int n = 2; existing.contains(candidate); ++n)
        candidate = u"userbouquet."_s + base + QString::number(n) + extension;
    return candidate;
}

bool isSafeFileName(QStringView fileName)
{
    return !fileName.isEmpty() && fileName != u"." && !fileName.contains(u'/') && !fileName.contains(u'\\')
        && !fileName.contains(u"..") && !fileName.contains(QChar(0));
}

} // namespace BouquetIndex
