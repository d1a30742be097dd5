// SPDX-License-Identifier: Apache-2.0
#include "fake_bus.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace {

struct Name
{
    explicit Name(const QByteArray& socketName)
        : length(static_cast<socklen_t>(offsetof(sockaddr_un, sun_path)) + static_cast<socklen_t>(socketName.size()))
    {
        address.sun_family = AF_UNIX;
        std::copy_n(socketName.begin(), std::min<std::size_t>(socketName.size(), sizeof address.sun_path - 1),
                    std::begin(address.sun_path));
    }
    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&address); }

    sockaddr_un address = {};
    socklen_t length;
};

int newSocket()
{
    return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

bool connects(int socket, const QByteArray& socketName)
{
    const Name name(socketName);
    return ::connect(socket, name.get(), name.length) == 0;
}

} // namespace

FakeBus::FakeBus(const QByteArray& socketName, Manner manner, QList<QByteArray> answers)
    : m_name(socketName), m_manner(manner), m_answers(std::move(answers)), m_socket(newSocket())
{
    const Name name(socketName);
    m_listens = bind(m_socket, name.get(), name.length) == 0 && listen(m_socket, 1) == 0;
    m_arrivals = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    QObject::connect(m_arrivals.get(), &QSocketNotifier::activated, m_arrivals.get(), [this] { accept(); });
}

FakeBus::~FakeBus()
{
    m_arrivals.reset();
    for (const auto& client : m_clients) {
        client->readable.reset();
        close(client->socket);
    }
    close(m_socket);
    if (!m_name.startsWith('\0'))
        unlink(m_name.constData());
}

int FakeBus::openCount() const
{
    return static_cast<int>(
        std::count_if(m_clients.begin(), m_clients.end(), [](const auto& client) { return client->isOpen; }));
}

QByteArray FakeBus::heard() const
{
    QByteArray all;
    for (const auto& client : m_clients)
        all += client->heard;
    return all;
}

void FakeBus::accept()
{
    const int socket = accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (socket < 0)
        return;
    m_clients.push_back(std::make_unique<Client>());
    Client& client = *m_clients.back();
    client.socket = socket;
    if (m_manner == Manner::HangsUp) {
        shutdown(socket, SHUT_RDWR);
        client.isOpen = false;
        return;
    }
    client.readable = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read);
    QObject::connect(client.readable.get(), &QSocketNotifier::activated, client.readable.get(),
                     [this, &client] { read(client); });
}

void FakeBus::read(Client& client) const
{
    std::array<char, 1024> bytes = {};
    const ssize_t count = recv(client.socket, bytes.data(), bytes.size(), 0);
    if (count <= 0) {
        client.isOpen = false;
        client.readable->setEnabled(false);
        return;
    }
    client.heard += QByteArray(bytes.data(), count);
    const bool isLine = bytes.at(static_cast<std::size_t>(count - 1)) == '\n';
    if (m_manner != Manner::Answers || !isLine || client.answers >= m_answers.size())
        return;
    const QByteArray& answer = m_answers[client.answers++];
    [[maybe_unused]] const ssize_t sent =
        send(client.socket, answer.constData(), static_cast<std::size_t>(answer.size()), MSG_NOSIGNAL);
}

Visitor::Visitor(const QByteArray& socketName) : m_socket(newSocket()), m_isIn(connects(m_socket, socketName))
{}

Visitor::~Visitor()
{
    close(m_socket);
}
