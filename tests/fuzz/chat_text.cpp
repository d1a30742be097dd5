// SPDX-License-Identifier: Apache-2.0
#include "entries.h"
#include "kit/texts/image_markers.h"
#include "kit/texts/message_text.h"
#include "kit/widgets/theme_pictures.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa::fuzz {

namespace {

bool isFitForAWindow(const QString& text)
{
    return text.isValidUtf16() && std::none_of(text.begin(), text.end(), [](QChar c) {
               return c < u' ' || (c >= u'\x7f' && c < u'\xa0') || c == QChar::ObjectReplacementCharacter;
           });
}

} // namespace

void showChatText(const QByteArray& input)
{
    const QString sent = asUtf16(input);
    const QString shown = messageText(sent);
    require(shown.size() <= longestMessage, "a message keeps to its limit");
    require(isFitForAWindow(shown), "a window can show the message");
    require(messageText(shown) == shown, "a message that is fit already stays");
    const QString name = nameText(sent);
    require(name.size() <= longestName && isFitForAWindow(name), "a window can show the name");
    require(!name.contains(QChar(QChar::LineSeparator)), "a name is one line");
    directionOf(shown, Qt::LeftToRight);

    QString together;
    for (const MessagePart& part : splitAtImageMarkers(shown)) {
        require(!part.text.isEmpty(), "no part is empty");
        together += part.text;
        // There is no such theme, so nothing may be shown but what is built into the program.
        const QString file = pictureFile(part.address, {u"/nonexistent/theme/"_s, QString()});
        require(file.isEmpty() || file.startsWith(u":/"_s), "no file is shown");
    }
    require(together == shown, "the parts together are the message");
}

} // namespace zepa::fuzz
