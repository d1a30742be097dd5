// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>

namespace zepa {

struct StoredFile;

/// The last good copy of each rule file, and how a file that broke gets it back.
///
/// The library rewrites rule files in place. A crash or a full disk in the middle leaves an empty or half a file,
/// which means "no rules" to it. So the client keeps copies in the settings folder:
///
///   notifications/TYPE         the library's
///   rules-backup/copies/TYPE   as it last was good
///   rules-backup/set-aside/    what was replaced or taken away, as "NUMBER-TYPE"; the newest 64
///   rules-backup/new/          under way, emptied at every start
///   rules-backup/changing/TYPE empty: the type's rules are being changed
///   rules-backup/starting      empty: defaults are being written
///
/// A file is broken when it is no well-formed document from its first to its last byte with a root "rules"; the
/// library writes no other. An empty "rules" element is good. A file that is missing means that the type is to have
/// its defaults: it stays missing, and its copy is set aside. Symbolic links are followed and stay links. What is no
/// regular file, not to be read, or larger than 4 MiB is left alone.
///
/// Types whose identifier cannot be a file name in the folder ("", "a/b") have no file that could break.
class RuleBackup
{
public:
    /// @param settingsFolder  with a separator at its end
    explicit RuleBackup(const QString& settingsFolder);
    Q_DISABLE_COPY_MOVE(RuleBackup)

    /// Puts back what is broken. To be called before the module is obtained, once; then init(), then started().
    void restore();
    /// The module has registered its types: from here on, a file without a copy is nobody's half-written default.
    void started();

    /// Brings the file of that type, or the files of all types, to the disk, and their copies up to date. To be called
    /// after each change. False when a file is broken or its copy could not be written, for example because the disk
    /// is full: the older copy is there still.
    bool keep(const QString& typeId);
    bool keepAll();

    /// From here to endChange() the type's file may hold what nobody wanted for long, such as no rule at all: should
    /// the program end in between, restore() puts the copy back, which keep() makes anew in between as well. All copies
    /// must be up to date. False when that cannot be noted on the disk.
    bool beginChange(const QString& typeId) const;
    void endChange(const QString& typeId) const;

    /// Puts `content` into the type's file, or the last good copy when `content` is null. In one step, unless the file
    /// is a link. False when that cannot be done.
    bool putBack(const QString& typeId, const QByteArray& content = {});

    /// What restore() did. Types that have their rules again from a copy;
    const QStringList& restored() const { return m_restored; }
    /// types whose file was broken and that had no copy, so that they get their defaults;
    const QStringList& reset() const { return m_reset; }
    /// types whose file could not be mended.
    const QStringList& stillBroken() const { return m_stillBroken; }
    /// The same in sentences for the user, none when all was well. They call a type what `nameOf` makes of its
    /// identifier, or by that itself.
    QStringList news(const std::function<QString(const QString& typeId)>& nameOf = {}) const;

    /// Whether these bytes are a good rule file.
    static bool isGood(const QByteArray& content);
    QString ruleFile(const QString& typeId) const { return m_rules + typeId; }
    /// Where files are that were replaced or taken away.
    QString asideFolder() const { return m_backup + QStringLiteral("set-aside/"); }

private:
    void undoHalfDefaults();
    void mend(const QString& typeId);
    bool takeAway(const QString& typeId, const StoredFile& file) const;
    bool setAside(const QString& path, const QString& typeId) const;
    bool saveBytes(const QByteArray& content, const QString& typeId) const;
    QString nextAsideName(const QString& typeId) const;
    QString copyOf(const QString& typeId) const { return m_backup + QStringLiteral("copies/") + typeId; }
    QString workshop(const QString& typeId) const { return m_backup + QStringLiteral("new/") + typeId; }
    QString changeMark(const QString& typeId) const { return m_backup + QStringLiteral("changing/") + typeId; }
    QString startMark() const { return m_backup + QStringLiteral("starting"); }

    const QString m_rules;
    const QString m_backup;
    /// By type: what is in both the file and its copy, both on the disk.
    QHash<QString, QByteArray> m_kept;
    QStringList m_restored;
    QStringList m_reset;
    QStringList m_stillBroken;
};

} // namespace zepa
