// SPDX-License-Identifier: Apache-2.0
#include "client/cli/script.h"

#include "client/cli/output.h"
#include "client/cli/user_action.h"
#include "client/cli/work_slice.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

/// Where the texts of a line go.
constexpr std::pair<const char16_t*, QString Event::*> textFields[] = {
    {u"type", &Event::type}, {u"title", &Event::title}, {u"text", &Event::text},
    {u"icon", &Event::icon}, {u"buddy", &Event::buddy}, {u"action", &Event::action},
};

const QString missing = u"required field is missing"_s;
const QString allFields = u"at, type, title, text, icon, buddy, action"_s;

QString shown(const QJsonValue& value)
{
    if (value.isString())
        return u'"' + onOneLine(value.toString().left(40)) + u'"';
    if (value.isArray() || value.isObject())
        return value.isArray() ? u"a list"_s : u"an object"_s;
    return value.isNull() ? u"null"_s : value.toVariant().toString();
}

} // namespace

class ScriptReader::LineReader
{
public:
    LineReader(const QString& name, const ScriptFolders& folders, const QStringList& types)
        : m_name(onOneLine(name))
        , m_pictures(folders.pictures)
        , m_actionFolder(folders.actions)
        , m_types(types)
        , m_allowedTypes(u"must be one of: %1"_s.arg(types.join(u", "_s)))
    {}

    /// Reads the next line. Nothing for an empty one, and for one with problems.
    std::optional<Event> read(const QByteArray& line);
    bool isFaultless() const { return m_problems.isEmpty(); }
    QStringList problems() const;

private:
    void readObject(Event& event, const QJsonObject& object);
    void readField(Event& event, const QString& name, const QJsonValue& value);
    void readTime(Event& event, const QJsonValue& value);
    void check(Event& event);
    /// `text` is called for the problem's text, and only if that is going to be shown.
    template <typename Text>
    void addProblem(const Text& text);
    template <typename Text>
    void addProblemOf(const QString& field, const Text& text);

    const QString m_name;
    const QDir m_pictures;
    const QString m_actionFolder;
    const QStringList m_types;
    const QString m_allowedTypes;
    qsizetype m_number = 0;
    double m_lastTime = 0;
    QStringList m_problems;
    qsizetype m_found = 0; ///< problems, beyond those named too
};

std::optional<Event> ScriptReader::LineReader::read(const QByteArray& line)
{
    ++m_number;
    if (line.isEmpty())
        return std::nullopt;
    const qsizetype before = m_found;
    Event event;
    event.at = m_lastTime;
    if (line.size() > longestLine) {
        addProblem([&] { return u"the line has %1 bytes (limit %2)"_s.arg(line.size()).arg(longestLine); });
        return std::nullopt;
    }

    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(line, &error);
    if (!document.isObject()) {
        addProblem([&] {
            return document.isNull() ? u"not a JSON object: %1 at byte %2"_s.arg(error.errorString()).arg(error.offset)
                                     : u"expected one JSON object per line, got a list"_s;
        });
        return std::nullopt;
    }
    readObject(event, document.object());
    if (m_found == before)
        check(event);
    m_lastTime = event.at;
    return m_found == before ? std::optional(event) : std::nullopt;
}

void ScriptReader::LineReader::readObject(Event& event, const QJsonObject& object)
{
    for (auto it = object.begin(); it != object.end(); ++it)
        readField(event, it.key(), it.value());
}

void ScriptReader::LineReader::readField(Event& event, const QString& name, const QJsonValue& value)
{
    if (name == u"at"_s)
        return readTime(event, value);
    for (const auto& [field, member] : textFields) {
        if (name != QString::fromUtf16(field))
            continue;
        if (!value.isString())
            return addProblemOf(name, [&] { return u"expected a string, got %1"_s.arg(shown(value)); });
        event.*member = value.toString();
        return;
    }
    addProblemOf(name.left(40), [] { return u"unknown field; known fields: %1"_s.arg(allFields); });
}

