// SPDX-License-Identifier: Apache-2.0
#include "core/local_clock.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "host/settings_manager_private.h"

#include <utility>

using namespace Qt::StringLiterals;

/// A posting that is under way. While there is one, removed rules stay alive; when the outermost one ends, by whatever
/// way, they are deleted. Knows when the module goes away in the middle of it.
class ZepaNotificationModule::RunningPosting
{
public:
    explicit RunningPosting(ZepaNotificationModule& owner) : module(&owner), outer(owner.innermostPosting)
    {
        owner.innermostPosting = this;
    }
    ~RunningPosting()
    {
        if (module == nullptr)
            return;
        module->innermostPosting = outer;
        if (outer == nullptr)
            qDeleteAll(std::exchange(module->removedRules, {}));
    }
    RunningPosting(const RunningPosting&) = delete;
    RunningPosting& operator=(const RunningPosting&) = delete;

    /// False once the module is gone, and with it every rule.
    bool hasModule() const { return module != nullptr; }
    void loseModule() { module = nullptr; }
    RunningPosting* getOuter() const { return outer; }

private:
    ZepaNotificationModule* module;
    RunningPosting* const outer;
};

namespace {

/// The client's setting, in seconds: at most 300, at least 0, at first 5.
ZepaField repeatLimit()
{
    const ZepaField field = ZepaField::spinBox(QString(), u"duplicated_notifications_time"_s, 300, 0, 5, u""_s, u""_s);
    return ZepaSettingsManagerPrivate::settingsMgrPrivInstance->readGlobalSetting(field);
}

} // namespace

void ZepaNotificationModule::postNotification(const QString& id, const QString& title, const QString& text,
                                              const QString& icon, const QString& extra, const ZepaPluginAction& action,
                                              const QList<ZepaArg>& args)
{
    // No separator between the two: "a" + "bc" and "ab" + "c" count as the same. This is meant.
    const QString key = id + title;
    LocalClock clock;
    forgetOldPostings(repeatLimit(), clock);
    if (lastPostings.contains(key))
        return;
    lastPostings.insert(key, QTime::fromMSecsSinceStartOfDay(clock.now()));

    ZepaNotification* notification = notifications.value(id);
    if (notification == nullptr)
        return;

    const RunningPosting running(*this);
    const QList<ZepaNotificationRule*> snapshot = rules.values(notification);
    // A method may post again, which counts up: all rules of this posting keep the number that it began with.
    const unsigned int number = sequence;
    for (ZepaNotificationRule* rule : snapshot) {
        (*rule)(number, title, text, icon, extra, action, args);
        if (!running.hasModule())
            return;
    }
    ++sequence;
}

void ZepaNotificationModule::endRunningPostings()
{
    for (RunningPosting* posting = innermostPosting; posting != nullptr; posting = posting->getOuter())
        posting->loseModule();
    qDeleteAll(std::exchange(removedRules, {}));
}

void ZepaNotificationModule::forgetOldPostings(const ZepaField& limit, LocalClock& clock)
{
    constexpr int millisecondsPerSecond = 1000;
    for (auto entry = lastPostings.begin(); entry != lastPostings.end();) {
        // Whole seconds, truncated towards zero. QTime::secsTo() would truncate both times first and count 0.9 s to
        // 1.1 s as one second. Times of day without a date, and this is meant: after midnight the difference is
        // negative, and the entry stays until the clock has passed its time of day again.
        const int elapsed = (clock.now() - entry->msecsSinceStartOfDay()) / millisecondsPerSecond;
        if (elapsed > limit.getIntValue())
            entry = lastPostings.erase(entry);
        else
            ++entry;
    }
}
