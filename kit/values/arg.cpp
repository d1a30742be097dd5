// SPDX-License-Identifier: Apache-2.0
#include "host/arg.h"

#include <QSharedData>

class ZepaArgData : public QSharedData
{
public:
    int type = ZepaArg::NoType;
    QString text;
    ZepaBuddy buddy;
};

// An argument of no type has no data at all: an object that was moved from has no type, too.
ZepaArg::ZepaArg() = default;

ZepaArg ZepaArg::fromText(const QString& text)
{
    ZepaArg arg;
    arg.d = new ZepaArgData;
    arg.d->type = Text;
    arg.d->text = text;
    return arg;
}

ZepaArg ZepaArg::fromBuddy(const ZepaBuddy& buddy)
{
    ZepaArg arg;
    arg.d = new ZepaArgData;
    arg.d->type = Buddy;
    arg.d->buddy = buddy;
    return arg;
}

ZepaArg::ZepaArg(const ZepaArg& other) = default;
ZepaArg::ZepaArg(ZepaArg&& other) noexcept = default;
ZepaArg& ZepaArg::operator=(const ZepaArg& other) = default;
ZepaArg& ZepaArg::operator=(ZepaArg&& other) noexcept = default;
ZepaArg::~ZepaArg() = default;

int ZepaArg::getType() const
{
    return d ? d->type : NoType;
}

QString ZepaArg::toText() const
{
    return d ? d->text : QString();
}

ZepaBuddy ZepaArg::toBuddy() const
{
    return d ? d->buddy : ZepaBuddy();
}
