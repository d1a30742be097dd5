// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/rule_file_check.h"

#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "host/xml_node.h"
#include "kit/rules/rule_state.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// What is far above any rule file that the module writes need not be read to know that it is none.
constexpr qint64 largestRuleFile = qint64{64} * 1024 * 1024;

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > largestRuleFile || !file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

} // namespace

bool rulesAreStored(const ZepaNotificationModule& module, const QString& settingsFolder, const QString& typeId)
{
    ZepaXmlNode root{QString(), QString(), nullptr};
    root.setContent(contentOf(settingsFolder + u"notifications/"_s + typeId));
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
                                          ZepaField::fromXml(method.fields, elements[i].getChildNodes().constFirst()));
        if (stateOf(stored) != stateOf(*rules[i]))
            return false;
    }
    return true;
}

} // namespace zepa
