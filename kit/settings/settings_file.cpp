// SPDX-License-Identifier: Apache-2.0
#include "kit/settings/settings_file.h"

#include "kit/files/file_lock.h"
#include "kit/files/regular_file.h"

#include <QSaveFile>
#include <QSettings>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// What QSettings makes of a content: it knows only files, so it gets a copy that nobody else can reach.
class PrivateCopy
{
public:
    explicit PrivateCopy(const QByteArray& content)
    {
        // The umask may have taken something from the owner, too.
        constexpr QFile::Permissions forOwner = QFile::ReadOwner | QFile::WriteOwner;
        QFile file(path());
        m_isWritten = m_folder.isValid() && QFile::setPermissions(m_folder.path(), forOwner | QFile::ExeOwner) &&
                      file.open(QIODevice::WriteOnly) && file.setPermissions(forOwner) &&
                      file.write(content) == content.size();
    }

    bool isWritten() const { return m_isWritten; }
    QString path() const { return m_folder.filePath(u"settings.ini"_s); }

private:
    const QTemporaryDir m_folder;
    bool m_isWritten = false;
};

std::optional<QByteArray> contentOf(const QString& path, bool& isMissing)
{
    const RegularFile file = RegularFile::openToRead(path, SettingsFile::mostBytes);
    isMissing = file.state() == RegularFile::State::Missing;
    return isMissing ? QByteArray() : file.readAll();
}

std::optional<QByteArray> withValues(const QByteArray& content, const QVariantHash& values)
{
    const PrivateCopy copy(content);
    if (!copy.isWritten())
        return std::nullopt;
    QSettings settings(copy.path(), QSettings::IniFormat);
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        settings.setValue(value.key(), value.value());
    settings.sync();
    if (settings.status() != QSettings::NoError)
        return std::nullopt;
    return RegularFile::openToRead(copy.path(), SettingsFile::mostBytes).readAll();
}

bool replace(const QString& path, const QByteArray& content, bool isNew)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    // Before a word of it is in the file; the mode of one that exists is kept.
    if (isNew && !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner))
        return false;
    return file.write(content) == content.size() && file.commit();
}

} // namespace

SettingsFile::SettingsFile(const QString& folder)
    : m_path(folder + u"settings.ini"_s), m_lock(folder + u"settings.lock"_s)
{}

std::optional<QVariantHash> SettingsFile::read() const
{
    bool isMissing = false;
    const auto content = contentOf(m_path, isMissing);
    if (!content)
        return std::nullopt;
    QVariantHash values;
    if (content->isEmpty())
        return values;
    const PrivateCopy copy(*content);
    if (!copy.isWritten())
        return std::nullopt;
    const QSettings settings(copy.path(), QSettings::IniFormat);
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys)
        values.insert(key, settings.value(key));
    return values;
}

SettingsFile::Change SettingsFile::change(const QVariantHash& values) const
{
    const FileLock lock(m_lock);
    if (lock.state() == FileLock::State::Busy)
        return Change::Busy;
    bool isMissing = false;
    const auto content = lock.isHeld() ? contentOf(m_path, isMissing) : std::nullopt;
    const auto changed = content ? withValues(*content, values) : std::nullopt;
    return changed && replace(m_path, *changed, isMissing) ? Change::Done : Change::Failed;
}

} // namespace zepa
