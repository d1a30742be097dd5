// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <zepa_platform/bus.h>

#include <QByteArray>
#include <QEventLoop>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace zepa::instance {

/// Connects to the session bus. False when there is none, or none that answers within two seconds; the connection goes
/// on trying. Handles events.
bool openBus(bus::Connection& bus);

/// The running client with the same settings, from the side of a program that is started meanwhile. A client that does
/// not answer is given five seconds. Needs an application object; handles events.
class RemoteClient
{
public:
    /// `busName` is the client's. The bus must outlive this object.
    RemoteClient(bus::Connection& bus, QByteArray busName);

    /// Hands the command line over, passes on what the command says, and gives its exit code. Nothing when there is
    /// no such client.
    std::optional<int> handOver(const QStringList& arguments, const QString& folder, const QByteArray& input);

    enum class Claim {
        First,  ///< the name is ours
        Second, ///< another client has it, and its window is in front now
        Failed  ///< another client has it and does not answer or refuses, which was said
    };
    /// Takes the name or, when somebody has it, asks for the window; `token` is the desktop's for that.
    Claim claim(const QString& token);

private:
    bus::Message newCall(const char* method);
    bus::Message call(const bus::Message& question);
    bus::NameResult requestName();
    int waitForResult(const QByteArray& client, unsigned int job);
    void handleSignal(const bus::Message& signal);

    bus::Connection& m_bus;
    const QByteArray m_busName;
    QByteArray m_client; ///< its unique name, once it has answered
    unsigned int m_job = 0;
    QList<bus::Message> m_early;
    std::optional<int> m_code;
    QEventLoop m_loop;
};

} // namespace zepa::instance
