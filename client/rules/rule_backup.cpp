// SPDX-License-Identifier: Apache-2.0
#include "client/rules/rule_backup.h"

#include "client/rules/stored_file.h"
#include "host/xml_node.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMap>

namespace zepa {

namespace {

using State = StoredFile::State;

constexpr qsizetype mostAside = 64;

QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
}

/// Whether the identifier names an entry of the folder with rule files.
bool isFileName(const QString& typeId)
{
    return !typeId.isEmpty() && typeId != QStringLiteral(".") && typeId != QStringLiteral("..") &&
           !typeId.contains(u'/') && !typeId.contains(QChar::Null);
}

/// A copy that can be relied on; what is a link is none of ours.
bool isGoodCopy(const StoredFile& copy)
{
    return copy.state == State::Readable && !copy.isLink && RuleBackup::isGood(copy.content);
}

} // namespace

RuleBackup::RuleBackup(const QString& settingsFolder)
    : m_rules(settingsFolder + QStringLiteral("notifications/"))
    , m_backup(settingsFolder + QStringLiteral("rules-backup/"))
{}

bool RuleBackup::isGood(const QByteArray& content)
{
    ZepaXmlNode root{QString(), QString(), nullptr};
    root.setContent(content);
    return root.name() == QStringLiteral("rules");
}

void RuleBackup::restore()
{
    for (const char16_t* folder : {u"copies", u"new", u"set-aside", u"changing"})
        QDir().mkpath(m_backup + QString::fromUtf16(folder));
    const QStringList unfinished = filesIn(m_backup + QStringLiteral("new"));
    for (const QString& name : unfinished)
        QFile::remove(workshop(name));
    if (QFile::exists(startMark()))
        undoHalfDefaults();

    QStringList types = filesIn(m_rules) + filesIn(m_backup + QStringLiteral("copies"));
    types.removeDuplicates();
    for (const QString& typeId : std::as_const(types))
        mend(typeId);
    const QStringList changes = filesIn(m_backup + QStringLiteral("changing"));
    for (const QString& typeId : changes) {
        if (!m_stillBroken.contains(typeId))
            endChange(typeId);
    }
    // Whatever is there has its copy now. So if we do not get as far as started(), a file without one is a default
    // that the module was still writing.
    if (keepAll())
        QFile(startMark()).open(QIODevice::WriteOnly);
}

void RuleBackup::started()
{
    keepAll();
    QFile::remove(startMark());
}

/// A start was cut off while the library wrote the defaults of a type, a rule at a time. The file is good already with
/// the first one, and the others would be missing for ever.
void RuleBackup::undoHalfDefaults()
{
    const QStringList types = filesIn(m_rules);
    for (const QString& typeId : types) {
        if (!QFile::exists(copyOf(typeId)) && !readStored(ruleFile(typeId)).isLink)
            setAside(ruleFile(typeId), typeId);
    }
}

void RuleBackup::mend(const QString& typeId)
{
    const StoredFile file = readStored(ruleFile(typeId));
    const StoredFile copy = readStored(copyOf(typeId));
    if (file.state == State::Missing && !file.isLink && copy.state != State::Missing)
        setAside(copyOf(typeId), typeId);
    if (file.state != State::Readable)
        return;
    const bool isHalfChanged = QFile::exists(changeMark(typeId)) && file.content != copy.content;
    if (!isHalfChanged && isGood(file.content))
        return;

    if (isGoodCopy(copy)) {
        // The bytes may be someone's own work with a slip in it.
        if (!file.content.isEmpty())
            saveBytes(file.content, typeId);
        (putBack(typeId) ? m_restored : m_stillBroken).append(typeId);
    } else {
        (takeAway(typeId, file) ? m_reset : m_stillBroken).append(typeId);
    }
}

/// Without a file, the type has its defaults. A link stays with whoever made it.
bool RuleBackup::takeAway(const QString& typeId, const StoredFile& file) const
{
    if (file.isLink)
        return false;
    return file.content.isEmpty() ? QFile::remove(ruleFile(typeId)) : setAside(ruleFile(typeId), typeId);
}

bool RuleBackup::beginChange(const QString& typeId) const
{
    return !isFileName(typeId) || replaceStored(changeMark(typeId), {}, workshop(typeId), 0600);
}

