#pragma once

#include <QList>
#include <QPalette>
#include <QString>
#include <QStringView>

#include <optional>

// The window colours, the preference "appearance": "auto" follows the platform, "light" and "dark"
// force the Fusion style with a light or dark palette.
class Appearance
{
public:
    // `auto` is a C++ keyword; its raw value is still "auto".
    enum Value : quint8 { automatic, light, dark };

    constexpr Appearance(Value value = automatic) : m_value(value) {}
    constexpr operator Value() const { return m_value; }

    QString rawValue() const;
    // "Automatisch", "Hell", "Dunkel", translated.
    QString title() const;

    static std::optional<Appearance> fromRawValue(QStringView rawValue);
    static QList<Appearance> allCases() { return {automatic, light, dark}; }

    // Sets the application's style and palette at once.
    static void apply(Appearance appearance);
    // The same for a raw value; an unknown one counts as "auto".
    static void apply(const QString &rawValue);
    // The preference; "auto" when unset or unknown.
    static Appearance preferred();
    static void store(Appearance appearance);
    // At start: applies the preference.
    static void applyStored();

    static QPalette lightPalette();
    static QPalette darkPalette();

private:
    Value m_value;
};
