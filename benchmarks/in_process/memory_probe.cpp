// SPDX-License-Identifier: Apache-2.0
// What the library costs in memory: memory_probe SETTINGS, beside memory_base SETTINGS, the same program without it.
#include "benchmarks/posting/qt_loop.h"
#include "core/method_ids.h"
#include "memory.h"

#include "kit/settings/settings.h"
#ifdef ZEPA_WITH_LIBRARY // the one difference between the two programs
#include "core/notification_module.h"
#include "host/plugin_action.h"
#endif
#include "host/tray_icon.h"

#include <QApplication>
#include <QDBusConnection>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int settleMicroseconds = 200'000;

#ifdef ZEPA_WITH_LIBRARY
constexpr int items = 2'000;

template <typename Work>
void printEach(const char* what, const Work& work)
{
    const long long before = heapBytes();
    for (int i = 0; i < items; ++i)
        work(QString::number(i));
    std::printf("%s %lld\n", what, (heapBytes() - before) / items);
}

void printItems(ZepaNotificationModule& module)
{
    const QString popup = ZepaMethodId::hint;
    QList<ZepaField> config;
    printEach("type", [&](const QString& n) {
        module.registerNotification(u"type_"_s + n, u"Type "_s + n, QString(), QString());
    });
    printEach("rule",
              [&](const QString& n) { module.addNotificationRule(u"type_"_s + n, ZepaMethodId::taskbar, config); });
    const auto post = [&](const QString& id, const QString& title, const ZepaPluginAction& action) {
        module.postNotification(id, title, u"Shall we have lunch together at noon?"_s, QString(), QString(), action,
                                {});
    };
    printEach("remembered-key", [&](const QString& n) { post(u"unknown"_s, u"Posting number "_s + n, {}); });

    module.registerNotification(u"measured"_s, u"Measured"_s, QString(), QString());
    module.addNotificationRule(u"measured"_s, popup, config);
    // Its remembered key is counted in, and is known from the line before.
    const long long before = heapBytes();
    constexpr int popups = 500;
    for (int i = 0; i < popups; ++i) {
        post(u"measured"_s, u"Posting number "_s + QString::number(i), ZepaPluginAction([] {}));
        runEventLoop(2'000);
    }
    runEventLoop(settleMicroseconds);
    std::printf("pending-pop-up %lld\n", (heapBytes() - before) / popups);
}
#endif

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const zepa::Settings settings(QString::fromLocal8Bit(argc > 1 ? argv[1] : "."));
    // What a client has anyway: a connection to the session bus, and a status icon.
    QDBusConnection::sessionBus();
#ifdef ZEPA_WITH_LIBRARY
    const std::unique_ptr<ZepaNotificationModule> module(ZepaNotificationModule::getInstance());
    ZepaNotificationModule::init();
#else
    ZepaTrayIcon icon(nullptr);
    icon.setIcon(QIcon(settings.getCurrentRosterThemeDir() + u"icons/unavail.png"_s));
    icon.setVisible(true);
#endif
    runEventLoop(settleMicroseconds);
    printMemory();
#ifdef ZEPA_WITH_LIBRARY
    printItems(*module);
#endif
    return 0;
}