void ScriptReader::LineReader::readTime(Event& event, const QJsonValue& value)
{
    const double at = value.toDouble(-1);
    if (at < m_lastTime || at > latestTime)
        return addProblemOf(u"at"_s, [&] {
            return u"%1 is not valid; expected seconds between %2 (previous line) and %3"_s.arg(shown(value))
                .arg(m_lastTime)
                .arg(latestTime);
        });
    event.at = at;
}

void ScriptReader::LineReader::check(Event& event)
{
    const qsizetype type = m_types.indexOf(event.type);
    if (event.type.isNull())
        addProblemOf(u"type"_s, [this] { return missing + u"; "_s + m_allowedTypes; });
    else if (type < 0)
        addProblemOf(u"type"_s, [&] {
            return u"unknown notification type \"%1\"; %2"_s.arg(onOneLine(event.type.left(40)), m_allowedTypes);
        });
    else
        event.type = m_types[type]; // one text for all events of a type
    if (event.title.isNull())
        addProblemOf(u"title"_s, [] { return missing; });
    if (!event.icon.isEmpty() && !QFileInfo(m_pictures, event.icon).isFile())
        addProblemOf(u"icon"_s, [&] {
            return u"image %1 not found; use an absolute path or one relative to the script"_s.arg(
                onOneLine(m_pictures.filePath(event.icon)));
        });
    if (!event.action.isNull()) {
        QString problem = problemWithAction(event.action, m_actionFolder);
        if (!problem.isEmpty())
            addProblemOf(u"action"_s, [&] { return problem; });
    }
    if (!event.icon.isEmpty())
        event.icon = m_pictures.absoluteFilePath(event.icon);
}

template <typename Text>
void ScriptReader::LineReader::addProblem(const Text& text)
{
    if (++m_found <= mostProblems)
        m_problems.append(u"%1:%2: %3"_s.arg(m_name).arg(m_number).arg(text()));
}

template <typename Text>
void ScriptReader::LineReader::addProblemOf(const QString& field, const Text& text)
{
    addProblem([&] { return u"field \"%1\": %2"_s.arg(onOneLine(field), text()); });
}

QStringList ScriptReader::LineReader::problems() const
{
    QStringList lines = m_problems;
    if (m_found > mostProblems)
        lines.append(u"%1: and %2 more"_s.arg(m_name).arg(m_found - mostProblems));
    return lines;
}

ScriptReader::ScriptReader(QByteArray content, const QString& name, const ScriptFolders& folders,
                           const QStringList& types)
    : m_content(std::move(content)), m_reader(std::make_unique<LineReader>(name, folders, types))
{}

ScriptReader::~ScriptReader() = default;

bool ScriptReader::readOn()
{
    constexpr int mostLines = 1000;
    WorkSlice slice(mostLines);
    while (m_at < m_content.size()) {
        readLine();
        if (slice.isOver())
            break;
    }
    return m_at < m_content.size();
}

void ScriptReader::readLine()
{
    const qsizetype end = m_content.indexOf('\n', m_at);
    const QByteArray line = m_content.mid(m_at, end < 0 ? -1 : end - m_at).trimmed();
    m_at = end < 0 ? m_content.size() : end + 1;
    if (const auto event = m_reader->read(line); event && m_reader->isFaultless())
        m_events.append(*event);
    // A script with problems is not played.
    if (!m_reader->isFaultless())
        m_events = {};
}

Script ScriptReader::take()
{
    return {std::exchange(m_events, {}), m_reader->problems()};
}

Script readScript(const QByteArray& content, const QString& name, const ScriptFolders& folders,
                  const QStringList& types)
{
    ScriptReader reader(content, name, folders, types);
    while (reader.readOn())
        ;
    return reader.take();
}

} // namespace zepa::cli
