// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/journal_text.h"

#include "core/repeat_rule.h"
#include "kit/texts/message_text.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// The context of the texts for translators.
struct JournalText
{
    Q_DECLARE_TR_FUNCTIONS(zepa::JournalText)
};

QString clock(const QDateTime& time)
{
    return time.time().toString(u"HH:mm:ss"_s);
}

QString whyRepeat(const JournalEntry& entry)
{
    const QString limit = QString::number(entry.report.repeatLimit);
    if (!entry.earlier)
        return JournalText::tr(
                   "It was dropped as a repeat of a posting that the journal does not hold any more. Repeats "
                   "are dropped for %1 s (setting \"duplicated_notifications_time\").")
            .arg(limit);
    const JournalEntry::Earlier& earlier = *entry.earlier;
    const int seconds = secondsBetween(earlier.time, entry.time);
    QString why;
    if (seconds < 0)
        why = JournalText::tr("It was dropped as a repeat: the same type and title was posted at %1. Times of day are "
                              "compared without their dates, so it stays a repeat until that time has come again.")
                  .arg(clock(earlier.time));
    else
        why =
            JournalText::tr("It was dropped as a repeat: the same type and title was posted %1 s ago, and repeats are "
                            "dropped for %2 s (setting \"duplicated_notifications_time\").")
                .arg(QString::number(seconds), limit);
    if (earlier.type != entry.type)
        why += u' ' +
               JournalText::tr("That was type %1 with title \"%2\": type and title written in one count as the same.")
                   .arg(nameText(earlier.type), nameText(earlier.title));
    return why;
}

QString soundText(const Report& report)
{
    switch (report.sound) {
    case SoundState::NotAsked:
        return JournalText::tr("No sound: no rule of this type calls the sound method.");
    case SoundState::MutedForAll:
        return JournalText::tr("No sound: alert sounds are turned off (setting \"alerts\": %1).")
            .arg(nameText(report.alerts));
    case SoundState::MutedForStrangers:
        return JournalText::tr("No sound: the sender is not on the contact list (setting \"alerts\": buddies_only).");
    case SoundState::NoFile:
        return JournalText::tr("No sound: the rule's sound file is not there.");
    case SoundState::Asked:
        break;
    }
    return JournalText::tr("The sound method was called, and its file handed to the sound player.");
}

QString chatText(const JournalEntry& entry)
{
    switch (entry.report.chat) {
    case ChatState::NotAsked:
        return JournalText::tr("No line in a chat: no rule of this type calls the chat window method.");
    case ChatState::NoBuddy:
        return JournalText::tr("No line in a chat: the posting is not about anybody.");
    case ChatState::NoWindow:
        return JournalText::tr("No line in a chat: the chat window of %1 is not open.").arg(nameText(entry.who));
    case ChatState::Written:
        break;
    }
    return JournalText::tr("A line was written into the chat window of %1.").arg(nameText(entry.who));
}

QString callText(const Delivery& call)
{
    QStringList settings;
    for (const ZepaField& field : call.config)
        settings.append(u"%1 = %2"_s.arg(nameText(field.getId()), nameText(field.getText())));
    // The rule keeps its settings in no particular order.
    settings.sort();
    return settings.isEmpty() ? call.methodName : u"%1 (%2)"_s.arg(call.methodName, settings.join(u", "_s));
}

} // namespace

int secondsBetween(const QDateTime& from, const QDateTime& to)
{
    return ZepaRepeatRule::elapsedSeconds(from.time().msecsSinceStartOfDay(), to.time().msecsSinceStartOfDay());
}

QList<Verdict> allVerdicts()
{
    return {Verdict::PopupSent, Verdict::PopupWaiting,  Verdict::PopupClicked, Verdict::PopupTimedOut,
            Verdict::Repeat,    Verdict::NoRule,        Verdict::NoPopupRule,  Verdict::NoBus,
            Verdict::NoService, Verdict::NotRegistered, Verdict::UnknownType};
}

