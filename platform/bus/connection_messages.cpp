// SPDX-License-Identifier: Apache-2.0
#include "bus/connection_core.h"

#include <systemd/sd-bus.h>

namespace zepa::bus {

QByteArray ConnectionCore::uniqueName() const
{
    const char* name = nullptr;
    if (isOpen())
        sd_bus_get_unique_name(m_transport.bus(), &name);
    return name;
}

Message ConnectionCore::newCall(const char* destination, const char* path, const char* interface, const char* member)
{
    sd_bus_message* message = nullptr;
    if (isOpen())
        sd_bus_message_new_method_call(m_transport.bus(), &message, destination, path, interface, member);
    return Message(message);
}

Message ConnectionCore::newSignal(const char* path, const char* interface, const char* member, const char* destination)
{
    sd_bus_message* message = nullptr;
    if (isOpen())
        sd_bus_message_new_signal(m_transport.bus(), &message, path, interface, member);
    Message signal(message);
    if (destination != nullptr && message != nullptr)
        signal.note(sd_bus_message_set_destination(message, destination), 0);
    return signal;
}

Message ConnectionCore::newReply(const Message& call)
{
    sd_bus_message* message = nullptr;
    if (isOpen() && call.expectsReply())
        sd_bus_message_new_method_return(call.m_message, &message);
    return Message(message);
}

Message ConnectionCore::newError(const Message& call, const char* name, const QString& text)
{
    sd_bus_message* message = nullptr;
    const QByteArray bytes = text.toUtf8();
    const sd_bus_error error{name, bytes.constData(), 0};
    if (isOpen() && call.expectsReply())
        sd_bus_message_new_method_error(call.m_message, &message, &error);
    return Message(message);
}

std::uint64_t ConnectionCore::replyCookie(const Message& reply)
{
    std::uint64_t cookie = 0;
    sd_bus_message_get_reply_cookie(reply.m_message, &cookie);
    return cookie;
}

} // namespace zepa::bus
