// SPDX-License-Identifier: Apache-2.0
#include "service_fixture.h"

#include <QGuiApplication>
#include <QJsonArray>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using PostingTest = ServiceTest;

} // namespace

TEST_F(PostingTest, SendsWhatTheInterfaceAsksFor)
{
    const auto service = startService();
    QGuiApplication::setDesktopFileName(u"test-application"_s);
    TestPosting posting;
    posting.icon = pictureFile({384, 96});
    posting.priority = 2;
    posting.sticky = true;
    posting.context = "a";
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 1));
    const QJsonObject call = service->calls().first();
    EXPECT_EQ(call[u"signature"_s], u"susssasa{sv}i"_s);
    EXPECT_EQ(call[u"application"_s], u"Test application"_s);
    EXPECT_EQ(call[u"replaces"_s], 0);
    EXPECT_EQ(call[u"icon"_s], u"test-application"_s);
    EXPECT_EQ(call[u"summary"_s], u"Title"_s);
    EXPECT_EQ(call[u"body"_s], u"Text"_s);
    EXPECT_EQ(call[u"actions"_s], (QJsonArray{u"default"_s, u"Open"_s}));
    EXPECT_EQ(call[u"timeout"_s], 0);
    EXPECT_EQ(call[u"urgency"_s], 2);
    EXPECT_EQ(call[u"hints"_s], (QJsonObject{{u"urgency"_s, u"y"_s},
                                             {u"desktop-entry"_s, u"s"_s},
                                             {u"suppress-sound"_s, u"bool"_s},
                                             {u"image-data"_s, u"(iiibiiay)"_s}}));
    EXPECT_EQ(call[u"image"_s].toObject(), (QJsonObject{{u"width"_s, 128},
                                                        {u"height"_s, 32},
                                                        {u"row"_s, 4 * 128},
                                                        {u"alpha"_s, true},
                                                        {u"bits"_s, 8},
                                                        {u"channels"_s, 4},
                                                        {u"bytes"_s, 4 * 128 * 32}}));
}

TEST_F(PostingTest, SendsAPlainPopupWithoutActionsAndIcon)
{
    const auto service = startService();
    post({});
    ASSERT_TRUE(waitForPopups(*service, 1));
    const QJsonObject call = service->calls().first();
    EXPECT_EQ(call[u"actions"_s], QJsonArray());
    EXPECT_EQ(call[u"timeout"_s], -1);
    EXPECT_EQ(call[u"urgency"_s], 1);
    EXPECT_FALSE(call.contains(u"image"_s));
}

TEST_F(PostingTest, EscapesMarkupOnlyWhenTheServiceUnderstandsIt)
{
    TestPosting posting;
    posting.title = u"<t>"_s;
    posting.text = u"a < b & c"_s;
    for (const bool markup : {true, false}) {
        // Each owner is asked again: what the one before could do is forgotten.
        const auto service = startService(markup ? QStringList{u"markup"_s} : QStringList());
        post(posting);
        ASSERT_TRUE(waitForPopups(*service, 1));
        const QJsonObject call = service->calls().first();
        EXPECT_EQ(call[u"summary"_s], u"<t>"_s);
        EXPECT_EQ(call[u"body"_s], markup ? u"a &lt; b &amp; c"_s : u"a < b & c"_s);
        EXPECT_FALSE(service->calls(u"GetCapabilities"_s).isEmpty());
    }
}

TEST_F(PostingTest, DropsNamesThatAreNotRegistered)
{
    const auto service = startService();
    registerNames({u"Message"_s, u"Mail"_s}, QStringList{u"Mail"_s, u"Unknown"_s});
    TestPosting posting;
    posting.context = "dropped";
    for (const auto& name :
         {std::optional<QString>(u"Unknown"_s), std::optional<QString>(), std::optional<QString>(u"Message"_s)}) {
        posting.name = name;
        post(posting);
    }
    posting.name = u"Mail"_s;
    posting.context = "shown";
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(u"close 1"_s);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(service->calls().size(), 1);
    EXPECT_EQ(answers(), Answers{"timed out shown"});
}

TEST_F(PostingTest, ShowsWhatHasNoNameWhereTheEmptyNameIsRegistered)
{
    const auto service = startService({u"click-last"_s});
    registerNames({u""_s});
    TestPosting posting;
    posting.name = std::nullopt;
    posting.title = std::nullopt;
    posting.context = "a";
    post(posting);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_EQ(service->calls().first()[u"summary"_s], u""_s);
}

TEST_F(PostingTest, ShowsNothingWhenNoNameIsEnabled)
{
    const auto service = startService();
    registerNames({u"Message"_s}, QStringList());
    post({});
    registerNames({u"Mail"_s});
    post({});
    TestPosting mail;
    mail.name = u"Mail"_s;
    mail.title = u"shown"_s;
    post(mail);
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_EQ(service->calls().first()[u"summary"_s], u"shown"_s);
}

TEST_F(PostingTest, ShowsTheNameForANullTitleAndNothingForANullText)
{
    const auto service = startService();
    TestPosting posting;
    posting.title = std::nullopt;
    posting.text = std::nullopt;
    post(posting);
    posting.title = u""_s;
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 2));
    EXPECT_EQ(service->calls()[0][u"summary"_s], u"Message"_s);
    EXPECT_EQ(service->calls()[0][u"body"_s], u""_s);
    EXPECT_EQ(service->calls()[1][u"summary"_s], u""_s);
}

