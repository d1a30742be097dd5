// SPDX-License-Identifier: Apache-2.0
#include "journal_fixture.h"

#include "kit/journal/journal_filter.h"

using namespace Qt::StringLiterals;

namespace {

class JournalFilterTest : public testing::Test, protected JournalClient
{
protected:
    JournalFilterTest()
    {
        post(m_received);
        post(m_received);
        post(u"email_notify"_s, u"New e-mail"_s);
        post(u"typing_started_notify"_s);
    }

    zepa::JournalFilter m_filter{m_client.journal()};
};

TEST_F(JournalFilterTest, ShowsEverythingAtFirst)
{
    EXPECT_EQ(m_filter.rowCount(), 4);
}

TEST_F(JournalFilterTest, FindsATextInAnyPartWhateverItsCase)
{
    m_filter.setText(u"NEW E-"_s);
    ASSERT_EQ(m_filter.rowCount(), 1);
    EXPECT_EQ(m_filter.entry(0).type, u"email_notify"_s);
    m_filter.setText(u" dropped as a repeat "_s);
    ASSERT_EQ(m_filter.rowCount(), 1);
    EXPECT_EQ(m_filter.entry(0).number, 2);
    m_filter.setText(u"lunch"_s);
    EXPECT_EQ(m_filter.rowCount(), 4);
    m_filter.setText({});
    EXPECT_EQ(m_filter.rowCount(), 4);
}

TEST_F(JournalFilterTest, ShowsOneVerdict)
{
    m_filter.setVerdict(Verdict::NoRule);
    ASSERT_EQ(m_filter.rowCount(), 1);
    EXPECT_EQ(m_filter.entry(0).type, u"typing_started_notify"_s);
    m_filter.setVerdict(std::nullopt);
    EXPECT_EQ(m_filter.rowCount(), 4);
}

TEST_F(JournalFilterTest, TakesInWhatIsPostedLater)
{
    m_filter.setVerdict(Verdict::NoRule);
    post(u"typing_stoped_notify"_s);
    EXPECT_EQ(m_filter.rowCount(), 2);
}

} // namespace
