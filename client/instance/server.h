// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/instance/caller_lookups.h"
#include "client/instance/caller_policy.h"
#include "client/instance/quota.h"
#include "client/instance/requests.h"

#include <QDBusVirtualObject>
#include <QHash>
#include <QString>
#include <QVariantList>

#include <functional>
#include <optional>

namespace zepa {
class Client;
}

namespace zepa::bus {
class SessionBus;
}

namespace zepa::instance {

class HandedJob;

/// What other programs of the session can ask of this client: zepa.Client1.xml describes it. Ask for the bus name only
/// when this object is made: calls come from then on.
class Server final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    /// Both must outlive this object; the bus must be open. The client is started by the first command if nobody has
    /// done that.
    Server(Client& client, bus::SessionBus& bus);
    ~Server() override;

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override;

private Q_SLOTS:
    void hearOfOwner(const QDBusMessage& signal);

private:
    /// Finds out whether the sender may call, and calls `done` with why it is refused, "" for nothing.
    void lookUp(const QString& sender, const std::function<void(const Caller&, const QString& problem)>& done);
    void answer(const QDBusMessage& message, const Caller& caller, const QString& problem);
    std::optional<Refusal> run(const QDBusMessage& message, const Caller& caller, QVariantList& answer);
    std::optional<Refusal> cancel(const QDBusMessage& message);
    std::optional<Refusal> activate(const QDBusMessage& message);
    void start(unsigned int number);
    void drop(unsigned int number);
    void forget(unsigned int number);
    void follow(const QString& method, const QString& caller);

    Client& m_client;
    bus::SessionBus& m_bus;
    CallerLookups m_lookups;
    Quota m_calls;    ///< that wait for the look-up of their callers, by connection
    Quota m_commands; ///< under way, by process: one may have many connections
    QHash<unsigned int, HandedJob*> m_jobs;
    QHash<unsigned int, QString> m_processes; ///< of the jobs' callers
    unsigned int m_lastNumber = 0;
};

} // namespace zepa::instance
