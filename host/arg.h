// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/buddy.h"
#include "host/host_export.h"

#include <QSharedDataPointer>
#include <QString>

class ZepaArgData;

/// A typed argument of a posting. A value type.
class ZEPA_HOST_EXPORT ZepaArg
{
public:
    /// What getType() returns. 19 is fixed: it carries a buddy. The others are the client's.
    enum Type { NoType = 0, Text = 1, Buddy = 19 };

    ZepaArg();
    static ZepaArg fromText(const QString& text);
    static ZepaArg fromBuddy(const ZepaBuddy& buddy);
    ZepaArg(const ZepaArg& other);
    ZepaArg(ZepaArg&& other) noexcept;
    ZepaArg& operator=(const ZepaArg& other);
    ZepaArg& operator=(ZepaArg&& other) noexcept;
    ~ZepaArg();

    int getType() const;
    /// The text; null when the argument carries none.
    QString toText() const;
    /// The buddy; a default-constructed one when the argument carries none.
    ZepaBuddy toBuddy() const;

private:
    QSharedDataPointer<ZepaArgData> d;
};
