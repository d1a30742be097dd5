// SPDX-License-Identifier: Apache-2.0
#include "bus_text.h"
#include "notify_call.h"

#include <QImage>
#include <gtest/gtest.h>

using namespace zepa::freedesktop;

namespace {

NotifyCall callFor(const Posting& posting, bool markup = false)
{
    return notifyCall(posting, Capabilities{markup});
}

} // namespace

TEST(NotifyCall, HasTheArgumentsOfNotifyInTheirOrderAndTypes)
{
    Posting posting;
    posting.applicationName = QStringLiteral("App");
    posting.applicationIcon = QStringLiteral("app-icon");
    posting.title = QStringLiteral("Title");
    posting.text = QStringLiteral("Body");
    const QVariantList arguments = callFor(posting).arguments();
    ASSERT_EQ(arguments.size(), 8);
    EXPECT_EQ(arguments[0], QVariant(QStringLiteral("App")));
    EXPECT_EQ(arguments[1].metaType(), QMetaType::fromType<quint32>());
    EXPECT_EQ(arguments[1].toUInt(), 0U);
    EXPECT_EQ(arguments[2], QVariant(QStringLiteral("app-icon")));
    EXPECT_EQ(arguments[3], QVariant(QStringLiteral("Title")));
    EXPECT_EQ(arguments[4], QVariant(QStringLiteral("Body")));
    EXPECT_EQ(arguments[5].metaType(), QMetaType::fromType<QStringList>());
    EXPECT_EQ(arguments[6].metaType(), QMetaType::fromType<QVariantMap>());
    EXPECT_EQ(arguments[7].metaType(), QMetaType::fromType<int>());
}

TEST(NotifyCall, EscapesTheBodyOnlyForAServiceWithMarkupAndTheSummaryNever)
{
    Posting posting;
    posting.title = QStringLiteral("<t> & u");
    posting.text = QStringLiteral("a < b & c");
    EXPECT_EQ(callFor(posting, true).summary, QStringLiteral("<t> & u"));
    EXPECT_EQ(callFor(posting, true).body, QStringLiteral("a &lt; b &amp; c"));
    EXPECT_EQ(callFor(posting, false).body, QStringLiteral("a < b & c"));
}

TEST(NotifyCall, KnowsMarkupByItsName)
{
    EXPECT_TRUE(Capabilities::fromNames({QStringLiteral("actions"), QStringLiteral("body-markup")}).bodyMarkup);
    EXPECT_FALSE(Capabilities::fromNames({QStringLiteral("body"), QStringLiteral("body-hyperlinks")}).bodyMarkup);
}

TEST(NotifyCall, OffersTheDefaultActionOnlyWhenAClickMeansSomething)
{
    Posting posting;
    posting.clickLabel = QStringLiteral("Open");
    EXPECT_TRUE(callFor(posting).actions.isEmpty());
    posting.clickable = true;
    EXPECT_EQ(callFor(posting).actions, (QStringList{QStringLiteral("default"), QStringLiteral("Open")}));
}

TEST(NotifyCall, SendsTheUrgencyAsAByte)
{
    const auto urgency = [](int priority) {
        Posting posting;
        posting.priority = priority;
        const QVariant hint = callFor(posting).hints.value(QStringLiteral("urgency"));
        EXPECT_EQ(hint.metaType(), QMetaType::fromType<uchar>());
        return hint.value<uchar>();
    };
    EXPECT_EQ(urgency(-3), 0);
    EXPECT_EQ(urgency(-2), 0);
    EXPECT_EQ(urgency(-1), 0);
    EXPECT_EQ(urgency(0), 1);
    EXPECT_EQ(urgency(1), 1);
    EXPECT_EQ(urgency(2), 2);
    EXPECT_EQ(urgency(3), 2);
}

TEST(NotifyCall, NeverExpiresWhenStickyAndElseAsTheServiceLikes)
{
    Posting posting;
    EXPECT_EQ(callFor(posting).expireTimeout, -1);
    posting.sticky = true;
    EXPECT_EQ(callFor(posting).expireTimeout, 0);
}

TEST(NotifyCall, NamesTheDesktopEntryOnlyWhenThereIsOne)
{
    Posting posting;
    EXPECT_FALSE(callFor(posting).hints.contains(QStringLiteral("desktop-entry")));
    posting.desktopEntry = QStringLiteral("app");
    EXPECT_EQ(callFor(posting).hints.value(QStringLiteral("desktop-entry")), QVariant(QStringLiteral("app")));
}

TEST(NotifyCall, CarriesTheIconOnlyWhenThereIsOne)
{
    Posting posting;
    EXPECT_FALSE(callFor(posting).hints.contains(QStringLiteral("image-data")));
    posting.icon = NotifyImage{1, 1, QByteArray("\1\2\3\4")};
    EXPECT_EQ(callFor(posting).hints.value(QStringLiteral("image-data")).value<NotifyImage>(), posting.icon);
    EXPECT_TRUE(NotifyImage::fromImage(QImage()).isNull());
}

TEST(NotifyCall, LetsNoTextThroughThatABusRefuses)
{
    const QString bad = QString(QChar(0)) + QChar(0xd800) + QString(20000, u'x');
    Posting posting;
    posting.applicationName = posting.applicationIcon = posting.desktopEntry = posting.clickLabel = bad;
    posting.title = posting.text = bad;
    posting.clickable = true;
    const NotifyCall call = callFor(posting, true);
    EXPECT_EQ(call.summary.size(), summaryLimit);
    EXPECT_EQ(call.body.size(), bodyLimit);
    for (const QString& text : {call.applicationName, call.applicationIcon, call.summary, call.body, call.actions[1],
                                call.hints.value(QStringLiteral("desktop-entry")).toString()}) {
        EXPECT_TRUE(text.startsWith(QString(2, QChar(0xfffd)))) << text.left(4).toStdString();
        EXPECT_TRUE(text.endsWith(QChar(0x2026)));
    }
}
