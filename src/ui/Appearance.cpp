#include "Appearance.h"

#include <QApplication>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// What the platform gave before any palette was forced, to return to on "auto".
struct Platform
{
    QString style;
    QPalette palette;
};

Platform &platform()
{
    static Platform original{QApplication::style()->name(), QApplication::palette()};
    return original;
}

QSettings preferences()
{
    return QSettings(u"Corvandel"_s, u"Corvandel"_s);
}

const QString key = u"appearance"_s;

} // namespace

QPalette Appearance::lightPalette()
{
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create(u"Fusion"_s));
    QPalette palette = fusion->standardPalette();
    palette.setColor(QPalette::PlaceholderText, QColor(0x80, 0x80, 0x80));
    return palette;
}

QPalette Appearance::darkPalette()
{
    QPalette palette;
    const QColor window(0x2b, 0x2b, 0x2e);
    const QColor base(0x1e, 0x1e, 0x20);
    const QColor text(0xe8, 0xe8, 0xea);
    const QColor disabled(0x7a, 0x7a, 0x80);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x26, 0x29));
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, QColor(0x8e, 0x8e, 0x93));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, QColor(0x3a, 0x3a, 0x3e));
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Light, QColor(0x48, 0x48, 0x4c));
    palette.setColor(QPalette::Midlight, QColor(0x3e, 0x3e, 0x42));
    palette.setColor(QPalette::Mid, QColor(0x30, 0x30, 0x33));
    palette.setColor(QPalette::Dark, QColor(0x18, 0x18, 0x1a));
    palette.setColor(QPalette::Shadow, Qt::black);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xd0));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6c, 0xa8, 0xff));
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, disabled);
    return palette;
}

QString Appearance::rawValue() const
{
    switch (m_value) {
    case light:
        return u"light"_s;
    case dark:
        return u"dark"_s;
    case automatic:
        break;
    }
    return u"auto"_s;
}

QString Appearance::title() const
{
    switch (m_value) {
    case light:
        return QCoreApplication::translate("Appearance", "Hell");
    case dark:
        return QCoreApplication::translate("Appearance", "Dunkel");
    case automatic:
        break;
    }
    return QCoreApplication::translate("Appearance", "Automatisch");
}

std::optional<Appearance> Appearance::fromRawValue(QStringView rawValue)
{
    for (Appearance appearance : allCases()) {
        if (appearance.rawValue() == rawValue)
            return appearance;
    }
    return std::nullopt;
}

void Appearance::apply(Appearance appearance)
{
    const Platform &original = platform();
    if (appearance == automatic) {
        QApplication::setStyle(QStyleFactory::create(original.style));
        QApplication::setPalette(original.palette);
        return;
    }
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(appearance == dark ? darkPalette() : lightPalette());
}

void Appearance::apply(const QString &rawValue)
{
    apply(fromRawValue(rawValue).value_or(automatic));
}

Appearance Appearance::preferred()
{
    return fromRawValue(preferences().value(key).toString()).value_or(automatic);
}

void Appearance::store(Appearance appearance)
{
    preferences().setValue(key, appearance.rawValue());
}

void Appearance::applyStored()
{
    apply(preferred());
}
