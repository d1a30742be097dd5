// SPDX-License-Identifier: Apache-2.0
#include "client/cli/play_log.h"

#include "client/cli/output.h"
#include "client/cli/poster.h"

#include <utility>

namespace zepa::cli {

void PlayLog::posted(double seconds, const Event& event, const Report& report)
{
    ++m_posted;
    tell(seconds, QStringLiteral("posted"), event, {}, {});
    if (report.fate == Fate::Repeat) {
        ++m_repeats;
        return tell(seconds, QStringLiteral("dropped"), event, QStringLiteral("a repeat"),
                    {{QStringLiteral("reason"), QStringLiteral("repeat")}});
    }
    if (report.calls.isEmpty()) {
        ++m_withoutRule;
        return tell(seconds, QStringLiteral("dropped"), event, QStringLiteral("no rule"),
                    {{QStringLiteral("reason"), QStringLiteral("no rule")}});
    }
    ++m_delivered;
    if (const QString complaint = pictureComplaint(event.icon, report); !complaint.isEmpty())
        complain(complaint);
    const QStringList methods = report.methods();
    QString how = methods.join(QStringLiteral(", "));
    QJsonObject json{{QStringLiteral("methods"), QJsonArray::fromStringList(methods)}};
    if (report.popup != PopupState::NotAsked && report.popup != PopupState::Asked) {
        const QString why = whyNoPopup(event, report);
        how += QStringLiteral(" (%1: no pop-up shown)").arg(why);
        json.insert(QStringLiteral("no_popup"), why);
    }
    tell(seconds, QStringLiteral("delivered"), event, how, json);
}

void PlayLog::answered(double seconds, const Event& event, Answer answer)
{
    const bool clicked = answer == Answer::Clicked;
    ++(clicked ? m_clicked : m_timedOut);
    const QString how = clicked ? QStringLiteral("clicked") : QStringLiteral("timed out");
    tell(seconds, QStringLiteral("answered"), event, how, {{QStringLiteral("answer"), how}});
}

void PlayLog::summary(int waiting)
{
    if (m_form == Form::Json)
        return sayJsonLine({{QStringLiteral("event"), QStringLiteral("summary")},
                            {QStringLiteral("posted"), m_posted},
                            {QStringLiteral("delivered"), m_delivered},
                            {QStringLiteral("repeats"), m_repeats},
                            {QStringLiteral("without_rule"), m_withoutRule},
                            {QStringLiteral("clicked"), m_clicked},
                            {QStringLiteral("timed_out"), m_timedOut},
                            {QStringLiteral("waiting"), waiting}});
    say(QStringLiteral("summary: %1 posted, %2 delivered, %3 dropped as repeats, %4 without a rule; pop-ups with an "
                       "action: %5 clicked, %6 timed out, %7 unanswered")
            .arg(m_posted)
            .arg(m_delivered)
            .arg(m_repeats)
            .arg(m_withoutRule)
            .arg(m_clicked)
            .arg(m_timedOut)
            .arg(waiting));
}

void PlayLog::tell(double seconds, const QString& what, const Event& event, const QString& how, QJsonObject json)
{
    if (m_form == Form::Json) {
        json.insert(QStringLiteral("event"), what);
        json.insert(QStringLiteral("at"), seconds);
        json.insert(QStringLiteral("type"), event.type);
        json.insert(QStringLiteral("title"), event.title);
        return sayJsonLine(json);
    }
    const QString line = QStringLiteral("%1 s  %2  %3  \"%4\"")
                             .arg(seconds, 8, 'f', 3)
                             .arg(what.leftJustified(9), event.type, onOneLine(event.title));
    say(how.isEmpty() ? line : line + QStringLiteral("  ") + how);
}

} // namespace zepa::cli
