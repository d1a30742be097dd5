// SPDX-License-Identifier: Apache-2.0
#include "core/notification_module.h"

#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_rule.h"
#include "core/regular_file.h"
#include "host/settings_manager.h"
#include "host/tray_icon.h"

#include <QFile>

using namespace Qt::StringLiterals;

ZepaNotificationModule* ZepaNotificationModule::instance = nullptr;

ZepaNotificationModule* ZepaNotificationModule::getInstance()
{
    if (instance == nullptr)
        instance = new ZepaNotificationModule;
    return instance;
}

ZepaNotificationModule::ZepaNotificationModule() : trayIcon(new ZepaTrayIcon(nullptr)), builtIn(makeBuiltInMethods())
{
    // QIcon itself would wait for a pipe.
    QFile file;
    const QString path = ZepaSettingsManager::getInstance()->getCurrentRosterThemeDir() + u"icons/unavail.png"_s;
    trayIcon->setIcon(QIcon(openPictureFile(file, path)));
    trayIcon->setVisible(true);

    const QList<ZepaNotificationMethod*> builtInMethods = builtIn.inOrder();
    for (ZepaNotificationMethod* method : builtInMethods)
        installNotificationMethod(method);
}

ZepaNotificationModule::~ZepaNotificationModule()
{
    instance = nullptr;
    endRunningPostings();
    delete trayIcon;
    qDeleteAll(trayIcons);
    qDeleteAll(rules);
    rules.clear();
    qDeleteAll(notifications);
    notifications.clear();
    qDeleteAll(builtIn.inOrder());
}

void ZepaNotificationModule::registerNotification(const QString& id, const QString& name, const QString& extra,
                                                  const QString& description)
{
    if (notifications.contains(id))
        return;
    auto* notification = new ZepaNotification(id, name, extra, description);
    notifications.insert(id, notification);

    // Asked once: the first default rule writes the file, and the methods after it get their defaults all the same.
    const bool stored = QFile::exists(getRuleFile(notification));
    if (stored)
        setupNotificationRules(notification, nullptr);

    const QHash<QString, ZepaNotificationMethod*> installed = methods;
    for (ZepaNotificationMethod* method : installed) {
        method->registerNotification(notification);
        if (!stored)
            addDefaultRule(notification, method);
    }
}

void ZepaNotificationModule::installNotificationMethod(ZepaNotificationMethod* method)
{
    if (methods.contains(method->getId()))
        return;
    methods.insert(method->getId(), method);
    method->registerNotifications(notifications.values());

    const QHash<QString, ZepaNotification*> registered = notifications;
    for (ZepaNotification* notification : registered) {
        if (QFile::exists(getRuleFile(notification)))
            setupNotificationRules(notification, method);
        else
            addDefaultRule(notification, method);
    }
}

void ZepaNotificationModule::uninstallNotificationMethod(ZepaNotificationMethod* method)
{
    methods.remove(method->getId());
}

ZepaNotificationRule* ZepaNotificationModule::getNotificationRule(const QString& notificationId,
                                                                  const QString& methodId)
{
    ZepaNotification* notification = notifications.value(notificationId);
    const ZepaNotificationMethod* method = methods.value(methodId);
    if (notification == nullptr || method == nullptr)
        return nullptr;
    const auto [first, last] = rules.equal_range(notification);
    for (auto rule = first; rule != last; ++rule) {
        if ((*rule)->getMethod() == method)
            return *rule;
    }
    return nullptr;
}

ZepaNotificationRule* ZepaNotificationModule::addNotificationRule(ZepaNotification* notification,
                                                                  ZepaNotificationMethod* method,
                                                                  QList<ZepaField>& config)
{
    auto* rule = new ZepaNotificationRule(notification, method, config);
    rules.insert(notification, rule);
    storeNotificationRules(notification);
    return rule;
}

ZepaNotificationRule* ZepaNotificationModule::addNotificationRule(const QString& notificationId,
                                                                  const QString& methodId, QList<ZepaField>& config)
{
    ZepaNotification* notification = notifications.value(notificationId);
    ZepaNotificationMethod* method = methods.value(methodId);
    if (notification == nullptr || method == nullptr)
        return nullptr;
    return addNotificationRule(notification, method, config);
}

ZepaNotificationRule* ZepaNotificationModule::updateNotificationRule(const QString& notificationId,
                                                                     const QString& methodId, QList<ZepaField>& config)
{
    ZepaNotificationRule* rule = getNotificationRule(notificationId, methodId);
    if (rule == nullptr)
        return addNotificationRule(notificationId, methodId, config);
    rule->setConfig(config);
    storeNotificationRules(nullptr);
    return rule;
}

void ZepaNotificationModule::removeNotificationRule(ZepaNotificationRule* rule)
{
    if (rule == nullptr)
        return;
    ZepaNotification* notification = rules.key(rule);
    if (notification == nullptr)
        return;
    rules.remove(notification, rule);
    storeNotificationRules(notification);
    if (innermostPosting != nullptr)
        removedRules.append(rule);
    else
        delete rule;
}

void ZepaNotificationModule::removeNotificationRule(const QString& notificationId, const QString& methodId)
{
    removeNotificationRule(getNotificationRule(notificationId, methodId));
}

void ZepaNotificationModule::addDefaultRule(ZepaNotification* notification, ZepaNotificationMethod* method)
{
    QList<ZepaField> config = method->getDefaultNotificationConfig(notification->getId());
    if (zepaHasDefaultRule(config))
        addNotificationRule(notification, method, config);
}
