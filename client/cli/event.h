// SPDX-License-Identifier: Apache-2.0
#pragma once

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
};

} // namespace zepa::cli
