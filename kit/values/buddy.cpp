// SPDX-License-Identifier: Apache-2.0
#include "host/buddy.h"

#include <QSharedData>

class ZepaBuddyData : public QSharedData
{
public:
    QString id;
    QString name;
    int type = ZepaBuddy::Unknown;
};

// Nobody has no data at all: an object that was moved from is nobody, too.
ZepaBuddy::ZepaBuddy() = default;

ZepaBuddy::ZepaBuddy(const QString& id, const QString& name, int type) : d(new ZepaBuddyData)
{
    d->id = id;
    d->name = name;
    d->type = type;
}

ZepaBuddy::ZepaBuddy(const ZepaBuddy& other) = default;
ZepaBuddy::ZepaBuddy(ZepaBuddy&& other) noexcept = default;
ZepaBuddy& ZepaBuddy::operator=(const ZepaBuddy& other) = default;
ZepaBuddy& ZepaBuddy::operator=(ZepaBuddy&& other) noexcept = default;
ZepaBuddy::~ZepaBuddy() = default;

QString ZepaBuddy::getId() const
{
    return d ? d->id : QString();
}

QString ZepaBuddy::getName() const
{
    return d ? d->name : QString();
}

int ZepaBuddy::getType() const
{
    return d ? d->type : Unknown;
}
