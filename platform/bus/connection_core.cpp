// SPDX-License-Identifier: Apache-2.0
#include "bus/connection_core.h"

#include "bus/address.h"

#include <systemd/sd-bus.h>

#include <algorithm>
#include <utility>

namespace zepa::bus {

namespace {

constexpr Time second = 1000000;
constexpr Time millisecond = 1000;
constexpr Time longestDelay = 30 * second;
/// A timer that fires so much too late was held up by the program itself.
constexpr Time heldUp = 100 * millisecond;
/// What canCall() lets wait for the socket.
constexpr std::size_t shortQueue = 1048576;
/// To free a long queue takes time when it is closed.
constexpr std::size_t mostQueuedMessages = 10000;

} // namespace

ConnectionCore::ConnectionCore(Connection& connection)
    : m_connection(&connection), m_retryDelay(second), m_askAgainDelay(second)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { onTimer(); });
}

void ConnectionCore::open()
{
    if (m_state != Connection::State::Closed)
        return;
    const bool isAttempting = m_attemptEndsAt.has_value();
    if (!isAttempting && m_lastFailure && now() - *m_lastFailure < second)
        return;
    m_state = Connection::State::Opening;
    if (!isAttempting)
        startAttempt();
    arm();
}

void ConnectionCore::close()
{
    m_state = Connection::State::Closed;
    m_transport.stop();
    m_attemptEndsAt.reset();
    m_retryAt.reset();
    m_lastFailure.reset();
    m_askAgainAt.reset();
    m_mustTellClosed = false;
    m_retryDelay = second;
    m_calls.refuseAll();
    m_signals.onLost();
    m_owners.onLost();
    arm();
}

void ConnectionCore::detach()
{
    m_connection = nullptr;
    m_calls.clear();
    close();
    m_timer.stop();
}

void ConnectionCore::startAttempt()
{
    m_retryAt.reset();
    m_addresses = configuredAddresses();
    m_addressLimit = Connection::openingLimit * millisecond / std::max<Time>(1, m_addresses.size());
    tryNextAddress();
}

void ConnectionCore::tryNextAddress()
{
    m_transport.stop();
    while (!m_addresses.isEmpty()) {
        if (m_transport.start(m_addresses.takeFirst())) {
            m_attemptEndsAt = now() + m_addressLimit;
            m_isAttemptProlonged = false;
            return;
        }
    }
    onAttemptFailed();
}

void ConnectionCore::onAttemptFailed()
{
    m_attemptEndsAt.reset();
    m_lastFailure = now();
    m_retryAt = *m_lastFailure + m_retryDelay;
    m_retryDelay = std::min(m_retryDelay * 3 / 2, longestDelay);
    // Told from the event loop: this may be inside open().
    m_mustTellClosed = m_mustTellClosed || m_state == Connection::State::Opening;
    m_state = Connection::State::Closed;
}

void ConnectionCore::onWakeUp()
{
    const auto self = shared_from_this();
    m_transport.process();
}

void ConnectionCore::onReady()
{
    m_attemptEndsAt.reset();
    m_lastFailure.reset();
    m_mustTellClosed = false;
    m_openSince = now();
    m_askAgainDelay = second;
    m_state = Connection::State::Open;
    // Matches first: what the bus says of an owner then comes before anything that the owner says.
    m_signals.onOpened();
    m_owners.onOpened();
    arm();
    if (m_connection != nullptr)
        Q_EMIT m_connection->opened();
}

void ConnectionCore::onLost()
{
    if (m_state != Connection::State::Open) {
        tryNextAddress();
        arm();
        return;
    }
    m_state = Connection::State::Closed;
    // A bus that throws us out at once is not asked in a circle.
    const bool wasStable = now() - m_openSince >= second;
    m_retryAt = wasStable ? now() : now() + m_retryDelay;
    m_retryDelay = wasStable ? second : std::min(m_retryDelay * 3 / 2, longestDelay);
    m_askAgainAt.reset();
    arm();
    m_signals.onLost();
    m_owners.onLost();
    m_calls.endAll();
    if (m_connection != nullptr)
        Q_EMIT m_connection->closed();
}

void ConnectionCore::onMessage(const Message& message)
{
    switch (message.kind()) {
    case Message::Kind::Reply:
    case Message::Kind::Error:
        m_calls.handle(message);
        tellOfRoom();
        break;
    case Message::Kind::Signal:
        m_signals.dispatch(message);
        break;
    case Message::Kind::Call:
        m_objects.dispatch(message);
        break;
    case Message::Kind::None:
        break;
    }
}

void ConnectionCore::onProgress()
{
    arm();
    tellOfRoom();
}

void ConnectionCore::tellOfRoom()
{
    if (!m_wantsRoom || !canCall())
        return;
    m_wantsRoom = false;
    if (m_connection != nullptr)
        Q_EMIT m_connection->roomForCalls();
}

bool ConnectionCore::canCall()
{
    const bool hasRoom = isOpen() && m_calls.hasRoom() && hasRoomInQueue(shortQueue);
    m_wantsRoom = m_wantsRoom || !hasRoom;
    return hasRoom;
}

