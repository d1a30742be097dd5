// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/command_line.h"
#include "client/cli/job.h"
#include "client/cli/output.h"

#include <zepa_platform/bus.h>

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QPair>
#include <QString>

#include <deque>
#include <functional>
#include <memory>

namespace zepa {
class Client;
}

namespace zepa::instance {

/// A command that another program handed over: carried out here, its output sent there.
class RemoteCommand final : public QObject, private cli::OutputSink
{
    Q_OBJECT

public:
    /// `caller` is the other program's unique name on the bus.
    RemoteCommand(bus::Connection& bus, unsigned int number, QByteArray caller, std::unique_ptr<cli::CommandLine> line,
                  cli::Origin origin);

    unsigned int number() const { return m_number; }
    const QByteArray& caller() const { return m_caller; }

    /// What was said while the line was taken apart; to be sent with start().
    void sayFirst(cli::Stream stream, const QByteArray& text);
    /// Only the first time counts.
    void start(Client& client);
    /// Nobody wants it any more. The object deletes itself, now or as soon as it can.
    void giveUp();

Q_SIGNALS:
    void ended(unsigned int number);

private:
    void write(cli::Stream stream, const QByteArray& text) override;
    bus::Message newSignal(const char* member) const;
    void send(const bus::Message& signal);
    void sendWaiting();
    void finish();
    void endWhenAllIsSent();

    bus::Connection& m_bus;
    const unsigned int m_number;
    const QByteArray m_caller;
    const std::unique_ptr<cli::CommandLine> m_line;
    cli::Job m_job;
    QList<QPair<cli::Stream, QByteArray>> m_saidFirst;
    std::deque<bus::Message> m_waiting; ///< for room on the way to the bus
    bool m_hasStarted = false;
    bool m_isStarting = false;
    bool m_hasFinished = false;
    bool m_isGivenUp = false;
};

} // namespace zepa::instance
