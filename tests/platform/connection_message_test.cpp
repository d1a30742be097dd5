// SPDX-License-Identifier: Apache-2.0
#include "connection_fixture.h"
#include "scripted_bus.h"

#include <QStringList>

#include <cstdint>
#include <limits>
#include <string>

using namespace Qt::StringLiterals;

namespace {

using zepa::bus::MessageReader;

class MessageTest : public ConnectionTest
{
protected:
    MessageTest() : bus(socketPath()) { EXPECT_TRUE(opens()); }

    Message newMessage() { return connection.newCall(":1.5", "/a", "a.b", "C"); }
    /// Carries `message` to the bus and back.
    Message echoed(Message message)
    {
        bus.answer("C", [](sd_bus_message* call) {
            sd_bus_message* reply = nullptr;
            sd_bus_message_new_method_return(call, &reply);
            sd_bus_message_set_sender(reply, ":1.5");
            sd_bus_message_copy(reply, call, 1);
            sd_bus_send(sd_bus_message_get_bus(call), reply, nullptr);
            sd_bus_message_unref(reply);
        });
        Message back;
        connection.call(std::move(message), &connection, [&](const Message& reply) { back = reply; });
        EXPECT_TRUE(runUntil([&] { return !back.isNull(); }));
        return back;
    }

    ScriptedBus bus;
};

} // namespace

TEST_F(MessageTest, CarriesValuesOfEachType)
{
    Message message = newMessage();
    message.append(true).append(std::uint8_t{200}).append(std::int32_t{-5}).append(std::uint32_t{4000000000U});
    message.append(std::int64_t{-1}).append(std::numeric_limits<std::uint64_t>::max()).append(0.5);
    message.append(u"\u00e9\U0001f600"_s).append("ascii").append(QStringList{u"x"_s, QString()});
    message.append(QByteArray("\0\xff", 2));
    ASSERT_TRUE(message.isSound());
    const Message back = echoed(message);
    EXPECT_EQ(back.signature(), QLatin1StringView("byiuxtdssasay"));
    bool boolean = false;
    std::uint8_t byte = 0;
    std::int32_t int32 = 0;
    std::uint32_t uint32 = 0;
    std::int64_t int64 = 0;
    std::uint64_t uint64 = 0;
    double real = 0;
    QString text;
    QString ascii;
    QStringList texts;
    QByteArray bytes;
    MessageReader reader(back);
    ASSERT_TRUE(reader.read(boolean, byte, int32, uint32, int64, uint64, real, text, ascii, texts, bytes));
    EXPECT_TRUE(reader.atEnd());
    EXPECT_TRUE(boolean);
    EXPECT_EQ(byte, 200);
    EXPECT_EQ(int32, -5);
    EXPECT_EQ(uint32, 4000000000U);
    EXPECT_EQ(int64, -1);
    EXPECT_EQ(uint64, std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(real, 0.5);
    EXPECT_EQ(text, u"\u00e9\U0001f600"_s);
    EXPECT_EQ(ascii, u"ascii"_s);
    EXPECT_EQ(texts, (QStringList{u"x"_s, QString()}));
    EXPECT_EQ(bytes, QByteArray("\0\xff", 2));
}

TEST_F(MessageTest, CarriesOptionsByName)
{
    Message message = newMessage();
    message.openArray("{sv}").appendEntry("urgency", std::uint8_t{1}).appendEntry("entry", u"zepa"_s);
    message.openEntry("sv").append("image-data").openVariant("(iay)").openStruct("iay");
    message.append(std::int32_t{7}).append(QByteArray("pixels")).close().close().close().close();
    ASSERT_TRUE(message.isSound());
    MessageReader reader(echoed(message));
    ASSERT_TRUE(reader.enterArray("{sv}"));
    QStringList keys;
    QByteArray pixels;
    for (QString key; reader.enterEntry("sv") && reader.read(key); reader.leave()) {
        keys.append(key);
        std::int32_t size = 0;
        if (reader.enterVariant("(iay)") && reader.enterStruct("iay")) {
            EXPECT_TRUE(reader.read(size, pixels));
            reader.leave();
            reader.leave();
        }
    }
    EXPECT_EQ(keys.size(), 3);
    EXPECT_EQ(pixels, "pixels");
}

TEST_F(MessageTest, IsReadByItsTypesOnly)
{
    const Message back = echoed(newMessage().append("text").append(std::uint32_t{5}));
    MessageReader reader(back);
    std::uint32_t number = 1;
    QStringList texts{u"untouched"_s};
    QByteArray bytes("untouched");
    EXPECT_FALSE(reader.read(number));
    EXPECT_FALSE(reader.read(texts));
    EXPECT_FALSE(reader.read(bytes));
    EXPECT_FALSE(reader.enterVariant("s"));
    EXPECT_EQ(number, 1U);
    EXPECT_EQ(texts.size(), 1);
    EXPECT_EQ(bytes, "untouched");
    EXPECT_TRUE(reader.skip());
    EXPECT_TRUE(reader.read(number));
    EXPECT_EQ(number, 5U);
    EXPECT_FALSE(reader.read(number));
    EXPECT_FALSE(reader.skip());
    EXPECT_TRUE(reader.atEnd());
    EXPECT_FALSE(MessageReader(Message()).read(number));
}

TEST_F(MessageTest, TakesNothingThatTheBusWouldRefuse)
{
    EXPECT_FALSE(newMessage().append("\xff").isSound());
    EXPECT_FALSE(newMessage().append(static_cast<const char*>(nullptr)).isSound());
    EXPECT_FALSE(newMessage().append(QStringView(u"\0", 1)).isSound());
    EXPECT_FALSE(newMessage().appendObjectPath("no path").isSound());
    EXPECT_TRUE(newMessage().appendObjectPath("/a/path").isSound());
    EXPECT_FALSE(newMessage().openArray("s").append(true).isSound());
    EXPECT_FALSE(newMessage().close().isSound());
    const char16_t half = 0xd800;
    QString text;
    ASSERT_TRUE(MessageReader(echoed(newMessage().append(QStringView(&half, 1)))).read(text));
    EXPECT_EQ(text, QString(QChar(QChar::ReplacementCharacter)));
    EXPECT_TRUE(connection.newCall("no name", "/", "a.b", "C").isNull());
    EXPECT_TRUE(connection.newCall("a.b", "no path", "a.b", "C").isNull());
}

TEST_F(MessageTest, CarriesMegabytesOfText)
{
    const QString text(3000000, u'\u00e9');
    QString back;
    ASSERT_TRUE(MessageReader(echoed(newMessage().append(text))).read(back));
    EXPECT_EQ(back, text);
}