void RuleBackup::endChange(const QString& typeId) const
{
    if (isFileName(typeId))
        QFile::remove(changeMark(typeId));
}

bool RuleBackup::putBack(const QString& typeId, const QByteArray& content)
{
    if (!isFileName(typeId))
        return false;
    const StoredFile file = readStored(ruleFile(typeId));
    const StoredFile copy = readStored(copyOf(typeId));
    const bool fromCopy = content.isNull();
    if (file.state == State::Foreign || (fromCopy && !isGoodCopy(copy)))
        return false;
    const QByteArray& bytes = fromCopy ? copy.content : content;
    if (file.isLink)
        return overwriteStored(ruleFile(typeId), bytes);
    if (replaceStored(ruleFile(typeId), bytes, workshop(typeId), file.mode != 0 ? file.mode : 0600))
        return true;
    if (!fromCopy)
        return false;
    // A full disk has room for one of the two, and the rules are what the user wants.
    m_kept.remove(typeId);
    return renameStored(copyOf(typeId), ruleFile(typeId));
}

bool RuleBackup::keep(const QString& typeId)
{
    if (!isFileName(typeId))
        return true;
    const StoredFile file = readStored(ruleFile(typeId));
    if (file.state != State::Readable)
        return true;
    const auto kept = m_kept.constFind(typeId);
    if (kept != m_kept.cend() && *kept == file.content)
        return true;
    if (!isGood(file.content))
        return false;
    const StoredFile copy = readStored(copyOf(typeId));
    if (copy.state != State::Readable || copy.isLink || copy.content != file.content) {
        // The file first: whoever finds it good after a crash must find this content, not what it was long ago.
        if (!syncStored(ruleFile(typeId)) || !replaceStored(copyOf(typeId), file.content, workshop(typeId), file.mode))
            return false;
    }
    m_kept.insert(typeId, file.content);
    return true;
}

bool RuleBackup::keepAll()
{
    bool allKept = true;
    const QStringList types = filesIn(m_rules);
    for (const QString& typeId : types)
        allKept = keep(typeId) && allKept;
    return allKept;
}

QString RuleBackup::nextAsideName(const QString& typeId) const
{
    QMap<int, QString> taken;
    const QStringList names = filesIn(asideFolder());
    for (const QString& name : names)
        taken.insert(name.section(u'-', 0, 0).toInt(), name);
    while (taken.size() >= mostAside)
        QFile::remove(asideFolder() + taken.take(taken.firstKey()));
    const QString number = QString::number(taken.isEmpty() ? 1 : taken.lastKey() + 1);
    const QString name = number + u'-' + typeId;
    constexpr qsizetype longestName = 255;
    return asideFolder() + (QFile::encodeName(name).size() > longestName ? number : name);
}

bool RuleBackup::setAside(const QString& path, const QString& typeId) const
{
    return renameStored(path, nextAsideName(typeId));
}

bool RuleBackup::saveBytes(const QByteArray& content, const QString& typeId) const
{
    return replaceStored(nextAsideName(typeId), content, workshop(typeId), 0600);
}

QStringList RuleBackup::news(const std::function<QString(const QString& typeId)>& nameOf) const
{
    const auto tell = [&nameOf](const char* sentence, const QStringList& types) {
        QStringList names;
        for (const QString& type : types)
            names.append(nameOf ? nameOf(type) : type);
        return QCoreApplication::translate("zepa", sentence).arg(names.join(QStringLiteral(", ")));
    };
    QStringList sentences;
    if (!m_restored.isEmpty())
        sentences.append(
            tell(QT_TRANSLATE_NOOP("zepa", "The stored rules for these types were damaged, as a crash or a "
                                           "full disk leaves them, and are back as they were last: %1"),
                 m_restored));
    if (!m_reset.isEmpty())
        sentences.append(tell(QT_TRANSLATE_NOOP("zepa", "The stored rules for these types were damaged, and there was "
                                                        "no good copy. They have their defaults now; the damaged files "
                                                        "are in %2. Types: %1"),
                              m_reset)
                             .arg(asideFolder()));
    if (!m_stillBroken.isEmpty())
        sentences.append(tell(QT_TRANSLATE_NOOP("zepa", "The stored rules for these types are damaged and cannot be "
                                                        "mended; the files are in %2. Types: %1"),
                              m_stillBroken)
                             .arg(m_rules));
    return sentences;
}

} // namespace zepa
