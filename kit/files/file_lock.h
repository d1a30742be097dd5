// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/files/regular_file.h"

#include <QString>

namespace zepa {

/// An advisory lock between the processes that use one folder, given back with the object; the system gives it back for
/// a process that dies. It is a file of its own, which stays: what is locked may be replaced by a new file at any time.
class FileLock
{
public:
    enum class State {
        Held,
        Busy,  ///< somebody else holds it, in this process or in another
        Failed ///< the file cannot be made or opened
    };

    /// Tries once and never waits.
    explicit FileLock(const QString& path);

    State state() const { return m_state; }
    bool isHeld() const { return m_state == State::Held; }

private:
    RegularFile m_file;
    State m_state = State::Failed;
};

} // namespace zepa
