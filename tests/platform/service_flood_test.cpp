// SPDX-License-Identifier: Apache-2.0
#include "service_fixture.h"

#include <QCoreApplication>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class FloodTest : public ServiceTest
{
protected:
    /// Posts so many and handles events now and then.
    static void postMany(int count, const TestPosting& posting)
    {
        constexpr int burst = 200;
        for (int number = 0; number < count; ++number) {
            post(posting);
            if (number % burst == burst - 1)
                QCoreApplication::processEvents();
        }
    }

    /// Posts now and then until one of these postings reaches the service, and returns who sent it.
    static QString senderOfANewPopup(ServiceProcess& service)
    {
        TestPosting posting;
        posting.title = u"new"_s;
        QTimer another;
        QObject::connect(&another, &QTimer::timeout, &another, [&] { post(posting); });
        another.start(500);
        qsizetype seen = 0;
        QString sender;
        waitFor([&] {
            const QList<QJsonObject>& lines = service.lines();
            for (; seen < lines.size() && sender.isEmpty(); ++seen) {
                if (lines[seen][u"summary"_s] == *posting.title)
                    sender = lines[seen][u"sender"_s].toString();
            }
            return !sender.isEmpty();
        });
        return sender;
    }
};

} // namespace

TEST_F(FloodTest, Of20000PostingsReachesAServiceThatIsAwake)
{
    const auto service = startService();
    ASSERT_TRUE(waitUntilAcquainted(*service));
    postMany(20000, {});
    const QString sender = service->calls().first()[u"sender"_s].toString();
    EXPECT_EQ(senderOfANewPopup(*service), sender) << "the connection was lost";
}

TEST_F(FloodTest, OfPicturesToAStuckServiceLeavesTheConnectionOpen)
{
    const auto service = startService();
    ASSERT_TRUE(waitUntilAcquainted(*service));
    const QString sender = service->calls().first()[u"sender"_s].toString();
    service->stop();
    TestPosting posting;
    posting.icon = pictureFile({128, 128});
    postMany(2000, posting);
    service->resume();
    EXPECT_EQ(senderOfANewPopup(*service), sender) << "the connection was lost";
}
