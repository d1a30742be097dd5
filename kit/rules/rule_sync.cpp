// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/rule_sync.h"

#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "core/rule_document.h"
#include "host/settings_manager.h"
#include "host/xml_node.h"
#include "kit/rules/rule_backup.h"
#include "kit/rules/stored_file.h"
#include "kit/settings/hidden_rule_folder.h"

#include <QHash>
#include <QList>
#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace zepa {

namespace {

Q_LOGGING_CATEGORY(lcZepaRules, "zepa.rules")

/// Whether the client's settings do what HiddenRuleFolder asks of them.
bool canHideRuleFolder()
{
    const ZepaSettingsManager& settings = *ZepaSettingsManager::getInstance();
    const QString shown = settings.getSettingsDir();
    const HiddenRuleFolder hidden;
    if (settings.getSettingsDir() != shown)
        return true;
    static bool isTold = false;
    if (!std::exchange(isTold, true))
        qCWarning(lcZepaRules, "ZepaSettingsManager::getSettingsDir() ignores zepa::HiddenRuleFolder, so rules can be "
                               "neither changed nor brought up to date");
    return false;
}

/// A rule that a file holds.
struct FileRule
{
    ZepaNotificationMethod* method;
    QList<ZepaField> config;
    QByteArray key;
};

/// Equal for rules of the same method with the same values: rules and fields have no order.
QByteArray keyOf(const ZepaNotificationRule& rule)
{
    QList<ZepaField> fields = rule.getConfig();
    std::sort(fields.begin(), fields.end(),
              [](const ZepaField& a, const ZepaField& b) { return a.getId() < b.getId(); });
    return rule.getMethod()->getId().toUtf8() + '\n' + ZepaField::toXml(fields).toByteArray(-1);
}

/// What the module would make of the file, and rules of methods that are not installed any more, if it has such.
QList<FileRule> rulesIn(const QByteArray& content, ZepaNotification* type, const ZepaNotificationModule& module)
{
    QHash<QString, ZepaNotificationMethod*> methods = module.getMethods();
    const QList<ZepaNotificationRule*> present = module.getRules(type);
    for (const ZepaNotificationRule* rule : present) {
        if (!methods.contains(rule->getMethod()->getId()))
            methods.insert(rule->getMethod()->getId(), rule->getMethod());
    }

    QList<FileRule> found;
    const QList<ZepaXmlNode> elements = ZepaRuleDocument::rootOf(content).getChildNodes();
    for (const ZepaXmlNode& element : elements) {
        ZepaNotificationMethod* method = methods.value(element.name());
        if (!method || !element.hasChildNodes())
            continue;
        const ZepaNotificationRule rule(type, method, ZepaRuleDocument::fieldsIn(element, *method));
        found.append({method, rule.getConfig(), keyOf(rule)});
    }
    return found;
}

/// Changes what differs, and nothing on the disk.
void takeOver(ZepaNotificationModule& module, ZepaNotification* type, const QByteArray& content)
{
    QList<FileRule> missing = rulesIn(content, type, module);
    QHash<QByteArray, qsizetype> wanted;
    for (const FileRule& rule : std::as_const(missing))
        ++wanted[rule.key];

    QList<ZepaNotificationRule*> surplus;
    QHash<QByteArray, qsizetype> present;
    const QList<ZepaNotificationRule*> rules = module.getRules(type);
    for (ZepaNotificationRule* rule : rules) {
        const QByteArray key = keyOf(*rule);
        if (present.value(key) < wanted.value(key))
            ++present[key];
        else
            surplus.append(rule);
    }
    missing.removeIf([&present](const FileRule& rule) { return present[rule.key]-- > 0; });

    const HiddenRuleFolder nothingIsStored;
    for (FileRule& rule : missing) {
        const auto changed = std::find_if(surplus.begin(), surplus.end(), [&rule](const ZepaNotificationRule* other) {
            return other->getMethod() == rule.method;
        });
        if (changed == surplus.end()) {
            module.addNotificationRule(type, rule.method, rule.config);
        } else {
            (*changed)->setConfig(rule.config);
            surplus.erase(changed);
        }
    }
    for (ZepaNotificationRule* rule : std::as_const(surplus))
        module.removeNotificationRule(rule);
}

} // namespace

QByteArray ruleFileOf(const ZepaNotificationModule& module, const QString& typeId)
{
    return ZepaRuleDocument::content(module.getRules(module.getNotifications().value(typeId)));
}

bool bringUpToDate(ZepaNotificationModule& module, RuleBackup& backup)
{
    if (!canHideRuleFolder())
        return false;
    const QHash<QString, ZepaNotification*> types = module.getNotifications();
    backup.protect(types.keys());
    backup.repair([&](const QString& typeId) {
        return backup.loaded(typeId).isNull() ? QByteArray() : ruleFileOf(module, typeId);
    });
    for (auto type = types.cbegin(); type != types.cend(); ++type) {
        const StoredFile file = readStored(backup.ruleFile(type.key()));
        if (file.state != StoredFile::State::Readable || file.content == backup.loaded(type.key()) ||
            !backup.isGoodFile(type.key(), file.content))
            continue;
        takeOver(module, *type, file.content);
        backup.setLoaded(type.key(), file.content);
    }
    return true;
}

} // namespace zepa
