#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <exception>

// Standard output for results, standard error for progress and errors; both UTF-8.
namespace Console {

QTextStream &out();
// Bytes as they are, e.g. a UTF-8 document.
void write(const QByteArray &bytes);
// Flushed after every line, so that progress shows at once and in order with errors.
void line(const QString &text);
void error(const QString &text);

// The user's text of an error: the description of the program's own errors.
QString describe(const std::exception &error);

// Rows in columns padded to their widest cell; the last column is not padded.
void table(const QList<QStringList> &rows, const QString &indent = {});

} // namespace Console
