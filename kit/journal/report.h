// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/journal/answer_token.h"
#include "kit/journal/delivery_log.h"

#include <QList>
#include <QStringList>

#include <optional>

class ZepaNotificationModule;

namespace zepa {

struct Posting;

/// What the module did with a posting.
enum class Fate {
    Delivered, ///< at least one method was called
    Repeat,    ///< there are rules and none was called: a posting with the same type and title was accepted just before
    NoRule,    ///< the type has no rule
    UnknownType ///< nobody registered the type
};

/// What became of the pop-up by the time the posting was done.
enum class PopupState {
    NotAsked,      ///< the pop-up method was not called
    NoBus,         ///< there is no session bus
    NoService,     ///< there is no notification service on the bus
    NotRegistered, ///< the method was not told of the type, or was told last of a list without it
    Asked          ///< handed on to the notification service
};

/// The same of the sound; of several rules the one that got furthest counts.
enum class SoundState {
    NotAsked,
    MutedForAll,       ///< an alert, and the setting "alerts" says never, or what it does not offer
    MutedForStrangers, ///< an alert from somebody who is not on the contact list, and "alerts" allows only buddies
    NoFile,            ///< the rule names a file that is not there
    Asked              ///< handed on to the audio service
};

/// The same of the line in the chat window.
enum class ChatState {
    NotAsked,
    NoBuddy,  ///< the posting is not about anybody
    NoWindow, ///< the buddy's chat window is not open
    Written
};

/// Whether a posting popped up; if not, why.
enum class Verdict {
    PopupSent,     ///< handed to the notification service; without an action its end is unknown
    PopupWaiting,  ///< handed to the notification service, not answered yet
    PopupClicked,  ///< the user clicked
    PopupTimedOut, ///< it went away without a click
    Repeat,
    UnknownType,
    NoRule,
    NoPopupRule, ///< methods were called, the pop-up method not among them
    NoBus,
    NoService,
    NotRegistered
};

/// What happened to one posting, as far as it is known right after it.
struct Report
{
    Fate fate = Fate::Delivered;
    /// The methods that were called, in the order of the calls: the newest rule comes first, and a method with two
    /// rules stands here twice.
    QList<Delivery> calls;
    PopupState popup = PopupState::NotAsked;
    /// Why the pop-up lacks the picture named in the event, in English; empty if it has it or none was named.
    QString pictureProblem = {};
    SoundState sound = SoundState::NotAsked;
    /// What the setting "alerts" says at that time, whether it is offered or not; empty for all but alerts with a
    /// sound.
    QString alerts = {};
    ChatState chat = ChatState::NotAsked;
    /// A pop-up waits for its answer.
    bool waits = false;
    /// The setting "duplicated_notifications_time" at that time, in seconds.
    int repeatLimit = 0;

    /// The identifiers of `calls`.
    QStringList methods() const;
    /// Whether it popped up, given the answer to the pop-up that is known by now; if not, why.
    Verdict verdict(std::optional<Answer> answer = std::nullopt) const;
    /// The pop-up method was called and could not hand the pop-up on; verdict() says why.
    bool hasPopupFailed() const { return popup != PopupState::NotAsked && popup != PopupState::Asked; }
};

/// Looks into what can be seen from outside of the module: which methods were called, rules, settings, the desktop.
Report reportOn(const ZepaNotificationModule& module, const Posting& posting, const QList<Delivery>& calls);

} // namespace zepa
