// SPDX-License-Identifier: Apache-2.0
#include "kit/texts/image_markers.h"

#include <QStringView>

namespace zepa {

QList<MessagePart> splitAtImageMarkers(const QString& message)
{
    constexpr QStringView opening = u"image:";
    constexpr QStringView closing = u":image";
    QList<MessagePart> parts;
    qsizetype done = 0;
    qsizetype from = 0;
    for (qsizetype end = message.indexOf(closing); end >= 0; end = message.indexOf(closing, from)) {
        const qsizetype inside = QStringView(message).sliced(from, end - from).lastIndexOf(opening);
        const qsizetype start = from + inside;
        // The last letters of a closing that closes nothing may be the first ones of an opening.
        from = end + 1;
        if (inside < 0 || start + opening.size() == end)
            continue;
        const qsizetype after = end + closing.size();
        if (start > done)
            parts.append({message.sliced(done, start - done), {}});
        const qsizetype address = start + opening.size();
        parts.append({message.sliced(start, after - start), message.sliced(address, end - address)});
        done = from = after;
    }
    if (done < message.size())
        parts.append({message.sliced(done), {}});
    return parts;
}

} // namespace zepa
