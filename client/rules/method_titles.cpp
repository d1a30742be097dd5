// SPDX-License-Identifier: Apache-2.0
#include "client/rules/method_titles.h"

#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "host/settings_manager.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace zepa {

namespace {

struct Title
{
    const char16_t* id;
    const char* text;
};

constexpr std::array builtIn{
    Title{u"zepa_hint_notification", QT_TRANSLATE_NOOP("zepa", "Pop-up")},
    Title{u"zepa_sound_notification_method", QT_TRANSLATE_NOOP("zepa", "Sound")},
    Title{u"zepa_chat_window_notification_method", QT_TRANSLATE_NOOP("zepa", "Line in the chat")},
    Title{u"zepa_dock_bounce_notification_method", QT_TRANSLATE_NOOP("zepa", "Attention")},
};

auto find(const QString& methodId)
{
    return std::find_if(builtIn.cbegin(), builtIn.cend(),
                        [&methodId](const Title& title) { return methodId == QStringView(title.id); });
}

} // namespace

QString methodTitle(const ZepaNotificationMethod& method)
{
    const auto* const title = find(method.getId());
    return title == builtIn.cend() ? method.getActionName() : QCoreApplication::translate("zepa", title->text);
}

bool isBuiltIn(const QString& methodId)
{
    return find(methodId) != builtIn.cend();
}

QString methodPicture(const ZepaNotificationMethod& method)
{
    // The pop-up method has no picture of its own; the theme has one for it.
    if (method.getId() == QStringView(builtIn.front().id))
        return ZepaSettingsManager::getInstance()->getCurrentThemeDir() + QStringLiteral("icons/popup.png");
    return method.getActionIcon();
}

QList<ZepaNotificationMethod*> methodsInOrder(const ZepaNotificationModule& module)
{
    QList<ZepaNotificationMethod*> methods = module.getMethods().values();
    std::sort(methods.begin(), methods.end(), [](const ZepaNotificationMethod* a, const ZepaNotificationMethod* b) {
        const auto* const placeA = find(a->getId());
        const auto* const placeB = find(b->getId());
        if (placeA != placeB)
            return placeA < placeB;
        const int order = QString::localeAwareCompare(a->getActionName(), b->getActionName());
        return order != 0 ? order < 0 : a->getId() < b->getId();
    });
    return methods;
}

QList<ZepaNotification*> typesInOrder(const ZepaNotificationModule& module)
{
    QList<ZepaNotification*> types = module.getNotifications().values();
    std::sort(types.begin(), types.end(), [](const ZepaNotification* a, const ZepaNotification* b) {
        const int order = QString::localeAwareCompare(a->getName(), b->getName());
        return order != 0 ? order < 0 : a->getId() < b->getId();
    });
    return types;
}

} // namespace zepa
