// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QList>
#include <QString>

namespace zepa {

/// A piece of a message: words, or a marker that asks for a picture.
struct MessagePart
{
    /// The piece as it was written, a marker with its "image:" and ":image".
    QString text;
    /// What stands between the two; empty for words.
    QString address;

    bool isMarker() const { return !address.isEmpty(); }
    friend bool operator==(const MessagePart&, const MessagePart&) = default;
};

/// Cuts a message at its markers "image:ADDRESS:image". The texts of all parts, one after the other, are the message.
///
/// A marker is the shortest there is: ":image" belongs to the "image:" next before it. A marker with nothing between
/// is words. Whether an address may be shown is not looked at.
ZEPA_KIT_EXPORT QList<MessagePart> splitAtImageMarkers(const QString& message);

} // namespace zepa
