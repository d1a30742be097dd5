// SPDX-License-Identifier: Apache-2.0
// The real speaker and a real sound server: what a person would hear.
#include "kit/extra_methods/speech/speech_method.h"

#include "posting_support.h"
#include "tests/kit/sound/log_lines.h"
#include "tests/kit/sound/sound_server.h"

#include <QStandardPaths>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

double loudness(const std::vector<float>& samples)
{
    double sum = 0;
    for (const float sample : samples)
        sum += static_cast<double>(sample) * static_cast<double>(sample);
    return samples.empty() ? 0 : std::sqrt(sum / static_cast<double>(samples.size()));
}

TEST(Spoken, EventsAreHeardFromTheSoundServer)
{
    if (const QString missing = SoundServer::missing(); !missing.isEmpty())
        GTEST_SKIP() << missing.toStdString();
    if (QStandardPaths::findExecutable(u"espeak-ng"_s).isEmpty())
        GTEST_SKIP() << "espeak-ng is not installed";
    SoundServer server;
    ASSERT_TRUE(server.start());
    SoundRecorder recorder(server);
    ASSERT_TRUE(recorder.isRunning());
    EXPECT_EQ(loudness(recorder.take(0.3)), 0) << "silence before";

    const LogLines log;
    zepa::SpeechMethod method;
    MethodCall(method).post(u"Ann"_s, u"Shall we have lunch at eight?"_s);
    EXPECT_TRUE(handleEventsUntil([&method] { return method.unfinished() == 0; }));
    EXPECT_GT(loudness(recorder.take(0.3)), 0.01);
    EXPECT_TRUE(log.lines().isEmpty());
}

} // namespace
