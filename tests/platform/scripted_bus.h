// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QMap>
#include <QSocketNotifier>
#include <QStringList>
#include <systemd/sd-bus.h>

#include <functional>
#include <map>
#include <memory>
#include <vector>

/// A bus that does what the test wants, in the test's event loop: it answers the handshake in order, and each call as
/// the test says. Whatever it sends may have any sender.
class ScriptedBus
{
public:
    /// Answers one call, or leaves it unanswered.
    using Answer = std::function<void(sd_bus_message* call)>;

    /// "Hello" is answered unless the test says otherwise. `path` is that of the socket.
    explicit ScriptedBus(const QByteArray& path);
    ~ScriptedBus();
    ScriptedBus(const ScriptedBus&) = delete;
    ScriptedBus& operator=(const ScriptedBus&) = delete;

    void answer(const char* member, Answer answer) { m_answers[member] = std::move(answer); }
    /// Answers for answer().
    static void refuse(sd_bus_message* call) { replyError(call, "org.freedesktop.DBus.Error.AccessDenied"); }
    static void refuseForLimits(sd_bus_message* call) { replyError(call, "org.freedesktop.DBus.Error.LimitsExceeded"); }
    static void grant(sd_bus_message* call) { replyFrom("org.freedesktop.DBus", call); }
    static void replyError(sd_bus_message* call, const char* name, const char* sender = "org.freedesktop.DBus");
    /// An empty reply, or one with a text, in anybody's name.
    static void replyFrom(const char* sender, sd_bus_message* call, const char* text = nullptr);
    /// To every client; `types` and what follows as sd_bus_message_append() takes them.
    void signalFrom(const char* sender, const char* path, const char* interface, const char* member, const char* types,
                    ...);

    /// Nothing more is read: a stuck bus.
    void stopReading();
    void dropClients() { m_clients.clear(); }
    int connectionCount() const { return m_connectionCount; }
    /// The first arguments of all calls of a method, as far as they are texts.
    QStringList callsOf(const char* member) const { return m_calls.value(member); }
    /// Calls that the test wants to answer later.
    std::vector<std::shared_ptr<sd_bus_message>>& kept() { return m_kept; }
    void keep(sd_bus_message* call) { m_kept.emplace_back(sd_bus_message_ref(call), sd_bus_message_unref); }

private:
    struct Client
    {
        ~Client();
        sd_bus* bus = nullptr;
        std::unique_ptr<QSocketNotifier> readable;
        std::unique_ptr<QSocketNotifier> writable;
    };

    void accept();
    void process(Client& client);
    void handle(sd_bus_message* message);
    static void watch(Client& client);

    const QByteArray m_path;
    const int m_socket;
    std::unique_ptr<QSocketNotifier> m_arrivals;
    std::vector<std::unique_ptr<Client>> m_clients;
    int m_connectionCount = 0;
    std::map<QByteArray, Answer> m_answers;
    QMap<QByteArray, QStringList> m_calls;
    std::vector<std::shared_ptr<sd_bus_message>> m_kept;
};
