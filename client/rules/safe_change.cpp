// SPDX-License-Identifier: Apache-2.0
#include "client/rules/safe_change.h"

#include "client/rules/rule_backup.h"
#include "client/rules/stored_file.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "host/xml_node.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace zepa {

namespace {

/// What the library writes for the type: byte for byte, since it asks the same of the same classes.
QByteArray fileOf(const ZepaNotificationModule& module, const QString& typeId)
{
    ZepaXmlNode root(QStringLiteral("rules"), QString(), nullptr);
    const auto rules = module.getRules(module.getNotifications().value(typeId));
    for (const ZepaNotificationRule* rule : rules) {
        ZepaXmlNode element = root.addChild(rule->getMethod()->getId(), QString());
        element.appendChild(ZepaField::toXml(rule->getConfig()));
    }
    return root.toByteArray(-1);
}

bool canBeWritten(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() ? file.isFile() && file.isWritable() : QFileInfo(file.path()).isWritable();
}

/// Puts right what the library could not write, from its rules in memory, or else from the copy.
void mendBrokenFiles(ZepaNotificationModule& module, RuleBackup& backup)
{
    const QStringList types = module.getNotifications().keys();
    for (const QString& typeId : types) {
        const StoredFile file = readStored(backup.ruleFile(typeId));
        if (file.state == StoredFile::State::Readable && !RuleBackup::isGood(file.content) &&
            !backup.putBack(typeId, fileOf(module, typeId)))
            backup.putBack(typeId);
    }
}

} // namespace

SafeChange changeSafely(ZepaNotificationModule& module, RuleBackup& backup, const QString& typeId,
                        const std::function<void()>& edit)
{
    // 1. Whatever the change may rewrite (the library rewrites more than the one type) must have its copy.
    if (!canBeWritten(backup.ruleFile(typeId)))
        return SafeChange::Refused;
    mendBrokenFiles(module, backup);
    if (!backup.keepAll() || !backup.beginChange(typeId))
        return SafeChange::Refused;
    // 2. The change, and whether the disk has it. The library does not say.
    edit();
    const QByteArray wanted = fileOf(module, typeId);
    const bool isStored = readStored(backup.ruleFile(typeId)).content == wanted || backup.putBack(typeId, wanted);
    if (!isStored)
        backup.putBack(typeId);
    mendBrokenFiles(module, backup);
    // 3. The new copy; it is what makes the change last.
    const bool isKept = backup.keepAll();
    backup.endChange(typeId);
    if (!isStored)
        return SafeChange::NotStored;
    return isKept ? SafeChange::Stored : SafeChange::StoredWithoutCopy;
}

QString problemWith(SafeChange change, const QString& typeId)
{
    const auto text = [&typeId](const char* sentence) {
        return QCoreApplication::translate("zepa", sentence).arg(typeId);
    };
    switch (change) {
    case SafeChange::Stored:
        break;
    case SafeChange::StoredWithoutCopy:
        return text(QT_TRANSLATE_NOOP("zepa", "The rules for %1 are stored, but there is no room for the copy that "
                                              "protects them; nothing more can be changed before there is."));
    case SafeChange::NotStored:
        return text(QT_TRANSLATE_NOOP("zepa", "The change to the rules for %1 could not be stored, perhaps because the "
                                              "disk is full. It holds until the program ends."));
    case SafeChange::Refused:
        return text(QT_TRANSLATE_NOOP("zepa", "The rules for %1 were not changed: the file cannot be written, or there "
                                              "is no room for the copy that protects it."));
    }
    return {};
}

} // namespace zepa
