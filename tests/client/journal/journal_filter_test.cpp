// SPDX-License-Identifier: Apache-2.0
#include "journal_fixture.h"

#include "client/journal/journal_filter.h"

namespace {

class JournalFilterTest : public testing::Test, protected JournalClient
{
protected:
    JournalFilterTest()
    {
        post(m_received);
        post(m_received);
        post(QStringLiteral("email_notify"), QStringLiteral("New e-mail"));
        post(QStringLiteral("typing_started_notify"));
    }

    zepa::JournalFilter m_filter{m_client.journal()};
};

TEST_F(JournalFilterTest, ShowsEverythingAtFirst)
{
    EXPECT_EQ(m_filter.rowCount(), 4);
}

TEST_F(JournalFilterTest, FindsATextInAnyPartWhateverItsCase)
{
    m_filter.setText(QStringLiteral("NEW E-"));
    ASSERT_EQ(m_filter.rowCount(), 1);
    EXPECT_EQ(m_filter.entry(0).type, QStringLiteral("email_notify"));
    m_filter.setText(QStringLiteral(" dropped as a repeat "));
    ASSERT_EQ(m_filter.rowCount(), 1);
    EXPECT_EQ(m_filter.entry(0).number, 2);
    m_filter.setText(QStringLiteral("lunch"));
    EXPECT_EQ(m_filter.rowCount(), 4);
    m_filter.setText({});
    EXPECT_EQ(m_filter.rowCount(), 4);
}

TEST_F(JournalFilterTest, ShowsOneVerdict)
{
    m_filter.setVerdict(Verdict::NoRule);
    ASSERT_EQ(m_filter.rowCount(), 1);
    EXPECT_EQ(m_filter.entry(0).type, QStringLiteral("typing_started_notify"));
    m_filter.setVerdict(std::nullopt);
    EXPECT_EQ(m_filter.rowCount(), 4);
}

TEST_F(JournalFilterTest, TakesInWhatIsPostedLater)
{
    m_filter.setVerdict(Verdict::NoRule);
    post(QStringLiteral("typing_stoped_notify"));
    EXPECT_EQ(m_filter.rowCount(), 2);
}

} // namespace
