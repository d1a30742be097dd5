// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "bus/transport.h"

#include <zepa_platform/bus.h>

#include <QByteArray>
#include <QPointer>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zepa::bus {

class NameOwner;

/// One call, from its sending until the bus is rid of it.
struct PendingCall
{
    /// From whom a reply is believed: the bus for its own calls, a unique name, or the owner of a well-known one.
    bool isOfTheBus = false;
    QByteArray uniqueName;
    std::shared_ptr<NameOwner> owner;
    QByteArray ownerAtFirst;

    bool hasContext = false;
    QPointer<const QObject> context;
    std::function<void(const Message&)> reply; ///< null once it has ended
    std::function<void(const Message&)> late;
    Time endsAt = 0;
    Time lateUntil = 0;
    std::uint64_t cookie = 0;
};

class CallTable
{
public:
    void add(PendingCall call) { m_calls.push_back(std::move(call)); }
    /// Delivers a reply or an error to the call that it belongs to, unless somebody else sent it.
    void handle(const Message& reply);
    /// Ends the calls whose time is over. One of the bus is forgotten; others count until their reply comes.
    void endOverdue(Time time);
    /// Lets one more be under way when it is time for that.
    void raiseLimit(Time time);
    /// Ends all calls: at once, or with deliverRefused().
    void endAll();
    void refuseAll();
    /// A call that was not sent. Its error is told by deliverRefused().
    void refuse(PendingCall call, const char* error);
    void deliverRefused();
    bool hasRefused() const { return !m_refused.empty(); }
    void clear();

    /// Without those of the bus.
    int underWay() const;
    bool hasRoom() const { return underWay() < m_limit; }
    std::optional<Time> deadline() const;

private:
    struct Refused
    {
        PendingCall call;
        const char* error;
    };

    static bool isBelievable(const PendingCall& call, const Message& reply);
    static void deliver(const PendingCall& call, const std::function<void(const Message&)>& handler,
                        const Message& message);

    std::vector<PendingCall> m_calls; ///< some sixty at most: the oldest, which is first, is mostly the one looked for
    std::vector<Refused> m_refused;
    int m_limit = Connection::callLimit; ///< lower when the bus has lower ones
    std::optional<Time> m_raiseAt;       ///< while it is lower
};

inline constexpr const char* disconnected = "org.freedesktop.DBus.Error.Disconnected";
inline constexpr const char* noReply = "org.freedesktop.DBus.Error.NoReply";
inline constexpr const char* limitsExceeded = "org.freedesktop.DBus.Error.LimitsExceeded";
inline constexpr const char* invalidArguments = "org.freedesktop.DBus.Error.InvalidArgs";

} // namespace zepa::bus
