// SPDX-License-Identifier: Apache-2.0
#include "notify_call.h"

#include "bus_text.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QIcon>

#include <cstdint>

using namespace Qt::StringLiterals;

namespace zepa::freedesktop {

namespace {

constexpr qsizetype nameLimit = 255;
constexpr std::uint32_t replacesNone = 0;
constexpr std::int32_t neverExpires = 0;
constexpr std::int32_t expiresAsTheServiceLikes = -1;

/// Services ignore an urgency that is not a byte.
std::uint8_t urgency(int priority)
{
    if (priority < 0)
        return 0;
    return priority < 2 ? 1 : 2;
}

/// "image-data", (iiibiiay): 8 bits for each of red, green, blue and alpha. Posted pictures have the one format of Qt's
/// whose rows are never padded: services refuse padded rows.
void appendImage(bus::Message& hints, const QImage& image)
{
    constexpr std::int32_t bitsPerSample = 8;
    constexpr std::int32_t channels = 4;
    hints.openEntry("sv").append("image-data").openVariant("(iiibiiay)").openStruct("iiibiiay");
    hints.append(std::int32_t{image.width()}).append(std::int32_t{image.height()});
    hints.append(channels * image.width()).append(true).append(bitsPerSample).append(channels);
    hints.append(QByteArray::fromRawData(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
    hints.close().close().close();
}

void appendHints(bus::Message& call, const growl::PopupPosting& posting, const Sender& sender)
{
    call.openArray("{sv}").appendEntry("urgency", urgency(posting.priority));
    if (!sender.desktopEntry.isEmpty())
        call.appendEntry("desktop-entry", busText(sender.desktopEntry, nameLimit));
    if (!posting.icon.isNull())
        appendImage(call, posting.icon);
    if (!posting.wantsSound)
        call.appendEntry("suppress-sound", true);
    if (!posting.kind.category.isEmpty())
        call.appendEntry("category", busText(posting.kind.category, nameLimit));
    if (posting.kind.isTransient)
        call.appendEntry("transient", true);
    call.close();
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
    return {names.contains(u"body-markup"_s), names.contains(u"actions"_s)};
}

growl::PopupPosting cutToSize(growl::PopupPosting posting)
{
    const auto cut = [](QString& text, qsizetype limit) {
        if (text.size() > limit)
            text = busText(text, limit);
    };
    cut(posting.applicationName, nameLimit);
    cut(posting.title, summaryLimit);
    cut(posting.text, bodyLimit);
    cut(posting.clickLabel, nameLimit);
    cut(posting.kind.category, nameLimit);
    return posting;
}

void appendNotify(bus::Message& call, const growl::PopupPosting& posting, const Sender& sender,
                  const Capabilities& capabilities)
{
    call.append(busText(posting.applicationName, nameLimit)).append(replacesNone);
    call.append(busText(sender.icon, nameLimit)).append(busText(posting.title, summaryLimit));
    call.append(busText(posting.text, bodyLimit, capabilities.bodyMarkup ? Markup::Escaped : Markup::None));
    call.openArray("s");
    // One that lists no actions may open a dialog in the way of everything for them.
    if (posting.clickable && capabilities.actions)
        call.append("default").append(busText(posting.clickLabel, nameLimit));
    call.close();
    appendHints(call, posting, sender);
    call.append(posting.sticky ? neverExpires : expiresAsTheServiceLikes);
}

} // namespace zepa::freedesktop
