// SPDX-License-Identifier: Apache-2.0
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "host/settings_manager_private.h"

/// Keeps removed rules alive while a posting runs; when the outermost one ends, by whatever way, they are deleted.
class ZepaNotificationModule::RunningPosting
{
public:
    explicit RunningPosting(ZepaNotificationModule& owner) : module(owner) { ++module.runningPostings; }
    ~RunningPosting()
    {
        if (--module.runningPostings > 0)
            return;
        qDeleteAll(module.removedRules);
        module.removedRules.clear();
    }
    RunningPosting(const RunningPosting&) = delete;
    RunningPosting& operator=(const RunningPosting&) = delete;

private:
    ZepaNotificationModule& module;
};

namespace {

/// The client's setting, in seconds: at most 300, at least 0, at first 5.
ZepaField repeatLimit()
{
    const ZepaField field = ZepaField::spinBox(QString(), QStringLiteral("duplicated_notifications_time"), 300, 0, 5,
                                               QStringLiteral(""), QStringLiteral(""));
    return ZepaSettingsManagerPrivate::settingsMgrPrivInstance->readGlobalSetting(field);
}

/// Whole seconds from `from` to `to`, truncated towards zero. QTime::secsTo() would truncate both times first and
/// count 0.9 s to 1.1 s as one second.
int secondsBetween(QTime from, QTime to)
{
    constexpr int millisecondsPerSecond = 1000;
    return from.msecsTo(to) / millisecondsPerSecond;
}

} // namespace

void ZepaNotificationModule::postNotification(const QString& id, const QString& title, const QString& text,
                                              const QString& icon, const QString& extra, const ZepaPluginAction& action,
                                              const QList<ZepaArg>& args)
{
    // No separator between the two: "a" + "bc" and "ab" + "c" count as the same. This is meant.
    const QString key = id + title;
    forgetOldPostings(repeatLimit());
    if (lastPostings.contains(key))
        return;
    lastPostings.insert(key, QTime::currentTime());

    ZepaNotification* notification = notifications.value(id);
    if (notification == nullptr)
        return;

    const RunningPosting running(*this);
    const QList<ZepaNotificationRule*> snapshot = rules.values(notification);
    // A method may post again, which counts up: all rules of this posting keep the number that it began with.
    const unsigned int number = sequence;
    for (ZepaNotificationRule* rule : snapshot)
        (*rule)(number, title, text, icon, extra, action, args);
    ++sequence;
}

void ZepaNotificationModule::forgetOldPostings(const ZepaField& limit)
{
    for (auto entry = lastPostings.begin(); entry != lastPostings.end();) {
        // Times of day without a date, and this is meant: after midnight the difference is negative, and the entry
        // stays until the clock has passed its time of day again.
        if (secondsBetween(*entry, QTime::currentTime()) > limit.getIntValue())
            entry = lastPostings.erase(entry);
        else
            ++entry;
    }
}
