// SPDX-License-Identifier: Apache-2.0
#include "client/cli/poster.h"

#include "client/cli/output.h"
#include "client/cli/user_action.h"

using namespace Qt::StringLiterals;

namespace zepa::cli {

Posting postingOf(const Event& event, Answers answers, const QString& folder)
{
    Posting posting{event.type, event.title, event.text, event.icon, {}, {}, answers == Answers::Always};
    if (!event.buddy.isNull())
        posting.buddy = event.person();
    if (!event.action.isNull())
        posting.action = [action = event.action, folder] { startAction(action, folder); };
    return posting;
}

QString whyNoPopup(const Event& event, const Report& report)
{
    switch (report.verdict()) {
    case Verdict::Repeat:
        return u"skipped as a repeat"_s;
    case Verdict::UnknownType:
    case Verdict::NoRule:
    case Verdict::NoPopupRule:
        return u"pop-ups are turned off for %1"_s.arg(event.type);
    case Verdict::NoBus:
        return u"no D-Bus session, so no notification service can be reached"_s;
    case Verdict::NoService:
        return u"no notification service"_s;
    case Verdict::NotRegistered:
        return u"the pop-up method did not register %1"_s.arg(event.type);
    case Verdict::PopupSent:
    case Verdict::PopupWaiting:
    case Verdict::PopupClicked:
    case Verdict::PopupTimedOut:
        break;
    }
    return {};
}

QString pictureProblemText(const QString& name, const Report& report)
{
    if (report.pictureProblem.isEmpty())
        return {};
    return u"cannot read image %1 (%2); showing the pop-up without it"_s.arg(onOneLine(name), report.pictureProblem);
}

} // namespace zepa::cli
