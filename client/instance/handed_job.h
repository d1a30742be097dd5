// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/command_line.h"
#include "client/cli/job.h"
#include "client/cli/output.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QPair>
#include <QString>
#include <QVariantList>

#include <functional>
#include <memory>

namespace zepa {
class Client;
}

namespace zepa::bus {
class SessionBus;
}

namespace zepa::instance {

/// A command that another program handed over: carried out here, heard there.
class HandedJob final : public QObject, private cli::OutputSink
{
    Q_OBJECT

public:
    /// `caller` is the other program's unique name on the bus.
    HandedJob(bus::SessionBus& bus, unsigned int number, QString caller, std::unique_ptr<cli::CommandLine> line,
              cli::Origin origin);

    unsigned int number() const { return m_number; }
    const QString& caller() const { return m_caller; }

    /// What was said while the line was taken apart; to be sent with start().
    void sayFirst(cli::Stream stream, const QByteArray& text);
    void start(Client& client);
    /// Nobody wants it any more. The object deletes itself, now or as soon as it can.
    void giveUp();

Q_SIGNALS:
    void ended(unsigned int number);

private:
    void write(cli::Stream stream, const QByteArray& text) override;
    void send(const QString& signal, const QVariantList& arguments) const;
    void finish();

    bus::SessionBus& m_bus;
    const unsigned int m_number;
    const QString m_caller;
    const std::unique_ptr<cli::CommandLine> m_line;
    cli::Job m_job;
    QList<QPair<cli::Stream, QByteArray>> m_saidFirst;
    bool m_isStarting = false;
    bool m_isGivenUp = false;
};

} // namespace zepa::instance
