// SPDX-License-Identifier: Apache-2.0
#include "client/instance/remote_command.h"

#include "client/client.h"
#include "client/instance/bus_name.h"

#include <utility>

namespace zepa::instance {

RemoteCommand::RemoteCommand(bus::Connection& bus, unsigned int number, QByteArray caller,
                             std::unique_ptr<cli::CommandLine> line, cli::Origin origin)
    : m_bus(bus), m_number(number), m_caller(std::move(caller)), m_line(std::move(line)), m_job(std::move(origin), this)
{
    connect(&m_job, &cli::Job::finished, this, &RemoteCommand::finish);
    connect(&m_bus, &bus::Connection::roomForCalls, this, &RemoteCommand::sendWaiting);
}

void RemoteCommand::sayFirst(cli::Stream stream, const QByteArray& text)
{
    m_saidFirst.append({stream, text});
}

void RemoteCommand::start(Client& client)
{
    if (std::exchange(m_hasStarted, true))
        return;
    for (const auto& [stream, text] : std::as_const(m_saidFirst))
        write(stream, text);
    if (!m_line->command())
        return m_job.finish(m_line->code());
    // The command handles events while it starts. Whatever comes in them must not take away what it works on.
    m_isStarting = true;
    m_job.speak([this, &client] { m_line->command()->start(m_line->parser(), client, m_job); });
    m_isStarting = false;
    if (m_isGivenUp)
        delete this;
    else if (m_job.code())
        finish();
}

void RemoteCommand::giveUp()
{
    m_isGivenUp = true;
    if (!m_isStarting)
        delete this;
}

void RemoteCommand::write(cli::Stream stream, const QByteArray& text)
{
    // A NUL ends a text on the bus.
    QString whole = QString::fromUtf8(text);
    whole.replace(QChar::Null, QChar::ReplacementCharacter);
    send(newSignal("Output").append(m_number).append(stream == cli::Stream::Errors).append(whole));
}

bus::Message RemoteCommand::newSignal(const char* member) const
{
    return m_bus.newSignal(objectPath, interfaceName, member, m_caller.constData());
}

void RemoteCommand::send(const bus::Message& signal)
{
    if (m_isGivenUp || !signal.isSound())
        return;
    m_waiting.push_back(signal);
    sendWaiting();
}

/// The way to the bus has its limits, and a caller must miss no line.
void RemoteCommand::sendWaiting()
{
    while (!m_waiting.empty() && m_bus.send(m_waiting.front()))
        m_waiting.pop_front();
    // Says that we want to hear of room.
    if (!m_waiting.empty())
        m_bus.canCall();
    endWhenAllIsSent();
}

void RemoteCommand::finish()
{
    if (m_isStarting || m_isGivenUp || m_hasFinished)
        return;
    m_hasFinished = true;
    send(newSignal("Finished").append(m_number).append(*m_job.code()));
    endWhenAllIsSent();
}

void RemoteCommand::endWhenAllIsSent()
{
    // Without a bus nobody waits for it any more.
    if (!m_hasFinished || m_isGivenUp || (!m_waiting.empty() && m_bus.isOpen()))
        return;
    m_isGivenUp = true;
    Q_EMIT ended(m_number);
    deleteLater();
}

} // namespace zepa::instance
