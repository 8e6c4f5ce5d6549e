#include "Console.h"

#include "Error.h"

#include <cstdio>

namespace Console {

QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

void write(const QByteArray &bytes)
{
    out().flush();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

void line(const QString &text)
{
    out() << text << '\n';
}

void error(const QString &text)
{
    out().flush();
    static QTextStream stream(stderr);
    stream << text << '\n';
    stream.flush();
}

QString describe(const std::exception &error)
{
    if (const auto *own = dynamic_cast<const Error *>(&error)) return own->description();
    return QString::fromUtf8(error.what());
}

void table(const QList<QStringList> &rows, const QString &indent)
{
    QList<qsizetype> widths;
    for (const QStringList &row : rows) {
        for (qsizetype i = 0; i < row.size(); ++i) {
            if (widths.size() <= i) widths << 0;
            widths[i] = std::max(widths[i], row.at(i).size());
        }
    }
    for (const QStringList &row : rows) {
        QString text = indent;
        for (qsizetype i = 0; i < row.size(); ++i)
            text += i + 1 < row.size() ? row.at(i).leftJustified(widths.at(i) + 2) : row.at(i);
        while (text.endsWith(u' '))
            text.chop(1);
        line(text);
    }
}

} // namespace Console
