// SPDX-License-Identifier: Apache-2.0
#include "core/notification.h"
#include "entries.h"
#include "methods/hint_notification_method.h"
#include "recording_growl.h"

using namespace Qt::StringLiterals;

namespace zepa::fuzz {

namespace {

void checkWithoutMarkers(const QString& sent, const QString& shown)
{
    const qsizetype first = sent.indexOf(u"image:"_s);
    const qsizetype last = sent.lastIndexOf(u":image"_s);
    if (first < 0 || last < first + 6)
        require(shown == sent, "a text without a marker stays");
    else
        require(shown == sent.first(first) + sent.sliced(last + 6), "what stands around a marker stays");
}

} // namespace

void postPopup(const QByteArray& input)
{
    // One for all inputs: each leaves an array behind, which would make the fuzzer look for leaks at every input.
    static ZepaHintNotificationMethod method;
    static ZepaNotification notification(u"id"_s, u"name"_s, QString(), QString());
    const QString title = asUtf16(input);
    const QString text = title.sliced(title.size() / 2);
    RecordingGrowl::reset();
    RecordingGrowl::running = true;
    method.postNotification(0, &notification, title, text, QString(), QString(), {}, ZepaPluginAction([] {}), {});
    require(RecordingGrowl::popups.size() == 1, "one pop-up is posted");
    checkWithoutMarkers(title, RecordingGrowl::popups.constFirst().title);
    checkWithoutMarkers(text, RecordingGrowl::popups.constFirst().description);
    RecordingGrowl::reset();
}

} // namespace zepa::fuzz
