// SPDX-License-Identifier: Apache-2.0
#include "bus/connection_core.h"

#include <utility>

namespace zepa::bus {

struct ServiceWatcher::State final : NameOwner::Listener
{
    State(ServiceWatcher& theWatcher, std::shared_ptr<ConnectionCore> theCore, const QByteArray& name)
        : watcher(theWatcher), core(std::move(theCore)), owner(core->owners().follow(name))
    {
        owner->add(*this);
    }
    ~State() override { owner->remove(*this); }
    Q_DISABLE_COPY_MOVE(State)

    void onOwnerChanged(const QByteArray& oldOwner, const QByteArray& newOwner) override
    {
        Q_EMIT watcher.ownerChanged(oldOwner, newOwner);
    }
    void onKnown() override { Q_EMIT watcher.changed(); }
    void onOpened() override
    {
        if (match)
            askActivatable();
    }
    void onLost() override { activatable.reset(); }
    void onAskAgain() override
    {
        if (std::exchange(wasRefused, false))
            askActivatable();
    }

    void followActivatable();
    void askActivatable();
    void onActivatable(const Message& reply);

    ServiceWatcher& watcher;
    const std::shared_ptr<ConnectionCore> core;
    const std::shared_ptr<NameOwner> owner;
    std::shared_ptr<void> match; ///< of changes of what can be started
    std::optional<bool> activatable;
    bool wasRefused = false;
};

void ServiceWatcher::State::followActivatable()
{
    if (match)
        return;
    const SignalMatch signal{
        .sender = busName, .path = busPath, .interface = busName, .member = "ActivatableServicesChanged"};
    match = core->signalTable().add(signal, [this](const Message&) { askActivatable(); }, {});
    askActivatable();
}

void ServiceWatcher::State::askActivatable()
{
    if (core->isOpen())
        core->call(core->busCall("ListActivatableNames"), &watcher,
                   [this](const Message& reply) { onActivatable(reply); });
}

void ServiceWatcher::State::onActivatable(const Message& reply)
{
    if (!core->isOpen())
        return;
    QStringList names;
    wasRefused = reply.isError() || !MessageReader(reply).read(names);
    if (wasRefused)
        core->askAgainLater();
    activatable = names.contains(QString::fromLatin1(owner->name()));
    Q_EMIT watcher.changed();
}

ServiceWatcher::ServiceWatcher(Connection& connection, const QByteArray& name, QObject* parent)
    : QObject(parent), m_state(std::make_unique<State>(*this, connection.m_core, name))
{}

ServiceWatcher::~ServiceWatcher() = default;

bool ServiceWatcher::isKnown() const
{
    return m_state->owner->isKnown();
}

QByteArray ServiceWatcher::owner() const
{
    return m_state->owner->owner();
}

std::optional<bool> ServiceWatcher::isActivatable()
{
    m_state->followActivatable();
    return m_state->activatable;
}

} // namespace zepa::bus
