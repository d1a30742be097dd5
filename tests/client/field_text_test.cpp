// SPDX-License-Identifier: Apache-2.0
#include "client/cli/field_text.h"

#include <gtest/gtest.h>

namespace {

QList<ZepaField> fields()
{
    return {ZepaField::soundEdit({}, QStringLiteral("sound_file"), QStringLiteral("bell.wav"), {}),
            ZepaField::checkBox({}, QStringLiteral("sticky"), true, {}, {}),
            ZepaField::spinBox({}, QStringLiteral("limit"), 9, 1, 5, {}, {})};
}

TEST(FieldText, IsSortedByIdentifier)
{
    EXPECT_EQ(zepa::cli::assignments(fields()), QStringLiteral("limit=5 sound_file=bell.wav sticky=true"));
    EXPECT_EQ(zepa::cli::assignments({}), QStringLiteral("-"));
}

TEST(FieldText, HasJsonsOwnTypes)
{
    const QJsonObject values = zepa::cli::jsonValues(fields());
    EXPECT_EQ(values.value(QStringLiteral("sticky")), QJsonValue(true));
    EXPECT_EQ(values.value(QStringLiteral("limit")), QJsonValue(5));
    EXPECT_EQ(values.value(QStringLiteral("sound_file")), QJsonValue(QStringLiteral("bell.wav")));
}

TEST(FieldText, AssignsToTheOneFieldThatIsNamed)
{
    QList<ZepaField> list = fields();
    EXPECT_TRUE(zepa::cli::assign(list, QStringLiteral("limit=9")).isEmpty());
    EXPECT_TRUE(zepa::cli::assign(list, QStringLiteral("sound_file=a=b")).isEmpty());
    EXPECT_TRUE(zepa::cli::assign(list, QStringLiteral("sound_file=")).isEmpty());
    EXPECT_EQ(zepa::cli::assignments(list), QStringLiteral("limit=9 sound_file= sticky=true"));
}

TEST(FieldText, SaysWhatIsWrongAndChangesNothing)
{
    QList<ZepaField> list = fields();
    for (const QString& wrong : {QStringLiteral("limit"), QStringLiteral("=9"), QString(), QStringLiteral("limit=10"),
                                 QStringLiteral("Limit=5"), QStringLiteral("sticky=")})
        EXPECT_FALSE(zepa::cli::assign(list, wrong).isEmpty()) << wrong.toStdString();
    EXPECT_EQ(zepa::cli::assignments(list), zepa::cli::assignments(fields()));
}

} // namespace
