// SPDX-License-Identifier: Apache-2.0
#include "bus/signal_table.h"

#include "bus/bus_log.h"
#include "bus/connection_core.h"

#include <QVarLengthArray>

#include <algorithm>
#include <utility>

namespace zepa::bus {

QByteArray matchRule(const SignalMatch& match)
{
    QByteArray rule = "type='signal'";
    const auto add = [&rule](const char* key, QByteArray value) {
        if (!value.isEmpty())
            rule += QByteArray(",") + key + "='" + value.replace("'", "'\\''") + '\'';
    };
    add("sender", match.sender);
    add("path", match.path);
    add("interface", match.interface);
    add("member", match.member);
    add("arg0", match.firstArgument);
    return rule;
}

std::shared_ptr<void> SignalTable::add(const SignalMatch& match, std::function<void(const Message&)> handler,
                                       std::function<void(const QString&)> failed)
{
    auto entry = std::make_shared<Entry>();
    entry->match = match;
    entry->handler = std::move(handler);
    entry->failed = std::move(failed);
    if (isWellKnown(match.sender))
        entry->owner = m_core.owners().follow(match.sender);
    m_entries.push_back(entry);
    ask(entry);
    // What the caller holds: when it goes, the match goes, whichever of table and caller is there longer.
    const auto end = [entry, core = m_core.weak_from_this()](void*) {
        entry->hasEnded = true;
        if (const auto living = core.lock())
            living->signalTable().end(*entry);
    };
    return {static_cast<void*>(entry.get()), end};
}

void SignalTable::ask(const std::shared_ptr<Entry>& entry)
{
    if (entry->match.isDirected || !m_core.isOpen())
        return;
    entry->standing = Standing::Asked;
    Message question = m_core.busCall("AddMatch");
    question.append(matchRule(entry->match).constData());
    m_core.call(question, nullptr, [this, entry](const Message& reply) { onAnswer(entry, reply); });
}

void SignalTable::onAnswer(const std::shared_ptr<Entry>& entry, const Message& reply)
{
    if (!m_core.isOpen())
        return;
    entry->standing = reply.isError() ? Standing::Refused : Standing::Granted;
    if (entry->hasEnded) {
        release(*entry);
        return;
    }
    if (!reply.isError())
        return;
    qCInfo(busLog) << "the bus refuses a match:" << reply.errorName();
    m_core.askAgainLater();
    if (entry->failed)
        entry->failed(reply.errorName());
}

/// The bus counts equal rules: only what it granted is taken back.
void SignalTable::release(const Entry& entry)
{
    if (entry.standing != Standing::Granted || !m_core.isOpen())
        return;
    Message goodbye = m_core.busCall("RemoveMatch");
    goodbye.append(matchRule(entry.match).constData());
    m_core.send(goodbye);
}

void SignalTable::end(Entry& entry)
{
    release(entry);
    std::erase_if(m_entries, [&entry](const auto& other) { return other.get() == &entry; });
}

bool SignalTable::accepts(const Entry& entry, const Message& signal)
{
    const SignalMatch& match = entry.match;
    const auto fits = [](const QByteArray& wanted, QLatin1StringView value) {
        return wanted.isEmpty() || value == QLatin1StringView(wanted);
    };
    if (!fits(match.member, signal.member()) || !fits(match.interface, signal.interface()) ||
        !fits(match.path, signal.path()))
        return false;
    const QByteArray& sender = entry.owner ? entry.owner->owner() : match.sender;
    if (entry.owner ? sender.isEmpty() || signal.sender() != QLatin1StringView(sender) : !fits(sender, signal.sender()))
        return false;
    if (match.firstArgument.isEmpty())
        return true;
    QString first;
    return MessageReader(signal).read(first) && first == QString::fromUtf8(match.firstArgument);
}

void SignalTable::dispatch(const Message& signal)
{
    // Handlers may add and end subscriptions.
    constexpr qsizetype usual = 8;
    QVarLengthArray<std::shared_ptr<Entry>, usual> wanted;
    for (const auto& entry : m_entries) {
        if (accepts(*entry, signal))
            wanted.push_back(entry);
    }
    for (const auto& entry : wanted) {
        if (!entry->hasEnded)
            entry->handler(signal);
    }
}

void SignalTable::onOpened()
{
    const auto entries = m_entries;
    for (const auto& entry : entries)
        ask(entry);
}

void SignalTable::onLost()
{
    for (const auto& entry : m_entries)
        entry->standing = Standing::NotAsked;
}

void SignalTable::askAgain()
{
    const auto entries = m_entries;
    for (const auto& entry : entries) {
        if (entry->standing == Standing::Refused)
            ask(entry);
    }
}

} // namespace zepa::bus
