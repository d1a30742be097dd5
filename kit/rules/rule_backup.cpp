// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/rule_backup.h"

#include "core/rule_document.h"
#include "kit/files/private_umask.h"
#include "kit/rules/stored_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

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
    return !typeId.isEmpty() && typeId != u"."_s && typeId != u".."_s && !typeId.contains(u'/') &&
           !typeId.contains(QChar::Null);
}

/// A copy that can be relied on; what is a link is none of ours.
bool isGoodCopy(const StoredFile& copy)
{
    return copy.state == State::Readable && !copy.isLink && RuleBackup::isGood(copy.content);
}

} // namespace

RuleBackup::RuleBackup(const QString& settingsFolder, const QStringList& types)
    : m_settings(settingsFolder)
    , m_rules(ZepaRuleDocument::folder(settingsFolder))
    , m_backup(settingsFolder + u"rules-backup/"_s)
{
    protect(types);
}

bool RuleBackup::isGood(const QByteArray& content)
{
    return !ZepaRuleDocument::rootOf(content).isNull();
}

/// To read a large file again and again takes most of the time of a change.
bool RuleBackup::isGoodFile(const QString& typeId, const QByteArray& content) const
{
    const auto known = m_judged.constFind(typeId);
    if (known != m_judged.cend() && known->first == content)
        return known->second;
    const bool verdict = isGood(content);
    m_judged.insert(typeId, {content, verdict});
    return verdict;
}

void RuleBackup::protect(const QStringList& types)
{
    for (const QString& typeId : types) {
        if (isFileName(typeId) && !m_types.contains(typeId))
            m_types.append(typeId);
    }
}

/// Those that we were told, and those that we once made a copy for.
QStringList RuleBackup::types() const
{
    QStringList all = m_types + filesIn(m_backup + u"copies"_s);
    all.removeDuplicates();
    return all;
}

void RuleBackup::restore(const QStringList& typesWithDefaults)
{
    if (needsRepair(typesWithDefaults)) {
        repair();
        makePrivate();
        const auto isMissing = [this](const QString& type) { return !existsStored(ruleFile(type)); };
        // Whatever is there has its copy now. So if we do not get as far as started(), a file without one is a default
        // that the module was still writing.
        m_isWritingDefaults = std::any_of(typesWithDefaults.cbegin(), typesWithDefaults.cend(), isMissing) &&
                              keepAll() && replaceStored(startMark(), {}, workshop(u"starting"_s), 0600);
    }
    lookForUnusable();
}

void RuleBackup::started()
{
    if (m_isWritingDefaults) {
        keepAll();
        QFile::remove(startMark());
        m_isWritingDefaults = false;
    }
    const QStringList all = types();
    for (const QString& typeId : all) {
        const StoredFile file = readStored(ruleFile(typeId));
        if (file.state == State::Readable && isGoodFile(typeId, file.content))
            m_loaded.insert(typeId, file.content);
    }
}

/// Looks, and writes nothing: most starts find nothing to do.
bool RuleBackup::needsRepair(const QStringList& typesWithDefaults) const
{
    if (existsStored(startMark()) || !filesIn(m_backup + u"changing"_s).isEmpty())
        return true;
    const QStringList all = types();
    return std::any_of(all.cbegin(), all.cend(), [&](const QString& typeId) {
        const StoredFile file = readStored(ruleFile(typeId));
        if (file.state == State::Missing)
            return typesWithDefaults.contains(typeId) || existsStored(copyOf(typeId));
        return file.state == State::Readable && !isGoodFile(typeId, file.content);
    });
}

void RuleBackup::repair(const Fallback& fallback)
{
    if (!needsRepair({}))
        return;
    for (QStringList* found : {&m_restored, &m_reset, &m_stillBroken, &m_withoutRoomAside})
        found->clear();
    makeFolders();
    const QStringList unfinished = filesIn(m_backup + u"new"_s);
    for (const QString& name : unfinished)
        QFile::remove(workshop(name));
    if (existsStored(startMark()))
        undoHalfDefaults();

    const QStringList all = types();
    for (const QString& typeId : all)
        mend(typeId, fallback);
    const QStringList changes = filesIn(m_backup + u"changing"_s);
    for (const QString& typeId : changes) {
        if (!m_stillBroken.contains(typeId))
            endChange(typeId);
    }
}

