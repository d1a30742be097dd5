// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QList>
#include <QSocketNotifier>

#include <memory>
#include <vector>

/// A socket that passes for a bus: accepts whoever comes and says to each line what the test wants, or nothing at all.
/// Works in the test's event loop, so that it never answers while the tested code runs.
class FakeBus
{
public:
    enum class Manner { Silent, HangsUp, Answers };

    /// `socketName` is a path, or an abstract name that begins with NUL. On each connection one of `answers` is said
    /// for each line, in their order, as long as there are some.
    explicit FakeBus(const QByteArray& socketName, Manner manner = Manner::Silent, QList<QByteArray> answers = {});
    ~FakeBus();
    FakeBus(const FakeBus&) = delete;
    FakeBus& operator=(const FakeBus&) = delete;

    /// Whether the socket could be made.
    bool listens() const { return m_listens; }
    /// Nobody is accepted any more: a stuck bus. Those that come wait in the queue, which has room for one or two.
    void stopAccepting() { m_arrivals->setEnabled(false); }
    int connectionCount() const { return static_cast<int>(m_clients.size()); }
    /// Connections whose other side has not hung up.
    int openCount() const;
    /// Everything that was said to it, on all connections.
    QByteArray heard() const;

private:
    struct Client
    {
        int socket = -1;
        QByteArray heard;
        qsizetype answers = 0;
        bool isOpen = true;
        std::unique_ptr<QSocketNotifier> readable;
    };

    void accept();
    void read(Client& client) const;

    const QByteArray m_name;
    const Manner m_manner;
    const QList<QByteArray> m_answers;
    const int m_socket;
    bool m_listens = false;
    std::unique_ptr<QSocketNotifier> m_arrivals;
    std::vector<std::unique_ptr<Client>> m_clients;
};

/// Connects to a listening socket and stays; closed with this object. For filling a queue.
class Visitor
{
public:
    explicit Visitor(const QByteArray& socketName);
    ~Visitor();
    Visitor(const Visitor&) = delete;
    Visitor& operator=(const Visitor&) = delete;

    bool isIn() const { return m_isIn; }

private:
    const int m_socket;
    const bool m_isIn;
};
