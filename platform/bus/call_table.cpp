// SPDX-License-Identifier: Apache-2.0
#include "bus/call_table.h"

#include "bus/bus_log.h"
#include "bus/connection_core.h"
#include "bus/name_owner.h"

#include <algorithm>
#include <utility>

namespace zepa::bus {

namespace {

/// The limit of a bus may be for all that a user runs, so that it does not stay where it was found.
constexpr Time raiseInterval = 1000000;

} // namespace

void CallTable::handle(const Message& reply)
{
    const std::uint64_t cookie = ConnectionCore::replyCookie(reply);
    const auto found = std::find_if(m_calls.begin(), m_calls.end(),
                                    [cookie](const PendingCall& call) { return call.cookie == cookie; });
    if (found == m_calls.end())
        return;
    if (!isBelievable(*found, reply)) {
        qCInfo(busLog) << "a reply of somebody who was not asked was dropped";
        return;
    }
    const PendingCall call = std::move(*found);
    m_calls.erase(found);
    if (!call.isOfTheBus && reply.isOverLimits()) {
        m_limit = std::min(m_limit, underWay());
        m_raiseAt = now() + raiseInterval;
    }
    if (call.reply)
        deliver(call, call.reply, reply);
    else if (call.late && !reply.isError() && now() <= call.lateUntil)
        deliver(call, call.late, reply);
}

bool CallTable::isBelievable(const PendingCall& call, const Message& reply)
{
    const QLatin1StringView sender = reply.sender();
    // The bus answers for those who cannot, and nobody else can have its name.
    if (sender == QLatin1StringView(busName))
        return call.isOfTheBus || reply.isError();
    if (call.isOfTheBus || sender.isEmpty())
        return false;
    if (!call.owner)
        return sender == QLatin1StringView(call.uniqueName);
    return sender == QLatin1StringView(call.owner->owner()) || sender == QLatin1StringView(call.ownerAtFirst);
}

void CallTable::deliver(const PendingCall& call, const std::function<void(const Message&)>& handler,
                        const Message& message)
{
    if (!call.hasContext || call.context)
        handler(message);
}

void CallTable::endOverdue(Time time)
{
    std::vector<PendingCall> ended;
    for (PendingCall& call : m_calls) {
        if (!call.reply || call.endsAt > time)
            continue;
        PendingCall copy;
        copy.hasContext = call.hasContext;
        copy.context = call.context;
        copy.reply = std::exchange(call.reply, nullptr);
        ended.push_back(std::move(copy));
    }
    std::erase_if(m_calls, [](const PendingCall& call) { return !call.reply && call.isOfTheBus; });
    for (PendingCall& call : m_calls) {
        if (!call.reply && call.lateUntil <= time)
            call.late = nullptr;
    }
    const Message error = ConnectionCore::localError(noReply);
    for (const PendingCall& call : ended)
        deliver(call, call.reply, error);
}

void CallTable::raiseLimit(Time time)
{
    if (!m_raiseAt || *m_raiseAt > time)
        return;
    ++m_limit;
    m_raiseAt = m_limit < Connection::callLimit ? std::optional(time + raiseInterval) : std::nullopt;
}

void CallTable::refuseAll()
{
    m_limit = Connection::callLimit;
    m_raiseAt.reset();
    for (PendingCall& call : std::exchange(m_calls, {})) {
        if (call.reply)
            refuse(std::move(call), disconnected);
    }
}

void CallTable::endAll()
{
    refuseAll();
    deliverRefused();
}

void CallTable::refuse(PendingCall call, const char* error)
{
    m_refused.push_back({std::move(call), error});
}

void CallTable::deliverRefused()
{
    for (const Refused& refused : std::exchange(m_refused, {}))
        deliver(refused.call, refused.call.reply, ConnectionCore::localError(refused.error));
}

void CallTable::clear()
{
    // A handler's destructor may be anything.
    const auto calls = std::exchange(m_calls, {});
    const auto refused = std::exchange(m_refused, {});
}

int CallTable::underWay() const
{
    return static_cast<int>(
        std::count_if(m_calls.begin(), m_calls.end(), [](const PendingCall& call) { return !call.isOfTheBus; }));
}

std::optional<Time> CallTable::deadline() const
{
    std::optional<Time> first = m_raiseAt;
    for (const PendingCall& call : m_calls) {
        if (!call.reply && !call.late)
            continue;
        const Time time = call.reply ? call.endsAt : call.lateUntil;
        first = first ? std::min(*first, time) : time;
    }
    return first;
}

} // namespace zepa::bus
