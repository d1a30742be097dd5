// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/speech/speech_text.h"

#include "qt_printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using zepa::longestSpeech;
using zepa::speakable;

TEST(SpeechText, LeavesOutPicturesAndControlCharacters)
{
    EXPECT_EQ(speakable(u"Look: image:/a/b.png:image here"_s), u"Look: here"_s);
    EXPECT_EQ(speakable(u" a\n\n b\x1b[2J\tc "_s), u"a b [2J c"_s);
    EXPECT_EQ(speakable(u"image:x:image"_s), QString());
    EXPECT_EQ(speakable({}), QString());
}

TEST(SpeechText, HoldsNoInstructionForTheSpeaker)
{
    for (const QString& text : {u"[[h@l'oU]]"_s, u"[[[[x"_s, u"[\x01[x"_s, u"[image:x:image["_s})
        EXPECT_FALSE(speakable(text).contains(u"[["_s)) << text.toStdString();
}

TEST(SpeechText, IsCutBehindAWord)
{
    const QString words = u"word "_s.repeated(200);
    EXPECT_EQ(speakable(words), u"word "_s.repeated(80).trimmed());
    EXPECT_EQ(speakable(QString(longestSpeech, u'x')).size(), longestSpeech);
    EXPECT_EQ(speakable(QString(longestSpeech + 9, u'x')).size(), longestSpeech);
    const QString faces = u'x' + u"\U0001f600"_s.repeated(300);
    EXPECT_EQ(speakable(faces).size(), longestSpeech - 1);
    EXPECT_TRUE(speakable(faces).back().isLowSurrogate());
}

} // namespace
