// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDateTime>
#include <QString>

namespace zepa {

/// One entry of a conversation, before anything was done to its texts.
struct ChatLine
{
    enum class Kind { Incoming, Outgoing, Information };

    Kind kind = Kind::Information;
    /// Who wrote it; not used for information.
    QString author;
    QString text;
    /// In the user's time zone.
    QDateTime time;
};

} // namespace zepa
