// SPDX-License-Identifier: Apache-2.0
#include "service_fixture.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QJsonArray>
#include <gmock/gmock.h>

namespace {

using PostingTest = ServiceTest;

QByteArray png(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB888);
    image.fill(Qt::green);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

TEST_F(PostingTest, SendsWhatTheInterfaceAsksFor)
{
    const auto service = startService();
    QGuiApplication::setDesktopFileName(QStringLiteral("test-application"));
    TestPosting posting;
    posting.icon = png(384, 96);
    posting.priority = 2;
    posting.sticky = true;
    posting.context = "a";
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 1));
    const QJsonObject call = service->calls().first();
    EXPECT_EQ(call[QStringLiteral("signature")], QStringLiteral("susssasa{sv}i"));
    EXPECT_EQ(call[QStringLiteral("application")], QStringLiteral("Test application"));
    EXPECT_EQ(call[QStringLiteral("replaces")], 0);
    EXPECT_EQ(call[QStringLiteral("icon")], QStringLiteral("test-application"));
    EXPECT_EQ(call[QStringLiteral("summary")], QStringLiteral("Title"));
    EXPECT_EQ(call[QStringLiteral("body")], QStringLiteral("Text"));
    EXPECT_EQ(call[QStringLiteral("actions")], (QJsonArray{QStringLiteral("default"), QStringLiteral("Open")}));
    EXPECT_EQ(call[QStringLiteral("timeout")], 0);
    EXPECT_EQ(call[QStringLiteral("urgency")], 2);
    EXPECT_EQ(call[QStringLiteral("hints")],
              (QJsonObject{{QStringLiteral("urgency"), QStringLiteral("y")},
                           {QStringLiteral("desktop-entry"), QStringLiteral("s")},
                           {QStringLiteral("suppress-sound"), QStringLiteral("bool")},
                           {QStringLiteral("image-data"), QStringLiteral("(iiibiiay)")}}));
    EXPECT_EQ(call[QStringLiteral("image")].toObject(), (QJsonObject{{QStringLiteral("width"), 128},
                                                                     {QStringLiteral("height"), 32},
                                                                     {QStringLiteral("row"), 4 * 128},
                                                                     {QStringLiteral("alpha"), true},
                                                                     {QStringLiteral("bits"), 8},
                                                                     {QStringLiteral("channels"), 4},
                                                                     {QStringLiteral("bytes"), 4 * 128 * 32}}));
}

TEST_F(PostingTest, SendsAPlainPopupWithoutActionsAndIcon)
{
    const auto service = startService();
    post({});
    ASSERT_TRUE(waitForPopups(*service, 1));
    const QJsonObject call = service->calls().first();
    EXPECT_EQ(call[QStringLiteral("actions")], QJsonArray());
    EXPECT_EQ(call[QStringLiteral("timeout")], -1);
    EXPECT_EQ(call[QStringLiteral("urgency")], 1);
    EXPECT_FALSE(call.contains(QStringLiteral("image")));
}

TEST_F(PostingTest, EscapesMarkupOnlyWhenTheServiceUnderstandsIt)
{
    TestPosting posting;
    posting.title = QStringLiteral("<t>");
    posting.text = QStringLiteral("a < b & c");
    for (const bool markup : {true, false}) {
        // Each owner is asked again: what the one before could do is forgotten.
        const auto service = startService(markup ? QStringList{QStringLiteral("markup")} : QStringList());
        post(posting);
        ASSERT_TRUE(waitForPopups(*service, 1));
        const QJsonObject call = service->calls().first();
        EXPECT_EQ(call[QStringLiteral("summary")], QStringLiteral("<t>"));
        EXPECT_EQ(call[QStringLiteral("body")],
                  markup ? QStringLiteral("a &lt; b &amp; c") : QStringLiteral("a < b & c"));
        EXPECT_FALSE(service->calls(QStringLiteral("GetCapabilities")).isEmpty());
    }
}

TEST_F(PostingTest, DropsNamesThatAreNotRegistered)
{
    const auto service = startService();
    registerNames({QStringLiteral("Message"), QStringLiteral("Mail")},
                  QStringList{QStringLiteral("Mail"), QStringLiteral("Unknown")});
    TestPosting posting;
    posting.context = "dropped";
    for (const auto& name : {std::optional<QString>(QStringLiteral("Unknown")), std::optional<QString>(),
                             std::optional<QString>(QStringLiteral("Message"))}) {
        posting.name = name;
        post(posting);
    }
    posting.name = QStringLiteral("Mail");
    posting.context = "shown";
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(QStringLiteral("close 1"));
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(service->calls().size(), 1);
    EXPECT_EQ(answers(), Answers{"timed out shown"});
}

