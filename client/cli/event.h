// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/buddy.h"

#include <QString>

namespace zepa::cli {

/// One event to announce, as `post` and the lines of a script name it. Texts that were not given are null.
struct Event
{
    double at = 0; ///< seconds from the start of the script
    QString type;
    QString title;
    QString text;
    QString icon;   ///< path of a picture
    QString buddy;  ///< name of the person it is about
    QString action; ///< address or command

    /// The buddy as a contact of the user's.
    ZepaBuddy person() const { return {buddy, buddy, ZepaBuddy::Contact}; }
};

} // namespace zepa::cli
