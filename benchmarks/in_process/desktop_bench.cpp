// SPDX-License-Identifier: Apache-2.0
// What reaches the user by other ways than a pop-up. Each repetition is one call, with the event loop behind it.
#include "benchmarks/posting/qt_loop.h"
#include "core/method_ids.h"
#include "fixture.h"

#include "client/chats/chat_manager.h"
#include "client/chats/chat_window.h"
#include "host/arg.h"
#include "host/buddy.h"
#include "methods/taskbar_notification_method.h"

#include <benchmark/benchmark.h>

#include <QWidget>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

constexpr int calls = 200;

template <typename Call>
void measureOnce(benchmark::State& state, const Call& call)
{
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        call();
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
        runEventLoop(5'000);
    }
}

/// One module for all calls, as in a client. Never deleted: that would be after the application's end.
Fixture& client()
{
    static Fixture& fixture = *new Fixture;
    return fixture;
}

void postThrough(benchmark::State& state, const QString& method)
{
    static int number = 0;
    Fixture& fixture = client();
    fixture.registerTypes(1);
    fixture.forgetPostings();
    QList<ZepaField> config;
    if (fixture.module().getNotificationRule(Fixture::typeId(0), method) == nullptr) {
        for (ZepaNotificationRule* rule :
             fixture.module().getRules(fixture.module().getNotifications().value(Fixture::typeId(0))))
            fixture.module().removeNotificationRule(rule);
        fixture.module().addNotificationRule(Fixture::typeId(0), method, config);
    }
    const QList<ZepaArg> args{ZepaArg::fromBuddy(ZepaBuddy(u"anna"_s, u"Anna"_s, ZepaBuddy::Contact))};
    const QString title = QString::number(number++);
    measureOnce(state, [&] {
        fixture.module().postNotification(Fixture::typeId(0), title, u"Anna is away: at lunch"_s, QString(), QString(),
                                          ZepaPluginAction(), args);
    });
}

void sound(benchmark::State& state)
{
    postThrough(state, ZepaMethodId::sound);
}
BENCHMARK(sound)->Iterations(1)->Repetitions(calls)->UseManualTime()->Unit(benchmark::kMicrosecond);

void chatLine(benchmark::State& state)
{
    client();
    static QWidget* const window =
        zepa::ChatManager::instance().open(ZepaBuddy(u"anna"_s, u"Anna"_s, ZepaBuddy::Contact));
    window->show();
    postThrough(state, ZepaMethodId::chatWindow);
}
BENCHMARK(chatLine)->Iterations(1)->Repetitions(calls)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// Of a minimised window: an active application asks for nothing. The window is never deleted, as above.
void attention(benchmark::State& state)
{
    static QWidget& window = *new QWidget;
    window.showMinimized();
    runEventLoop(5'000);
    postThrough(state, ZepaMethodId::taskbar);
}
BENCHMARK(attention)->Iterations(1)->Repetitions(calls)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace
