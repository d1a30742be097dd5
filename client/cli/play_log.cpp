// SPDX-License-Identifier: Apache-2.0
#include "client/cli/play_log.h"

#include "client/cli/output.h"
#include "client/cli/poster.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zepa::cli {

void PlayLog::posted(double seconds, const Event& event, const Report& report)
{
    ++m_posted;
    tell(seconds, u"posted"_s, event, {}, {});
    if (report.fate == Fate::Repeat) {
        ++m_repeats;
        return tell(seconds, u"dropped"_s, event, u"a repeat"_s, {{u"reason"_s, u"repeat"_s}});
    }
    if (report.calls.isEmpty()) {
        ++m_withoutRule;
        return tell(seconds, u"dropped"_s, event, u"no rule"_s, {{u"reason"_s, u"no rule"_s}});
    }
    ++m_delivered;
    if (const QString problem = pictureProblemText(event.icon, report); !problem.isEmpty())
        printError(problem);
    const QStringList methods = report.methods();
    QString how = methods.join(u", "_s);
    QJsonObject json{{u"methods"_s, QJsonArray::fromStringList(methods)}};
    if (report.hasPopupFailed()) {
        const QString why = whyNoPopup(event, report);
        how += u" (no pop-up shown: %1)"_s.arg(why);
        json.insert(u"no_popup"_s, why);
    }
    tell(seconds, u"delivered"_s, event, how, json);
}

void PlayLog::answered(double seconds, const Event& event, Answer answer)
{
    const bool clicked = answer == Answer::Clicked;
    ++(clicked ? m_clicked : m_timedOut);
    const QString how = clicked ? u"clicked"_s : u"timed out"_s;
    tell(seconds, u"answered"_s, event, how, {{u"answer"_s, how}});
}

void PlayLog::summary(int waiting)
{
    if (m_form == Form::Json)
        return sayJsonLine({{u"event"_s, u"summary"_s},
                            {u"posted"_s, m_posted},
                            {u"delivered"_s, m_delivered},
                            {u"repeats"_s, m_repeats},
                            {u"without_rule"_s, m_withoutRule},
                            {u"clicked"_s, m_clicked},
                            {u"timed_out"_s, m_timedOut},
                            {u"waiting"_s, waiting}});
    say(u"summary: %1 posted, %2 delivered, %3 dropped as repeats, %4 without a rule; pop-ups with an "
        u"action: %5 clicked, %6 timed out, %7 unanswered"_s.arg(m_posted)
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
        json.insert(u"event"_s, what);
        json.insert(u"at"_s, seconds);
        json.insert(u"type"_s, event.type);
        json.insert(u"title"_s, event.title);
        return sayJsonLine(json);
    }
    const QString line = u"%1 s  %2  %3  \"%4\""_s.arg(seconds, 8, 'f', 3)
                             .arg(what.leftJustified(9), event.type, onOneLine(event.title));
    say(how.isEmpty() ? line : line + u"  "_s + how);
}

} // namespace zepa::cli