void RuleBackup::lookForUnusable()
{
    m_unreadable.clear();
    m_tooLarge.clear();
    const QStringList all = types();
    for (const QString& typeId : all) {
        const State state = readStored(ruleFile(typeId)).state;
        if (state == State::Foreign)
            m_unreadable.append(typeId);
        else if (state == State::TooLarge)
            m_tooLarge.append(typeId);
    }
}

void RuleBackup::makeFolders() const
{
    const PrivateUmask forUsAlone;
    for (const char16_t* folder : {u"copies", u"new", u"set-aside", u"changing"})
        QDir().mkpath(m_backup + QString::fromUtf16(folder));
}

void RuleBackup::makePrivate()
{
    if (existsStored(privateMark()))
        return;
    makeFolders();
    if (m_ownsSettingsFolder)
        makePrivateStored(m_settings);
    makePrivateStored(m_rules);
    for (const QString& typeId : std::as_const(m_types))
        makePrivateStored(ruleFile(typeId));
    makePrivateStored(m_backup);
    for (const char16_t* name : {u"copies", u"new", u"set-aside", u"changing"}) {
        const QString folder = m_backup + QString::fromUtf16(name);
        makePrivateStored(folder);
        const QStringList files = filesIn(folder);
        for (const QString& file : files)
            makePrivateStored(folder + u'/' + file);
    }
    replaceStored(privateMark(), {}, workshop(u"private"_s), 0600);
}

/// A start was cut off while the library wrote the defaults of a type, a rule at a time. The file is good already with
/// the first one, and the others would be missing for ever.
void RuleBackup::undoHalfDefaults()
{
    for (const QString& typeId : std::as_const(m_types)) {
        if (existsStored(ruleFile(typeId)) && !existsStored(copyOf(typeId)) && !readStored(ruleFile(typeId)).isLink)
            setAside(ruleFile(typeId), typeId);
    }
    QFile::remove(startMark());
}

