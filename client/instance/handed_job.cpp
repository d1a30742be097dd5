// SPDX-License-Identifier: Apache-2.0
#include "client/instance/handed_job.h"

#include "client/client.h"
#include "client/instance/names.h"
#include "platform/bus/session_bus.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <utility>

namespace zepa::instance {

HandedJob::HandedJob(bus::SessionBus& bus, unsigned int number, QString caller, std::unique_ptr<cli::CommandLine> line,
                     cli::Origin origin)
    : m_bus(bus), m_number(number), m_caller(std::move(caller)), m_line(std::move(line)), m_job(std::move(origin), this)
{
    connect(&m_job, &cli::Job::finished, this, &HandedJob::finish);
}

void HandedJob::sayFirst(cli::Stream stream, const QByteArray& text)
{
    m_saidFirst.append({stream, text});
}

void HandedJob::start(Client& client)
{
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

void HandedJob::giveUp()
{
    m_isGivenUp = true;
    if (!m_isStarting)
        delete this;
}

void HandedJob::write(cli::Stream stream, const QByteArray& text)
{
    send(QStringLiteral("Output"), {m_number, stream == cli::Stream::Errors, QString::fromUtf8(text)});
}

void HandedJob::send(const QString& signal, const QVariantList& arguments) const
{
    if (m_isGivenUp || !m_bus.isOpen())
        return;
    QDBusMessage message = QDBusMessage::createTargetedSignal(m_caller, objectPath, interfaceName, signal);
    message.setArguments(arguments);
    m_bus.connection().send(message);
}

void HandedJob::finish()
{
    if (m_isStarting || m_isGivenUp)
        return;
    send(QStringLiteral("Finished"), {m_number, *m_job.code()});
    m_isGivenUp = true;
    Q_EMIT ended(m_number);
    deleteLater();
}

} // namespace zepa::instance
