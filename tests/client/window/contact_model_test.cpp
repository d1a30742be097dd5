// SPDX-License-Identifier: Apache-2.0
#include "client/window/contact_model.h"
#include "core/type_ids.h"
#include "kit/journal/journal_entry.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

zepa::JournalEntry entryAbout(const QString& who, const QString& type, const QString& text = {})
{
    zepa::JournalEntry entry;
    entry.who = who;
    entry.type = type;
    entry.text = text;
    return entry;
}

TEST(ContactModel, FindsAContactByIdentifierAndNobodyElse)
{
    const zepa::ContactModel contacts;
    const zepa::Contact* found = contacts.find(u"Ben"_s);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->buddy.getName(), u"Ben"_s);
    EXPECT_EQ(contacts.find(u"Nobody"_s), nullptr);
    EXPECT_EQ(contacts.find({}), nullptr);
}

TEST(ContactModel, TakesThePresenceFromEvents)
{
    zepa::ContactModel contacts;
    const auto presence = [&contacts] { return contacts.find(u"Ben"_s)->presence; };
    EXPECT_EQ(presence(), zepa::Presence::Unavailable);
    contacts.follow(entryAbout(u"Ben"_s, ZepaTypeId::buddyConnected));
    EXPECT_EQ(presence(), zepa::Presence::Available);
    contacts.follow(entryAbout(u"Ben"_s, ZepaTypeId::buddyWentAway));
    EXPECT_EQ(presence(), zepa::Presence::Away);
    contacts.follow(entryAbout(u"Ben"_s, ZepaTypeId::messageReceived));
    EXPECT_EQ(presence(), zepa::Presence::Away);
    contacts.follow(entryAbout(u"Ann"_s, ZepaTypeId::buddyWentOffline));
    EXPECT_EQ(presence(), zepa::Presence::Away);
    contacts.follow(entryAbout(u"Ben"_s, ZepaTypeId::buddyWentOffline));
    EXPECT_EQ(presence(), zepa::Presence::Unavailable);
}

} // namespace
