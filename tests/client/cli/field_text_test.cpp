// SPDX-License-Identifier: Apache-2.0
#include "client/cli/field_text.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QList<ZepaField> fields()
{
    return {ZepaField::soundEdit({}, u"sound_file"_s, u"bell.wav"_s, {}),
            ZepaField::checkBox({}, u"sticky"_s, true, {}, {}), ZepaField::spinBox({}, u"limit"_s, 9, 1, 5, {}, {})};
}

TEST(FieldText, IsSortedByIdentifier)
{
    EXPECT_EQ(zepa::cli::assignments(fields()), u"limit=5 sound_file=bell.wav sticky=true"_s);
    EXPECT_EQ(zepa::cli::assignments({}), u"-"_s);
}

TEST(FieldText, HasJsonsOwnTypes)
{
    const QJsonObject values = zepa::cli::jsonValues(fields());
    EXPECT_EQ(values.value(u"sticky"_s), QJsonValue(true));
    EXPECT_EQ(values.value(u"limit"_s), QJsonValue(5));
    EXPECT_EQ(values.value(u"sound_file"_s), QJsonValue(u"bell.wav"_s));
}

TEST(FieldText, AssignsToTheOneFieldThatIsNamed)
{
    QList<ZepaField> list = fields();
    EXPECT_TRUE(zepa::cli::assign(list, u"limit=9"_s).isEmpty());
    EXPECT_TRUE(zepa::cli::assign(list, u"sound_file=a=b"_s).isEmpty());
    EXPECT_TRUE(zepa::cli::assign(list, u"sound_file="_s).isEmpty());
    EXPECT_EQ(zepa::cli::assignments(list), u"limit=9 sound_file= sticky=true"_s);
}

TEST(FieldText, SaysWhatIsWrongAndChangesNothing)
{
    QList<ZepaField> list = fields();
    for (const QString& wrong : {u"limit"_s, u"=9"_s, QString(), u"limit=10"_s, u"Limit=5"_s, u"sticky="_s})
        EXPECT_FALSE(zepa::cli::assign(list, wrong).isEmpty()) << wrong.toStdString();
    EXPECT_EQ(zepa::cli::assignments(list), zepa::cli::assignments(fields()));
}

TEST(FieldText, SaysWhatIsAllowed)
{
    using zepa::cli::allowedValues;
    EXPECT_EQ(allowedValues(fields().at(2)), u"a whole number from 1 to 9"_s);
    EXPECT_EQ(allowedValues(ZepaField::comboBox({}, u"alerts"_s, {u"never"_s, u"always"_s}, {}, u"never"_s, {})),
              u"one of: never, always"_s);
    EXPECT_EQ(allowedValues(fields().at(1)), u"true or false"_s);
    EXPECT_EQ(allowedValues(ZepaField::textEdit({}, u"command"_s, {}, {})), u"any text"_s);
    EXPECT_EQ(allowedValues(ZepaField()), u"nothing"_s);
    EXPECT_TRUE(allowedValues(fields().at(0)).contains(u"sound file"_s));
}

} // namespace
