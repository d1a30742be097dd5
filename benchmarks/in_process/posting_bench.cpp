// SPDX-License-Identifier: Apache-2.0
#include "fixture.h"

#include "core/method_ids.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

void repeat(benchmark::State& state)
{
    Fixture fixture;
    fixture.registerTypes(18);
    fixture.post(Fixture::typeId(0), u"the same"_s);
    for (auto _ : state)
        fixture.post(Fixture::typeId(0), u"the same"_s);
}
BENCHMARK(repeat);

/// Under a title that is forgotten again: a repeat would be dropped before the type is looked up.
void unknownType(benchmark::State& state)
{
    Fixture fixture;
    fixture.registerTypes(18);
    int number = 0;
    for (auto _ : state) {
        if (number % 10 == 0) {
            state.PauseTiming();
            fixture.forgetPostings();
            state.ResumeTiming();
        }
        fixture.post(u"unknown"_s, QString::number(number++));
    }
}
BENCHMARK(unknownType);

void postThroughRules(benchmark::State& state, int settings)
{
    Fixture fixture;
    fixture.registerTypes(18);
    QList<ZepaField> config;
    for (int i = 0; i < settings; ++i)
        fixture.idleMethod().fields.append(
            ZepaField::checkBox(QString(), u"setting_%1"_s.arg(i), false, QString(), QStringList()));
    for (int i = 0; i < state.range(0); ++i)
        fixture.module().addNotificationRule(Fixture::typeId(0), u"idle"_s, config);
    int number = 0;
    for (auto _ : state) {
        if (number % 10 == 0) {
            state.PauseTiming();
            fixture.forgetPostings();
            state.ResumeTiming();
        }
        fixture.post(Fixture::typeId(0), QString::number(number++));
    }
}

void rules(benchmark::State& state)
{
    postThroughRules(state, 0);
}
BENCHMARK(rules)->Arg(0)->Arg(1)->Arg(4)->Arg(16)->Arg(64);

/// Each rule hands its method a list of its settings.
void rulesWithSettings(benchmark::State& state)
{
    postThroughRules(state, 4);
}
BENCHMARK(rulesWithSettings)->Arg(0)->Arg(1)->Arg(4)->Arg(16)->Arg(64);

void keys(benchmark::State& state)
{
    Fixture fixture;
    fixture.registerTypes(1);
    fixture.post(Fixture::typeId(0), u"the same"_s);
    fixture.rememberPostings(static_cast<int>(state.range(0)));
    for (auto _ : state)
        fixture.post(Fixture::typeId(0), u"the same"_s);
}
BENCHMARK(keys)->Arg(0)->Arg(10)->Arg(100)->Arg(1'000)->Arg(10'000)->Arg(100'000);

/// An edit rewrites the rule files of all types.
void edit(benchmark::State& state)
{
    Fixture fixture;
    fixture.registerTypes(static_cast<int>(state.range(0)));
    QList<ZepaField> config;
    const QString method = ZepaMethodId::sound;
    for (int i = 0; i < state.range(0); ++i)
        fixture.module().addNotificationRule(Fixture::typeId(i), method, config);
    for (auto _ : state)
        fixture.module().updateNotificationRule(Fixture::typeId(0), method, config);
}
BENCHMARK(edit)->Arg(18)->Arg(100)->Arg(1'000)->Unit(benchmark::kMicrosecond);

} // namespace
