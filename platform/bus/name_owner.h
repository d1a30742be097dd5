// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <zepa_platform/bus.h>

#include <QByteArray>
#include <QLatin1StringView>

#include <memory>
#include <vector>

namespace zepa::bus {

/// Where the bus itself is.
inline constexpr const char* busName = "org.freedesktop.DBus";
inline constexpr const char* busPath = "/org/freedesktop/DBus";

/// Whether somebody owns such a name besides its unique one, and another may later.
bool isWellKnown(const QByteArray& name);

/// Who owns one name, well-known or unique, on the connection that is open. May outlive the core, and is idle then.
class NameOwner : public std::enable_shared_from_this<NameOwner>
{
public:
    class Listener
    {
    public:
        Listener() = default;
        virtual ~Listener() = default;
        Q_DISABLE_COPY_MOVE(Listener)

        virtual void onOwnerChanged(const QByteArray& oldOwner, const QByteArray& newOwner) = 0;
        virtual void onKnown() = 0;
        virtual void onOpened() = 0;
        virtual void onLost() = 0;
        virtual void onAskAgain() = 0;
    };

    NameOwner(ConnectionCore& core, const QByteArray& name);

    const QByteArray& name() const { return m_name; }
    const QByteArray& owner() const { return m_owner; }
    bool isKnown() const { return m_isKnown; }
    void add(Listener& listener) { m_listeners.push_back(&listener); }
    void remove(Listener& listener) { std::erase(m_listeners, &listener); }

    /// Asks for the match and for the owner.
    void start();
    void onOpened();
    void onLost();
    void askAgain();

private:
    void ask();
    void onAnswer(const Message& reply, quint64 changes);
    void onChanged(const Message& signal);
    void set(const QByteArray& owner, bool isKnown);
    template <typename Function>
    void tell(Function function);

    ConnectionCore& m_core;
    const QByteArray m_name;
    std::shared_ptr<void> m_match;
    QByteArray m_owner;
    bool m_isKnown = false;
    bool m_wasRefused = false;
    quint64 m_changes = 0; ///< counts what was told unasked
    std::vector<Listener*> m_listeners;
};

/// The names that somebody is interested in, each once.
class NameOwners
{
public:
    explicit NameOwners(ConnectionCore& core) : m_core(core) {}

    /// Followed until the last holder of the result is gone.
    std::shared_ptr<NameOwner> follow(QByteArrayView name);
    void onOpened();
    void onLost();
    void askAgain();

private:
    std::vector<std::shared_ptr<NameOwner>> living();

    ConnectionCore& m_core;
    std::vector<std::weak_ptr<NameOwner>> m_names;
};

} // namespace zepa::bus
