// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/speech/speech_text.h"

#include "kit/texts/image_markers.h"

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

QString withoutMarkers(const QString& text)
{
    QString words;
    const QList<MessagePart> parts = splitAtImageMarkers(text);
    for (const MessagePart& part : parts)
        words += part.isMarker() ? u" "_s : part.text;
    return words;
}

QString withoutControls(QString text)
{
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control)
            character = u' ';
    }
    return text;
}

/// Cuts behind the last whole word; a text that is one long word is cut within it, never within a character.
QString cutAtAWord(const QString& text)
{
    if (text.size() <= longestSpeech)
        return text;
    const qsizetype blank = text.lastIndexOf(u' ', longestSpeech);
    if (blank > 0)
        return text.first(blank);
    return text.first(text[longestSpeech - 1].isHighSurrogate() ? longestSpeech - 1 : longestSpeech);
}

} // namespace

QString speakable(const QString& text)
{
    QString words = withoutControls(withoutMarkers(text)).simplified();
    // Two brackets would begin a text in the speaker's own phonetic letters.
    while (words.contains(u"[["_s))
        words.replace(u"[["_s, u"[ ["_s);
    return cutAtAWord(words);
}

} // namespace zepa
