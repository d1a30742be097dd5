// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <zepa_platform/bus.h>

#include <QByteArray>

#include <functional>
#include <memory>
#include <vector>

namespace zepa::bus {

class NameOwner;

/// The rule with which the bus is asked for such signals.
QByteArray matchRule(const SignalMatch& match);

/// The signals that are wanted, and what the bus said to each match.
class SignalTable
{
public:
    explicit SignalTable(ConnectionCore& core) : m_core(core) {}

    std::shared_ptr<void> add(const SignalMatch& match, std::function<void(const Message&)> handler,
                              std::function<void(const QString&)> failed);
    void dispatch(const Message& signal);
    /// Asks the bus for each match.
    void onOpened();
    void onLost();
    /// Asks for those that were refused.
    void askAgain();

private:
    enum class Standing { NotAsked, Asked, Granted, Refused };
    struct Entry
    {
        SignalMatch match;
        std::function<void(const Message&)> handler;
        std::function<void(const QString&)> failed;
        std::shared_ptr<NameOwner> owner; ///< of a well-known sender
        Standing standing = Standing::NotAsked;
        bool hasEnded = false;
    };

    void ask(const std::shared_ptr<Entry>& entry);
    void onAnswer(const std::shared_ptr<Entry>& entry, const Message& reply);
    void release(const Entry& entry);
    void end(Entry& entry);
    static bool accepts(const Entry& entry, const Message& signal);

    ConnectionCore& m_core;
    std::vector<std::shared_ptr<Entry>> m_entries;
};

} // namespace zepa::bus
