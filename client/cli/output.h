// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

/// What the program says: results on standard output, everything else on standard error, in UTF-8; or both to someone
/// else, for whom a command is carried out. Whatever the text, it steers no terminal: everything that is said here has
/// its control characters, other than line breaks and tabs, its marks of direction and its other invisible characters
/// as visible escapes such as \u001b, which JSON reads as what they stand for.
namespace zepa::cli {

enum class Stream { Output, Errors };

/// Takes what is said instead of the program's own streams.
class OutputSink
{
public:
    OutputSink() = default;
    virtual ~OutputSink() = default;
    Q_DISABLE_COPY_MOVE(OutputSink)

    /// One or more whole lines.
    virtual void write(Stream stream, const QByteArray& text) = 0;
};

/// As long as it lives, everything that is said goes to the sink; to the program's own streams with null.
class OutputTo
{
public:
    explicit OutputTo(OutputSink* sink);
    ~OutputTo();
    Q_DISABLE_COPY_MOVE(OutputTo)

private:
    OutputSink* const m_before;
};

/// `text` for one line: line breaks and tabs become visible escapes, too.
QString onOneLine(const QString& text);

/// Whole lines in UTF-8.
void passOn(Stream stream, const QByteArray& text);
/// One line on standard output, at once; onOneLine() makes it one.
void say(const QString& line);
/// The same on standard error, behind the program's name.
void printError(const QString& line);

/// For people, columns aligned under their headings; for programs, the whole document, indented.
void sayRows(const QStringList& headings, const QList<QStringList>& rows, const QJsonArray& json, bool asJson);
/// One object on one line, for streams of them.
void sayJsonLine(const QJsonObject& object);

/// From now on, what is logged through Qt has the same escapes. Log categories and their output stay as they are.
void filterLog();

} // namespace zepa::cli
