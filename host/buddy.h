// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/host_export.h"

#include <QSharedDataPointer>
#include <QString>

class ZepaBuddyData;

/// A contact. A value type; two objects with the same identifier mean the same person.
class ZEPA_HOST_EXPORT ZepaBuddy
{
public:
    /// What getType() returns. Only 4 means something to the library; the other codes are the client's.
    enum Type { Unknown = 0, Contact = 1, NotOnContactList = 4 };

    /// Nobody: empty texts, type Unknown.
    ZepaBuddy();
    ZepaBuddy(const QString& id, const QString& name, int type);
    ZepaBuddy(const ZepaBuddy& other);
    ZepaBuddy(ZepaBuddy&& other) noexcept;
    ZepaBuddy& operator=(const ZepaBuddy& other);
    ZepaBuddy& operator=(ZepaBuddy&& other) noexcept;
    ~ZepaBuddy();

    QString getId() const;
    /// The name to show.
    QString getName() const;
    /// 4 marks a sender who is not on the user's contact list.
    int getType() const;

private:
    QSharedDataPointer<ZepaBuddyData> d;
};
