// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/method_titles.h"

#include "core/method_ids.h"
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
    QLatin1StringView id;
    const char* text;
    /// In the theme, for a method that has no picture of its own.
    const char16_t* picture;
};

constexpr std::array builtIn{
    Title{ZepaMethodId::hint, QT_TRANSLATE_NOOP("zepa", "Pop-up"), u"icons/popup.png"},
    Title{ZepaMethodId::sound, QT_TRANSLATE_NOOP("zepa", "Sound"), u"icons/speaker.png"},
    Title{ZepaMethodId::chatWindow, QT_TRANSLATE_NOOP("zepa", "Line in the chat"), u"icons/chat.png"},
    Title{ZepaMethodId::taskbar, QT_TRANSLATE_NOOP("zepa", "Attention"), u"icons/attention.png"},
};

auto find(const QString& methodId)
{
    return std::find_if(builtIn.cbegin(), builtIn.cend(),
                        [&methodId](const Title& title) { return methodId == title.id; });
}

} // namespace

QString methodTitle(const ZepaNotificationMethod& method)
{
    const auto* const title = find(method.getId());
    if (title != builtIn.cend())
        return QCoreApplication::translate("zepa", title->text);
    // Methods say what they do in the middle of a sentence: "play sound".
    const QString name = method.getActionName();
    return name.left(1).toUpper() + name.mid(1);
}

bool isBuiltIn(const QString& methodId)
{
    return find(methodId) != builtIn.cend();
}

QString methodPicture(const ZepaNotificationMethod& method)
{
    const auto* const title = find(method.getId());
    QString own = method.getActionIcon();
    if (!own.isEmpty() || title == builtIn.cend())
        return own;
    return ZepaSettingsManager::getInstance()->getCurrentThemeDir() + QString::fromUtf16(title->picture);
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

QString typeName(const ZepaNotificationModule& module, const QString& typeId)
{
    const ZepaNotification* type = module.getNotifications().value(typeId);
    return type ? type->getName() : typeId;
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
