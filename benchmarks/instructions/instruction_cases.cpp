// SPDX-License-Identifier: Apache-2.0
// The cases whose instructions are counted. Runs under callgrind; each case leaves a dump that bears its name.
//
//   instruction_cases PICTURE
#include "benchmarks/in_process/fixture.h"

#include "core/method_ids.h"
#include "core/notification_method.h"
#include "core/notification_rule.h"
#include "freedesktop/notify_call.h"

#include <QApplication>
#include <QFile>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <valgrind/callgrind.h>

using namespace Qt::StringLiterals;

namespace {

using Work = std::function<void()>;

/// Counts `rounds` runs of `work`, after one that is not counted: what happens once is not what is watched.
void count(const std::string& name, const Work& work, int rounds = 20)
{
    work();
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
    for (int i = 0; i < rounds; ++i)
        work();
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(name.c_str());
}

void addRules(Fixture& fixture, int number, const QString& method, int rules)
{
    QList<ZepaField> config;
    for (int i = 0; i < rules; ++i)
        fixture.module().addNotificationRule(Fixture::typeId(number), method, config);
}

void countPostings(const QString& picture)
{
    Fixture fixture;
    fixture.registerTypes(3);
    const QString popup = ZepaMethodId::hint;
    addRules(fixture, 0, u"idle"_s, 16);
    addRules(fixture, 1, popup, 1);
    int number = 100'000;
    const auto post = [&](int type, const QString& icon = {}, const ZepaPluginAction& action = ZepaPluginAction()) {
        fixture.forgetPostings();
        fixture.module().postNotification(Fixture::typeId(type), QString::number(number++),
                                          u"Shall we have lunch together at noon?"_s, icon, QString(), action, {});
    };
    const ZepaPluginAction action([] {});
    count("a posting without rules", [&] { post(2); });
    count("a posting with 16 idle rules", [&] { post(0); });
    count("a posting with a pop-up", [&] { post(1); });
    count("a posting with a pop-up and an action", [&] { post(1, {}, action); });
    count("a posting with a pop-up and a known icon", [&] { post(1, picture); });

    fixture.forgetPostings();
    fixture.rememberPostings(1'000);
    fixture.post(Fixture::typeId(0), u"the same"_s);
    count("a repeat beside 1,000 remembered postings", [&] { fixture.post(Fixture::typeId(0), u"the same"_s); });
}

void countEdits()
{
    Fixture fixture;
    constexpr int types = 18;
    fixture.registerTypes(types);
    const QString method = ZepaMethodId::sound;
    for (int i = 0; i < types; ++i)
        addRules(fixture, i, method, 1);
    QList<ZepaField> config;
    count(
        "a rule edit with 18 types",
        [&] { fixture.module().updateNotificationRule(Fixture::typeId(0), method, config); }, 3);
}

void countStarts()
{
    const QTemporaryDir folder;
    const zepa::Settings settings(folder.path());
    const auto start = [] {
        std::unique_ptr<ZepaNotificationModule> module(ZepaNotificationModule::getInstance());
        ZepaNotificationModule::init();
        return module;
    };
    count(
        "a start with 18 rule files", [&] { start(); }, 3);
    count(
        "a start and 100 further types",
        [&] {
            const std::unique_ptr<ZepaNotificationModule> module = start();
            for (int i = 0; i < 100; ++i)
                module->registerNotification(Fixture::typeId(i), u"Type %1"_s.arg(i), QString(), QString());
        },
        1);
}

void countNotifyCall()
{
    zepa::growl::PopupPosting posting;
    posting.applicationName = u"Zepa"_s;
    posting.title = u"Posting number 100000"_s;
    posting.text = u"Shall we have lunch together at <noon> & go?"_s;
    posting.clickable = true;
    posting.clickLabel = u"Open"_s;
    const zepa::freedesktop::Sender sender{.icon = {}, .desktopEntry = u"zepa"_s};
    const zepa::freedesktop::Capabilities capabilities{.bodyMarkup = true, .actions = true};
    // Belongs to no bus: what sd-bus does with the texts is not counted.
    zepa::bus::Message call;
    count("the arguments of one Notify call",
          [&] { zepa::freedesktop::appendNotify(call, posting, sender, capabilities); });
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QString picture = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    CALLGRIND_START_INSTRUMENTATION;
    countPostings(picture);
    countEdits();
    countStarts();
    countNotifyCall();
    return 0;
}
