// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/event.h"
#include "kit/journal/answer_token.h"
#include "kit/journal/report.h"

#include <QJsonObject>
#include <QString>

namespace zepa::cli {

/// Tells what happens while a script is played, one line each, for people or as JSON objects for programs, and adds
/// it up at the end.
class PlayLog
{
public:
    enum class Form { ForPeople, Json };

    explicit PlayLog(Form form) : m_form(form) {}

    /// `seconds` are from the start of the script.
    void posted(double seconds, const Event& event, const Report& report);
    void answered(double seconds, const Event& event, Answer answer);
    /// `waiting` pop-ups are still without an answer.
    void summary(int waiting);

private:
    void tell(double seconds, const QString& what, const Event& event, const QString& how, QJsonObject json);

    const Form m_form;
    int m_posted = 0;
    int m_delivered = 0;
    int m_repeats = 0;
    int m_withoutRule = 0;
    int m_clicked = 0;
    int m_timedOut = 0;
};

} // namespace zepa::cli
