// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/event.h"
#include "client/cli/play_log.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QList>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace zepa {
class Client;
}

namespace zepa::cli {

/// Announces the events of a script at their times.
class Player
{
public:
    /// `before` is called with each event right before it is announced; it may be empty.
    Player(Client& client, QList<Event> events, PlayLog& log, std::function<void(const Event&)> before = {});

    /// Plays everything and returns when the last event is announced. With `patience`, in seconds, it waits that long
    /// for the answers that are missing then. Returns how many are missing in the end.
    int play(std::optional<double> patience);

private:
    void announceDue();
    double seconds() const;

    Client& m_client;
    const QList<Event> m_events;
    PlayLog& m_log;
    const std::function<void(const Event&)> m_before;
    QElapsedTimer m_clock;
    QTimer m_next;
    QEventLoop m_loop;
    qsizetype m_announced = 0;
    int m_waiting = 0;
    /// Shared with the answers, which may come when this object is gone.
    std::shared_ptr<bool> m_listening = std::make_shared<bool>(true);
};

} // namespace zepa::cli
