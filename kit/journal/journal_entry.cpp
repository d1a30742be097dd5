// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/journal_entry.h"

namespace zepa {

Verdict JournalEntry::verdict() const
{
    switch (report.fate) {
    case Fate::Repeat:
        return Verdict::Repeat;
    case Fate::NoRule:
        return Verdict::NoRule;
    case Fate::UnknownType:
        return Verdict::UnknownType;
    case Fate::Delivered:
        break;
    }
    switch (report.popup) {
    case PopupState::NotAsked:
        return Verdict::NoPopupRule;
    case PopupState::NoBus:
        return Verdict::NoBus;
    case PopupState::NoService:
        return Verdict::NoService;
    case PopupState::NotRegistered:
        return Verdict::NotRegistered;
    case PopupState::Asked:
        break;
    }
    if (answer)
        return *answer == Answer::Clicked ? Verdict::PopupClicked : Verdict::PopupTimedOut;
    return report.waits ? Verdict::PopupWaiting : Verdict::PopupSent;
}

} // namespace zepa
