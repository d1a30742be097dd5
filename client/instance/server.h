// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/instance/requests.h"

#include <QDBusServiceWatcher>
#include <QDBusVirtualObject>
#include <QHash>
#include <QString>
#include <QVariantList>

#include <optional>

namespace zepa {
class Client;
}

namespace zepa::instance {

class HandedJob;

/// What other programs of the session can ask of this client: zepa.Client1.xml describes it. Ask for the bus name only
/// when this object is made: calls come from then on.
class Server final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    /// The client must outlive this object. It is started by the first command if nobody has done that.
    explicit Server(Client& client);
    ~Server() override;

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override;

private:
    std::optional<Refusal> run(const QDBusMessage& message, QVariantList& answer);
    std::optional<Refusal> cancel(const QDBusMessage& message);
    std::optional<Refusal> activate(const QDBusMessage& message);
    void start(unsigned int number);
    void drop(unsigned int number);
    void forget(unsigned int number);
    void forgetCaller(const QString& caller);

    Client& m_client;
    QDBusServiceWatcher m_callers;
    QHash<unsigned int, HandedJob*> m_jobs;
    unsigned int m_lastNumber = 0;
};

} // namespace zepa::instance
