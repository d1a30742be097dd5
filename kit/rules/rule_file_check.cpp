// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/rule_file_check.h"

#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "core/rule_document.h"
#include "host/xml_node.h"
#include "kit/rules/rule_state.h"

#include <QFile>
#include <QFileInfo>

namespace zepa {

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > ZepaRuleDocument::largestRead || !file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

} // namespace

bool rulesAreStored(const ZepaNotificationModule& module, const QString& settingsFolder, const QString& typeId)
{
    const ZepaXmlNode root = ZepaRuleDocument::rootOf(contentOf(ZepaRuleDocument::folder(settingsFolder) + typeId));
    if (root.isNull())
        return false;

    const QList<ZepaXmlNode> elements = root.getChildNodes();
    const QList<ZepaNotificationRule*> rules = module.getRules(module.getNotifications().value(typeId));
    if (elements.size() != rules.size())
        return false;
    for (qsizetype i = 0; i < rules.size(); ++i) {
        const ZepaNotificationMethod& method = *rules[i]->getMethod();
        if (elements[i].name() != method.getId() || !elements[i].hasChildNodes())
            return false;
        const ZepaNotificationRule stored(rules[i]->getNotification(), rules[i]->getMethod(),
                                          ZepaRuleDocument::fieldsIn(elements[i], method));
        if (stateOf(stored) != stateOf(*rules[i]))
            return false;
    }
    return true;
}

} // namespace zepa