TEST_F(PostingTest, KeepsTheOrderWhileTheServiceHasNotSaidWhatItCanDo)
{
    const auto service = startService({u"markup"_s, u"late-capabilities"_s});
    for (int number = 0; number < 20; ++number) {
        TestPosting posting;
        posting.title = QString::number(number);
        posting.text = u"<"_s;
        post(posting);
        if (number == 10) {
            ASSERT_TRUE(waitForPopups(*service, 5));
        }
    }
    ASSERT_TRUE(waitForPopups(*service, 20));
    for (int number = 0; number < 20; ++number) {
        EXPECT_EQ(service->calls()[number][u"summary"_s], QString::number(number));
        EXPECT_EQ(service->calls()[number][u"body"_s], u"&lt;"_s);
    }
}

TEST_F(PostingTest, DoesNotWaitForEverForWhatTheServiceCanDo)
{
    const auto service = startService({u"mute-capabilities"_s});
    TestPosting posting;
    posting.text = u"<"_s;
    post(posting);
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 2));
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 3));
    EXPECT_EQ(service->calls()[2][u"body"_s], u"&lt;"_s);
}

TEST_F(PostingTest, LearnsLaterWhatAServiceDidNotSayAtFirst)
{
    const auto service = startService({u"mute-first-capabilities"_s});
    TestPosting posting;
    posting.text = u"<"_s;
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_EQ(service->calls()[0][u"body"_s].toString(), u"&lt;"_s);
    // Asked again beside one of the next.
    const auto askedAtFirst = service->calls(u"GetCapabilities"_s).size();
    int shown = 1;
    ASSERT_TRUE(waitFor([&] {
        post(posting);
        return waitForPopups(*service, ++shown) && service->calls().back()[u"body"_s] == u"<"_s;
    }));
    EXPECT_EQ(service->calls(u"GetCapabilities"_s).size(), askedAtFirst + 1) << "it is not asked any more";
}

TEST_F(PostingTest, EndsWhenTheServiceGivesUpItsNameInsteadOfSayingWhatItCanDo)
{
    const auto service = startService({u"mute-capabilities"_s});
    postClickable("a");
    ASSERT_TRUE(waitFor([&] { return !service->calls(u"GetCapabilities"_s).isEmpty(); }));
    service->tell(u"release"_s);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
    EXPECT_FALSE(Growl_IsRunning());
    EXPECT_TRUE(service->calls().isEmpty());
}

TEST_F(PostingTest, GoesToTheServiceThatReplacesOneThatHasNotSaidWhatItCanDo)
{
    const auto service = startService({u"mute-capabilities"_s});
    TestPosting posting;
    posting.text = u"<"_s;
    posting.context = "a";
    post(posting);
    ASSERT_TRUE(waitFor([&] { return !service->calls(u"GetCapabilities"_s).isEmpty(); }));
    const auto next = startService({u"replace"_s, u"click-last"_s});
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_EQ(next->calls().first()[u"body"_s], u"<"_s) << "what the next one can do counts";
    EXPECT_TRUE(service->calls().isEmpty());
}

TEST_F(PostingTest, ShowsPopupsThoughTheServiceSaysWhatItCanDoInTypesOfItsOwn)
{
    const auto service = startService({u"wrong-types"_s});
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"}) << "an id of another type is no id";
}

TEST_F(PostingTest, MakesEveryTextSomethingThatTheBusAccepts)
{
    const auto service = startService({u"markup"_s});
    const QString nul = u"a"_s + QChar(0) + u"b"_s;
    const QString control = u"a\x01\x1b[31mb"_s;
    const QString loneSurrogate = u"a"_s + QChar(0xd83d) + u"b"_s;
    const QString noncharacter = u"a"_s + QChar(0xfffe) + u"b"_s;
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
    const QString replaced = u"a\uFFFDb"_s;
    EXPECT_EQ(calls[0][u"summary"_s], replaced);
    EXPECT_EQ(calls[0][u"body"_s], replaced);
    EXPECT_EQ(calls[1][u"body"_s], u"a\uFFFD\uFFFD[31mb"_s);
    EXPECT_EQ(calls[2][u"body"_s], replaced);
    EXPECT_EQ(calls[3][u"body"_s], replaced);
    EXPECT_EQ(calls[4][u"summary"_s].toString().size(), 1000);
    EXPECT_TRUE(calls[4][u"summary"_s].toString().endsWith(u"<\u2026"_s));
    EXPECT_TRUE(calls[4][u"body"_s].toString().endsWith(u"&lt;\u2026"_s));
    for (const QJsonObject& call : calls)
        EXPECT_EQ(call[u"sender"_s], calls[0][u"sender"_s]) << "the connection was lost";
}

TEST_F(PostingTest, LosesNoneOf201PopupsInABurst)
{
    const auto service = startService({u"click-last"_s});
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
        EXPECT_EQ(service->calls()[number][u"summary"_s], QString::number(number));
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
    EXPECT_FALSE(service->calls().first().contains(u"image"_s));
}

TEST_F(PostingTest, ShowsTheApplicationsIconOnAPopupWithoutOne)
{
    const auto service = startService();
    applicationIcon() = pictureFile({20, 10});
    registerNames({u"Message"_s});
    TestPosting posting;
    post(posting);
    posting.icon = pictureFile({30, 40});
    post(posting);
    posting.icon = QByteArrayLiteral("broken");
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 3));
    const auto width = [&](int number) { return service->calls()[number][u"image"_s].toObject()[u"width"_s].toInt(); };
    EXPECT_EQ(width(0), 20);
    EXPECT_EQ(width(1), 30);
    EXPECT_EQ(width(2), 20);
}
