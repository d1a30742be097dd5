// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QString>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>

namespace zepa::instance {

/// Questions about callers that may stay without an answer for ever, each in a thread of its own that nobody waits for,
/// not even the end of the program.
class CallerLookups final : public QObject
{
public:
    /// So many threads at most, those included that are stuck.
    static constexpr int mostAtOnce = 8;

    /// After `limit`, a question counts as not answered.
    explicit CallerLookups(std::chrono::milliseconds limit);

    /// `question` gives why a caller is refused, "" for nothing; it must own all that it needs. Calls `done` with that,
    /// or with the reason why there is no answer: later, from the event loop, or at once when too many are under way.
    /// Does not call it any more when this object is gone.
    void ask(std::function<QString()> question, std::function<void(const QString&)> done);

private:
    const std::chrono::milliseconds m_limit;
    const std::shared_ptr<std::atomic<int>> m_running;
};

} // namespace zepa::instance
