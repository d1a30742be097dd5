// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

const QStringList verbs{u"post"_s,     u"play"_s,        u"types"_s,       u"methods"_s,    u"rules"_s,
                        u"rule set"_s, u"rule remove"_s, u"setting get"_s, u"setting set"_s};

TEST_F(Program, HelpNamesEveryVerbWithAnExample)
{
    const Outcome outcome = runBare({u"--help"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.err.isEmpty()) << outcome.err.toStdString();
    for (const QString& verb : verbs)
        EXPECT_TRUE(outcome.out.contains(u"\nzepa %1 "_s.arg(verb))) << verb.toStdString();
    EXPECT_EQ(outcome.out.count(u"Example: "_s), verbs.size());
    EXPECT_TRUE(outcome.out.contains(u"Exit codes:"_s));
}

TEST_F(Program, HelpOfAVerbNeedsNothingElse)
{
    for (const QString& verb : verbs) {
        const Outcome outcome = runBare(verb.split(u' ') + QStringList{u"--help"_s});
        EXPECT_EQ(outcome.code, 0) << verb.toStdString();
        EXPECT_TRUE(outcome.out.startsWith(u"Usage: zepa %1"_s.arg(verb))) << outcome.out.toStdString();
        EXPECT_TRUE(outcome.out.contains(u"Example:\n"_s));
        EXPECT_TRUE(outcome.out.contains(u"--settings DIR"_s));
    }
}

TEST_F(Program, HelpIsNotAskedForByATextThatLooksLikeIt)
{
    const Outcome outcome = run({u"post"_s, u"nope"_s, u"--title"_s, u"t"_s, u"--text"_s, u"-h"_s});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.err.contains(u"unknown notification type \"nope\""_s));
}

TEST_F(Program, NamesTheWordThatIsMissing)
{
    const std::pair<const char*, const char*> lines[]{{"post", "TYPE"},
                                                      {"play --json", "SCRIPT"},
                                                      {"rule set", "TYPE"},
                                                      {"rule remove message_received", "METHOD"},
                                                      {"setting set alerts", "VALUE"}};
    for (const auto& [line, word] : lines) {
        const Outcome outcome = runBare(QString::fromLatin1(line).split(u' '));
        EXPECT_EQ(outcome.code, 2) << line;
        EXPECT_TRUE(outcome.err.startsWith(u"zepa: missing argument: %1\n"_s.arg(QString::fromLatin1(word))))
            << outcome.err.toStdString();
    }
}

TEST_F(Program, VersionIsOneLine)
{
    const Outcome outcome = runBare({u"--version"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.lines().size(), 1);
    EXPECT_TRUE(outcome.out.startsWith(u"zepa "_s));
}

TEST_F(Program, WithoutAVerbSaysThatItsWindowNeedsADisplay)
{
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(QString::fromLatin1(name));
    const Outcome outcome = runBare({u"--settings"_s, inFolder(u"mine"_s)});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.err.startsWith(u"zepa: no display"_s)) << outcome.err.toStdString();
    EXPECT_FALSE(QFile::exists(inFolder(u"mine"_s)));
}

TEST_F(Program, WrongCommandLinesAreRefusedWithAReasonAndChangeNothing)
{
    const QList<QStringList> wrong{
        {u"nope"_s},
        {u"rule"_s},
        {u"rule"_s, u"nope"_s},
        {u"--nope"_s},
        {u"types"_s, u"too-much"_s},
        {u"types"_s, u"--nope"_s},
        {u"post"_s},
        {u"post"_s, u"message_received"_s, u"--title"_s},
        {u"setting"_s, u"set"_s, u"alerts"_s},
        {u"types"_s, u"--settings"_s, QString()},
        {u"types"_s, u"--settings"_s},
    };
    environment.insert(u"XDG_CONFIG_HOME"_s, inFolder(u"config"_s));
    for (const QStringList& arguments : wrong) {
        const Outcome outcome = runBare(arguments);
        const std::string said = arguments.join(u' ').toStdString() + ": " + outcome.err.toStdString();
        EXPECT_EQ(outcome.code, 2) << said;
        EXPECT_TRUE(outcome.out.isEmpty()) << said;
        EXPECT_TRUE(outcome.err.startsWith(u"zepa: "_s)) << said;
        EXPECT_FALSE(QFile::exists(inFolder(u"config"_s))) << said;
    }
}

TEST_F(Program, TakesTheSettingsOptionBeforeTheVerb)
{
    for (const char16_t* name : {u"mine", u"other"})
        QDir().mkdir(inFolder(QString::fromUtf16(name)));
    const Outcome outcome = runBare({u"--settings"_s, inFolder(u"mine"_s), u"types"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(QFile::exists(inFolder(u"mine/notifications"_s)));
    EXPECT_EQ(runBare({u"--settings="_s + inFolder(u"other"_s), u"types"_s}).code, 0);
    EXPECT_TRUE(QFile::exists(inFolder(u"other/notifications"_s)));
}

} // namespace
