// SPDX-License-Identifier: Apache-2.0
#include "client/methods/command/command_method.h"

#include "posting_support.h"
#include "qt_printers.h"
#include "tests/client/audio/log_lines.h"

#include <QDir>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class Command : public testing::Test
{
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    /// A program that writes its arguments, each behind a line of its own, to "arguments", and is done with it at once.
    QString recorder() const
    {
        const QString program = path(QStringLiteral("record it"));
        writeScript(program, "for one in \"$@\"; do printf '<%s>\\n' \"$one\"; done > '" +
                                 path(QStringLiteral("unfinished")).toUtf8() + "'\nmv '" +
                                 path(QStringLiteral("unfinished")).toUtf8() + "' '" +
                                 path(QStringLiteral("arguments")).toUtf8() + "'\n");
        return u'"' + program + u'"';
    }
    QByteArray recorded() const
    {
        const QString file = path(QStringLiteral("arguments"));
        EXPECT_TRUE(handleEventsUntil([&file] { return QFile::exists(file); }));
        return contentOf(file);
    }
    bool allEnd() const
    {
        return handleEventsUntil([this] { return method.running() == 0; });
    }

    zepa::CommandMethod method;
    MethodCall call{method};
    LogLines log;

private:
    QTemporaryDir m_folder;
};

