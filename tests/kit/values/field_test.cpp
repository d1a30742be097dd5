// SPDX-License-Identifier: Apache-2.0
#include "host/field.h"
#include "kit/values/field_value.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

ZepaField limitField()
{
    return ZepaField::spinBox(u"Limit"_s, u"limit"_s, 300, 0, 5, u"why"_s, u" s"_s);
}

ZepaField alertsField()
{
    return ZepaField::comboBox(u"Alerts"_s, u"alerts"_s, {u"never"_s, u"always"_s}, {u"Mute"_s, u"On"_s}, u"always"_s,
                               {});
}

ZepaField stickyField(bool checked = false)
{
    return ZepaField::checkBox(u"Sticky"_s, u"sticky"_s, checked, u"stays"_s, {});
}

ZepaField soundField()
{
    return ZepaField::soundEdit(u"sound"_s, u"sound_file"_s, u"bell.wav"_s, u"heard"_s);
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
    none.setText(u"x"_s);
    none.setChecked(true);
    none.setIntValue(3);
    none.setSelectedId(u"x"_s);
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
    EXPECT_EQ(field.getText(), u"5"_s);
    EXPECT_EQ(field.getLabel(), u"Limit"_s);
    EXPECT_EQ(field.getDescription(), u"why"_s);
    EXPECT_EQ(field.getSuffix(), u" s"_s);
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
    field.setText(u"17"_s);
    EXPECT_EQ(field.getIntValue(), 17);
    for (const QString& text : {u"many"_s, QString(), u"1.5"_s, u"99999999999"_s}) {
        field.setText(text);
        EXPECT_EQ(field.getIntValue(), 17) << text.toStdString();
    }
}

TEST(ComboBox, TakesOnlyItsItems)
{
    ZepaField field = alertsField();
    EXPECT_EQ(field.getSelectedId(), u"always"_s);
    field.setSelectedId(u"never"_s);
    EXPECT_EQ(field.getSelectedId(), u"never"_s);
    EXPECT_EQ(field.getText(), u"never"_s);
    field.setSelectedId(u"Mute"_s);
    field.setText(u"NEVER"_s);
    EXPECT_EQ(field.getSelectedId(), u"never"_s);
    EXPECT_EQ(field.getItemLabels().value(1), u"On"_s);
}

TEST(CheckBox, SpellsItsValueTrueOrFalse)
{
    ZepaField field = stickyField();
    EXPECT_EQ(field.getText(), u"false"_s);
    field.setText(u"true"_s);
    EXPECT_TRUE(field.isChecked());
    field.setText(u"TRUE?"_s);
    EXPECT_TRUE(field.isChecked());
    field.setChecked(false);
    EXPECT_FALSE(field.isChecked());
    EXPECT_TRUE(stickyField(true).isChecked());
}

TEST(SoundEdit, HasTheFileAsItsTextAndTheExplanationApart)
{
    ZepaField field = soundField();
    EXPECT_EQ(field.getText(), u"bell.wav"_s);
    EXPECT_EQ(field.getDescription(), u"heard"_s);
    field.setText(u"/x/ding.aiff"_s);
    EXPECT_EQ(field.getText(), u"/x/ding.aiff"_s);
    EXPECT_TRUE(field.getSelectedId().isNull());
}

TEST(TextEdit, TakesAnyText)
{
    ZepaField field = ZepaField::textEdit(u"command"_s, u"command"_s, u"beep"_s, u"runs"_s);
    EXPECT_EQ(field.getType(), ZepaField::TextEdit);
    EXPECT_EQ(field.getId(), u"command"_s);
    EXPECT_EQ(field.getLabel(), u"command"_s);
    EXPECT_EQ(field.getDescription(), u"runs"_s);
    EXPECT_EQ(field.getText(), u"beep"_s);
    for (const QString& text : {QString(), u"a \"b\" \n%1"_s, u"true"_s}) {
        EXPECT_TRUE(zepa::fieldAllows(field, text));
        field.setText(text);
        EXPECT_EQ(field.getText(), text);
    }
    EXPECT_TRUE(field.getSelectedId().isNull());
}

TEST(Field, SettersOfAnotherTypeChangeNothing)
{
    ZepaField sound = soundField();
    sound.setChecked(true);
    sound.setIntValue(9);
    sound.setSelectedId(u"always"_s);
    EXPECT_EQ(sound.getText(), u"bell.wav"_s);
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
    for (const char16_t* text : {u"-1", u"301", u"x", u"5x", u"5.0", u"4294967301"})
        EXPECT_FALSE(fieldAllows(limitField(), QString::fromUtf16(text)));
    EXPECT_FALSE(fieldAllows(limitField(), QString()));
    EXPECT_TRUE(fieldAllows(alertsField(), u"never"_s));
    EXPECT_FALSE(fieldAllows(alertsField(), u"Mute"_s));
    EXPECT_FALSE(fieldAllows(alertsField(), QString()));
    EXPECT_TRUE(fieldAllows(stickyField(), u"true"_s));
    EXPECT_FALSE(fieldAllows(stickyField(), u"1"_s));
    EXPECT_TRUE(fieldAllows(soundField(), QString()));
    EXPECT_FALSE(fieldAllows(ZepaField(), u"x"_s));
}

} // namespace
