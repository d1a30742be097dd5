// SPDX-License-Identifier: Apache-2.0
#include "client/cli/output.h"

#include "client/cli/standard_streams.h"

#include <QJsonDocument>

#include <algorithm>
#include <utility>

namespace zepa::cli {

namespace {

OutputSink* currentSink = nullptr;

void write(Stream stream, const QByteArray& bytes)
{
    if (currentSink) {
        currentSink->write(stream, bytes);
        return;
    }
    writeToStream(stream, bytes);
}

} // namespace

OutputTo::OutputTo(OutputSink* sink) : m_before(std::exchange(currentSink, sink))
{}

OutputTo::~OutputTo()
{
    currentSink = m_before;
}

QString onOneLine(const QString& text)
{
    QString line;
    line.reserve(text.size());
    for (const QChar c : text) {
        if (c == u'\n')
            line += QStringLiteral("\\n");
        else if (c == u'\t')
            line += QStringLiteral("\\t");
        else if (c.category() == QChar::Other_Control || c.category() == QChar::Other_Format ||
                 c.category() == QChar::Separator_Line || c.category() == QChar::Separator_Paragraph)
            line += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QChar(u'0'));
        else
            line += c;
    }
    return line;
}

void passOn(Stream stream, const QByteArray& text)
{
    write(stream, text);
}

void say(const QString& line)
{
    write(Stream::Output, (line + u'\n').toUtf8());
}

void complain(const QString& line)
{
    write(Stream::Errors, (QStringLiteral("zepa: ") + line + u'\n').toUtf8());
}

void sayTable(const QStringList& headings, const QList<QStringList>& rows)
{
    QList<qsizetype> widths(headings.size(), 0);
    QList<QStringList> lines{headings};
    for (const QStringList& row : rows) {
        QStringList line;
        for (const QString& cell : row)
            line.append(onOneLine(cell));
        lines.append(line);
    }
    for (const QStringList& line : lines) {
        for (qsizetype i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], line[i].size());
    }
    for (const QStringList& line : lines) {
        QString text;
        for (qsizetype i = 0; i < line.size(); ++i)
            text += i + 1 < line.size() ? line[i].leftJustified(widths[i] + 2) : line[i];
        say(text);
    }
}

void sayJson(const QJsonArray& array)
{
    write(Stream::Output, QJsonDocument(array).toJson(QJsonDocument::Indented));
}

void sayJsonLine(const QJsonObject& object)
{
    write(Stream::Output, QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n');
}

} // namespace zepa::cli
