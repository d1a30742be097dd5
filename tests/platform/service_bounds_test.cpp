// SPDX-License-Identifier: Apache-2.0
#include "service_fixture.h"

#include <zepa_platform/popups.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <gmock/gmock.h>

#include <unistd.h>

#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr int flood = 20000;
constexpr qint64 megabyte = 1024 * 1024;
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

/// What this process has in memory, in bytes.
qint64 residentBytes()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

/// A picture that differs from the others with other numbers.
QByteArray pictureFile(int number)
{
    QImage image(128, 128, QImage::Format_RGB32);
    image.fill(QColor(number % 256, number / 256 % 256, 7));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

/// Postings to whom nobody listens: clickable ones and others, with long texts and without.
class BoundsTest : public ServiceTest
{
protected:
    static void postMany(bool hasIcons)
    {
        TestPosting posting;
        for (int number = 0; number < flood; ++number) {
            posting.context = number % 2 == 0 ? std::to_string(number) : std::string();
            posting.text = number % 3 == 0 ? QString(9000, u'x') : u"Text"_s;
            if (hasIcons && number % 20 == 0)
                posting.icon = pictureFile(number / 20);
            post(posting);
        }
    }
    static bool areAllAnswered()
    {
        return waitFor([] { return zepaPopupsOnTheirWay() == 0 && answers().size() >= std::size_t(flood / 2); });
    }
    static void expectEachTimedOutOnce()
    {
        std::map<std::string, int> counts;
        for (const std::string& answer : answers())
            ++counts[answer];
        EXPECT_EQ(counts.size(), std::size_t(flood / 2));
        for (const auto& [answer, count] : counts) {
            EXPECT_EQ(answer.rfind("timed out ", 0), 0U) << answer;
            EXPECT_EQ(count, 1) << answer;
        }
    }
    static bool ends()
    {
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedChannels);
        program.start(QString::fromUtf8(SHORT_PROGRAM), {u"flood"_s});
        const bool isOver = waitFor([&] { return program.state() == QProcess::NotRunning; });
        program.kill();
        program.waitForFinished();
        return isOver && program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
    }
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
    const qint64 before = residentBytes();
    postMany(GetParam());
    EXPECT_LT((residentBytes() - before) / megabyte, 40);
    ASSERT_TRUE(areAllAnswered());
    expectEachTimedOutOnce();
    EXPECT_LT((residentBytes() - before) / megabyte, 40);
}

TEST_P(BoundsWithIconsTest, HoldWhenTheBusIsStopped)
{
    if (isSanitized)
        GTEST_SKIP() << "a sanitizer keeps memory that was given back";
    const auto service = startService();
    ASSERT_TRUE(waitUntilAcquainted(*service));
    stopBus();
    const qint64 before = residentBytes();
    postMany(GetParam());
    EXPECT_LT((residentBytes() - before) / megabyte, 40);
    ASSERT_TRUE(areAllAnswered());
    expectEachTimedOutOnce();
    EXPECT_LT((residentBytes() - before) / megabyte, 40);
}

INSTANTIATE_TEST_SUITE_P(All, BoundsWithIconsTest, testing::Bool(), nameOf);

TEST_F(BoundsTest, LetAProgramEndWhileTheServiceIsStopped)
{
    const auto service = startService();
    service->stop();
    EXPECT_TRUE(ends());
}

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
        posting.icon = pictureFile(number % 10);
        post(posting);
    }
    ASSERT_TRUE(waitFor([] { return zepaPopupsOnTheirWay() == 0; }));
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
    ASSERT_TRUE(waitFor([] { return zepaPopupsOnTheirWay() == 0; }));
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
    ASSERT_TRUE(waitFor([] { return answers().size() == 200; }));
    service->kill();
    service = startService({u"click-last"_s});
    ASSERT_TRUE(waitFor([] { return zepaPopupService() == ZepaPopupService::There; }));
    answers().clear();
    postClickable("a");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
}
