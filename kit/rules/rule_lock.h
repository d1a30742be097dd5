// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>

namespace zepa {

/// Keeps other clients on this machine away from the rule files in a folder. Hold it while reading or writing them.
///
/// It is an advisory lock of the folder itself, so to take it writes nothing, and it goes with its process, however
/// that ends. Two objects exclude each other in one process, too.
class RuleLock
{
public:
    /// How long anyone waits for it.
    static constexpr std::chrono::milliseconds timeout{2000};

    /// `folder` is the one with rule files. Takes nothing yet.
    explicit RuleLock(const QString& folder);
    /// Gives it back.
    ~RuleLock();
    Q_DISABLE_COPY_MOVE(RuleLock)

    /// Takes it if it is free. Never waits.
    bool tryNow();
    /// Waits for it, at most `timeout`. Blocks the thread. At once false when it is not possible.
    bool wait();
    /// Begins to wait without blocking: isHeld() tells.
    void beginWaiting();

    bool isHeld() const;
    /// False when there is no such folder, or none that may be read: there is nothing to be locked then.
    bool isPossible() const;

private:
    struct State;
    const std::shared_ptr<State> m_state;
};

/// Calls `then` with the lock when it is held; or with one that is not held, after RuleLock::timeout or when it is not
/// possible. At once when there is nothing to wait for. Never blocks, and never calls when `context` is gone.
void whenLocked(const QString& folder, QObject* context, const std::function<void(RuleLock&)>& then);

} // namespace zepa
