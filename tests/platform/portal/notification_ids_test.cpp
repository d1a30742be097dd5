// SPDX-License-Identifier: Apache-2.0
#include "portal/notification_ids.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

using zepa::portal::NotificationIds;

TEST(NotificationIds, AreReadBack)
{
    const NotificationIds ids;
    for (const quint64 popup : {quint64(1), quint64(1000), std::numeric_limits<quint64>::max()})
        EXPECT_EQ(ids.popupOf(ids.idOf(popup)), popup);
}

TEST(NotificationIds, OfAnotherRunAreNotOurs)
{
    const NotificationIds ids;
    const NotificationIds others;
    EXPECT_NE(ids.idOf(1), others.idOf(1));
    EXPECT_EQ(ids.popupOf(others.idOf(1)), 0U);
}

TEST(NotificationIds, ThatWereNeverMadeAreNobodys)
{
    const NotificationIds ids;
    const QString first = ids.idOf(1);
    const QString prefix = first.chopped(1);
    for (const QString& id :
         {QString(), u"1"_s, prefix, prefix + u"0"_s, prefix + u"01"_s, prefix + u"-1"_s, prefix + u"+1"_s,
          prefix + u"1x"_s, first + u' ', u' ' + first, prefix + u"18446744073709551617"_s, first.toUpper() + u'.'})
        EXPECT_EQ(ids.popupOf(id), 0U) << id.toStdString();
}
