// SPDX-License-Identifier: Apache-2.0
#include "client/services/field_value.h"
#include "host/field.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

ZepaField limitField()
{
    return ZepaField::spinBox(QStringLiteral("Limit"), QStringLiteral("limit"), 300, 0, 5, QStringLiteral("why"),
                              QStringLiteral(" s"));
}

ZepaField alertsField()
{
    return ZepaField::comboBox(QStringLiteral("Alerts"), QStringLiteral("alerts"),
                               {QStringLiteral("never"), QStringLiteral("always")},
                               {QStringLiteral("Mute"), QStringLiteral("On")}, QStringLiteral("always"), {});
}

ZepaField stickyField(bool checked = false)
{
    return ZepaField::checkBox(QStringLiteral("Sticky"), QStringLiteral("sticky"), checked, QStringLiteral("stays"),
                               {});
}

ZepaField soundField()
{
    return ZepaField::soundEdit(QStringLiteral("sound"), QStringLiteral("sound_file"), QStringLiteral("bell.wav"),
                                QStringLiteral("heard"));
}

TEST(Field, WithoutTypeAnswersNothing)
{
    ZepaField none;
    EXPECT_EQ(none.getType(), 0);
    EXPECT_TRUE(none.getId().isNull());
    EXPECT_TRUE(none.getLabel().isNull());
    EXPECT_TRUE(none.getDescription().isNull());
    EXPECT_TRUE(none.getText().isNull());
    EXPECT_TRUE(none.getSelectedId().isNull());
    EXPECT_TRUE(none.getSuffix().isNull());
    EXPECT_TRUE(none.getItemIds().isEmpty());
    EXPECT_TRUE(none.getItemLabels().isEmpty());
    EXPECT_FALSE(none.isChecked());
    EXPECT_EQ(none.getIntValue(), 0);
    EXPECT_EQ(none.getUpperBound(), 0);
    EXPECT_EQ(none.getLowerBound(), 0);
    none.setText(QStringLiteral("x"));
    none.setChecked(true);
    none.setIntValue(3);
    none.setSelectedId(QStringLiteral("x"));
    EXPECT_EQ(none.getType(), 0);
    EXPECT_TRUE(none.getText().isNull());
}

TEST(Field, FromAFactoryNeverHasTypeZero)
{
    for (const ZepaField& field : {limitField(), alertsField(), stickyField(), soundField()})
        EXPECT_NE(field.getType(), 0);
}

TEST(SpinBox, ReadsItsIntegersAsUpperLowerInitial)
{
    const ZepaField field = limitField();
    EXPECT_EQ(field.getUpperBound(), 300);
    EXPECT_EQ(field.getLowerBound(), 0);
    EXPECT_EQ(field.getIntValue(), 5);
    EXPECT_EQ(field.getText(), QStringLiteral("5"));
    EXPECT_EQ(field.getLabel(), QStringLiteral("Limit"));
    EXPECT_EQ(field.getDescription(), QStringLiteral("why"));
    EXPECT_EQ(field.getSuffix(), QStringLiteral(" s"));
}

TEST(SpinBox, MovesNumbersBeyondTheBoundsToTheNearestOne)
{
    ZepaField field = limitField();
    field.setIntValue(301);
    EXPECT_EQ(field.getIntValue(), 300);
    field.setIntValue(std::numeric_limits<int>::min());
    EXPECT_EQ(field.getIntValue(), 0);
    EXPECT_EQ(ZepaField::spinBox({}, {}, 10, 1, 99, {}, {}).getIntValue(), 10);
}

TEST(SpinBox, HasARangeEvenWithBoundsInTheWrongOrder)
{
    const ZepaField field = ZepaField::spinBox({}, {}, 1, 10, 4, {}, {});
    EXPECT_EQ(field.getLowerBound(), 1);
    EXPECT_EQ(field.getUpperBound(), 10);
    EXPECT_EQ(field.getIntValue(), 4);
}

TEST(SpinBox, TakesTextOnlyWhenItIsANumber)
{
    ZepaField field = limitField();
    field.setText(QStringLiteral("17"));
    EXPECT_EQ(field.getIntValue(), 17);
    for (const QString& text :
         {QStringLiteral("many"), QString(), QStringLiteral("1.5"), QStringLiteral("99999999999")}) {
        field.setText(text);
        EXPECT_EQ(field.getIntValue(), 17) << text.toStdString();
    }
}

TEST(ComboBox, TakesOnlyItsItems)
{
    ZepaField field = alertsField();
    EXPECT_EQ(field.getSelectedId(), QStringLiteral("always"));
    field.setSelectedId(QStringLiteral("never"));
    EXPECT_EQ(field.getSelectedId(), QStringLiteral("never"));
    EXPECT_EQ(field.getText(), QStringLiteral("never"));
    field.setSelectedId(QStringLiteral("Mute"));
    field.setText(QStringLiteral("NEVER"));
    EXPECT_EQ(field.getSelectedId(), QStringLiteral("never"));
    EXPECT_EQ(field.getItemLabels().value(1), QStringLiteral("On"));
}