TEST_F(Command, GetsEachTextAsPartOfOneArgument)
{
    call.set("command", recorder() + QStringLiteral(" -x '%t' %m \"to %B\" %b %n %N %i 100%% %z"));
    call.post(QStringLiteral("a \"b\" 'c'"), QStringLiteral("$(touch x); `y`\n%t"),
              {ZepaArg::fromBuddy(ZepaBuddy(QStringLiteral("ann@x"), QStringLiteral("Ann  O"), ZepaBuddy::Contact))});
    EXPECT_EQ(recorded(), QByteArrayLiteral("<-x>\n<a \"b\" 'c'>\n<$(touch x); `y`\n%t>\n<to Ann  O>\n<ann@x>\n"
                                            "<message_received>\n<Message received>\n</pictures/ann.png>\n<100%>\n"
                                            "<%z>\n"));
    EXPECT_TRUE(allEnd());
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(Command, KeepsAnEmptyTextAsAnEmptyArgument)
{
    call.set("command", recorder() + QStringLiteral(" [%t] %m %B end"));
    call.post({});
    EXPECT_EQ(recorded(), QByteArrayLiteral("<[]>\n<>\n<>\n<end>\n"));
    EXPECT_TRUE(allEnd());
}

TEST_F(Command, IsNeverChosenByATextFromOutside)
{
    call.set("command", QStringLiteral("%t x"));
    call.post(recorder());
    EXPECT_EQ(log.lines(), QStringList{QStringLiteral("\"%t\": No such file or directory")});
    EXPECT_EQ(method.running(), 0U);
}

TEST_F(Command, FindsTheTextsInItsEnvironment)
{
    const QString program = path(QStringLiteral("look"));
    writeScript(program,
                "printf '%s|' \"$ZEPA_TYPE\" \"$ZEPA_TYPE_NAME\" \"$ZEPA_TITLE\" \"$ZEPA_TEXT\" \"$ZEPA_ICON\" "
                "\"$ZEPA_BUDDY\" \"$ZEPA_BUDDY_NAME\" \"$KEPT\" > '" +
                    path(QStringLiteral("unfinished")).toUtf8() + "'\nmv '" +
                    path(QStringLiteral("unfinished")).toUtf8() + "' '" + path(QStringLiteral("arguments")).toUtf8() +
                    "'\n");
    qputenv("KEPT", "ours");
    call.set("command", program);
    call.post(QStringLiteral("T\u00fcr"), QStringLiteral("two\nlines") + QChar(QChar::Null) + u'!');
    EXPECT_EQ(recorded(),
              QByteArrayLiteral("message_received|Message received|T\xc3\xbcr|two\nlines!|/pictures/ann.png|||ours|"));
    EXPECT_TRUE(allEnd());
}

TEST_F(Command, TakesATextOfAnyLength)
{
    call.set("command", recorder() + QStringLiteral(" %m"));
    call.post({}, QString(1'000'000, u'\u20ac'));
    EXPECT_EQ(recorded().size(), 3 * zepa::CommandMethod::longestText + 3);
    EXPECT_TRUE(allEnd());
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(Command, BeginsWithNothingToReadAndNoFileOfOurs)
{
    const int ours = ::open("/dev/null", O_RDONLY); // not closed on exec, as a careless library would leave it
    const QString program = path(QStringLiteral("look"));
    writeScript(program, "{ readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2; pwd; cut -d' ' -f6 /proc/$$/stat; "
                         "echo $$; test -e /proc/$$/fd/" +
                             QByteArray::number(ours) + " && echo leaked; } > '" +
                             path(QStringLiteral("unfinished")).toUtf8() + "'\nmv '" +
                             path(QStringLiteral("unfinished")).toUtf8() + "' '" +
                             path(QStringLiteral("arguments")).toUtf8() + "'\n");
    call.set("command", program);
    call.post({});
    const QList<QByteArray> lines = recorded().trimmed().split('\n');
    ::close(ours);
    ASSERT_EQ(lines.size(), 6);
    EXPECT_EQ(lines[0], QByteArrayLiteral("/dev/null"));
    EXPECT_EQ(lines[2], QByteArrayLiteral("/dev/null"));
    EXPECT_EQ(lines[3], QDir(QDir::homePath()).canonicalPath().toUtf8());
    EXPECT_EQ(lines[4], lines[5]) << "it leads a session of its own";
    EXPECT_TRUE(allEnd());
}

TEST_F(Command, RunsAFewTimesAtOnceAndSaysOnceWhatWasNotRun)
{
    const QString gate = path(QStringLiteral("gate"));
    const QString program = path(QStringLiteral("wait"));
    writeScript(program, "echo x >> '" + path(QStringLiteral("runs")).toUtf8() + "'\nwhile ! test -e '" +
                             gate.toUtf8() + "'; do sleep 0.05; done\n");
    call.set("command", program);
    for (int i = 0; i < 7; ++i)
        call.post({});
    EXPECT_EQ(method.running(), zepa::CommandRunner::mostAtOnce);
    EXPECT_EQ(log.lines(), QStringList{QStringLiteral("\"%1\": 4 commands run already").arg(program)});

    QFile(gate).open(QIODevice::WriteOnly);
    EXPECT_TRUE(allEnd());
    EXPECT_EQ(contentOf(path(QStringLiteral("runs"))).count('x'), 4);
    call.post({});
    EXPECT_TRUE(allEnd());
    EXPECT_EQ(contentOf(path(QStringLiteral("runs"))).count('x'), 5);
}

TEST_F(Command, LeavesNoZombie)
{
    call.set("command", QStringLiteral("true"));
    for (int i = 0; i < 3; ++i)
        call.post({});
    EXPECT_EQ(method.running(), 3U);
    EXPECT_TRUE(allEnd());
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(Command, LivesOnWhenTheClientEnds)
{
    const QString gate = path(QStringLiteral("gate"));
    const QString program = path(QStringLiteral("wait"));
    writeScript(program, "while ! test -e '" + gate.toUtf8() + "'; do sleep 0.05; done\necho done > '" +
                             path(QStringLiteral("after")).toUtf8() + "'\n");
    {
        zepa::CommandMethod shortLived;
        MethodCall once(shortLived);
        once.set("command", program);
        once.post({});
        ASSERT_EQ(shortLived.running(), 1U);
    }
    QFile(gate).open(QIODevice::WriteOnly);
    int status = -1;
    EXPECT_GT(::wait(&status), 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(contentOf(path(QStringLiteral("after"))), QByteArrayLiteral("done\n"));
}

TEST_F(Command, ThatDoesNotExistIsNamedOnce)
{
    call.set("command", QStringLiteral("no-such-program --x %t"));
    for (int i = 0; i < 3; ++i)
        call.post(QStringLiteral("secret"));
    EXPECT_EQ(log.lines(), QStringList{QStringLiteral("\"no-such-program\": No such file or directory")});
    EXPECT_EQ(method.running(), 0U);
}

TEST_F(Command, IsNotHandedToAShellWhenItIsNoProgram)
{
    const QString program = path(QStringLiteral("plain"));
    {
        QFile file(program);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("touch '" + path(QStringLiteral("arguments")).toUtf8() + "'\n");
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }
    call.set("command", program);
    call.post({});
    EXPECT_EQ(log.lines(), QStringList{QStringLiteral("\"%1\": Exec format error").arg(program)});
    EXPECT_FALSE(QFile::exists(path(QStringLiteral("arguments"))));
}

TEST_F(Command, ThatCannotBeTakenApartOrIsEmptyIsSaidOnce)
{
    call.set("command", QStringLiteral("echo 'x"));
    call.post({});
    call.post({});
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().constFirst().startsWith(QStringLiteral("\"echo 'x\": a quote")));
    for (const QString& nothing : {QString(), QStringLiteral("  "), QStringLiteral("'' x")}) {
        call.set("command", nothing);
        call.post({});
    }
    EXPECT_EQ(log.lines().size(), 2);
    EXPECT_TRUE(log.lines().constLast().contains(QStringLiteral("names no program")));
}

} // namespace
