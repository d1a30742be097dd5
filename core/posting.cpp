// SPDX-License-Identifier: Apache-2.0
#include "core/local_clock.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "core/repeat_rule.h"

#include <utility>

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

void ZepaNotificationModule::postNotification(const QString& id, const QString& title, const QString& text,
                                              const QString& icon, const QString& extra, const ZepaPluginAction& action,
                                              const QList<ZepaArg>& args)
{
    const QString key = ZepaRepeatRule::key(id, title);
    LocalClock clock;
    forgetOldPostings(ZepaRepeatRule::currentSetting(), clock);
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
    for (auto entry = lastPostings.begin(); entry != lastPostings.end();) {
        const int elapsed = ZepaRepeatRule::elapsedSeconds(entry->msecsSinceStartOfDay(), clock.now());
        if (ZepaRepeatRule::isRepeat(elapsed, limit.getIntValue()))
            ++entry;
        else
            entry = lastPostings.erase(entry);
    }
}
