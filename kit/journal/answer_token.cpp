// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/answer_token.h"

#include <utility>

namespace zepa {

AnswerToken::AnswerToken(std::function<void()> work) : m_work(std::move(work))
{}

AnswerToken::~AnswerToken()
{
    if (m_answered)
        m_answered(Answer::TimedOut);
}

ZepaPluginAction AnswerToken::action(const std::shared_ptr<AnswerToken>& token)
{
    return ZepaPluginAction([token] { token->run(); });
}

void AnswerToken::onAnswer(std::function<void(Answer)> answered)
{
    m_answered = std::move(answered);
}

void AnswerToken::run()
{
    if (m_work)
        m_work();
    if (const auto answered = std::exchange(m_answered, {}))
        answered(Answer::Clicked);
}

} // namespace zepa
