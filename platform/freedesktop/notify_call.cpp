// SPDX-License-Identifier: Apache-2.0
#include "notify_call.h"

#include "bus_text.h"

namespace zepa::freedesktop {

namespace {

constexpr qsizetype nameLimit = 255;
constexpr int neverExpires = 0;
constexpr int expiresAsTheServiceLikes = -1;

/// Services ignore an urgency that is not a byte.
uchar urgency(int priority)
{
    if (priority < 0)
        return 0;
    return priority < 2 ? 1 : 2;
}

} // namespace

Capabilities Capabilities::fromNames(const QStringList& names)
{
    return {names.contains(QStringLiteral("body-markup"))};
}

QVariantList NotifyCall::arguments() const
{
    return {applicationName, replacesId, applicationIcon, summary, body, actions, hints, expireTimeout};
}

NotifyCall notifyCall(const Posting& posting, const Capabilities& capabilities)
{
    NotifyCall call;
    call.applicationName = busText(posting.applicationName, nameLimit);
    call.applicationIcon = busText(posting.applicationIcon, nameLimit);
    call.summary = busText(posting.title, summaryLimit);
    call.body = busText(posting.text, bodyLimit, capabilities.bodyMarkup ? Markup::Escaped : Markup::None);
    if (posting.clickable)
        call.actions = {QStringLiteral("default"), busText(posting.clickLabel, nameLimit)};
    call.hints.insert(QStringLiteral("urgency"), QVariant::fromValue(urgency(posting.priority)));
    if (!posting.desktopEntry.isEmpty())
        call.hints.insert(QStringLiteral("desktop-entry"), busText(posting.desktopEntry, nameLimit));
    if (!posting.icon.isNull())
        call.hints.insert(QStringLiteral("image-data"), QVariant::fromValue(posting.icon));
    call.expireTimeout = posting.sticky ? neverExpires : expiresAsTheServiceLikes;
    return call;
}

} // namespace zepa::freedesktop