TEST_F(PostingTest, ShowsWhatHasNoNameWhereTheEmptyNameIsRegistered)
{
    const auto service = startService({QStringLiteral("click-last")});
    registerNames({QStringLiteral("")});
    TestPosting posting;
    posting.name = std::nullopt;
    posting.title = std::nullopt;
    posting.context = "a";
    post(posting);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_EQ(service->calls().first()[QStringLiteral("summary")], QStringLiteral(""));
}

TEST_F(PostingTest, ShowsNothingWhenNoNameIsEnabled)
{
    const auto service = startService();
    registerNames({QStringLiteral("Message")}, QStringList());
    post({});
    registerNames({QStringLiteral("Mail")});
    post({});
    TestPosting mail;
    mail.name = QStringLiteral("Mail");
    mail.title = QStringLiteral("shown");
    post(mail);
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_EQ(service->calls().first()[QStringLiteral("summary")], QStringLiteral("shown"));
}

TEST_F(PostingTest, ShowsTheNameForANullTitleAndNothingForANullText)
{
    const auto service = startService();
    TestPosting posting;
    posting.title = std::nullopt;
    posting.text = std::nullopt;
    post(posting);
    posting.title = QStringLiteral("");
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 2));
    EXPECT_EQ(service->calls()[0][QStringLiteral("summary")], QStringLiteral("Message"));
    EXPECT_EQ(service->calls()[0][QStringLiteral("body")], QStringLiteral(""));
    EXPECT_EQ(service->calls()[1][QStringLiteral("summary")], QStringLiteral(""));
}

TEST_F(PostingTest, KeepsTheOrderWhileTheServiceHasNotSaidWhatItCanDo)
{
    const auto service = startService({QStringLiteral("markup"), QStringLiteral("late-capabilities")});
    for (int number = 0; number < 20; ++number) {
        TestPosting posting;
        posting.title = QString::number(number);
        posting.text = QStringLiteral("<");
        post(posting);
        if (number == 10) {
            ASSERT_TRUE(waitForPopups(*service, 5));
        }
    }
    ASSERT_TRUE(waitForPopups(*service, 20));
    for (int number = 0; number < 20; ++number) {
        EXPECT_EQ(service->calls()[number][QStringLiteral("summary")], QString::number(number));
        EXPECT_EQ(service->calls()[number][QStringLiteral("body")], QStringLiteral("&lt;"));
    }
}

TEST_F(PostingTest, DoesNotWaitForEverForWhatTheServiceCanDo)
{
    const auto service = startService({QStringLiteral("mute-capabilities")});
    TestPosting posting;
    posting.text = QStringLiteral("<");
    post(posting);
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 2));
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 3));
    EXPECT_EQ(service->calls()[2][QStringLiteral("body")], QStringLiteral("&lt;"));
}

TEST_F(PostingTest, LearnsLaterWhatAServiceDidNotSayAtFirst)
{
    const auto service = startService({QStringLiteral("mute-first-capabilities")});
    TestPosting posting;
    posting.text = QStringLiteral("<");
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_EQ(service->calls()[0][QStringLiteral("body")].toString(), QStringLiteral("&lt;"));
    // Asked again beside one of the next.
    const auto askedAtFirst = service->calls(QStringLiteral("GetCapabilities")).size();
    int shown = 1;
    ASSERT_TRUE(waitFor([&] {
        post(posting);
        return waitForPopups(*service, ++shown) &&
               service->calls().back()[QStringLiteral("body")] == QStringLiteral("<");
    }));
    EXPECT_EQ(service->calls(QStringLiteral("GetCapabilities")).size(), askedAtFirst + 1) << "it is not asked any more";
}

TEST_F(PostingTest, EndsWhenTheServiceGivesUpItsNameInsteadOfSayingWhatItCanDo)
{
    const auto service = startService({QStringLiteral("mute-capabilities")});
    postClickable("a");
    ASSERT_TRUE(waitFor([&] { return !service->calls(QStringLiteral("GetCapabilities")).isEmpty(); }));
    service->tell(QStringLiteral("release"));
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
    EXPECT_FALSE(Growl_IsRunning());
    EXPECT_TRUE(service->calls().isEmpty());
}

