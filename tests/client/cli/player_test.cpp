// SPDX-License-Identifier: Apache-2.0
#include "client/cli/job.h"
#include "client/cli/player.h"
#include "client/client.h"

#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace {

using namespace zepa;

/// Takes what is said.
class Silence final : public cli::OutputSink
{
public:
    void write(cli::Stream /*stream*/, const QByteArray& text) override { heard += text; }

    QByteArray heard;
};

TEST(PlayerTest, LeavesTheEventLoopItsTurnsWhenManyEventsAreDueAtOnce)
{
    const QTemporaryDir folder;
    Client client(folder.path());
    Silence silence;
    cli::Job job({folder.path(), {}}, &silence);

    int turn = 0;
    QTimer turns;
    QObject::connect(&turns, &QTimer::timeout, &turns, [&turn] { ++turn; });
    turns.start(0);
    std::set<int> turnsWithEvents;
    cli::Event event;
    event.type = u"info_notify"_s;
    event.title = u"T"_s;
    auto* player = new cli::Player(client, job, QList<cli::Event>(200, event), cli::PlayLog::Form::Json,
                                   [&](const cli::Event&) { turnsWithEvents.insert(turn); });
    QEventLoop loop;
    QObject::connect(&job, &cli::Job::finished, &loop, &QEventLoop::quit);
    player->play(std::nullopt);
    loop.exec();

    EXPECT_GE(turnsWithEvents.size(), 200U / 16U);
    EXPECT_EQ(silence.heard.count("\"posted\""), 201); // of each event, and in the summary
    EXPECT_TRUE(silence.heard.contains("\"posted\":200"));
}

} // namespace
