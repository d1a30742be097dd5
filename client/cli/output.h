// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

/// What the program says: results on standard output, everything else on standard error, in UTF-8.
namespace zepa::cli {

/// `text` fit for one line of a terminal: control characters become visible escapes and steer nothing.
QString onOneLine(const QString& text);

/// One line on standard output, at once.
void say(const QString& line);
/// One line on standard error, behind the program's name.
void complain(const QString& line);

/// Columns aligned under their headings.
void sayTable(const QStringList& headings, const QList<QStringList>& rows);
/// The whole document, indented.
void sayJson(const QJsonArray& array);
/// One object on one line, for streams of them.
void sayJsonLine(const QJsonObject& object);

} // namespace zepa::cli
