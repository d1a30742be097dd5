// SPDX-License-Identifier: Apache-2.0
#include "service_fixture.h"

#include <zepa_platform/popups.h>

#include <QElapsedTimer>
#include <QFile>
#include <gmock/gmock.h>

#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 megabyte = 1024 * 1024;
constexpr int longPatience = 300000;
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

/// How many postings a flood has. The environment's ZEPA_TEST_FLOOD may say another number, such as 1000000: too long
/// for every day. What was measured is in the report that --gtest_output=json:FILE writes.
int flood()
{
    static const int count = qEnvironmentVariableIntValue("ZEPA_TEST_FLOOD");
    return count > 0 ? count : 20000;
}

/// What a process has in memory, in bytes.
qint64 residentBytes(qint64 process)
{
    QFile file(u"/proc/%1/statm"_s.arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

/// Postings to whom nobody listens: clickable ones and others, with long texts and without. What the test itself needs
/// for them is in memory from the start.
class BoundsTest : public ServiceTest
{
protected:
    BoundsTest()
    {
        m_contexts.reserve(m_answerCounts.size());
        for (std::size_t number = 0; number < m_answerCounts.size(); ++number)
            m_contexts.push_back(newString(QString::number(number)));
    }
    ~BoundsTest() override
    {
        for (const CFStringRef context : m_contexts)
            CFRelease(context);
    }

    /// A picture that differs from the others with other numbers.
    static QByteArray picture(int number)
    {
        return pictureFile({128, 128}, QColor(number % 256, number / 256 % 256, 7));
    }
    void postMany(bool hasIcons)
    {
        TestPosting posting;
        for (int number = 0; number < flood(); ++number) {
            posting.ownContext = number % 2 == 0 ? m_contexts.at(static_cast<std::size_t>(number) / 2) : nullptr;
            posting.text = number % 3 == 0 ? QString(9000, u'x') : u"Text"_s;
            if (hasIcons && number % 20 == 0)
                posting.icon = picture(number / 20);
            post(posting);
        }
    }
    /// Posts, and looks at what this process and the bus have in memory before, after it and in the end.
    void expectBoundsAndAnswers(bool hasIcons)
    {
        const qint64 before = residentBytes(getpid());
        const qint64 busBefore = residentBytes(busProcess());
        const auto expectBounds = [&](const std::string& when) {
            const qint64 growth = (residentBytes(getpid()) - before) / megabyte;
            const qint64 busGrowth = (residentBytes(busProcess()) - busBefore) / megabyte;
            RecordProperty("clientGrowthInMegabytes" + when, static_cast<int>(growth));
            RecordProperty("busGrowthInMegabytes" + when, static_cast<int>(busGrowth));
            EXPECT_LT(growth, 40);
            EXPECT_LT(busGrowth, 40);
        };
        RecordProperty("clientMegabytesBefore", static_cast<int>(before / megabyte));
        RecordProperty("busMegabytesBefore", static_cast<int>(busBefore / megabyte));
        postMany(hasIcons);
        expectBounds("AfterPosting");
        ASSERT_TRUE(areAllAnswered());
        EXPECT_EQ(std::count(m_answerCounts.begin(), m_answerCounts.end(), 1), std::ssize(m_answerCounts))
            << "each counts as timed out once";
        expectBounds("AtTheEnd");
    }
    /// A program that posts as many ends; `stop` is called when it has shown a pop-up.
    static void expectEnd(bool hasIcons, const std::function<void()>& stop)
    {
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(QString::fromUtf8(SHORT_PROGRAM),
                      {u"flood"_s, QString::number(flood()), hasIcons ? u"with-icons"_s : u"without-icons"_s});
        ASSERT_TRUE(waitFor([&] { return program.canReadLine(); }));
        EXPECT_EQ(program.readLine(), "ready\n");
        stop();
        program.write("go on\n");
        ASSERT_TRUE(waitFor([&] { return program.canReadLine(); }, longPatience));
        EXPECT_EQ(program.readLine(), "ending\n");
        QElapsedTimer clock;
        clock.start();
        EXPECT_TRUE(waitFor([&] { return program.state() == QProcess::NotRunning; }));
        RecordProperty("millisecondsToEnd", static_cast<int>(clock.elapsed()));
        program.kill();
        program.waitForFinished();
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
    }

private:
    bool areAllAnswered()
    {
        const auto isAnswered = [this] {
            for (const std::string& answer : std::exchange(answers(), {})) {
                const QString text = QString::fromStdString(answer);
                EXPECT_TRUE(text.startsWith(u"timed out "_s)) << answer;
                ++m_answerCounts.at(text.section(u' ', -1).toUInt());
                ++m_answered;
            }
            return zepaPopupsOnTheirWay() == 0 && m_answered >= m_answerCounts.size();
        };
        return waitFor(isAnswered, longPatience);
    }

    std::vector<CFStringRef> m_contexts;
    std::vector<unsigned char> m_answerCounts = std::vector<unsigned char>(static_cast<std::size_t>(flood()) / 2);
    std::size_t m_answered = 0;
};

class SmallBusTest : public ServiceTest
{};

class BoundsWithIconsTest : public BoundsTest, public testing::WithParamInterface<bool>
{};

std::string nameOf(const testing::TestParamInfo<bool>& tested)
{
    return tested.param ? "WithIcons" : "WithoutIcons";
}

} // namespace

TEST_P(BoundsWithIconsTest, HoldWhenTheServiceIsStopped)
{
    if (isSanitized)
        GTEST_SKIP() << "a sanitizer keeps memory that was given back";
    const auto service = startService();
    ASSERT_TRUE(waitUntilAcquainted(*service));
    service->stop();
    expectBoundsAndAnswers(GetParam());
}

TEST_P(BoundsWithIconsTest, HoldWhenTheBusIsStopped)
{
    if (isSanitized)
        GTEST_SKIP() << "a sanitizer keeps memory that was given back";
    const auto service = startService();
    ASSERT_TRUE(waitUntilAcquainted(*service));
    stopBus();
    expectBoundsAndAnswers(GetParam());
}

TEST_P(BoundsWithIconsTest, LetAProgramEndWhenTheServiceIsStopped)
{
    const auto service = startService();
    expectEnd(GetParam(), [&] { service->stop(); });
}

TEST_P(BoundsWithIconsTest, LetAProgramEndWhenTheBusIsStopped)
{
    const auto service = startService();
    expectEnd(GetParam(), [this] { stopBus(); });
}

INSTANTIATE_TEST_SUITE_P(All, BoundsWithIconsTest, testing::Bool(), nameOf);

TEST_F(BoundsTest, LetAProgramExitWithFiftyPostingsUnderWay)
{
    const auto service = startService({u"mute-notify"_s});
    for (int i = 0; i < 5; ++i) {
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedChannels);
        program.start(QString::fromUtf8(SHORT_PROGRAM), {u"exit"_s});
        ASSERT_TRUE(waitForPopups(*service, 50 * (i + 1)));
        program.closeWriteChannel();
        ASSERT_TRUE(waitFor([&] { return program.state() == QProcess::NotRunning; }));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
    }
}