bool ConnectionCore::hasRoomInQueue(std::size_t bytes) const
{
    return m_transport.queuedBytes() < bytes && m_transport.queuedMessages() < mostQueuedMessages;
}

PendingCall ConnectionCore::pendingCall(const Message& message)
{
    PendingCall call;
    const char* destination =
        message.m_message == nullptr ? nullptr : sd_bus_message_get_destination(message.m_message);
    if (destination == nullptr)
        return call;
    if (qstrcmp(destination, busName) == 0) {
        call.isOfTheBus = true;
    } else if (destination[0] == ':') {
        call.uniqueName = destination;
    } else {
        call.owner = m_owners.follow(destination);
        call.ownerAtFirst = call.owner->owner();
    }
    return call;
}

void ConnectionCore::call(const Message& message, const QObject* context, std::function<void(const Message&)> reply,
                          CallOptions options)
{
    PendingCall call = isOpen() ? pendingCall(message) : PendingCall();
    call.hasContext = context != nullptr;
    call.context = context;
    call.reply = std::move(reply);
    call.late = std::move(options.late);
    const Time time = now();
    call.endsAt = time + options.limit * millisecond;
    call.lateUntil = time + options.lateLimit * millisecond;
    const char* error = nullptr;
    if (!isOpen())
        error = disconnected;
    else if (!message.isSound())
        error = invalidArguments;
    else if (!hasRoomInQueue(Connection::byteLimit) ||
             (!call.isOfTheBus && m_calls.underWay() >= Connection::hardCallLimit))
        error = limitsExceeded;
    else if (!transmit(message, &call.cookie))
        error = disconnected;
    if (error != nullptr) {
        m_calls.refuse(std::move(call), error);
        wakeUpBy(0);
        return;
    }
    const Time endsAt = call.endsAt;
    m_calls.add(std::move(call));
    wakeUpBy(endsAt);
}

bool ConnectionCore::send(const Message& message)
{
    return isOpen() && message.isSound() && hasRoomInQueue(Connection::byteLimit) && transmit(message, nullptr);
}

bool ConnectionCore::transmit(const Message& message, std::uint64_t* cookie)
{
    if (m_transport.send(message, cookie))
        return true;
    // Found and told from the event loop.
    m_mustCheck = true;
    wakeUpBy(0);
    return false;
}

void ConnectionCore::askAgainLater()
{
    if (m_askAgainAt)
        return;
    m_askAgainAt = now() + m_askAgainDelay;
    m_askAgainDelay = std::min(2 * m_askAgainDelay, longestDelay);
    wakeUpBy(*m_askAgainAt);
}

void ConnectionCore::askAgain()
{
    if (!isOpen())
        return;
    m_signals.askAgain();
    m_owners.askAgain();
}

/// Restarting a timer costs more than being woken once for nothing: one that is early enough stays.
void ConnectionCore::wakeUpBy(Time time)
{
    if (m_connection == nullptr || (m_timer.isActive() && m_armedFor <= time))
        return;
    m_armedFor = time;
    const Time wait = std::max<Time>(0, time - now());
    m_timer.start(static_cast<int>(std::min<Time>((wait + millisecond - 1) / millisecond, INT_MAX)));
}

void ConnectionCore::arm()
{
    if (m_mustTellClosed || m_mustCheck || m_calls.hasRefused())
        wakeUpBy(0);
    for (const auto& time : {m_attemptEndsAt, m_retryAt, m_askAgainAt, m_transport.deadline(), m_calls.deadline()}) {
        if (time)
            wakeUpBy(*time);
    }
}

void ConnectionCore::onTimer()
{
    const auto self = shared_from_this();
    const Time time = now();
    const auto isDue = [time](std::optional<Time>& deadline) {
        const bool due = deadline && *deadline <= time;
        if (due)
            deadline.reset();
        return due;
    };
    // While the program did not handle events, nobody looked whether the bus had answered.
    if (m_attemptEndsAt && *m_attemptEndsAt + heldUp <= time && !std::exchange(m_isAttemptProlonged, true))
        m_attemptEndsAt = time + m_addressLimit;
    if (isDue(m_attemptEndsAt))
        tryNextAddress();
    if (isDue(m_retryAt))
        startAttempt();
    // A reply that has come, and was not read yet, is in time.
    const bool isOverdue = m_calls.deadline().value_or(time + 1) <= time;
    const bool mustProcess =
        std::exchange(m_mustCheck, false) || isOverdue || m_transport.deadline().value_or(time + 1) <= time;
    const bool mustAsk = isDue(m_askAgainAt);
    const bool mustTell = std::exchange(m_mustTellClosed, false);
    // Whatever is called from here may run an event loop, in which this timer is needed.
    arm();
    if (mustAsk)
        askAgain();
    if (mustProcess && m_transport.isStarted())
        m_transport.process();
    m_calls.endOverdue(time);
    m_calls.raiseLimit(time);
    m_calls.deliverRefused();
    tellOfRoom();
    if (mustTell && m_connection != nullptr)
        Q_EMIT m_connection->closed();
    arm();
}

} // namespace zepa::bus
