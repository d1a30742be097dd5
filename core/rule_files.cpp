// SPDX-License-Identifier: Apache-2.0
#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "core/regular_file.h"
#include "core/rule_document.h"
#include "host/settings_manager.h"
#include "host/xml_node.h"

#include <QByteArray>
#include <QFile>

namespace {

QString ruleDirectory()
{
    return ZepaRuleDocument::folder(ZepaSettingsManager::getInstance()->getSettingsDir());
}

/// Empty for a file that cannot be read, or that is far above any that the module writes.
QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!openRegularFile(file, QIODevice::ReadOnly) || file.size() > ZepaRuleDocument::largestRead)
        return {};
    // The size alone says nothing: there are regular files of none that hold more than fits into memory.
    const QByteArray content = file.read(ZepaRuleDocument::largestRead + 1);
    return content.size() > ZepaRuleDocument::largestRead ? QByteArray() : content;
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
    const QString path = getRuleFile(notification);
    if (!QFile::exists(path))
        return;
    const ZepaXmlNode root = ZepaRuleDocument::rootOf(contentOf(path));
    if (root.isNull() || !root.hasChildNodes())
        return;

    const QList<ZepaXmlNode> elements = root.getChildNodes();
    for (const ZepaXmlNode& element : elements) {
        // The registry alone decides whose rules are read; the method that is given limits nothing, and this is meant:
        // one that is not installed has no rules to read.
        ZepaNotificationMethod* owner = methods.value(element.name());
        if (owner == nullptr || !element.hasChildNodes())
            continue;
        auto* rule = new ZepaNotificationRule(notification, owner, ZepaRuleDocument::fieldsIn(element, *owner));
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
            content = ZepaRuleDocument::content(rules.values(target));
        previous = target;
        QFile file(directory + target->getId());
        if (openRegularFile(file, QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
            file.write(content);
    }
}
