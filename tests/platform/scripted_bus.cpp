// SPDX-License-Identifier: Apache-2.0
#include "scripted_bus.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstdarg>
#include <iterator>

ScriptedBus::Client::~Client()
{
    readable.reset();
    writable.reset();
    sd_bus_close_unref(bus);
}

ScriptedBus::ScriptedBus(const QByteArray& path)
    : m_path(path), m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0))
{
    sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), std::begin(name.sun_path));
    constexpr int queue = 16;
    if (bind(m_socket, reinterpret_cast<const sockaddr*>(&name), sizeof name) != 0 || listen(m_socket, queue) != 0)
        qFatal("no socket for the scripted bus");
    m_arrivals = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    QObject::connect(m_arrivals.get(), &QSocketNotifier::activated, m_arrivals.get(), [this] { accept(); });
    answer("Hello", [](sd_bus_message* call) { replyFrom("org.freedesktop.DBus", call, ":1.7"); });
}

ScriptedBus::~ScriptedBus()
{
    m_arrivals.reset();
    m_kept.clear();
    m_clients.clear();
    close(m_socket);
    unlink(m_path.constData());
}

void ScriptedBus::accept()
{
    const int socket = accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (socket < 0)
        return;
    ++m_connectionCount;
    auto client = std::make_unique<Client>();
    const sd_id128_t id = {{1, 2, 3, 4}};
    sd_bus_new(&client->bus);
    sd_bus_set_fd(client->bus, socket, socket);
    sd_bus_set_server(client->bus, 1, id);
    sd_bus_set_trusted(client->bus, 1);
    sd_bus_start(client->bus);
    client->readable = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read);
    client->writable = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Write);
    Client* raw = client.get();
    for (QSocketNotifier* notifier : {client->readable.get(), client->writable.get()})
        QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this, raw] { process(*raw); });
    m_clients.push_back(std::move(client));
    watch(*raw);
}

void ScriptedBus::watch(Client& client)
{
    const int events = sd_bus_get_events(client.bus);
    client.readable->setEnabled(events >= 0 && (events & POLLIN) != 0);
    client.writable->setEnabled(events >= 0 && (events & POLLOUT) != 0);
}

void ScriptedBus::process(Client& client)
{
    for (;;) {
        sd_bus_message* message = nullptr;
        const int result = sd_bus_process(client.bus, &message);
        if (message != nullptr) {
            handle(message);
            sd_bus_message_unref(message);
        }
        if (result < 0 || sd_bus_is_open(client.bus) <= 0) {
            client.readable->setEnabled(false);
            client.writable->setEnabled(false);
            return;
        }
        if (result == 0)
            break;
    }
    watch(client);
}

void ScriptedBus::handle(sd_bus_message* message)
{
    const QByteArray member = sd_bus_message_get_member(message);
    const char* text = nullptr;
    if (sd_bus_message_read_basic(message, 's', &text) <= 0)
        text = "";
    m_calls[member].append(QString::fromUtf8(text));
    sd_bus_message_rewind(message, 1);
    const auto answer = m_answers.find(member);
    if (answer != m_answers.end())
        answer->second(message);
    else
        grant(message);
}

void ScriptedBus::replyError(sd_bus_message* call, const char* name, const char* sender)
{
    const sd_bus_error error = SD_BUS_ERROR_MAKE_CONST(name, "no");
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_error(call, &reply, &error);
    sd_bus_message_set_sender(reply, sender);
    sd_bus_send(sd_bus_message_get_bus(call), reply, nullptr);
    sd_bus_message_unref(reply);
}

void ScriptedBus::replyFrom(const char* sender, sd_bus_message* call, const char* text)
{
    sd_bus_message* reply = nullptr;
    if (sd_bus_message_get_expect_reply(call) <= 0 || sd_bus_message_new_method_return(call, &reply) < 0)
        return;
    sd_bus_message_set_sender(reply, sender);
    if (text != nullptr)
        sd_bus_message_append(reply, "s", text);
    sd_bus_send(sd_bus_message_get_bus(call), reply, nullptr);
    sd_bus_message_unref(reply);
}

void ScriptedBus::signalFrom(const char* sender, const char* path, const char* interface, const char* member,
                             const char* types, ...)
{
    for (const auto& client : m_clients) {
        sd_bus_message* signal = nullptr;
        sd_bus_message_new_signal(client->bus, &signal, path, interface, member);
        sd_bus_message_set_sender(signal, sender);
        va_list arguments;
        va_start(arguments, types);
        sd_bus_message_appendv(signal, types, arguments);
        va_end(arguments);
        sd_bus_send(client->bus, signal, nullptr);
        sd_bus_message_unref(signal);
        watch(*client);
    }
}

void ScriptedBus::stopReading()
{
    m_arrivals->setEnabled(false);
    for (const auto& client : m_clients)
        client->readable->setEnabled(false);
}
