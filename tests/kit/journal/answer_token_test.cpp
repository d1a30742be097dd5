// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/answer_token.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace {

using zepa::Answer;
using zepa::AnswerToken;

struct Listener
{
    std::vector<Answer> answers;

    std::function<void(Answer)> function()
    {
        return [this](Answer answer) { answers.push_back(answer); };
    }
};

/// A copy of an action, as the library keeps one, with the token's end in its own hands.
std::optional<ZepaPluginAction> kept(std::function<void()> work, Listener& listener)
{
    const auto token = std::make_shared<AnswerToken>(std::move(work));
    token->onAnswer(listener.function());
    return AnswerToken::action(token);
}

TEST(AnswerTokenTest, ARunIsAClickAndDoesTheWorkFirst)
{
    Listener listener;
    std::size_t answersAtWork = 99;
    auto action = kept([&] { answersAtWork = listener.answers.size(); }, listener);
    (*action)();
    EXPECT_EQ(answersAtWork, 0U);
    EXPECT_EQ(listener.answers, std::vector{Answer::Clicked});
    action.reset();
    EXPECT_EQ(listener.answers.size(), 1U);
}

TEST(AnswerTokenTest, TheLastCopyGoneWithoutARunIsATimeOut)
{
    Listener listener;
    auto action = kept({}, listener);
    std::optional<ZepaPluginAction> copy = action;
    action.reset();
    EXPECT_TRUE(listener.answers.empty());
    copy.reset();
    EXPECT_EQ(listener.answers, std::vector{Answer::TimedOut});
}

TEST(AnswerTokenTest, TwoRunsAreOneAnswer)
{
    Listener listener;
    const auto action = kept({}, listener);
    (*action)();
    (*action)();
    EXPECT_EQ(listener.answers.size(), 1U);
}

TEST(AnswerTokenTest, NobodyIsToldWhoDidNotAsk)
{
    int runs = 0;
    {
        const auto token = std::make_shared<AnswerToken>([&runs] { ++runs; });
        AnswerToken::action(token)();
    }
    EXPECT_EQ(runs, 1);
}

TEST(AnswerTokenTest, IsValidEvenWithoutWork)
{
    EXPECT_TRUE(AnswerToken::action(std::make_shared<AnswerToken>(std::function<void()>())).isValid());
}

} // namespace