TEST_F(BoundsTest, OfASmallBusLoseNoPopup)
{
    killBus();
    // What a bus has that says nothing of its limits, and less.
    setBusLimits("<limit name=\"max_replies_per_connection\">64</limit>"
                 "<limit name=\"max_message_size\">200000</limit>"
                 "<limit name=\"max_incoming_bytes\">200000</limit>"
                 "<limit name=\"max_outgoing_bytes\">2000000</limit>"
                 "<limit name=\"max_match_rules_per_connection\">32</limit>");
    startBus();
    const auto service = startService();
    ASSERT_TRUE(waitFor([] { return zepaPopupService() == ZepaPopupService::There; }));
    ASSERT_TRUE(waitUntilAcquainted(*service));
    // The calls pile up at the bus as far as they may.
    service->tell(u"sleep 1000"_s);
    ASSERT_TRUE(waitFor([&] { return service->wrote(u"asleep"_s); }));
    for (int number = 0; number < 401; ++number) {
        TestPosting posting;
        posting.title = QString::number(number);
        posting.context = "a";
        posting.icon = picture(number % 10);
        post(posting);
    }
    ASSERT_TRUE(waitUntilSettled());
    EXPECT_EQ(answers(), Answers{}) << "all are shown";
    ASSERT_TRUE(waitForPopups(*service, 402));
    for (int number = 0; number < 401; ++number)
        EXPECT_EQ(service->calls()[number + 1][u"summary"_s], QString::number(number));
}

TEST_F(SmallBusTest, LosesNoPopupThatItRefuses)
{
    killBus();
    setBusLimits("<limit name=\"max_replies_per_connection\">10</limit>");
    startBus({u"--max-objects"_s, u"40"_s});
    const auto service = startService();
    ASSERT_TRUE(waitFor([] { return zepaPopupService() == ZepaPopupService::There; }));
    ASSERT_TRUE(waitUntilAcquainted(*service));
    service->tell(u"sleep 1000"_s);
    ASSERT_TRUE(waitFor([&] { return service->wrote(u"asleep"_s); }));
    constexpr int count = 401;
    for (int number = 0; number < count; ++number) {
        TestPosting posting;
        posting.title = QString::number(number);
        posting.context = "a";
        post(posting);
    }
    ASSERT_TRUE(waitUntilSettled());
    EXPECT_EQ(answers(), Answers{}) << "all are shown";
    ASSERT_TRUE(waitForPopups(*service, count + 1));
    const QList<QJsonObject> calls = service->calls();
    QStringList titles;
    for (const QJsonObject& call : calls.sliced(1))
        titles.append(call[u"summary"_s].toString());
    titles.removeDuplicates();
    EXPECT_EQ(titles.size(), count) << "each is shown once";
    EXPECT_EQ(calls.size(), count + 1);
}

TEST_F(BoundsTest, OfAStuckServiceAreNotThoseOfTheNext)
{
    auto service = startService();
    ASSERT_TRUE(waitUntilAcquainted(*service));
    service->stop();
    for (int number = 0; number < 200; ++number)
        postClickable(std::to_string(number));
    ASSERT_TRUE(waitForAnswers(200));
    service->kill();
    service = startService({u"click-last"_s});
    ASSERT_TRUE(waitFor([] { return zepaPopupService() == ZepaPopupService::There; }));
    answers().clear();
    postClickable("a");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
}
