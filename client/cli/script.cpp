// SPDX-License-Identifier: Apache-2.0
#include "client/cli/script.h"

#include "client/cli/output.h"
#include "client/cli/user_action.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace zepa::cli {

namespace {

/// Where the texts of a line go.
constexpr std::pair<const char16_t*, QString Event::*> textFields[] = {
    {u"type", &Event::type}, {u"title", &Event::title}, {u"text", &Event::text},
    {u"icon", &Event::icon}, {u"buddy", &Event::buddy}, {u"action", &Event::action},
};

const QString allFields = QStringLiteral("at, type, title, text, icon, buddy, action");

QString shown(const QJsonValue& value)
{
    if (value.isString())
        return u'"' + onOneLine(value.toString().left(40)) + u'"';
    if (value.isArray() || value.isObject())
        return value.isArray() ? QStringLiteral("a list") : QStringLiteral("an object");
    return value.isNull() ? QStringLiteral("null") : value.toVariant().toString();
}

class LineReader
{
public:
    LineReader(const QString& folder, const QStringList& types) : m_folder(folder), m_types(types) {}

    /// Reads one line; the problems with it are left in problems().
    Event read(const QByteArray& line);
    const QStringList& problems() const { return m_problems; }

private:
    void readField(Event& event, const QString& name, const QJsonValue& value);
    void readTime(Event& event, const QJsonValue& value);
    void check(const Event& event);
    void complainAbout(const QString& field, const QString& problem, const QString& allowed);

    const QString m_folder;
    const QStringList m_types;
    double m_lastTime = 0;
    QStringList m_problems;
};

Event LineReader::read(const QByteArray& line)
{
    m_problems.clear();
    Event event;
    event.at = m_lastTime;

    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(line, &error);
    if (!document.isObject()) {
        const QString what = document.isNull()
                                 ? QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset)
                                 : QStringLiteral("this is a list");
        m_problems.append(
            QStringLiteral("not a JSON object: %1; allowed is one object with the fields %2").arg(what, allFields));
        return event;
    }
    const QJsonObject object = document.object();
    for (auto it = object.begin(); it != object.end(); ++it)
        readField(event, it.key(), it.value());
    if (m_problems.isEmpty())
        check(event);
    m_lastTime = event.at;
    return event;
}

void LineReader::readField(Event& event, const QString& name, const QJsonValue& value)
{
    if (name == QStringLiteral("at"))
        return readTime(event, value);
    for (const auto& [field, member] : textFields) {
        if (name != QString::fromUtf16(field))
            continue;
        if (!value.isString())
            return complainAbout(name, QStringLiteral("%1 is no text").arg(shown(value)), QStringLiteral("a text"));
        event.*member = value.toString();
        return;
    }
    complainAbout(name.left(40), QStringLiteral("there is no such field"), allFields);
}

void LineReader::readTime(Event& event, const QJsonValue& value)
{
    const double at = value.toDouble(-1);
    if (at < m_lastTime || at > latestTime)
        return complainAbout(QStringLiteral("at"), QStringLiteral("%1 does not fit").arg(shown(value)),
                             QStringLiteral("a number of seconds from %1, the time of the line above, to %2")
                                 .arg(m_lastTime)
                                 .arg(latestTime));
    event.at = at;
}

void LineReader::check(const Event& event)
{
    const QString types = QStringLiteral("one of: %1").arg(m_types.join(QStringLiteral(", ")));
    if (event.type.isNull())
        complainAbout(QStringLiteral("type"), QStringLiteral("it is missing"), types);
    else if (!m_types.contains(event.type))
        complainAbout(QStringLiteral("type"),
                      QStringLiteral("there is no notification type \"%1\"").arg(onOneLine(event.type.left(40))),
                      types);
    if (event.title.isNull())
        complainAbout(QStringLiteral("title"), QStringLiteral("it is missing"), QStringLiteral("a text"));
    if (!event.icon.isEmpty() && !QFileInfo(QDir(m_folder), event.icon).isFile())
        complainAbout(QStringLiteral("icon"),
                      QStringLiteral("there is no file %1").arg(onOneLine(QDir(m_folder).filePath(event.icon))),
                      QStringLiteral("a picture, absolute or beside the script"));
    if (!event.action.isNull()) {
        const QString problem = problemWithAction(event.action);
        if (!problem.isEmpty())
            m_problems.append(QStringLiteral("field \"action\": it %1").arg(problem));
    }
}

void LineReader::complainAbout(const QString& field, const QString& problem, const QString& allowed)
{
    m_problems.append(QStringLiteral("field \"%1\": %2; allowed is %3").arg(onOneLine(field), problem, allowed));
}

} // namespace

Script readScript(const QByteArray& content, const QString& name, const QString& folder, const QStringList& types)
{
    Script script;
    LineReader reader(folder, types);
    qsizetype number = 0;
    for (qsizetype start = 0; start < content.size();) {
        const qsizetype end = content.indexOf('\n', start);
        const QByteArray line = content.mid(start, end < 0 ? -1 : end - start).trimmed();
        start = end < 0 ? content.size() : end + 1;
        ++number;
        if (line.isEmpty())
            continue;
        Event event = reader.read(line);
        for (const QString& problem : reader.problems())
            script.problems.append(QStringLiteral("%1:%2: %3").arg(onOneLine(name)).arg(number).arg(problem));
        if (!event.icon.isEmpty())
            event.icon = QDir(folder).absoluteFilePath(event.icon);
        script.events.append(event);
    }
    return script;
}

} // namespace zepa::cli
