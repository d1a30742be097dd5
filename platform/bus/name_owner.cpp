// SPDX-License-Identifier: Apache-2.0
#include "bus/name_owner.h"

#include "bus/connection_core.h"

#include <algorithm>
#include <utility>

namespace zepa::bus {

bool isWellKnown(const QByteArray& name)
{
    return !name.isEmpty() && !name.startsWith(':') && name != busName;
}

NameOwner::NameOwner(ConnectionCore& core, const QByteArray& name) : m_core(core), m_name(name)
{}

void NameOwner::start()
{
    const SignalMatch match{.sender = busName,
                            .path = busPath,
                            .interface = busName,
                            .member = "NameOwnerChanged",
                            .firstArgument = m_name};
    m_match = m_core.signalTable().add(match, [this](const Message& signal) { onChanged(signal); }, {});
    ask();
}

void NameOwner::ask()
{
    if (!m_core.isOpen())
        return;
    Message question = m_core.busCall("GetNameOwner");
    question.append(m_name.constData());
    m_core.call(question, nullptr, [weak = weak_from_this(), changes = m_changes](const Message& reply) {
        if (const auto self = weak.lock())
            self->onAnswer(reply, changes);
    });
}

void NameOwner::onAnswer(const Message& reply, quint64 changes)
{
    // What the bus told meanwhile is newer.
    if (!m_core.isOpen() || changes != m_changes)
        return;
    QString owner;
    if (reply.isError() || !MessageReader(reply).read(owner)) {
        m_wasRefused = reply.errorName() != QLatin1StringView("org.freedesktop.DBus.Error.NameHasNoOwner");
        if (m_wasRefused)
            m_core.askAgainLater();
    }
    set(owner.toLatin1(), true);
}

void NameOwner::onChanged(const Message& signal)
{
    QString name;
    QString oldOwner;
    QString newOwner;
    if (!MessageReader(signal).read(name, oldOwner, newOwner))
        return;
    ++m_changes;
    m_wasRefused = false;
    set(newOwner.toLatin1(), true);
}

void NameOwner::onOpened()
{
    ask();
    tell([](Listener& listener) { listener.onOpened(); });
}

void NameOwner::onLost()
{
    ++m_changes;
    m_wasRefused = false;
    tell([](Listener& listener) { listener.onLost(); });
    set(QByteArray(), false);
}

void NameOwner::askAgain()
{
    if (std::exchange(m_wasRefused, false))
        ask();
    tell([](Listener& listener) { listener.onAskAgain(); });
}

void NameOwner::set(const QByteArray& owner, bool isKnown)
{
    const auto self = shared_from_this();
    const bool becameKnown = isKnown != std::exchange(m_isKnown, isKnown);
    const QByteArray oldOwner = std::exchange(m_owner, owner);
    if (oldOwner != owner)
        tell([&](Listener& listener) { listener.onOwnerChanged(oldOwner, owner); });
    if (becameKnown || oldOwner != owner)
        tell([](Listener& listener) { listener.onKnown(); });
}

template <typename Function>
void NameOwner::tell(Function function)
{
    // Listeners come and go while they are told.
    const auto listeners = m_listeners;
    for (Listener* listener : listeners) {
        if (std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end())
            function(*listener);
    }
}

std::shared_ptr<NameOwner> NameOwners::follow(QByteArrayView name)
{
    for (const auto& weak : m_names) {
        if (auto followed = weak.lock(); followed && followed->name() == name)
            return followed;
    }
    auto followed = std::make_shared<NameOwner>(m_core, name.toByteArray());
    std::erase_if(m_names, [](const auto& weak) { return weak.expired(); });
    m_names.push_back(followed);
    followed->start();
    return followed;
}

std::vector<std::shared_ptr<NameOwner>> NameOwners::living()
{
    std::vector<std::shared_ptr<NameOwner>> names;
    for (const auto& weak : m_names) {
        if (auto name = weak.lock())
            names.push_back(std::move(name));
    }
    return names;
}

void NameOwners::onOpened()
{
    for (const auto& name : living())
        name->onOpened();
}

void NameOwners::onLost()
{
    for (const auto& name : living())
        name->onLost();
}

void NameOwners::askAgain()
{
    for (const auto& name : living())
        name->askAgain();
}

} // namespace zepa::bus