TEST_F(PostingTest, GoesToTheServiceThatReplacesOneThatHasNotSaidWhatItCanDo)
{
    const auto service = startService({QStringLiteral("mute-capabilities")});
    TestPosting posting;
    posting.text = QStringLiteral("<");
    posting.context = "a";
    post(posting);
    ASSERT_TRUE(waitFor([&] { return !service->calls(QStringLiteral("GetCapabilities")).isEmpty(); }));
    const auto next = startService({QStringLiteral("replace"), QStringLiteral("click-last")});
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_EQ(next->calls().first()[QStringLiteral("body")], QStringLiteral("<")) << "what the next one can do counts";
    EXPECT_TRUE(service->calls().isEmpty());
}

TEST_F(PostingTest, ShowsPopupsThoughTheServiceSaysWhatItCanDoInTypesOfItsOwn)
{
    const auto service = startService({QStringLiteral("wrong-types")});
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"}) << "an id of another type is no id";
}

TEST_F(PostingTest, MakesEveryTextSomethingThatTheBusAccepts)
{
    const auto service = startService({QStringLiteral("markup")});
    const QString nul = QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    const QString control = QStringLiteral("a\x01\x1b[31mb");
    const QString loneSurrogate = QStringLiteral("a") + QChar(0xd83d) + QStringLiteral("b");
    const QString noncharacter = QStringLiteral("a") + QChar(0xfffe) + QStringLiteral("b");
    const QString tenMegabytes(10 * 1024 * 1024, u'<');
    const QStringList texts{nul, control, loneSurrogate, noncharacter, tenMegabytes};
    for (const QString& text : texts) {
        TestPosting posting;
        posting.title = text;
        posting.text = text;
        post(posting);
    }
    post({});
    ASSERT_TRUE(waitForPopups(*service, static_cast<int>(texts.size()) + 1));
    const QList<QJsonObject> calls = service->calls();
    const QString replaced = QStringLiteral("a\uFFFDb");
    EXPECT_EQ(calls[0][QStringLiteral("summary")], replaced);
    EXPECT_EQ(calls[0][QStringLiteral("body")], replaced);
    EXPECT_EQ(calls[1][QStringLiteral("body")], QStringLiteral("a\uFFFD\uFFFD[31mb"));
    EXPECT_EQ(calls[2][QStringLiteral("body")], replaced);
    EXPECT_EQ(calls[3][QStringLiteral("body")], replaced);
    EXPECT_EQ(calls[4][QStringLiteral("summary")].toString().size(), 1000);
    EXPECT_TRUE(calls[4][QStringLiteral("summary")].toString().endsWith(QStringLiteral("<\u2026")));
    EXPECT_TRUE(calls[4][QStringLiteral("body")].toString().endsWith(QStringLiteral("&lt;\u2026")));
    for (const QJsonObject& call : calls)
        EXPECT_EQ(call[QStringLiteral("sender")], calls[0][QStringLiteral("sender")]) << "the connection was lost";
}

TEST_F(PostingTest, LosesNoneOf201PopupsInABurst)
{
    const auto service = startService({QStringLiteral("click-last")});
    for (int number = 0; number < 201; ++number) {
        TestPosting posting;
        posting.title = QString::number(number);
        posting.context = std::to_string(number);
        post(posting);
    }
    ASSERT_TRUE(waitFor([] { return answers().size() >= 201; }));
    ASSERT_EQ(service->calls().size(), 201);
    std::vector<std::string> expected;
    for (int number = 0; number < 201; ++number) {
        EXPECT_EQ(service->calls()[number][QStringLiteral("summary")], QString::number(number));
        expected.push_back("clicked " + std::to_string(number));
    }
    EXPECT_THAT(answers(), testing::UnorderedElementsAreArray(expected));
}

TEST_F(PostingTest, ShowsAPopupWithoutAnIconWhenTheIconIsBroken)
{
    const auto service = startService();
    TestPosting posting;
    posting.icon = QByteArrayLiteral("\x89PNG broken");
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_FALSE(service->calls().first().contains(QStringLiteral("image")));
}

TEST_F(PostingTest, ShowsTheApplicationsIconOnAPopupWithoutOne)
{
    const auto service = startService();
    applicationIcon() = png(20, 10);
    registerNames({QStringLiteral("Message")});
    TestPosting posting;
    post(posting);
    posting.icon = png(30, 40);
    post(posting);
    posting.icon = QByteArrayLiteral("broken");
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 3));
    const auto width = [&](int number) {
        return service->calls()[number][QStringLiteral("image")].toObject()[QStringLiteral("width")].toInt();
    };
    EXPECT_EQ(width(0), 20);
    EXPECT_EQ(width(1), 30);
    EXPECT_EQ(width(2), 20);
}
