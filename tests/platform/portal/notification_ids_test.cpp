// SPDX-License-Identifier: Apache-2.0
#include "portal/notification_ids.h"

#include <gtest/gtest.h>

#include <limits>

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
         {QString(), QStringLiteral("1"), prefix, prefix + QStringLiteral("0"), prefix + QStringLiteral("01"),
          prefix + QStringLiteral("-1"), prefix + QStringLiteral("+1"), prefix + QStringLiteral("1x"), first + u' ',
          u' ' + first, prefix + QStringLiteral("18446744073709551617"), first.toUpper() + u'.'})
        EXPECT_EQ(ids.popupOf(id), 0U) << id.toStdString();
}
