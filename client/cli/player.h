// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/event.h"
#include "client/cli/play_log.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

namespace zepa {
class Client;
}

namespace zepa::cli {

class Job;

/// Announces the events of a script at their times, for a job whose child it is. The job finishes with it.
class Player : public QObject
{
    Q_OBJECT

public:
    /// `before` is called with each event right before it is announced; it may be empty.
    Player(Client& client, Job& job, QList<Event> events, PlayLog::Form form,
           std::function<void(const Event&)> before = {});

    /// Begins. The job finishes when the last event is announced; with `patience`, in seconds, when the answers are
    /// there that are missing then, or when that time is over.
    void play(std::optional<double> patience);

private:
    void announceDue();
    void announceNext();
    void answered(const Event& event, Answer answer);
    void finish();
    double seconds() const;

    Client& m_client;
    Job& m_job;
    const QList<Event> m_events;
    PlayLog m_log;
    const std::function<void(const Event&)> m_before;
    std::optional<double> m_patience;
    QElapsedTimer m_clock;
    QTimer m_next;
    qsizetype m_announced = 0;
    int m_waiting = 0;
};

} // namespace zepa::cli
