#pragma once

#include <QCache>
#include <QImage>
#include <QPixmap>
#include <QSize>
#include <QString>

#include <functional>
#include <optional>

// Picons scaled for the lists, by service reference. Decoding and scaling happen once per picon;
// the lists ask again on every repaint.
class PiconPixmaps
{
public:
    using ImageSource = std::function<std::optional<QImage>(const QString &reference)>;

    explicit PiconPixmaps(ImageSource source, QSize size = QSize(40, 24));

    // A null pixmap when the service has no picon.
    QPixmap pixmap(const QString &reference);
    QSize size() const { return m_size; }
    // Forgets every pixmap, after the picon index changed.
    void clear();

    // A picon lying in the "picons" sub-folder of a list folder (as beside the example list).
    static std::optional<QImage> fromListFolder(const QString &folder, const QString &reference);

private:
    ImageSource m_source;
    QSize m_size;
    // Also remembers references without a picon, as null pixmaps.
    QCache<QString, QPixmap> m_cache;
};
