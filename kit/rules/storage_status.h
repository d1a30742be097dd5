// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"
#include "kit/rules/rule_store.h"
#include "kit/rules/safe_change.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace zepa {

/// What of the rules and settings did not reach the disk, in words for the user. What it is given must outlive this
/// object.
class StorageStatus
{
    Q_DECLARE_TR_FUNCTIONS(zepa::StorageStatus)

public:
    explicit StorageStatus(const RuleStore& store) : m_store(store) {}

    /// One or more translated sentences; empty when all is well.
    const QString& text() const { return m_text; }
    /// Types whose rules are in memory and not in their files.
    const QStringList& notStored() const { return m_notStored; }

    /// What became of a change of the type's rules. It may have stored earlier ones, too: the module rewrites more
    /// files than that of the type.
    void noteRules(SafeChange outcome, const QString& type);
    /// Changes of rules were not made, because another client works on the rule files and does not finish.
    void noteBusy();
    /// A setting was not changed, because another program changes the settings file and does not finish.
    void noteBusySettings();
    /// What became of a change of a setting of the whole client.
    void noteSetting(const ZepaField& setting, bool isStored);

private:
    /// Says that, and what is still wrong from before.
    void tell(const QString& sentence);
    QString nameOf(const QString& type) const;

    const RuleStore m_store;
    QString m_text;
    QStringList m_notStored;
};

} // namespace zepa
