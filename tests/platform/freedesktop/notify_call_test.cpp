// SPDX-License-Identifier: Apache-2.0
#include "freedesktop/bus_text.h"
#include "freedesktop/notify_call.h"

#include "connection_fixture.h"
#include "scripted_bus.h"

#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QMap>
#include <QPixmap>

#include <cstdint>

using namespace Qt::StringLiterals;

using namespace zepa::freedesktop;
using Posting = zepa::growl::PopupPosting;

namespace {

using zepa::bus::MessageReader;

/// The arguments as a service reads them.
struct Notify
{
    QString applicationName;
    std::uint32_t replacesId = 1;
    QString applicationIcon;
    QString summary;
    QString body;
    QStringList actions;
    QMap<QString, QString> texts; ///< hints, by their types
    QMap<QString, std::uint8_t> bytes;
    QMap<QString, bool> flags;
    QMap<QString, QByteArray> pictures; ///< the pixels
    std::int32_t expireTimeout = 7;

    bool hasHint(const QString& key) const
    {
        return texts.contains(key) || bytes.contains(key) || flags.contains(key) || pictures.contains(key);
    }
};

class NotifyCall : public ConnectionTest
{
protected:
    NotifyCall() : bus(socketPath())
    {
        EXPECT_TRUE(opens());
        bus.answer("Notify", [](sd_bus_message* call) {
            sd_bus_message* reply = nullptr;
            sd_bus_message_new_method_return(call, &reply);
            sd_bus_message_set_sender(reply, ":1.5");
            sd_bus_message_copy(reply, call, 1);
            sd_bus_send(sd_bus_message_get_bus(call), reply, nullptr);
            sd_bus_message_unref(reply);
        });
    }

    Notify sent(const Posting& posting, const Sender& sender = {}, const Capabilities& capabilities = all)
    {
        Message call = connection.newCall(":1.5", "/a", "a.b", "Notify");
        appendNotify(call, posting, sender, capabilities);
        EXPECT_TRUE(call.isSound());
        Message back;
        connection.call(std::move(call), &connection, [&](const Message& reply) { back = reply; });
        EXPECT_TRUE(runUntil([&] { return !back.isNull(); }));
        EXPECT_EQ(back.signature(), QLatin1StringView("susssasa{sv}i"));
        return read(back);
    }

    static constexpr Capabilities all{.bodyMarkup = true, .actions = true};

private:
    static void readHint(MessageReader& reader, const QString& key, Notify& notify)
    {
        std::int32_t width = 0;
        std::int32_t height = 0;
        std::int32_t rowBytes = 0;
        std::int32_t bits = 0;
        std::int32_t channels = 0;
        bool hasAlpha = false;
        if (reader.enterVariant("s")) {
            EXPECT_TRUE(reader.read(notify.texts[key]));
        } else if (reader.enterVariant("y")) {
            EXPECT_TRUE(reader.read(notify.bytes[key]));
        } else if (reader.enterVariant("b")) {
            EXPECT_TRUE(reader.read(notify.flags[key]));
        } else if (reader.enterVariant("(iiibiiay)") && reader.enterStruct("iiibiiay")) {
            EXPECT_TRUE(reader.read(width, height, rowBytes, hasAlpha, bits, channels, notify.pictures[key]));
            EXPECT_EQ(rowBytes, 4 * width);
            EXPECT_EQ(notify.pictures[key].size(), rowBytes * height);
            EXPECT_TRUE(hasAlpha && bits == 8 && channels == 4);
            reader.leave();
        } else {
            ADD_FAILURE() << "a hint of another type: " << key.toStdString();
        }
        reader.leave();
    }

    static Notify read(const Message& message)
    {
        Notify notify;
        MessageReader reader(message);
        EXPECT_TRUE(reader.read(notify.applicationName, notify.replacesId, notify.applicationIcon, notify.summary,
                                notify.body, notify.actions));
        EXPECT_TRUE(reader.enterArray("{sv}"));
        for (QString key; reader.enterEntry("sv") && reader.read(key); reader.leave())
            readHint(reader, key, notify);
        reader.leave();
        EXPECT_TRUE(reader.read(notify.expireTimeout));
        return notify;
    }

    ScriptedBus bus;
};

} // namespace

TEST_F(NotifyCall, HasTheArgumentsOfNotify)
{
    Posting posting;
    posting.applicationName = u"App"_s;
    posting.title = u"Title"_s;
    posting.text = u"Body"_s;
    const Notify notify = sent(posting, {.icon = u"app-icon"_s, .desktopEntry = {}});
    EXPECT_EQ(notify.applicationName, u"App"_s);
    EXPECT_EQ(notify.replacesId, 0U);
    EXPECT_EQ(notify.applicationIcon, u"app-icon"_s);
    EXPECT_EQ(notify.summary, u"Title"_s);
    EXPECT_EQ(notify.body, u"Body"_s);
}

TEST_F(NotifyCall, EscapesTheBodyOnlyForAServiceWithMarkupAndTheSummaryNever)
{
    Posting posting;
    posting.title = u"<t> & u"_s;
    posting.text = u"a < b & c"_s;
    EXPECT_EQ(sent(posting).summary, u"<t> & u"_s);
    EXPECT_EQ(sent(posting).body, u"a &lt; b &amp; c"_s);
    EXPECT_EQ(sent(posting, {}, {.bodyMarkup = false, .actions = true}).body, u"a < b & c"_s);
}

