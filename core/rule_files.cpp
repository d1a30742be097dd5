// SPDX-License-Identifier: Apache-2.0
#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "host/settings_manager.h"
#include "host/xml_node.h"

#include <QByteArray>
#include <QFile>

namespace {

QString ruleDirectory()
{
    return ZepaSettingsManager::getInstance()->getSettingsDir() + QStringLiteral("notifications/");
}

QByteArray ruleFileContent(const QList<ZepaNotificationRule*>& stored)
{
    ZepaXmlNode root(QStringLiteral("rules"), QString(), nullptr);
    for (const ZepaNotificationRule* rule : stored) {
        ZepaXmlNode element = root.addChild(rule->getMethod()->getId(), QString());
        element.appendChild(ZepaField::toXml(rule->getConfig()));
    }
    return root.toByteArray(-1);
}

} // namespace

QString ZepaNotificationModule::getRuleFile(const ZepaNotification* notification) const
{
    return ruleDirectory() + notification->getId();
}

void ZepaNotificationModule::setupNotificationRules(ZepaNotification* notification, ZepaNotificationMethod* /*method*/)
{
    if (notification == nullptr)
        return;
    QFile file(getRuleFile(notification));
    if (!file.exists())
        return;
    ZepaXmlNode root{QString(), QString(), nullptr};
    if (file.open(QIODevice::ReadOnly))
        root.setContent(file.readAll());
    file.close();
    if (root.isNull() || !root.hasChildNodes())
        return;

    const QList<ZepaXmlNode> elements = root.getChildNodes();
    for (const ZepaXmlNode& element : elements) {
        // The registry alone decides whose rules are read; the method that is given limits nothing, and this is meant:
        // one that is not installed has no rules to read.
        ZepaNotificationMethod* owner = methods.value(element.name());
        if (owner == nullptr || !element.hasChildNodes())
            continue;
        const ZepaXmlNode config = element.getChildNodes().constFirst();
        auto* rule = new ZepaNotificationRule(notification, owner, ZepaField::fromXml(owner->fields, config));
        rules.insert(notification, rule);
    }
}

void ZepaNotificationModule::storeNotificationRules(ZepaNotification* notification)
{
    // With null, a type is written once for each of its rules.
    const QList<ZepaNotification*> targets = notification != nullptr ? QList{notification} : rules.keys();
    const QString directory = ruleDirectory();
    const ZepaNotification* previous = nullptr;
    QByteArray content;
    for (ZepaNotification* target : targets) {
        // Ready before the file is opened, since opening empties it; then written in one go, past any buffer.
        if (previous == nullptr || target != previous)
            content = ruleFileContent(rules.values(target));
        previous = target;
        QFile file(directory + target->getId());
        if (file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
            file.write(content);
    }
}