QString verdictText(Verdict verdict)
{
    switch (verdict) {
    case Verdict::PopupSent:
        return JournalText::tr("pop-up");
    case Verdict::PopupWaiting:
        return JournalText::tr("pop-up waits");
    case Verdict::PopupClicked:
        return JournalText::tr("clicked");
    case Verdict::PopupTimedOut:
        return JournalText::tr("timed out");
    case Verdict::Repeat:
        return JournalText::tr("repeat");
    case Verdict::NoRule:
        return JournalText::tr("no rule");
    case Verdict::NoPopupRule:
        return JournalText::tr("no rule for a pop-up");
    case Verdict::NoBus:
        return JournalText::tr("no session bus");
    case Verdict::NoService:
        return JournalText::tr("no notification service");
    case Verdict::NotRegistered:
        return JournalText::tr("not registered");
    case Verdict::UnknownType:
        break;
    }
    return JournalText::tr("unknown type");
}

QString whyNoPopup(const JournalEntry& entry)
{
    switch (entry.verdict()) {
    case Verdict::PopupSent:
        return JournalText::tr(
            "A pop-up was handed to the notification service. It has no action, so nobody tells what "
            "became of it.");
    case Verdict::PopupWaiting:
        return JournalText::tr("A pop-up was handed to the notification service and waits for an answer.");
    case Verdict::PopupClicked:
        return JournalText::tr("It popped up and was clicked.");
    case Verdict::PopupTimedOut:
        return JournalText::tr(
            "A pop-up was handed to the notification service and ended without a click: its time was "
            "over, it was closed, or the service gave it up.");
    case Verdict::Repeat:
        return whyRepeat(entry);
    case Verdict::NoRule:
        return JournalText::tr("The type \"%1\" has no rule, so no method was called.").arg(entry.typeName);
    case Verdict::NoPopupRule:
        return JournalText::tr("No rule of the type \"%1\" calls the pop-up method; called was: %2.")
            .arg(entry.typeName, methodsText(entry));
    case Verdict::NoBus:
        return JournalText::tr(
            "The pop-up method was called, but there is no session bus, so no notification service.");
    case Verdict::NoService:
        return JournalText::tr(
            "The pop-up method was called, but there is no notification service on the session bus.");
    case Verdict::NotRegistered:
        return JournalText::tr(
                   "The pop-up method was called, but the type \"%1\" is not registered with the notification "
                   "service.")
            .arg(entry.typeName);
    case Verdict::UnknownType:
        break;
    }
    return JournalText::tr("Nobody registered a notification type \"%1\".").arg(nameText(entry.type));
}

QString methodsText(const JournalEntry& entry)
{
    QStringList names;
    for (const Delivery& call : entry.report.calls)
        names.append(call.methodName);
    return names.join(u", "_s);
}

QString detailsText(const JournalEntry& entry)
{
    QStringList lines{JournalText::tr("Why did this not pop up?") + u' ' + whyNoPopup(entry), QString()};
    const QString who = entry.who.isEmpty() ? JournalText::tr("nobody")
                        : entry.isFromStranger
                            ? JournalText::tr("%1 (not on the contact list)").arg(nameText(entry.who))
                            : nameText(entry.who);
    lines.append(JournalText::tr("Posted: %1").arg(QLocale().toString(entry.time, QLocale::ShortFormat)));
    lines.append(JournalText::tr("Type: %1 (%2)").arg(nameText(entry.typeName), nameText(entry.type)));
    lines.append(JournalText::tr("Title: %1").arg(nameText(entry.title)));
    lines.append(JournalText::tr("Text: %1").arg(messageText(entry.text)));
    lines.append(JournalText::tr("About: %1").arg(who));
    if (!entry.report.calls.isEmpty()) {
        lines.append(
            {QString(), JournalText::tr("Methods in the order of their calls (the newest rule comes first):")});
        for (qsizetype i = 0; i < entry.report.calls.size(); ++i)
            lines.append(u"%1. %2"_s.arg(i + 1).arg(callText(entry.report.calls[i])));
        lines.append({soundText(entry.report), chatText(entry)});
    }
    return lines.join(u'\n');
}

QString lineText(const JournalEntry& entry)
{
    QStringList parts{
        entry.time.toString(Qt::ISODateWithMs), nameText(entry.type), nameText(entry.title), nameText(entry.who),
        verdictText(entry.verdict()),           methodsText(entry),   whyNoPopup(entry)};
    parts.replaceInStrings(u"\t"_s, u" "_s);
    return parts.join(u'\t');
}

} // namespace zepa
