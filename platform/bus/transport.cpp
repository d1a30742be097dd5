// SPDX-License-Identifier: Apache-2.0
#include "bus/transport.h"

#include "bus/address.h"
#include "bus/bus_program.h"
#include "bus/paced_handshake.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <poll.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <utility>

namespace zepa::bus {

namespace {

bool connectTo(sd_bus* bus, const QByteArray& address, std::unique_ptr<PacedHandshake>& handshake)
{
    const QList<QByteArray> program = programOf(address);
    if (!program.isEmpty()) {
        const int socket = startBusProgram(program);
        // From here on the socket is sd-bus's.
        if (socket < 0 || sd_bus_set_fd(bus, socket, socket) < 0)
            return false;
    } else if (address.startsWith("unix:")) {
        handshake = PacedHandshake::connectTo(socketNameOf(address));
        const int socket = handshake ? handshake->takeClientSocket() : -1;
        if (socket < 0 || sd_bus_set_fd(bus, socket, socket) < 0)
            return false;
    } else if (sd_bus_set_address(bus, address.constData()) < 0) {
        return false;
    }
    // Over TCP nobody can tell who we are, and a bus that listens there takes the anonymous or nobody.
    if (address.startsWith("tcp:") && sd_bus_set_anonymous(bus, 1) < 0)
        return false;
    return sd_bus_set_bus_client(bus, 1) >= 0 && sd_bus_negotiate_fds(bus, 1) >= 0 && sd_bus_start(bus) >= 0 &&
           sd_bus_get_fd(bus) >= 0;
}

/// It may be the one whose signal is being handled. `owner` deletes it when no event loop does.
void retire(QSocketNotifier*& notifier, QObject& owner)
{
    QSocketNotifier* retired = std::exchange(notifier, nullptr);
    if (retired == nullptr)
        return;
    retired->setEnabled(false);
    if (QCoreApplication::closingDown() || QCoreApplication::instance() == nullptr) {
        delete retired;
        return;
    }
    retired->setParent(&owner);
    retired->deleteLater();
}

} // namespace

Time now()
{
    using namespace std::chrono;
    return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

sd_bus* startBus(const QByteArray& address, std::unique_ptr<PacedHandshake>& handshake)
{
    sd_bus* bus = nullptr;
    if (sd_bus_new(&bus) < 0)
        return nullptr;
    return connectTo(bus, address, handshake) ? bus : sd_bus_close_unref(bus);
}

Transport::Transport(Listener& listener) : m_listener(listener)
{}

Transport::~Transport()
{
    stop();
}

bool Transport::start(const QByteArray& address)
{
    stop();
    m_bus = startBus(address, m_handshake);
    if (m_bus == nullptr) {
        m_handshake.reset();
        return false;
    }
    m_socket = sd_bus_get_fd(m_bus);
    m_readable = newNotifier(m_socket, false);
    m_writable = newNotifier(m_socket, true);
    if (m_handshake) {
        const std::array<int, 2> sockets = m_handshake->awaitedSockets();
        for (std::size_t i = 0; i < sockets.size(); ++i)
            m_handshakeReadable.at(i) = newNotifier(sockets.at(i), false);
        watchHandshake();
    }
    watch();
    return true;
}

/// Not enabled yet.
QSocketNotifier* Transport::newNotifier(int socket, bool isForWriting)
{
    auto* notifier = new QSocketNotifier(socket, isForWriting ? QSocketNotifier::Write : QSocketNotifier::Read);
    notifier->setEnabled(false);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this] { m_listener.onWakeUp(); });
    return notifier;
}

void Transport::watchHandshake()
{
    const std::array<int, 2> sockets = m_handshake->awaitedSockets();
    for (std::size_t i = 0; i < sockets.size(); ++i)
        m_handshakeReadable.at(i)->setEnabled(sockets.at(i) >= 0);
}

