// SPDX-License-Identifier: Apache-2.0
#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_rule.h"
#include "probe_method.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

using namespace Qt::StringLiterals;

// Methods from outside are compiled against these headers and see the members of what they derive from and are given.

namespace {

template <typename Object, typename Member>
std::ptrdiff_t offsetOf(const Object& object, const Member& member)
{
    return reinterpret_cast<const char*>(&member) - reinterpret_cast<const char*>(&object);
}

} // namespace

TEST(Notification, HasItsFourTextsAsMembersInTheirOrder)
{
    const ZepaNotification notification(u"a"_s, u"b"_s, u"c"_s, u"d"_s);
    constexpr std::ptrdiff_t size = sizeof(QString);
    EXPECT_EQ(offsetOf(notification, notification.getId()), 0);
    EXPECT_EQ(offsetOf(notification, notification.getName()), size);
    EXPECT_EQ(offsetOf(notification, notification.getExtra()), 2 * size);
    EXPECT_EQ(offsetOf(notification, notification.getDescription()), 3 * size);
    EXPECT_EQ(sizeof(ZepaNotification), 4 * sizeof(QString));
}

TEST(NotificationMethod, HasItsFieldsBeforeItsDefaults)
{
    const ProbeMethod method;
    const ZepaNotificationMethod& base = method;
    EXPECT_EQ(offsetOf(base, base.fields), static_cast<std::ptrdiff_t>(sizeof(void*)));
    EXPECT_EQ(sizeof(ZepaNotificationMethod),
              sizeof(void*) + sizeof(QList<ZepaField>) + sizeof(QHash<QString, QList<ZepaField>>));
}

TEST(NotificationRule, HasItsNotificationItsMethodAndItsSettingsAsMembersInTheirOrder)
{
    ZepaNotification notification(u"a"_s, QString(), QString(), QString());
    ProbeMethod method;
    const ZepaNotificationRule rule(&notification, &method, {});
    std::array<const void*, 2> pointers = {};
    std::memcpy(pointers.data(), static_cast<const void*>(&rule), sizeof pointers);
    EXPECT_EQ(pointers[0], &notification);
    EXPECT_EQ(pointers[1], static_cast<const ZepaNotificationMethod*>(&method));
    EXPECT_EQ(sizeof(ZepaNotificationRule), sizeof pointers + sizeof(QHash<QString, ZepaField>));
}

TEST(NotificationRule, HandsItsSettingsOverInTheOrderOfItsTable)
{
    ZepaNotification notification(u"a"_s, QString(), QString(), QString());
    ProbeMethod method;
    // A hash that is filled with the same keys in the same order is walked in the same order as the rule's.
    QHash<QString, ZepaField> table;
    QStringList declared;
    constexpr int count = 20;
    for (int i = 0; i < count; ++i) {
        const ZepaField field = ProbeMethod::box(u"field%1"_s.arg(i));
        method.fields.append(field);
        table.insert(field.getId(), field);
        declared.append(field.getId());
    }
    ZepaNotificationRule rule(&notification, &method, {});
    rule(0, QString(), QString(), QString(), QString(), ZepaPluginAction(), {});
    QStringList handedOver;
    for (const ZepaField& field : method.calls.first().config)
        handedOver.append(field.getId());
    EXPECT_EQ(handedOver, QStringList(table.keys()));
    EXPECT_NE(handedOver, declared);
}
