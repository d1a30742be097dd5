// SPDX-License-Identifier: Apache-2.0
#include "instance_fixture.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

/// Programs that call from a sandbox: the machine as it is, under another root with or without a sandbox's mark.
class InstanceSandboxTest : public InstanceTest
{
protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(u"bwrap"_s).isEmpty())
            GTEST_SKIP() << "bubblewrap is not installed";
        const Outcome made = inSandbox({}, {u"/bin/true"_s});
        if (made.code != 0)
            GTEST_SKIP() << "no sandbox can be made here: " << made.err.toStdString();
        write(u"info"_s, "[Application]\nname=org.example.Chat\n");
        startFirst();
    }

    Outcome inSandbox(const QStringList& options, const QStringList& command)
    {
        QStringList arguments{u"--die-with-parent"_s};
        const QFileInfoList root =
            QDir::root().entryInfoList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
        for (const QFileInfo& entry : root) {
            if (entry.isSymLink())
                arguments += {u"--symlink"_s, entry.symLinkTarget(), entry.filePath()};
            else if (entry.isDir())
                arguments += {u"--dev-bind"_s, entry.filePath(), entry.filePath()};
        }
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(u"bwrap"_s, arguments + options + command);
        return finish(process);
    }

    Outcome zepaInSandbox(const QStringList& options, const QStringList& arguments)
    {
        return inSandbox(options, QStringList{QString::fromUtf8(ZEPA_PROGRAM)} + arguments +
                                      QStringList{u"--settings"_s, inFolder(u"settings"_s)});
    }

    QStringList marked() const { return {u"--ro-bind"_s, inFolder(u"info"_s), u"/.flatpak-info"_s}; }

    const QStringList m_rule{u"rule"_s, u"set"_s, u"message_sent"_s, u"zepa_hint_notification"_s};
};

TEST_F(InstanceSandboxTest, RefusesACallerWithTheMark)
{
    const Outcome outcome = zepaInSandbox(marked(), m_rule);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(u"no commands from sandboxed programs"_s)) << outcome.err.toStdString();
    EXPECT_FALSE(read(u"settings/notifications/message_sent"_s).contains("zepa_hint_notification"));
    // A start without a verb, too.
    const Outcome started = zepaInSandbox(marked(), {});
    EXPECT_EQ(started.code, 1);
    EXPECT_TRUE(started.err.contains(u"sandboxed programs"_s)) << started.err.toStdString();
}

TEST_F(InstanceSandboxTest, TakesCallsFromAnotherRootWithoutTheMark)
{
    const Outcome outcome = zepaInSandbox({}, m_rule);
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    EXPECT_TRUE(read(u"settings/notifications/message_sent"_s).contains("zepa_hint_notification"));
}

} // namespace