bool Transport::advanceHandshake()
{
    const PacedHandshake::State state = m_handshake->advance();
    if (state != PacedHandshake::State::Over) {
        watchHandshake();
        return state != PacedHandshake::State::Failed;
    }
    // An event loop may know a socket by more than its number, which stays.
    for (QSocketNotifier** notifier : {&m_readable, &m_writable, &m_handshakeReadable[0], &m_handshakeReadable[1]})
        retire(*notifier, m_retired);
    const bool isConnected = m_handshake->connectDirectly(m_socket);
    m_handshake.reset();
    m_readable = newNotifier(m_socket, false);
    m_writable = newNotifier(m_socket, true);
    return isConnected;
}

void Transport::stop()
{
    ++m_generation;
    retire(m_readable, m_retired);
    retire(m_writable, m_retired);
    for (QSocketNotifier*& notifier : m_handshakeReadable)
        retire(notifier, m_retired);
    m_handshake.reset();
    sd_bus* bus = std::exchange(m_bus, nullptr);
    // After fork() sd-bus does nothing, and the socket is the parent's: only our copy of it is closed.
    if (bus != nullptr && sd_bus_get_fd(bus) == -ECHILD)
        ::close(m_socket);
    sd_bus_close_unref(bus);
    m_socket = -1;
    m_isReady = false;
    m_hasMore = false;
    m_queued.clear();
    m_queuedBytes = 0;
}

bool Transport::send(const Message& message, std::uint64_t* cookie)
{
    if (sd_bus_send(m_bus, message.m_message, cookie) < 0)
        return false;
    std::uint64_t waiting = 0;
    if (sd_bus_get_n_queued_write(m_bus, &waiting) >= 0 && waiting > 0) {
        m_queued.push_back(message.m_bytes);
        m_queuedBytes += message.m_bytes;
        countQueue();
    }
    // What did not fit into the socket leaves when it is writable again.
    m_writable->setEnabled(waiting > 0);
    return true;
}

void Transport::countQueue()
{
    if (m_queued.empty())
        return;
    std::uint64_t waiting = 0;
    sd_bus_get_n_queued_write(m_bus, &waiting);
    while (m_queued.size() > waiting) {
        m_queuedBytes -= m_queued.front();
        m_queued.pop_front();
    }
}

std::optional<Time> Transport::deadline() const
{
    if (m_bus == nullptr)
        return std::nullopt;
    if (m_hasMore)
        return 0;
    std::uint64_t time = UINT64_MAX;
    if (sd_bus_get_timeout(m_bus, &time) < 0 || time == UINT64_MAX)
        return std::nullopt;
    return static_cast<Time>(time);
}

void Transport::watch()
{
    // Nothing changes in most calls, and then nothing is done.
    const int events = sd_bus_get_events(m_bus);
    const auto enable = [events](QSocketNotifier* notifier, int event) {
        const bool isWanted = events >= 0 && (events & event) != 0;
        if (notifier->isEnabled() != isWanted)
            notifier->setEnabled(isWanted);
    };
    enable(m_readable, POLLIN);
    enable(m_writable, POLLOUT);
}

void Transport::process()
{
    // A flood must not keep the rest of the program from its turn.
    constexpr int mostInARow = 64;
    const std::uint64_t generation = m_generation;
    const auto isOver = [this, generation] { return m_generation != generation; };
    if (m_handshake && !advanceHandshake()) {
        stop();
        return m_listener.onLost();
    }
    m_hasMore = true;
    for (int i = 0; i < mostInARow && m_hasMore; ++i) {
        sd_bus_message* arrived = nullptr;
        const int result = sd_bus_process(m_bus, &arrived);
        const Message message(arrived);
        if (result < 0 || sd_bus_is_open(m_bus) <= 0) {
            stop();
            return m_listener.onLost();
        }
        m_hasMore = result > 0;
        if (!m_isReady && sd_bus_is_ready(m_bus) > 0) {
            m_isReady = true;
            m_listener.onReady();
        }
        if (isOver())
            return;
        if (arrived != nullptr)
            m_listener.onMessage(message);
        if (isOver())
            return;
    }
    countQueue();
    watch();
    m_listener.onProgress();
}

} // namespace zepa::bus
