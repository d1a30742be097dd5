// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/storage_status.h"

#include "kit/rules/method_titles.h"
#include "kit/rules/rule_backup.h"
#include "kit/rules/rule_file_check.h"
#include "kit/settings/setting_store.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// A path as the user knows it.
QString shownPath(const QString& path)
{
    const QString home = QDir::homePath() + u'/';
    return QDir::toNativeSeparators(path.startsWith(home) ? u"~/"_s + path.mid(home.size()) : path);
}

} // namespace

void StorageStatus::noteRules(SafeChange outcome, const QString& type)
{
    if (outcome == SafeChange::NotStored && !m_notStored.contains(type))
        m_notStored.append(type);
    m_notStored.removeIf(
        [this](const QString& id) { return rulesAreStored(m_store.module, m_store.backup.settingsFolder(), id); });

    if (outcome == SafeChange::Refused)
        tell(tr("The rules of “%1” were not changed: the file %2 cannot be written, or there is no room on the disk "
                "for the copy that protects it.")
                 .arg(nameOf(type), shownPath(m_store.backup.ruleFile(type))));
    else if (outcome == SafeChange::StoredWithoutCopy)
        tell(tr("The rules of “%1” are stored, but there is no room on the disk for the copy that protects them. Make "
                "room before you change more.")
                 .arg(nameOf(type)));
    else
        tell({});
}

void StorageStatus::noteBusy()
{
    tell(tr("The rules were not changed: another program is changing rules in %1. Try again when it has finished.")
             .arg(shownPath(m_store.backup.settingsFolder())));
}

void StorageStatus::noteBusySettings()
{
    tell(tr("The setting was not changed: another program is changing %1. Try again when it has finished.")
             .arg(shownPath(m_store.settings.location())));
}

void StorageStatus::noteSetting(const ZepaField& setting, bool isStored)
{
    if (isStored)
        tell({});
    else
        tell(tr("The setting “%1” cannot be written, so it was not changed. The file is %2.")
                 .arg(setting.getLabel(), shownPath(m_store.settings.location())));
}

void StorageStatus::tell(const QString& sentence)
{
    QStringList sentences;
    if (!sentence.isEmpty())
        sentences.append(sentence);
    if (!m_notStored.isEmpty()) {
        QStringList names;
        for (const QString& id : std::as_const(m_notStored))
            names.append(nameOf(id));
        sentences.append(
            tr("These events have rules that could not be written to %2, perhaps because the disk is "
               "full. They are in use until the client ends: %1.")
                .arg(names.join(tr(", ")), shownPath(m_store.backup.settingsFolder() + u"notifications"_s)));
    }
    m_text = sentences.join(u' ');
}

QString StorageStatus::nameOf(const QString& type) const
{
    return typeName(m_store.module, type);
}

} // namespace zepa
