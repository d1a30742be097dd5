// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QDir>

namespace {

/// The program with standard streams that are closed or do not work.
class ProgramStreams : public Program
{
protected:
    /// Runs it by a shell that redirects its streams: "> /dev/full".
    Outcome redirected(const QString& redirection, const QStringList& arguments)
    {
        QDir(inFolder(QString())).mkdir(QStringLiteral("settings"));
        QProcess shell;
        shell.setProcessEnvironment(environment);
        shell.setWorkingDirectory(inFolder(QString()));
        shell.start(QStringLiteral("/bin/sh"),
                    QStringList{QStringLiteral("-c"), QStringLiteral("exec \"$0\" \"$@\" ") + redirection,
                                QStringLiteral(ZEPA_PROGRAM)} +
                        arguments + QStringList{QStringLiteral("--settings"), inFolder(QStringLiteral("settings"))});
        return finish(shell);
    }

    const QStringList m_types{QStringLiteral("types")};
    const QStringList m_play{QStringLiteral("play"), QStringLiteral("-")};
};

TEST_F(ProgramStreams, SaysWhenStandardOutputCannotBeWritten)
{
    const Outcome full = redirected(QStringLiteral("> /dev/full"), m_types);
    EXPECT_EQ(full.code, 1);
    EXPECT_EQ(full.err.toStdString(), "zepa: cannot write to standard output: No space left on device\n");
    const Outcome closed = redirected(QStringLiteral(">&-"), m_types);
    EXPECT_EQ(closed.code, 1);
    EXPECT_EQ(closed.err.toStdString(), "zepa: cannot write to standard output: Bad file descriptor\n");
    EXPECT_EQ(redirected(QStringLiteral("> /dev/full"), {QStringLiteral("--help")}).code, 1);
}

TEST_F(ProgramStreams, NeedsNoStandardOutputWhereNothingIsSaid)
{
    const QStringList rule{QStringLiteral("rule"), QStringLiteral("set"), QStringLiteral("message_sent"),
                           QStringLiteral("zepa_sound_notification_method")};
    const Outcome outcome = redirected(QStringLiteral(">&-"), rule);
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
}

TEST_F(ProgramStreams, KeepsTheExitCodeOfAMistake)
{
    EXPECT_EQ(redirected(QStringLiteral("> /dev/full"), {QStringLiteral("frobnicate")}).code, 2);
    EXPECT_EQ(redirected(QStringLiteral(">&- 2>&-"), {QStringLiteral("frobnicate")}).code, 2);
}

TEST_F(ProgramStreams, TakesNoUnreadableInputForAnEmptyScript)
{
    for (const char* redirection : {"< /", "<&-"}) {
        const Outcome outcome = redirected(QString::fromLatin1(redirection), m_play);
        EXPECT_EQ(outcome.code, 2) << redirection;
        EXPECT_TRUE(outcome.err.startsWith(QStringLiteral("zepa: standard input cannot be read")))
            << redirection << outcome.err.toStdString();
    }
    const Outcome empty = redirected(QStringLiteral("< /dev/null"), m_play);
    EXPECT_EQ(empty.code, 0) << empty.err.toStdString();
}

TEST_F(ProgramStreams, ReadsNoEndlessInput)
{
    const Outcome outcome = redirected(QStringLiteral("< /dev/zero"), m_play);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("standard input is too large (limit 16 MiB)")))
        << outcome.err.toStdString();
}

} // namespace