void RuleBackup::mend(const QString& typeId, const Fallback& fallback)
{
    const StoredFile file = readStored(ruleFile(typeId));
    const StoredFile copy = readStored(copyOf(typeId));
    if (file.state == State::Missing && !file.isLink && copy.state != State::Missing &&
        !setAside(copyOf(typeId), typeId))
        QFile::remove(copyOf(typeId));
    const bool isBeingChanged = existsStored(changeMark(typeId));
    if (file.state != State::Readable && (file.state != State::TooLarge || !isBeingChanged))
        return;
    if (file.state == State::Readable && isGoodFile(typeId, file.content) &&
        (!isBeingChanged || file.content == copy.content))
        return;

    const bool hasCopy = isGoodCopy(copy);
    // The bytes may be someone's own work with a slip in it. Those that the library wrote are worth nothing.
    const bool isOurs = isBeingChanged || (hasCopy && copy.content.startsWith(file.content));
    if (!isOurs && !file.content.isEmpty() && !hasRoomAside()) {
        m_withoutRoomAside.append(typeId);
        return;
    }
    const QByteArray inMemory = !hasCopy && fallback ? fallback(typeId) : QByteArray();
    if (hasCopy || !inMemory.isNull()) {
        if (!isOurs && !file.content.isEmpty())
            saveBytes(file.content, typeId);
        (putBack(typeId, inMemory) ? m_restored : m_stillBroken).append(typeId);
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
    // A full disk has room for one of the two, and the rules are what the user wants.
    return fromCopy && renameStored(copyOf(typeId), ruleFile(typeId));
}

bool RuleBackup::keep(const QString& typeId)
{
    if (!isFileName(typeId))
        return true;
    const StoredFile file = readStored(ruleFile(typeId));
    if (file.state != State::Readable)
        return true;
    if (!isGoodFile(typeId, file.content))
        return false;
    const StoredFile copy = readStored(copyOf(typeId));
    if (copy.state == State::Readable && !copy.isLink && copy.content == file.content)
        return true;
    // The file first: if it is intact after a crash, it must hold this content and not an older version.
    return syncStored(ruleFile(typeId)) && replaceStored(copyOf(typeId), file.content, workshop(typeId), 0600);
}

bool RuleBackup::keepAll()
{
    makeFolders();
    bool allKept = true;
    const QStringList all = types();
    for (const QString& typeId : all) {
        const StoredFile file = readStored(ruleFile(typeId));
        if (file.state == State::Readable && isGoodFile(typeId, file.content))
            allKept = keep(typeId) && allKept;
    }
    return allKept;
}

bool RuleBackup::hasRoomAside() const
{
    return filesIn(asideFolder()).size() < mostAside;
}

/// Empty when there is no room.
QString RuleBackup::nextAsideName(const QString& typeId) const
{
    if (!hasRoomAside())
        return {};
    constexpr qulonglong largestNumber = 999'999'999;
    qulonglong last = 0;
    const QStringList names = filesIn(asideFolder());
    for (const QString& name : names) {
        const qulonglong number = name.section(u'-', 0, 0).toULongLong();
        last = std::max(last, number < largestNumber ? number : 0);
    }
    QString path;
    do {
        const QString number = QString::number(++last);
        const QString name = number + u'-' + typeId;
        constexpr qsizetype longestName = 255;
        path = asideFolder() + (QFile::encodeName(name).size() > longestName ? number : name);
    } while (existsStored(path));
    return path;
}

bool RuleBackup::setAside(const QString& path, const QString& typeId) const
{
    const QString name = nextAsideName(typeId);
    return !name.isEmpty() && renameStored(path, name);
}

bool RuleBackup::saveBytes(const QByteArray& content, const QString& typeId) const
{
    const QString name = nextAsideName(typeId);
    return !name.isEmpty() && replaceStored(name, content, workshop(typeId), 0600);
}

QStringList RuleBackup::news(const std::function<QString(const QString& typeId)>& nameOf) const
{
    const auto tell = [&nameOf](const char* sentence, const QStringList& types) {
        QStringList names;
        for (const QString& type : types)
            names.append(nameOf ? nameOf(type) : type);
        return QCoreApplication::translate("zepa", sentence).arg(names.join(u", "_s));
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
    if (!m_withoutRoomAside.isEmpty())
        sentences.append(tell(QT_TRANSLATE_NOOP("zepa", "The stored rules for these types are damaged and were left as "
                                                        "they are, because %2 already holds %3 files. Move those files "
                                                        "elsewhere and restart Zepa. Types: %1"),
                              m_withoutRoomAside)
                             .arg(asideFolder())
                             .arg(mostAside));
    if (!m_unreadable.isEmpty())
        sentences.append(tell(QT_TRANSLATE_NOOP("zepa", "These types have no rules, because their rule files in %2 "
                                                        "cannot be read or are not regular files: %1"),
                              m_unreadable)
                             .arg(m_rules));
    if (!m_tooLarge.isEmpty())
        sentences.append(
            tell(QT_TRANSLATE_NOOP("zepa", "The rules for these types cannot be changed and are not backed "
                                           "up, because their files in %2 are larger than 4 MiB: %1"),
                 m_tooLarge)
                .arg(m_rules));
    return sentences;
}

QString RuleBackup::asideFolder() const
{
    return m_backup + u"set-aside/"_s;
}

QString RuleBackup::copyOf(const QString& typeId) const
{
    return m_backup + u"copies/"_s + typeId;
}

QString RuleBackup::workshop(const QString& typeId) const
{
    return m_backup + u"new/"_s + typeId;
}

QString RuleBackup::changeMark(const QString& typeId) const
{
    return m_backup + u"changing/"_s + typeId;
}

QString RuleBackup::startMark() const
{
    return m_backup + u"starting"_s;
}

QString RuleBackup::privateMark() const
{
    return m_backup + u"private"_s;
}

} // namespace zepa