TEST(CheckBox, SpellsItsValueTrueOrFalse)
{
    ZepaField field = stickyField();
    EXPECT_EQ(field.getText(), QStringLiteral("false"));
    field.setText(QStringLiteral("true"));
    EXPECT_TRUE(field.isChecked());
    field.setText(QStringLiteral("TRUE?"));
    EXPECT_TRUE(field.isChecked());
    field.setChecked(false);
    EXPECT_FALSE(field.isChecked());
    EXPECT_TRUE(stickyField(true).isChecked());
}

TEST(SoundEdit, HasTheFileAsItsTextAndTheExplanationApart)
{
    ZepaField field = soundField();
    EXPECT_EQ(field.getText(), QStringLiteral("bell.wav"));
    EXPECT_EQ(field.getDescription(), QStringLiteral("heard"));
    field.setText(QStringLiteral("/x/ding.aiff"));
    EXPECT_EQ(field.getText(), QStringLiteral("/x/ding.aiff"));
    EXPECT_TRUE(field.getSelectedId().isNull());
}

TEST(TextEdit, TakesAnyText)
{
    ZepaField field = ZepaField::textEdit(QStringLiteral("command"), QStringLiteral("command"), QStringLiteral("beep"),
                                          QStringLiteral("runs"));
    EXPECT_EQ(field.getType(), ZepaField::TextEdit);
    EXPECT_EQ(field.getId(), QStringLiteral("command"));
    EXPECT_EQ(field.getLabel(), QStringLiteral("command"));
    EXPECT_EQ(field.getDescription(), QStringLiteral("runs"));
    EXPECT_EQ(field.getText(), QStringLiteral("beep"));
    for (const QString& text : {QString(), QStringLiteral("a \"b\" \n%1"), QStringLiteral("true")}) {
        EXPECT_TRUE(zepa::fieldAllows(field, text));
        field.setText(text);
        EXPECT_EQ(field.getText(), text);
    }
    EXPECT_TRUE(field.getSelectedId().isNull());
    EXPECT_EQ(zepa::allowedValues(field), QStringLiteral("any text"));
}

TEST(Field, SettersOfAnotherTypeChangeNothing)
{
    ZepaField sound = soundField();
    sound.setChecked(true);
    sound.setIntValue(9);
    sound.setSelectedId(QStringLiteral("always"));
    EXPECT_EQ(sound.getText(), QStringLiteral("bell.wav"));
    EXPECT_FALSE(sound.isChecked());
    EXPECT_EQ(sound.getIntValue(), 0);
}

TEST(Field, CopiesAreIndependent)
{
    const ZepaField original = stickyField();
    ZepaField copy = original;
    copy.setChecked(true);
    EXPECT_FALSE(original.isChecked());
    EXPECT_TRUE(copy.isChecked());
    ZepaField assigned;
    assigned = copy;
    copy.setChecked(false);
    EXPECT_TRUE(assigned.isChecked());
}

TEST(Field, StandsForNoFieldAfterItWasMovedFrom)
{
    ZepaField from = limitField();
    const ZepaField to = std::move(from);
    EXPECT_EQ(to.getIntValue(), 5);
    EXPECT_EQ(from.getType(), 0); // NOLINT(bugprone-use-after-move): that is what is tested
}

TEST(FieldValue, IsAllowedExactlyWithinTheBounds)
{
    using zepa::fieldAllows;
    for (const char16_t* text : {u"0", u"5", u"300"})
        EXPECT_TRUE(fieldAllows(limitField(), QString::fromUtf16(text)));
    for (const char16_t* text : {u"-1", u"301", u"", u"x", u"5x", u"5.0", u"4294967301"})
        EXPECT_FALSE(fieldAllows(limitField(), QString::fromUtf16(text)));
    EXPECT_TRUE(fieldAllows(alertsField(), QStringLiteral("never")));
    EXPECT_FALSE(fieldAllows(alertsField(), QStringLiteral("Mute")));
    EXPECT_FALSE(fieldAllows(alertsField(), QString()));
    EXPECT_TRUE(fieldAllows(stickyField(), QStringLiteral("true")));
    EXPECT_FALSE(fieldAllows(stickyField(), QStringLiteral("1")));
    EXPECT_TRUE(fieldAllows(soundField(), QString()));
    EXPECT_FALSE(fieldAllows(ZepaField(), QStringLiteral("x")));
}

TEST(FieldValue, SaysWhatIsAllowed)
{
    EXPECT_EQ(zepa::allowedValues(limitField()), QStringLiteral("a whole number from 0 to 300"));
    EXPECT_EQ(zepa::allowedValues(alertsField()), QStringLiteral("one of: never, always"));
    EXPECT_EQ(zepa::allowedValues(stickyField()), QStringLiteral("true or false"));
    EXPECT_EQ(zepa::allowedValues(ZepaField()), QStringLiteral("nothing"));
    EXPECT_TRUE(zepa::allowedValues(soundField()).contains(QStringLiteral("sound file")));
}

} // namespace
