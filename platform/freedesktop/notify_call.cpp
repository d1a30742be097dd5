// SPDX-License-Identifier: Apache-2.0
#include "notify_call.h"

#include "bus_text.h"
#include "notify_image.h"

#include <QGuiApplication>
#include <QIcon>

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

Sender Sender::ofThisProgram()
{
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
        return {};
    const QString entry = QGuiApplication::desktopFileName();
    const QString icon = QGuiApplication::windowIcon().name();
    return {icon.isEmpty() ? entry : icon, entry};
}

Capabilities Capabilities::fromNames(const QStringList& names)
{
    return {names.contains(QStringLiteral("body-markup")), names.contains(QStringLiteral("actions"))};
}

QVariantList NotifyCall::arguments() const
{
    return {applicationName, replacesId, applicationIcon, summary, body, actions, hints, expireTimeout};
}

NotifyCall notifyCall(const growl::PopupPosting& posting, const Sender& sender, const Capabilities& capabilities)
{
    NotifyCall call;
    call.applicationName = busText(posting.applicationName, nameLimit);
    call.applicationIcon = busText(sender.icon, nameLimit);
    call.summary = busText(posting.title, summaryLimit);
    call.body = busText(posting.text, bodyLimit, capabilities.bodyMarkup ? Markup::Escaped : Markup::None);
    // One that lists no actions may open a dialog in the way of everything for them.
    if (posting.clickable && capabilities.actions)
        call.actions = {QStringLiteral("default"), busText(posting.clickLabel, nameLimit)};
    call.hints.insert(QStringLiteral("urgency"), QVariant::fromValue(urgency(posting.priority)));
    if (!sender.desktopEntry.isEmpty())
        call.hints.insert(QStringLiteral("desktop-entry"), busText(sender.desktopEntry, nameLimit));
    if (!posting.icon.isNull())
        call.hints.insert(QStringLiteral("image-data"), QVariant::fromValue(NotifyImage::fromImage(posting.icon)));
    if (!posting.wantsSound)
        call.hints.insert(QStringLiteral("suppress-sound"), true);
    if (!posting.kind.category.isEmpty())
        call.hints.insert(QStringLiteral("category"), busText(posting.kind.category, nameLimit));
    if (posting.kind.isTransient)
        call.hints.insert(QStringLiteral("transient"), true);
    call.expireTimeout = posting.sticky ? neverExpires : expiresAsTheServiceLikes;
    return call;
}

} // namespace zepa::freedesktop
