#include "PiconPixmaps.h"

#include "Picon.h"

#include <QFileInfo>
#include <QGuiApplication>

PiconPixmaps::PiconPixmaps(ImageSource source, QSize size)
    : m_source(std::move(source))
    , m_size(size)
    , m_cache(2000)
{
}

QPixmap PiconPixmaps::pixmap(const QString &reference)
{
    if (const QPixmap *cached = m_cache.object(reference))
        return *cached;
    QPixmap result;
    const std::optional<QImage> image = m_source ? m_source(reference) : std::nullopt;
    if (image && !image->isNull()) {
        // Sharp on high-density screens too.
        const qreal ratio = qGuiApp ? qGuiApp->devicePixelRatio() : 1.0;
        const QImage scaled =
            image->scaled(m_size * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        result = QPixmap::fromImage(scaled);
        result.setDevicePixelRatio(ratio);
    }
    m_cache.insert(reference, new QPixmap(result));
    return result;
}

void PiconPixmaps::clear()
{
    m_cache.clear();
}

std::optional<QImage> PiconPixmaps::fromListFolder(const QString &folder, const QString &reference)
{
    if (folder.isEmpty())
        return std::nullopt;
    for (const QString &name : Picon::fileNames(reference)) {
        const QString path = folder + QStringLiteral("/picons/") + name;
        if (QFileInfo(path).isFile()) {
            QImage image(path);
            if (!image.isNull())
                return image;
        }
    }
    return std::nullopt;
}
