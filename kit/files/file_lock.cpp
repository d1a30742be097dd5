// SPDX-License-Identifier: Apache-2.0
#include "kit/files/file_lock.h"

#include <cerrno>
#include <sys/file.h>

namespace zepa {

FileLock::FileLock(const QString& path) : m_file(RegularFile::openToAppend(path, Links::Refuse))
{
    if (!m_file.isOpen())
        return;
    int result = 0;
    do
        result = ::flock(m_file.descriptor(), LOCK_EX | LOCK_NB);
    while (result != 0 && errno == EINTR);
    if (result == 0)
        m_state = State::Held;
    else if (errno == EWOULDBLOCK)
        m_state = State::Busy;
}

} // namespace zepa
