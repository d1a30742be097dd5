// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

#include <sys/stat.h>

namespace zepa {

/// While an object of this class lives, what the process creates is for its user alone: folders 0700, files 0600. Kept
/// to the moments in which settings are written, so that programs which the client starts have the user's own umask.
class PrivateUmask
{
public:
    PrivateUmask() : m_before(::umask(077)) {}
    ~PrivateUmask() { ::umask(m_before); }
    Q_DISABLE_COPY_MOVE(PrivateUmask)

private:
    const mode_t m_before;
};

} // namespace zepa
