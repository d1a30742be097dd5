// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/safe_change.h"

#include "core/notification_module.h"
#include "core/rule_document.h"
#include "kit/files/private_umask.h"
#include "kit/rules/rule_backup.h"
#include "kit/rules/rule_lock.h"
#include "kit/rules/rule_sync.h"
#include "kit/rules/stored_file.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace zepa {

namespace {

bool canBeWritten(const QString& path)
{
    const StoredFile::State state = readStored(path).state;
    if (state == StoredFile::State::Foreign || state == StoredFile::State::TooLarge)
        return false;
    const QFileInfo file(path);
    return file.exists() ? file.isWritable() : QFileInfo(file.path()).isWritable();
}

/// Puts right what the library could not write, from its rules in memory, or else from the copy; and notes for the
/// other files that they hold what is in memory.
void mendBrokenFiles(const ZepaNotificationModule& module, RuleBackup& backup)
{
    const QStringList types = module.getNotifications().keys();
    for (const QString& typeId : types) {
        const StoredFile file = readStored(backup.ruleFile(typeId));
        if (file.state != StoredFile::State::Readable || file.content == backup.loaded(typeId))
            continue;
        const QByteArray inMemory = ruleFileOf(module, typeId);
        if (file.content == inMemory)
            backup.setLoaded(typeId, inMemory);
        else if (!backup.isGoodFile(typeId, file.content) && !backup.loaded(typeId).isNull() &&
                 !backup.putBack(typeId, inMemory))
            backup.putBack(typeId);
    }
}

} // namespace

SafeChange changeSafely(ZepaNotificationModule& module, RuleBackup& backup, RuleLock& lock, const QString& typeId,
                        const std::function<void()>& edit)
{
    if (!lock.isHeld() && !lock.wait())
        return lock.isPossible() ? SafeChange::Busy : SafeChange::Refused;
    const PrivateUmask forUsAlone;
    // 1. The module knows what other clients did, and whatever the change may rewrite has its copy.
    if (!bringUpToDate(module, backup) || !canBeWritten(backup.ruleFile(typeId)))
        return SafeChange::Refused;
    if (!backup.keepAll() || !backup.keep(typeId) || !backup.beginChange(typeId))
        return SafeChange::Refused;
    backup.makePrivate();
    // 2. The change, and whether the disk has it. The library does not say.
    edit();
    const QByteArray wanted = ruleFileOf(module, typeId);
    const bool isStored = readStored(backup.ruleFile(typeId)).content == wanted ||
                          (wanted.size() <= ZepaRuleDocument::largestProtected && backup.putBack(typeId, wanted));
    if (isStored)
        backup.setLoaded(typeId, wanted);
    else
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
    case SafeChange::Busy:
        return text(QT_TRANSLATE_NOOP("zepa", "The rules for %1 were not changed: another program is changing rules in "
                                              "the same folder. Try again."));
    }
    return {};
}

} // namespace zepa
