// SPDX-License-Identifier: Apache-2.0
#include "core/notification.h"
#include "entries.h"
#include "methods/hint_notification_method.h"
#include "recording_growl.h"

#include <memory>

namespace zepa::fuzz {

namespace {

void checkWithoutMarkers(const QString& sent, const QString& shown)
{
    const qsizetype first = sent.indexOf(QStringLiteral("image:"));
    const qsizetype last = sent.lastIndexOf(QStringLiteral(":image"));
    if (first < 0 || last < first + 6)
        require(shown == sent, "a text without a marker stays");
    else
        require(shown == sent.first(first) + sent.sliced(last + 6), "what stands around a marker stays");
}

} // namespace

void postPopup(const QByteArray& input)
{
    const QString text = asUtf16(input);
    RecordingGrowl::reset();
    RecordingGrowl::running = true;
    {
        ZepaHintNotificationMethod method;
        ZepaNotification notification(QStringLiteral("id"), QStringLiteral("name"), QString(), QString());
        method.postNotification(0, &notification, text, text.sliced(text.size() / 2), QString(), QString(), {},
                                ZepaPluginAction([] {}), {});
        require(RecordingGrowl::popups.size() == 1, "one pop-up is posted");
        checkWithoutMarkers(text, RecordingGrowl::popups.constFirst().title);
        checkWithoutMarkers(text.sliced(text.size() / 2), RecordingGrowl::popups.constFirst().description);
    }
    RecordingGrowl::reset();
}

} // namespace zepa::fuzz
