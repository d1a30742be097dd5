// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/bus/session_bus.h"

#include <QByteArray>
#include <QDBusMessage>
#include <QEventLoop>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>

namespace zepa::instance {

/// Connects to the session bus. False when there is none, or none that answers within two seconds. Handles events.
bool openBus(bus::SessionBus& bus);

/// From the side of a program that is started while a client with the same settings runs. A client that does not
/// answer is given five seconds. Needs an application object; handles events.
class Errand : public QObject
{
    Q_OBJECT

public:
    /// `busName` is the client's. The bus must be open, and outlive this object.
    Errand(bus::SessionBus& bus, QString busName);

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

private Q_SLOTS:
    void hear(const QDBusMessage& signal);
    void hearOfOwner(const QDBusMessage& signal);

private:
    QDBusMessage ask(const QDBusMessage& question);
    QDBusMessage callTo(const QString& method, const QVariantList& arguments) const;
    int follow(const QString& owner, unsigned int job);
    void obey(const QDBusMessage& signal);

    bus::SessionBus& m_bus;
    const QString m_busName;
    QString m_owner;
    unsigned int m_job = 0;
    QList<QDBusMessage> m_heard;
    std::optional<int> m_code;
    QEventLoop m_loop;
};

} // namespace zepa::instance