TEST(Capabilities, AreKnownByTheirNames)
{
    EXPECT_TRUE(Capabilities::fromNames({u"actions"_s, u"body-markup"_s}).bodyMarkup);
    EXPECT_FALSE(Capabilities::fromNames({u"body"_s, u"body-hyperlinks"_s}).bodyMarkup);
    EXPECT_TRUE(Capabilities::fromNames({u"actions"_s}).actions);
    EXPECT_FALSE(Capabilities::fromNames({u"action-icons"_s}).actions);
}

TEST_F(NotifyCall, OffersTheDefaultActionOnlyWhenAClickMeansSomethingToAServiceThatListsActions)
{
    Posting posting;
    posting.clickLabel = u"Open"_s;
    EXPECT_TRUE(sent(posting).actions.isEmpty());
    posting.clickable = true;
    EXPECT_EQ(sent(posting).actions, (QStringList{u"default"_s, u"Open"_s}));
    EXPECT_TRUE(sent(posting, {}, {.bodyMarkup = true, .actions = false}).actions.isEmpty());
}

TEST_F(NotifyCall, SendsTheUrgencyAsAByte)
{
    const auto urgency = [this](int priority) {
        Posting posting;
        posting.priority = priority;
        return sent(posting).bytes.value(u"urgency"_s, 99);
    };
    EXPECT_EQ(urgency(-3), 0);
    EXPECT_EQ(urgency(-2), 0);
    EXPECT_EQ(urgency(-1), 0);
    EXPECT_EQ(urgency(0), 1);
    EXPECT_EQ(urgency(1), 1);
    EXPECT_EQ(urgency(2), 2);
    EXPECT_EQ(urgency(3), 2);
}

TEST_F(NotifyCall, NeverExpiresWhenStickyAndElseAsTheServiceLikes)
{
    Posting posting;
    EXPECT_EQ(sent(posting).expireTimeout, -1);
    posting.sticky = true;
    EXPECT_EQ(sent(posting).expireTimeout, 0);
}

TEST_F(NotifyCall, NamesTheDesktopEntryOnlyWhenThereIsOne)
{
    EXPECT_FALSE(sent({}).hasHint(u"desktop-entry"_s));
    const Sender sender{.icon = {}, .desktopEntry = u"app"_s};
    EXPECT_EQ(sent({}, sender).texts.value(u"desktop-entry"_s), u"app"_s);
}

TEST_F(NotifyCall, CarriesTheIconOnlyWhenThereIsOne)
{
    Posting posting;
    EXPECT_FALSE(sent(posting).hasHint(u"image-data"_s));
    posting.icon = QImage(3, 2, QImage::Format_RGBA8888);
    posting.icon.fill(QColor(1, 2, 3, 4));
    EXPECT_EQ(sent(posting).pictures.value(u"image-data"_s), QByteArray("\1\2\3\4").repeated(6));
}

TEST_F(NotifyCall, AsksForSilenceUnlessTheSoundIsWanted)
{
    Posting posting;
    EXPECT_TRUE(sent(posting).flags.value(u"suppress-sound"_s));
    posting.wantsSound = true;
    EXPECT_FALSE(sent(posting).hasHint(u"suppress-sound"_s));
}

TEST_F(NotifyCall, SaysTheKindOnlyWhereThereIsOne)
{
    Posting posting;
    EXPECT_FALSE(sent(posting).hasHint(u"category"_s));
    EXPECT_FALSE(sent(posting).hasHint(u"transient"_s));
    posting.kind = {u"presence.online"_s, true};
    EXPECT_EQ(sent(posting).texts.value(u"category"_s), u"presence.online"_s);
    EXPECT_TRUE(sent(posting).flags.value(u"transient"_s));
}

TEST(Sender, HasTheIconOfTheProgramsWindowsOrElseOfItsDesktopEntry)
{
    QGuiApplication::setDesktopFileName(u"app"_s);
    EXPECT_EQ(Sender::ofThisProgram().icon, u"app"_s);
    EXPECT_EQ(Sender::ofThisProgram().desktopEntry, u"app"_s);
    QPixmap pixmap(1, 1);
    QGuiApplication::setWindowIcon(QIcon(pixmap));
    EXPECT_EQ(Sender::ofThisProgram().icon, u"app"_s) << "a picture without a name";
}

TEST_F(NotifyCall, LetsNoTextThroughThatABusRefuses)
{
    const QString bad = QString(QChar(0)) + QChar(0xd800) + QString(20000, u'x');
    Posting posting;
    posting.applicationName = posting.clickLabel = posting.kind.category = bad;
    posting.title = posting.text = bad;
    posting.clickable = true;
    for (const Posting& tried : {posting, cutToSize(posting)}) {
        const Notify notify = sent(tried, {bad, bad});
        EXPECT_EQ(notify.summary.size(), summaryLimit);
        EXPECT_EQ(notify.body.size(), bodyLimit);
        for (const QString& text :
             {notify.applicationName, notify.applicationIcon, notify.summary, notify.body, notify.actions.value(1),
              notify.texts.value(u"desktop-entry"_s), notify.texts.value(u"category"_s)}) {
            EXPECT_TRUE(text.startsWith(QString(2, QChar(0xfffd)))) << text.left(4).toStdString();
            EXPECT_TRUE(text.endsWith(QChar(0x2026)));
        }
    }
}

TEST(CutToSize, LeavesNoTextThatIsLongerThanAPopupShows)
{
    const QString text(100000, u'x');
    Posting posting;
    posting.applicationName = posting.clickLabel = posting.kind.category = text;
    posting.title = posting.text = text;
    const Posting cut = cutToSize(posting);
    EXPECT_EQ(cut.title.size(), summaryLimit);
    EXPECT_EQ(cut.text.size(), bodyLimit);
    for (const QString& name : {cut.applicationName, cut.clickLabel, cut.kind.category})
        EXPECT_LE(name.size(), 255);
}
