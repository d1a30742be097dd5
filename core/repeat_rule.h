// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"
#include "host/settings_manager_private.h"

#include <QString>

/// When the module takes a posting for a repeat of an earlier one and drops it: both have the same key, and at most as
/// many seconds as the setting says have passed. What is a repeat does not count as an earlier posting.
namespace ZepaRepeatRule {

/// No separator between the two: "a" + "bc" and "ab" + "c" count as the same. This is meant.
inline QString key(const QString& typeId, const QString& title)
{
    return typeId + title;
}

/// Whole seconds, truncated towards zero, between two times of day, given in milliseconds since midnight.
/// QTime::secsTo() would truncate both times first and count 0.9 s to 1.1 s as one second. There is no date in it, and
/// this is meant: after midnight the difference is negative, so that a posting stays a repeat until the clock has
/// passed the earlier one's time of day again.
constexpr int elapsedSeconds(int earlier, int later)
{
    constexpr int millisecondsPerSecond = 1000;
    return (later - earlier) / millisecondsPerSecond;
}

/// Whether a posting with the key of one `elapsed` seconds ago is a repeat of it.
constexpr bool isRepeat(int elapsed, int limit)
{
    return elapsed <= limit;
}

/// The setting of the whole client, in seconds, with its initial value; the texts are for a window that shows it.
inline ZepaField setting(const QString& label, const QString& description, const QString& suffix)
{
    using namespace Qt::StringLiterals;
    return ZepaField::spinBox(label, u"duplicated_notifications_time"_s, 300, 0, 5, description, suffix);
}

/// The setting with its current value.
inline ZepaField currentSetting()
{
    using namespace Qt::StringLiterals;
    const ZepaField field = setting(QString(), u""_s, u""_s);
    return ZepaSettingsManagerPrivate::settingsMgrPrivInstance->readGlobalSetting(field);
}

} // namespace ZepaRepeatRule
