// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/plugin_action.h"

#include <QtGlobal>

#include <functional>
#include <memory>

namespace zepa {

/// What became of a pop-up. A time-out and a pop-up that the user closed are one and the same to the library.
enum class Answer { Clicked, TimedOut };

/// Learns from the life of an action what became of the pop-up that carries it.
///
/// The library keeps a copy of the action while a pop-up waits, and drops it when the pop-up went away without a
/// click; it tells nobody. So all copies share one token: a run is a click, and when the last copy goes without a
/// run, there was none.
class AnswerToken
{
public:
    explicit AnswerToken(std::function<void()> work);
    ~AnswerToken();
    Q_DISABLE_COPY_MOVE(AnswerToken)

    /// An action that does the token's work and keeps the token alive.
    static ZepaPluginAction action(const std::shared_ptr<AnswerToken>& token);

    /// Calls `answered` once, in the moment of the answer. The function must not destroy the token.
    void onAnswer(std::function<void(Answer)> answered);

private:
    void run();

    std::function<void()> m_work;
    std::function<void(Answer)> m_answered;
};

} // namespace zepa
