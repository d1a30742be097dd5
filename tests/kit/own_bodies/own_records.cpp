// SPDX-License-Identifier: Apache-2.0
#include "host/arg.h"
#include "host/buddy.h"
#include "host/plugin_action.h"

#include <utility>

class ZepaBuddyData : public QSharedData
{
public:
    QString id;
    QString name;
    int type = ZepaBuddy::Unknown;
};

ZepaBuddy::ZepaBuddy() : d(new ZepaBuddyData)
{}
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
    return d->id;
}

QString ZepaBuddy::getName() const
{
    return d->name;
}

int ZepaBuddy::getType() const
{
    return d->type;
}

class ZepaArgData : public QSharedData
{
public:
    int type = ZepaArg::NoType;
    QString text;
    ZepaBuddy buddy;
};

ZepaArg::ZepaArg() : d(new ZepaArgData)
{}
ZepaArg::ZepaArg(const ZepaArg& other) = default;
ZepaArg::ZepaArg(ZepaArg&& other) noexcept = default;
ZepaArg& ZepaArg::operator=(const ZepaArg& other) = default;
ZepaArg& ZepaArg::operator=(ZepaArg&& other) noexcept = default;
ZepaArg::~ZepaArg() = default;

ZepaArg ZepaArg::fromText(const QString& text)
{
    ZepaArg arg;
    arg.d->type = Text;
    arg.d->text = text;
    return arg;
}

ZepaArg ZepaArg::fromBuddy(const ZepaBuddy& buddy)
{
    ZepaArg arg;
    arg.d->type = Buddy;
    arg.d->buddy = buddy;
    return arg;
}

int ZepaArg::getType() const
{
    return d->type;
}

QString ZepaArg::toText() const
{
    return d->text;
}

ZepaBuddy ZepaArg::toBuddy() const
{
    return d->buddy;
}

class ZepaPluginActionData
{
public:
    std::function<void()> work;
};

ZepaPluginAction::ZepaPluginAction() = default;
ZepaPluginAction::ZepaPluginAction(std::function<void()> work)
    : d(std::make_shared<ZepaPluginActionData>(ZepaPluginActionData{std::move(work)}))
{}
ZepaPluginAction::ZepaPluginAction(const ZepaPluginAction& other) = default;
ZepaPluginAction::ZepaPluginAction(ZepaPluginAction&& other) noexcept = default;
ZepaPluginAction& ZepaPluginAction::operator=(const ZepaPluginAction& other) = default;
ZepaPluginAction& ZepaPluginAction::operator=(ZepaPluginAction&& other) noexcept = default;
ZepaPluginAction::~ZepaPluginAction() = default;

bool ZepaPluginAction::isValid() const
{
    return d && d->work;
}

void ZepaPluginAction::operator()() const
{
    if (isValid())
        std::function<void()>(d->work)();
}
