// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <utility>

namespace zepa {

struct StoredFile;

/// The last good copy of each rule file, and how a file that broke gets it back.
///
/// The library rewrites rule files in place. A crash or a full disk in the middle leaves an empty or half a file,
/// which means "no rules" to it. So the client keeps copies in the settings folder:
///
///   notifications/TYPE         the library's
///   rules-backup/copies/TYPE   as it last was good
///   rules-backup/set-aside/    what was replaced or taken away, as "NUMBER-TYPE"; at most 64
///   rules-backup/new/          under way, emptied at every repair
///   rules-backup/changing/TYPE empty: the type's rules are being changed
///   rules-backup/starting      empty: defaults are being written
///   rules-backup/private       empty: rights of others were taken away once
///
/// A file is broken when it is no well-formed document from its first to its last byte. A file that is missing means
/// that the type is to have its defaults: it stays missing, and its copy is set aside. Symbolic links are followed and
/// stay links. What is no regular file, not to be read, or larger than 4 MiB is left alone.
///
/// Only files of the types that are named here, and files that have a copy, are ever touched. Types whose identifier
/// cannot be a file name in the folder ("", "a/b") have no file that could break.
///
/// Every function that reads or writes files needs the RuleLock of ruleFolder(): a mark that is found without it may be
/// of someone who is at work, and one that is found with it is of someone who crashed.
class RuleBackup
{
public:
    /// @param settingsFolder  with a separator at its end
    /// @param types           identifiers of the types whose files may be touched
    RuleBackup(const QString& settingsFolder, const QStringList& types);
    Q_DISABLE_COPY_MOVE(RuleBackup)

    /// Further types whose files may be touched.
    void protect(const QStringList& types);
    /// The settings folder itself is ours, too: makePrivate() may touch it.
    void ownSettingsFolder() { m_ownsSettingsFolder = true; }

    /// Puts back what is broken, and looks what cannot be used. To be called before the module registers its types;
    /// then init(), then started(). Writes nothing when all is well.
    ///
    /// @param typesWithDefaults  those for which the module writes a file when there is none
    void restore(const QStringList& typesWithDefaults = {});
    /// The module has registered its types: from here on, a file without a copy is nobody's half-written default.
    void started();

    /// The bytes that a broken file is to have when there is no good copy; null for none.
    using Fallback = std::function<QByteArray(const QString& typeId)>;
    /// The same as restore() while the client runs: another one may have crashed.
    void repair(const Fallback& fallback = {});

    /// Brings the file of that type, or the files of all types, to the disk, and their copies up to date. To be called
    /// after each change. False when the file is broken (keepAll() passes over such a file) or its copy could not be
    /// written, for example because the disk is full: the older copy is there still.
    bool keep(const QString& typeId);
    bool keepAll();
    /// Takes from others the right to read rules, which hold command lines: once in the life of the folder, so that who
    /// gives it to them again is not overruled.
    void makePrivate();

    /// From here to endChange() the type's file may hold what nobody wanted for long, such as no rule at all: should
    /// the program end in between, restore() puts the copy back, which keep() makes anew in between as well. All copies
    /// must be up to date. False when that cannot be noted on the disk.
    bool beginChange(const QString& typeId) const;
    void endChange(const QString& typeId) const;

    /// Puts `content` into the type's file, or the last good copy when `content` is null. In one step, unless the file
    /// is a link. False when that cannot be done.
    bool putBack(const QString& typeId, const QByteArray& content = {});

    /// The content of the type's file that the module's rules stand for; null when that is not known.
    QByteArray loaded(const QString& typeId) const { return m_loaded.value(typeId); }
    void setLoaded(const QString& typeId, const QByteArray& content) { m_loaded.insert(typeId, content); }

    /// What restore() did. Types that have their rules again from a copy;
    const QStringList& restored() const { return m_restored; }
    /// types whose file was broken and that had no copy, so that they get their defaults;
    const QStringList& reset() const { return m_reset; }
    /// types whose file could not be mended;
    const QStringList& stillBroken() const { return m_stillBroken; }
    /// types whose file is broken and was left as it is, because there are 64 files in asideFolder() already;
    const QStringList& withoutRoomAside() const { return m_withoutRoomAside; }
    /// types whose file is no regular file, or may not be read, so that they have no rules;
    const QStringList& unreadable() const { return m_unreadable; }
    /// types whose file is above 4 MiB.
    const QStringList& tooLarge() const { return m_tooLarge; }
    /// The same in sentences for the user, none when all was well. They call a type what `nameOf` makes of its
    /// identifier, or by that itself.
    QStringList news(const std::function<QString(const QString& typeId)>& nameOf = {}) const;

    /// Whether these bytes are a good rule file.
    static bool isGood(const QByteArray& content);
    /// The same for bytes that may be those of the type's file: it remembers the last ones.
    bool isGoodFile(const QString& typeId, const QByteArray& content) const;
    /// The folder that the rule folder is in, with a separator at its end.
    const QString& settingsFolder() const { return m_settings; }
    QString ruleFolder() const { return m_rules; }
    QString ruleFile(const QString& typeId) const { return m_rules + typeId; }
    /// Where files are that were replaced or taken away.
    QString asideFolder() const;

private:
    QStringList types() const;
    bool needsRepair(const QStringList& typesWithDefaults) const;
    void lookForUnusable();
    void makeFolders() const;
    void undoHalfDefaults();
    void mend(const QString& typeId, const Fallback& fallback);
    bool takeAway(const QString& typeId, const StoredFile& file) const;
    bool setAside(const QString& path, const QString& typeId) const;
    bool saveBytes(const QByteArray& content, const QString& typeId) const;
    bool hasRoomAside() const;
    QString nextAsideName(const QString& typeId) const;
    QString copyOf(const QString& typeId) const;
    QString workshop(const QString& typeId) const;
    QString changeMark(const QString& typeId) const;
    QString startMark() const;
    QString privateMark() const;

    const QString m_settings;
    const QString m_rules;
    const QString m_backup;
    QStringList m_types;
    bool m_ownsSettingsFolder = false;
    bool m_isWritingDefaults = false;
    QHash<QString, QByteArray> m_loaded;
    /// By type: the bytes that were looked at last, and whether they are good.
    mutable QHash<QString, std::pair<QByteArray, bool>> m_judged;
    QStringList m_restored;
    QStringList m_reset;
    QStringList m_stillBroken;
    QStringList m_withoutRoomAside;
    QStringList m_unreadable;
    QStringList m_tooLarge;
};

} // namespace zepa
