// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <chrono>
#include <optional>
#include <sys/stat.h>

namespace zepa {

/// What changes when the content that a path leads to does: which file it is, its size, and when it was changed.
class FileState
{
public:
    /// None when nothing has that name. Opens nothing.
    static std::optional<FileState> of(const QString& path);
    explicit FileState(const struct stat& status);

    /// False for a file that was changed a moment ago: it may change once more within the same tick of the file
    /// system's clock, and nobody could tell.
    bool isSettled() const;

    friend bool operator==(const FileState&, const FileState&) = default;

private:
    using Time = std::chrono::nanoseconds; ///< since 1970

    dev_t m_device;
    ino_t m_number;
    off_t m_size;
    Time m_modified;
    Time m_changed; ///< also when the one before was set back
};

} // namespace zepa
