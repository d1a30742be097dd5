// SPDX-License-Identifier: Apache-2.0
#include "kit/files/file_state.h"

#include <QFile>

#include <algorithm>

namespace zepa {

namespace {

std::chrono::nanoseconds timeOf(const timespec& time)
{
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

std::optional<FileState> FileState::of(const QString& path)
{
    struct stat status = {};
    if (path.contains(QChar::Null) || ::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return FileState(status);
}

FileState::FileState(const struct stat& status)
    : m_device(status.st_dev)
    , m_number(status.st_ino)
    , m_size(status.st_size)
    , m_modified(timeOf(status.st_mtim))
    , m_changed(timeOf(status.st_ctim))
{}

bool FileState::isSettled() const
{
    constexpr std::chrono::milliseconds longestTick(100);
    return std::chrono::system_clock::now().time_since_epoch() - std::max(m_modified, m_changed) > longestTick;
}

} // namespace zepa
