// SPDX-License-Identifier: Apache-2.0
#include "freedesktop/bus_text.h"
#include "freedesktop/notify_call.h"
#include "freedesktop/notify_image.h"

#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <gtest/gtest.h>

using namespace zepa::freedesktop;
using Posting = zepa::growl::PopupPosting;

namespace {

NotifyCall callFor(const Posting& posting, bool markup = false)
{
    return notifyCall(posting, {}, {.bodyMarkup = markup, .actions = true});
}

} // namespace

TEST(NotifyCall, HasTheArgumentsOfNotifyInTheirOrderAndTypes)
{
    Posting posting;
    posting.applicationName = QStringLiteral("App");
    posting.title = QStringLiteral("Title");
    posting.text = QStringLiteral("Body");
    const QVariantList arguments =
        notifyCall(posting, {.icon = QStringLiteral("app-icon"), .desktopEntry = {}}, {}).arguments();
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
    EXPECT_FALSE(callFor({}).hints.contains(QStringLiteral("desktop-entry")));
    const Sender sender{.icon = {}, .desktopEntry = QStringLiteral("app")};
    EXPECT_EQ(notifyCall({}, sender, {}).hints.value(QStringLiteral("desktop-entry")), QVariant(QStringLiteral("app")));
}

TEST(NotifyCall, CarriesTheIconOnlyWhenThereIsOne)
{
    Posting posting;
    EXPECT_FALSE(callFor(posting).hints.contains(QStringLiteral("image-data")));
    posting.icon = QImage(1, 1, QImage::Format_RGBA8888);
    posting.icon.fill(Qt::green);
    const auto hint = callFor(posting).hints.value(QStringLiteral("image-data")).value<NotifyImage>();
    EXPECT_EQ(hint.image.cacheKey(), posting.icon.cacheKey()) << "the pixels were copied";
    EXPECT_TRUE(NotifyImage::fromImage(QImage()).isNull());
}

TEST(NotifyCall, OffersNoActionToAServiceThatListsNone)
{
    Posting posting;
    posting.clickable = true;
    EXPECT_TRUE(notifyCall(posting, {}, {.bodyMarkup = true, .actions = false}).actions.isEmpty());
    EXPECT_TRUE(Capabilities::fromNames({QStringLiteral("actions")}).actions);
    EXPECT_FALSE(Capabilities::fromNames({QStringLiteral("action-icons")}).actions);
}

TEST(NotifyCall, AsksForSilenceUnlessTheSoundIsWanted)
{
    Posting posting;
    EXPECT_EQ(callFor(posting).hints.value(QStringLiteral("suppress-sound")), QVariant(true));
    posting.wantsSound = true;
    EXPECT_FALSE(callFor(posting).hints.contains(QStringLiteral("suppress-sound")));
}

TEST(NotifyCall, SaysTheKindOnlyWhereThereIsOne)
{
    Posting posting;
    EXPECT_FALSE(callFor(posting).hints.contains(QStringLiteral("category")));
    EXPECT_FALSE(callFor(posting).hints.contains(QStringLiteral("transient")));
    posting.kind = {QStringLiteral("presence.online"), true};
    EXPECT_EQ(callFor(posting).hints.value(QStringLiteral("category")), QVariant(QStringLiteral("presence.online")));
    EXPECT_EQ(callFor(posting).hints.value(QStringLiteral("transient")), QVariant(true));
}

TEST(NotifyCall, ComesFromAProgramWithTheIconOfItsWindowsOrElseOfItsDesktopEntry)
{
    QGuiApplication::setDesktopFileName(QStringLiteral("app"));
    EXPECT_EQ(Sender::ofThisProgram().icon, QStringLiteral("app"));
    EXPECT_EQ(Sender::ofThisProgram().desktopEntry, QStringLiteral("app"));
    QPixmap pixmap(1, 1);
    QGuiApplication::setWindowIcon(QIcon(pixmap));
    EXPECT_EQ(Sender::ofThisProgram().icon, QStringLiteral("app")) << "a picture without a name";
}

TEST(NotifyCall, LetsNoTextThroughThatABusRefuses)
{
    const QString bad = QString(QChar(0)) + QChar(0xd800) + QString(20000, u'x');
    Posting posting;
    posting.applicationName = posting.clickLabel = posting.kind.category = bad;
    posting.title = posting.text = bad;
    posting.clickable = true;
    const NotifyCall call = notifyCall(posting, {bad, bad}, {.bodyMarkup = true, .actions = true});
    EXPECT_EQ(call.summary.size(), summaryLimit);
    EXPECT_EQ(call.body.size(), bodyLimit);
    for (const QString& text : {call.applicationName, call.applicationIcon, call.summary, call.body, call.actions[1],
                                call.hints.value(QStringLiteral("desktop-entry")).toString(),
                                call.hints.value(QStringLiteral("category")).toString()}) {
        EXPECT_TRUE(text.startsWith(QString(2, QChar(0xfffd)))) << text.left(4).toStdString();
        EXPECT_TRUE(text.endsWith(QChar(0x2026)));
    }
}
