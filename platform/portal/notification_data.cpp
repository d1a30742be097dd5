// SPDX-License-Identifier: Apache-2.0
#include "notification_data.h"

#include "freedesktop/bus_text.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zepa::portal {

namespace {

constexpr qsizetype categoryLimit = 255;
/// The first that knows sounds, categories and hints about how a pop-up is shown. Older ones refuse what they do not
/// know.
constexpr std::uint32_t versionWithHints = 2;

const char* priorityName(int priority)
{
    if (priority < 0)
        return "low";
    return priority < 2 ? "normal" : "urgent";
}

/// The list "category" of the property SupportedOptions, whose variant is the next value.
void readCategories(bus::MessageReader& reader, QStringList& categories)
{
    if (!reader.enterVariant("a{sv}"))
        return;
    if (reader.enterArray("{sv}")) {
        for (QString key; reader.enterEntry("sv") && reader.read(key); reader.leave()) {
            if (key == u"category"_s && reader.enterVariant("as")) {
                reader.read(categories);
                reader.leave();
            }
        }
        reader.leave();
    }
    reader.leave();
}

} // namespace

PortalFeatures PortalFeatures::fromReply(const bus::Message& reply)
{
    PortalFeatures features;
    bus::MessageReader reader(reply);
    if (reply.isError() || !reader.enterArray("{sv}"))
        return features;
    for (QString key; reader.enterEntry("sv") && reader.read(key); reader.leave()) {
        if (key == u"version"_s && reader.enterVariant("u")) {
            reader.read(features.version);
            reader.leave();
        } else if (key == u"SupportedOptions"_s) {
            readCategories(reader, features.categories);
        }
    }
    return features;
}

NotificationData NotificationData::fromPosting(const growl::PopupPosting& posting, QByteArray icon)
{
    using freedesktop::busText;
    return {.title = busText(posting.title, freedesktop::summaryLimit),
            .body = busText(posting.text, freedesktop::bodyLimit),
            .icon = std::move(icon),
            .priority = priorityName(posting.priority),
            .isClickable = posting.clickable,
            .isSilent = !posting.wantsSound,
            .category = busText(posting.kind.category, categoryLimit),
            .isTransient = posting.kind.isTransient};
}

void NotificationData::appendTo(bus::Message& message, const PortalFeatures& features) const
{
    message.openArray("{sv}");
    message.appendEntry("title", title);
    // Plain text in every version; markup has an entry of its own.
    message.appendEntry("body", body);
    message.appendEntry("priority", priority);
    if (!icon.isEmpty()) {
        message.openEntry("sv").append("icon").openVariant("(sv)").openStruct("sv").append("bytes");
        message.openVariant("ay").append(icon).close().close().close().close();
    }
    if (isClickable)
        message.appendEntry("default-action", clickAction);
    if (features.version >= versionWithHints) {
        if (isSilent)
            message.appendEntry("sound", "silent");
        if (features.categories.contains(category))
            message.appendEntry("category", category);
        if (isTransient)
            message.appendEntry("display-hint", QStringList{u"transient"_s});
    }
    message.close();
}

} // namespace zepa::portal
