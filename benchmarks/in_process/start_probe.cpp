// SPDX-License-Identifier: Apache-2.0
// What the start costs in a new process: start_probe SETTINGS [TYPES]
//
// Prints, in nanoseconds, what getInstance(), init() and the registration of TYPES further types took.
#include "core/notification_module.h"
#include "kit/settings/settings.h"

#include <QApplication>

#include <chrono>
#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

template <typename Work>
long long nanosecondsOf(const Work& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::nanoseconds(std::chrono::steady_clock::now() - begin).count();
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const zepa::Settings settings(QString::fromLocal8Bit(argc > 1 ? argv[1] : "."));
    const int types = argc > 2 ? QString::fromLocal8Bit(argv[2]).toInt() : 0;

    std::unique_ptr<ZepaNotificationModule> module;
    const long long made = nanosecondsOf([&] { module.reset(ZepaNotificationModule::getInstance()); });
    const long long initialised = nanosecondsOf([] { ZepaNotificationModule::init(); });
    const long long registered = nanosecondsOf([&] {
        for (int i = 0; i < types; ++i)
            module->registerNotification(u"type_%1"_s.arg(i), u"Type %1"_s.arg(i), QString(), QString());
    });
    std::printf("%lld %lld %lld\n", made, initialised, registered);
    return 0;
}
