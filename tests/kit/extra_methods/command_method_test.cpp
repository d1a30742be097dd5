// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/command/command_method.h"

#include "posting_support.h"
#include "qt_printers.h"
#include "tests/kit/sound/log_lines.h"

#include <QDir>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class Command : public testing::Test
{
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    /// A program that writes its arguments, each behind a line of its own, to "arguments", and is done with it at once.
    QString recorder() const
    {
        const QString program = path(u"record it"_s);
        writeScript(program, "for one in \"$@\"; do printf '<%s>\\n' \"$one\"; done > '" +
                                 path(u"unfinished"_s).toUtf8() + "'\nmv '" + path(u"unfinished"_s).toUtf8() + "' '" +
                                 path(u"arguments"_s).toUtf8() + "'\n");
        return u'"' + program + u'"';
    }
    QByteArray recorded() const
    {
        const QString file = path(u"arguments"_s);
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
    call.set("command", recorder() + u" -x '%t' %m \"to %B\" %b %n %N %i 100%% %z"_s);
    call.post(u"a \"b\" 'c'"_s, u"$(touch x); `y`\n%t"_s,
              {ZepaArg::fromBuddy(ZepaBuddy(u"ann@x"_s, u"Ann  O"_s, ZepaBuddy::Contact))});
    EXPECT_EQ(recorded(), QByteArrayLiteral("<-x>\n<a \"b\" 'c'>\n<$(touch x); `y`\n%t>\n<to Ann  O>\n<ann@x>\n"
                                            "<message_received>\n<Message received>\n</pictures/ann.png>\n<100%>\n"
                                            "<%z>\n"));
    EXPECT_TRUE(allEnd());
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(Command, KeepsAnEmptyTextAsAnEmptyArgument)
{
    call.set("command", recorder() + u" [%t] %m %B end"_s);
    call.post({});
    EXPECT_EQ(recorded(), QByteArrayLiteral("<[]>\n<>\n<>\n<end>\n"));
    EXPECT_TRUE(allEnd());
}

TEST_F(Command, IsNeverChosenByATextFromOutside)
{
    call.set("command", u"%t x"_s);
    call.post(recorder());
    EXPECT_EQ(log.lines(), QStringList{u"\"%t\": No such file or directory"_s});
    EXPECT_EQ(method.running(), 0U);
}

TEST_F(Command, FindsTheTextsInItsEnvironment)
{
    const QString program = path(u"look"_s);
    writeScript(program,
                "printf '%s|' \"$ZEPA_TYPE\" \"$ZEPA_TYPE_NAME\" \"$ZEPA_TITLE\" \"$ZEPA_TEXT\" \"$ZEPA_ICON\" "
                "\"$ZEPA_BUDDY\" \"$ZEPA_BUDDY_NAME\" \"$KEPT\" > '" +
                    path(u"unfinished"_s).toUtf8() + "'\nmv '" + path(u"unfinished"_s).toUtf8() + "' '" +
                    path(u"arguments"_s).toUtf8() + "'\n");
    qputenv("KEPT", "ours");
    call.set("command", program);
    call.post(u"T\u00fcr"_s, u"two\nlines"_s + QChar(QChar::Null) + u'!');
    EXPECT_EQ(recorded(),
              QByteArrayLiteral("message_received|Message received|T\xc3\xbcr|two\nlines!|/pictures/ann.png|||ours|"));
    EXPECT_TRUE(allEnd());
}

TEST_F(Command, TakesATextOfAnyLength)
{
    call.set("command", recorder() + u" %m"_s);
    call.post({}, QString(1'000'000, u'\u20ac'));
    EXPECT_EQ(recorded().size(), 3 * zepa::CommandMethod::longestText + 3);
    EXPECT_TRUE(allEnd());
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(Command, BeginsWithNothingToReadAndNoFileOfOurs)
{
    const int ours = ::open("/dev/null", O_RDONLY); // not closed on exec, as a careless library would leave it
    const QString program = path(u"look"_s);
    writeScript(program, "{ readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2; pwd; cut -d' ' -f6 /proc/$$/stat; "
                         "echo $$; test -e /proc/$$/fd/" +
                             QByteArray::number(ours) + " && echo leaked; } > '" + path(u"unfinished"_s).toUtf8() +
                             "'\nmv '" + path(u"unfinished"_s).toUtf8() + "' '" + path(u"arguments"_s).toUtf8() +
                             "'\n");
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
    const QString gate = path(u"gate"_s);
    const QString program = path(u"wait"_s);
    writeScript(program, "echo x >> '" + path(u"runs"_s).toUtf8() + "'\nwhile ! test -e '" + gate.toUtf8() +
                             "'; do sleep 0.05; done\n");
    call.set("command", program);
    for (int i = 0; i < 7; ++i)
        call.post({});
    EXPECT_EQ(method.running(), zepa::CommandRunner::mostAtOnce);
    EXPECT_EQ(log.lines(), QStringList{u"\"%1\": 4 commands run already"_s.arg(program)});

    QFile(gate).open(QIODevice::WriteOnly);
    EXPECT_TRUE(allEnd());
    EXPECT_EQ(contentOf(path(u"runs"_s)).count('x'), 4);
    call.post({});
    EXPECT_TRUE(allEnd());
    EXPECT_EQ(contentOf(path(u"runs"_s)).count('x'), 5);
}

TEST_F(Command, LeavesNoZombie)
{
    call.set("command", u"true"_s);
    for (int i = 0; i < 3; ++i)
        call.post({});
    EXPECT_EQ(method.running(), 3U);
    EXPECT_TRUE(allEnd());
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(Command, LivesOnWhenTheClientEnds)
{
    const QString gate = path(u"gate"_s);
    const QString program = path(u"wait"_s);
    writeScript(program, "while ! test -e '" + gate.toUtf8() + "'; do sleep 0.05; done\necho done > '" +
                             path(u"after"_s).toUtf8() + "'\n");
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
    EXPECT_EQ(contentOf(path(u"after"_s)), QByteArrayLiteral("done\n"));
}

TEST_F(Command, ThatDoesNotExistIsNamedOnce)
{
    call.set("command", u"no-such-program --x %t"_s);
    for (int i = 0; i < 3; ++i)
        call.post(u"secret"_s);
    EXPECT_EQ(log.lines(), QStringList{u"\"no-such-program\": No such file or directory"_s});
    EXPECT_EQ(method.running(), 0U);
}

TEST_F(Command, IsNotHandedToAShellWhenItIsNoProgram)
{
    const QString program = path(u"plain"_s);
    {
        QFile file(program);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("touch '" + path(u"arguments"_s).toUtf8() + "'\n");
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }
    call.set("command", program);
    call.post({});
    EXPECT_EQ(log.lines(), QStringList{u"\"%1\": Exec format error"_s.arg(program)});
    EXPECT_FALSE(QFile::exists(path(u"arguments"_s)));
}

TEST_F(Command, ThatCannotBeTakenApartOrIsEmptyIsSaidOnce)
{
    call.set("command", u"echo 'x"_s);
    call.post({});
    call.post({});
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().constFirst().startsWith(u"\"echo 'x\": a quote"_s));
    for (const QString& nothing : {QString(), u"  "_s, u"'' x"_s}) {
        call.set("command", nothing);
        call.post({});
    }
    EXPECT_EQ(log.lines().size(), 2);
    EXPECT_TRUE(log.lines().constLast().contains(u"names no program"_s));
}

} // namespace
