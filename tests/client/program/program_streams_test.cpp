// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

/// The program with standard streams that are closed or do not work.
class ProgramStreams : public Program
{
protected:
    /// Runs it by a shell that redirects its streams: "> /dev/full".
    Outcome redirected(const QString& redirection, const QStringList& arguments)
    {
        QDir(inFolder(QString())).mkdir(u"settings"_s);
        QProcess shell;
        shell.setProcessEnvironment(environment);
        shell.setWorkingDirectory(inFolder(QString()));
        shell.start(u"/bin/sh"_s,
                    QStringList{u"-c"_s, u"exec \"$0\" \"$@\" "_s + redirection, QString::fromUtf8(ZEPA_PROGRAM)} +
                        arguments + QStringList{u"--settings"_s, inFolder(u"settings"_s)});
        return finish(shell);
    }

    const QStringList m_types{u"types"_s};
    const QStringList m_play{u"play"_s, u"-"_s};
};

TEST_F(ProgramStreams, SaysWhenStandardOutputCannotBeWritten)
{
    const Outcome full = redirected(u"> /dev/full"_s, m_types);
    EXPECT_EQ(full.code, 1);
    EXPECT_EQ(full.err.toStdString(), "zepa: cannot write to standard output: No space left on device\n");
    const Outcome closed = redirected(u">&-"_s, m_types);
    EXPECT_EQ(closed.code, 1);
    EXPECT_EQ(closed.err.toStdString(), "zepa: cannot write to standard output: Bad file descriptor\n");
    EXPECT_EQ(redirected(u"> /dev/full"_s, {u"--help"_s}).code, 1);
}

TEST_F(ProgramStreams, NeedsNoStandardOutputWhereNothingIsSaid)
{
    const QStringList rule{u"rule"_s, u"set"_s, u"message_sent"_s, u"zepa_sound_notification_method"_s};
    const Outcome outcome = redirected(u">&-"_s, rule);
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
}

TEST_F(ProgramStreams, KeepsTheExitCodeOfAMistake)
{
    EXPECT_EQ(redirected(u"> /dev/full"_s, {u"frobnicate"_s}).code, 2);
    EXPECT_EQ(redirected(u">&- 2>&-"_s, {u"frobnicate"_s}).code, 2);
}

TEST_F(ProgramStreams, TakesNoUnreadableInputForAnEmptyScript)
{
    for (const char* redirection : {"< /", "<&-"}) {
        const Outcome outcome = redirected(QString::fromLatin1(redirection), m_play);
        EXPECT_EQ(outcome.code, 2) << redirection;
        EXPECT_TRUE(outcome.err.startsWith(u"zepa: cannot read standard input"_s))
            << redirection << outcome.err.toStdString();
    }
    const Outcome empty = redirected(u"< /dev/null"_s, m_play);
    EXPECT_EQ(empty.code, 0) << empty.err.toStdString();
}

TEST_F(ProgramStreams, ReadsNoEndlessInput)
{
    const Outcome outcome = redirected(u"< /dev/zero"_s, m_play);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.err.contains(u"standard input is too large (limit 16 MiB)"_s)) << outcome.err.toStdString();
}

} // namespace
