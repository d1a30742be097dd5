// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/instance/call_arguments.h"
#include "client/instance/caller_lookups.h"
#include "client/instance/caller_policy.h"
#include "client/instance/quota.h"

#include <zepa_platform/bus.h>

#include <QHash>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace zepa {
class Client;
}

namespace zepa::instance {

class RemoteCommand;

/// What other programs of the session can ask of this client: zepa.Client1.xml describes it. Ask for the bus name only
/// when this object is made: calls come from then on.
class Server final : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this object. The client is started by the first command if nobody has done that.
    Server(Client& client, bus::Connection& bus);
    ~Server() override;

    /// Takes the name whenever nobody has it: when the bus comes late or again, and when another client ends.
    void keepName(const QByteArray& busName);

private:
    /// A command under way.
    struct Job
    {
        RemoteCommand* command = nullptr;
        QString process;                       ///< of its caller
        bus::ServiceWatcher* caller = nullptr; ///< belongs to the command
    };

    void handleCall(const bus::Message& call);
    /// Finds out whether the sender may call, and calls `done` with why it is refused, "" for nothing.
    void lookUp(const QByteArray& sender, const std::function<void(const Caller&, const QString& problem)>& done);
    void answer(const bus::Message& call, const Caller& caller, const QString& problem);
    void refuse(const bus::Message& call, const Refusal& refusal);
    /// Each answers the call, or says why it does not.
    std::optional<Refusal> run(const bus::Message& call, const Caller& caller);
    std::optional<Refusal> cancel(const bus::Message& call);
    std::optional<Refusal> activate(const bus::Message& call);
    void watchCaller(unsigned int number);
    void onCallerChanged(unsigned int number);
    void drop(unsigned int number);
    void forget(unsigned int number);

    Client& m_client;
    bus::Connection& m_bus;
    CallerLookups m_lookups;
    Quota m_calls;    ///< that wait for the look-up of their callers, by connection
    Quota m_commands; ///< under way, by process: one may have many connections
    QHash<unsigned int, Job> m_jobs;
    unsigned int m_lastNumber = 0;
    int m_busesLost = 0;
    bus::Registration m_object;
    std::unique_ptr<bus::ServiceWatcher> m_nameWatcher;
};

} // namespace zepa::instance
