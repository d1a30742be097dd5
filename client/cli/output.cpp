// SPDX-License-Identifier: Apache-2.0
#include "client/cli/output.h"

#include "client/cli/standard_streams.h"
#include "kit/texts/escapes.h"

#include <QJsonDocument>
#include <QtCore/qlogging.h>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

OutputSink* currentSink = nullptr;
QtMessageHandler unfilteredLog = nullptr;

QString escaped(const QString& text, QStringView except)
{
    QString shown;
    shown.reserve(text.size());
    for (const QChar c : text) {
        if (!isControlling(c) || except.contains(c))
            shown += c;
        else
            shown += escapeOf(c);
    }
    return shown;
}

/// The one way out of the program.
void write(Stream stream, const QString& text)
{
    const QByteArray bytes = escaped(text, u"\n\t").toUtf8();
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
    return escaped(text, {});
}

void passOn(Stream stream, const QByteArray& text)
{
    write(stream, QString::fromUtf8(text));
}

void say(const QString& line)
{
    write(Stream::Output, onOneLine(line) + u'\n');
}

void printError(const QString& line)
{
    write(Stream::Errors, u"zepa: "_s + onOneLine(line) + u'\n');
}

namespace {

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

} // namespace

void sayRows(const QStringList& headings, const QList<QStringList>& rows, const QJsonArray& json, bool asJson)
{
    if (asJson)
        passOn(Stream::Output, QJsonDocument(json).toJson(QJsonDocument::Indented));
    else
        sayTable(headings, rows);
}

void sayJsonLine(const QJsonObject& object)
{
    passOn(Stream::Output, QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n');
}

void filterLog()
{
    if (unfilteredLog)
        return;
    unfilteredLog = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& text) {
        unfilteredLog(type, context, escaped(text, u"\n\t"));
    });
}

} // namespace zepa::cli
