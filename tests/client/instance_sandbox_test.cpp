// SPDX-License-Identifier: Apache-2.0
#include "instance_fixture.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

/// Programs that call from a sandbox: the machine as it is, under another root with or without a sandbox's mark.
class InstanceSandboxTest : public InstanceTest
{
protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QStringLiteral("bwrap")).isEmpty())
            GTEST_SKIP() << "bubblewrap is not installed";
        const Outcome made = inSandbox({}, {QStringLiteral("/bin/true")});
        if (made.code != 0)
            GTEST_SKIP() << "no sandbox can be made here: " << made.err.toStdString();
        write(QStringLiteral("info"), "[Application]\nname=org.example.Chat\n");
        startFirst();
    }

    Outcome inSandbox(const QStringList& options, const QStringList& command)
    {
        QStringList arguments{QStringLiteral("--die-with-parent")};
        const QFileInfoList root =
            QDir::root().entryInfoList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
        for (const QFileInfo& entry : root) {
            if (entry.isSymLink())
                arguments += {QStringLiteral("--symlink"), entry.symLinkTarget(), entry.filePath()};
            else if (entry.isDir())
                arguments += {QStringLiteral("--dev-bind"), entry.filePath(), entry.filePath()};
        }
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral("bwrap"), arguments + options + command);
        return finish(process);
    }

    Outcome zepaInSandbox(const QStringList& options, const QStringList& arguments)
    {
        return inSandbox(options, QStringList{QStringLiteral(ZEPA_PROGRAM)} + arguments +
                                      QStringList{QStringLiteral("--settings"), inFolder(QStringLiteral("settings"))});
    }

    QStringList marked() const
    {
        return {QStringLiteral("--ro-bind"), inFolder(QStringLiteral("info")), QStringLiteral("/.flatpak-info")};
    }

    const QStringList m_rule{QStringLiteral("rule"), QStringLiteral("set"), QStringLiteral("message_sent"),
                             QStringLiteral("zepa_hint_notification")};
};

TEST_F(InstanceSandboxTest, RefusesACallerWithTheMark)
{
    const Outcome outcome = zepaInSandbox(marked(), m_rule);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("no commands from sandboxed programs")))
        << outcome.err.toStdString();
    EXPECT_FALSE(read(QStringLiteral("settings/notifications/message_sent")).contains("zepa_hint_notification"));
    // A start without a verb, too.
    const Outcome started = zepaInSandbox(marked(), {});
    EXPECT_EQ(started.code, 1);
    EXPECT_TRUE(started.err.contains(QStringLiteral("sandboxed programs"))) << started.err.toStdString();
}

TEST_F(InstanceSandboxTest, TakesCallsFromAnotherRootWithoutTheMark)
{
    const Outcome outcome = zepaInSandbox({}, m_rule);
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    EXPECT_TRUE(read(QStringLiteral("settings/notifications/message_sent")).contains("zepa_hint_notification"));
}

} // namespace
