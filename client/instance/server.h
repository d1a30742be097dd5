// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/instance/requests.h"

#include <QDBusVirtualObject>
#include <QHash>
#include <QString>
#include <QVariantList>

#include <optional>

namespace zepa {
class Client;
}

namespace zepa::bus {
class SessionBus;
}

namespace zepa::instance {

class HandedJob;

/// What other programs of the session can ask of this client: zepa.Client1.xml describes it. Ask for the bus name only
/// when this object is made: calls come from then on.
class Server final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    /// Both must outlive this object; the bus must be open. The client is started by the first command if nobody has
    /// done that.
    Server(Client& client, bus::SessionBus& bus);
    ~Server() override;

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override;

private Q_SLOTS:
    void hearOfOwner(const QDBusMessage& signal);

private:
    std::optional<Refusal> run(const QDBusMessage& message, QVariantList& answer);
    std::optional<Refusal> cancel(const QDBusMessage& message);
    std::optional<Refusal> activate(const QDBusMessage& message);
    void start(unsigned int number);
    void drop(unsigned int number);
    void forget(unsigned int number);
    void follow(const QString& method, const QString& caller);

    Client& m_client;
    bus::SessionBus& m_bus;
    QHash<unsigned int, HandedJob*> m_jobs;
    unsigned int m_lastNumber = 0;
};

} // namespace zepa::instance
