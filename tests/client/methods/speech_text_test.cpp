// SPDX-License-Identifier: Apache-2.0
#include "client/methods/speech/speech_text.h"

#include "qt_printers.h"

#include <gtest/gtest.h>

namespace {

using zepa::longestSpeech;
using zepa::speakable;

TEST(SpeechText, LeavesOutPicturesAndControlCharacters)
{
    EXPECT_EQ(speakable(QStringLiteral("Look: image:/a/b.png:image here")), QStringLiteral("Look: here"));
    EXPECT_EQ(speakable(QStringLiteral(" a\n\n b\x1b[2J\tc ")), QStringLiteral("a b [2J c"));
    EXPECT_EQ(speakable(QStringLiteral("image:x:image")), QString());
    EXPECT_EQ(speakable({}), QString());
}

TEST(SpeechText, HoldsNoInstructionForTheSpeaker)
{
    for (const QString& text : {QStringLiteral("[[h@l'oU]]"), QStringLiteral("[[[[x"), QStringLiteral("[\x01[x"),
                                QStringLiteral("[image:x:image[")})
        EXPECT_FALSE(speakable(text).contains(QStringLiteral("[["))) << text.toStdString();
}

TEST(SpeechText, IsCutBehindAWord)
{
    const QString words = QStringLiteral("word ").repeated(200);
    EXPECT_EQ(speakable(words), QStringLiteral("word ").repeated(80).trimmed());
    EXPECT_EQ(speakable(QString(longestSpeech, u'x')).size(), longestSpeech);
    EXPECT_EQ(speakable(QString(longestSpeech + 9, u'x')).size(), longestSpeech);
    const QString faces = u'x' + QStringLiteral("\U0001f600").repeated(300);
    EXPECT_EQ(speakable(faces).size(), longestSpeech - 1);
    EXPECT_TRUE(speakable(faces).back().isLowSurrogate());
}

} // namespace
