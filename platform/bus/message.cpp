// SPDX-License-Identifier: Apache-2.0
#include "bus/connection_core.h"

#include <zepa_platform/bus.h>

#include <QStringEncoder>
#include <QVarLengthArray>

#include <systemd/sd-bus.h>

#include <cstring>
#include <utility>

namespace zepa::bus {

namespace {

constexpr std::size_t containerBytes = 8;

QLatin1StringView view(const char* text)
{
    return QLatin1StringView(text);
}

} // namespace

Message::Message(const Message& other)
    : m_message(sd_bus_message_ref(other.m_message))
    , m_localError(other.m_localError)
    , m_isSound(other.m_isSound)
    , m_bytes(other.m_bytes)
{}

Message::Message(Message&& other) noexcept
    : m_message(std::exchange(other.m_message, nullptr))
    , m_localError(std::exchange(other.m_localError, nullptr))
    , m_isSound(other.m_isSound)
    , m_bytes(other.m_bytes)
{}

Message& Message::operator=(Message other) noexcept
{
    std::swap(m_message, other.m_message);
    std::swap(m_localError, other.m_localError);
    std::swap(m_isSound, other.m_isSound);
    std::swap(m_bytes, other.m_bytes);
    return *this;
}

Message::~Message()
{
    sd_bus_message_unref(m_message);
}

Message Message::localError(const char* name)
{
    Message message;
    message.m_localError = name;
    return message;
}

Message::Kind Message::kind() const
{
    if (m_localError != nullptr)
        return Kind::Error;
    std::uint8_t type = 0;
    if (m_message == nullptr || sd_bus_message_get_type(m_message, &type) < 0)
        return Kind::None;
    switch (type) {
    case SD_BUS_MESSAGE_METHOD_CALL:
        return Kind::Call;
    case SD_BUS_MESSAGE_METHOD_RETURN:
        return Kind::Reply;
    case SD_BUS_MESSAGE_METHOD_ERROR:
        return Kind::Error;
    case SD_BUS_MESSAGE_SIGNAL:
        return Kind::Signal;
    default:
        return Kind::None;
    }
}

QLatin1StringView Message::sender() const
{
    return view(m_message == nullptr ? nullptr : sd_bus_message_get_sender(m_message));
}

QLatin1StringView Message::path() const
{
    return view(m_message == nullptr ? nullptr : sd_bus_message_get_path(m_message));
}

QLatin1StringView Message::interface() const
{
    return view(m_message == nullptr ? nullptr : sd_bus_message_get_interface(m_message));
}

QLatin1StringView Message::member() const
{
    return view(m_message == nullptr ? nullptr : sd_bus_message_get_member(m_message));
}

QLatin1StringView Message::signature() const
{
    return view(m_message == nullptr ? nullptr : sd_bus_message_get_signature(m_message, 1));
}

bool Message::isOverLimits() const
{
    return errorName() == QLatin1StringView(limitsExceeded) &&
           (m_localError != nullptr || sender() == QLatin1StringView(busName));
}

QLatin1StringView Message::errorName() const
{
    if (m_localError != nullptr)
        return view(m_localError);
    const sd_bus_error* error = m_message == nullptr ? nullptr : sd_bus_message_get_error(m_message);
    return view(error == nullptr ? nullptr : error->name);
}

QString Message::errorText() const
{
    const sd_bus_error* error = m_message == nullptr ? nullptr : sd_bus_message_get_error(m_message);
    return error == nullptr ? QString() : QString::fromUtf8(error->message);
}

bool Message::expectsReply() const
{
    return m_message != nullptr && sd_bus_message_get_expect_reply(m_message) > 0;
}

Message& Message::note(int result, std::size_t bytes)
{
    m_isSound = m_isSound && result >= 0;
    m_bytes += bytes;
    return *this;
}

Message& Message::appendBasic(char type, const void* value, std::size_t bytes)
{
    return m_message == nullptr ? *this : note(sd_bus_message_append_basic(m_message, type, value), bytes);
}

Message& Message::append(bool value)
{
    const int number = value ? 1 : 0;
    return appendBasic('b', &number, sizeof number);
}

Message& Message::append(std::uint8_t value)
{
    return appendBasic('y', &value, sizeof value);
}

Message& Message::append(std::int32_t value)
{
    return appendBasic('i', &value, sizeof value);
}

Message& Message::append(std::uint32_t value)
{
    return appendBasic('u', &value, sizeof value);
}

Message& Message::append(std::int64_t value)
{
    return appendBasic('x', &value, sizeof value);
}

Message& Message::append(std::uint64_t value)
{
    return appendBasic('t', &value, sizeof value);
}

Message& Message::append(double value)
{
    return appendBasic('d', &value, sizeof value);
}

Message& Message::append(QStringView text)
{
    if (m_message == nullptr)
        return *this;
    // With a state, half a pair at the end would wait for its other half.
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    constexpr qsizetype usual = 1024;
    QVarLengthArray<char, usual> bytes(encoder.requiredSpace(text.size()));
    const char* end = encoder.appendToBuffer(bytes.data(), text);
    const auto size = static_cast<std::size_t>(end - bytes.data());
    char* place = nullptr;
    // The encoder writes valid UTF-8; only a NUL would end the text early.
    if (std::memchr(bytes.data(), 0, size) != nullptr)
        return note(-EINVAL, 0);
    const int result = sd_bus_message_append_string_space(m_message, size, &place);
    if (result >= 0)
        std::memcpy(place, bytes.data(), size);
    return note(result, size);
}

Message& Message::append(const char* text)
{
    return text == nullptr ? note(-EINVAL, 0) : appendBasic('s', text, std::strlen(text));
}

Message& Message::append(const QStringList& texts)
{
    openArray("s");
    for (const QString& text : texts)
        append(QStringView(text));
    return close();
}

Message& Message::append(const QByteArray& bytes)
{
    if (m_message == nullptr)
        return *this;
    const auto size = static_cast<std::size_t>(bytes.size());
    return note(sd_bus_message_append_array(m_message, 'y', bytes.constData(), size), size);
}

Message& Message::appendObjectPath(const char* path)
{
    return path == nullptr ? note(-EINVAL, 0) : appendBasic('o', path, std::strlen(path));
}

Message& Message::open(char type, const char* contents)
{
    return m_message == nullptr ? *this
                                : note(sd_bus_message_open_container(m_message, type, contents), containerBytes);
}

Message& Message::openArray(const char* contents)
{
    return open('a', contents);
}

Message& Message::openStruct(const char* contents)
{
    return open('r', contents);
}

Message& Message::openVariant(const char* contents)
{
    return open('v', contents);
}

Message& Message::openEntry(const char* contents)
{
    return open('e', contents);
}

Message& Message::close()
{
    return m_message == nullptr ? *this : note(sd_bus_message_close_container(m_message), 0);
}

Message& Message::setAutoStart(bool isAllowed)
{
    return m_message == nullptr ? *this : note(sd_bus_message_set_auto_start(m_message, isAllowed ? 1 : 0), 0);
}

} // namespace zepa::bus
