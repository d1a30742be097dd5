// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QDir>

namespace {

const QStringList verbs{QStringLiteral("post"),        QStringLiteral("play"),        QStringLiteral("types"),
                        QStringLiteral("methods"),     QStringLiteral("rules"),       QStringLiteral("rule set"),
                        QStringLiteral("rule remove"), QStringLiteral("setting get"), QStringLiteral("setting set")};

TEST_F(Program, HelpNamesEveryVerbWithAnExample)
{
    const Outcome outcome = runBare({QStringLiteral("--help")});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.err.isEmpty()) << outcome.err.toStdString();
    for (const QString& verb : verbs)
        EXPECT_TRUE(outcome.out.contains(QStringLiteral("\nzepa %1 ").arg(verb))) << verb.toStdString();
    EXPECT_EQ(outcome.out.count(QStringLiteral("Example: ")), verbs.size());
    EXPECT_TRUE(outcome.out.contains(QStringLiteral("Exit codes:")));
}

TEST_F(Program, HelpOfAVerbNeedsNothingElse)
{
    for (const QString& verb : verbs) {
        const Outcome outcome = runBare(verb.split(u' ') + QStringList{QStringLiteral("--help")});
        EXPECT_EQ(outcome.code, 0) << verb.toStdString();
        EXPECT_TRUE(outcome.out.startsWith(QStringLiteral("Usage: zepa %1").arg(verb))) << outcome.out.toStdString();
        EXPECT_TRUE(outcome.out.contains(QStringLiteral("Example:\n")));
        EXPECT_TRUE(outcome.out.contains(QStringLiteral("--settings DIR")));
    }
}

TEST_F(Program, HelpIsNotAskedForByATextThatLooksLikeIt)
{
    const Outcome outcome = run({QStringLiteral("post"), QStringLiteral("nope"), QStringLiteral("--title"),
                                 QStringLiteral("t"), QStringLiteral("--text"), QStringLiteral("-h")});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("no notification type \"nope\"")));
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
        EXPECT_TRUE(outcome.err.startsWith(QStringLiteral("zepa: %1 is missing\n").arg(QString::fromLatin1(word))))
            << outcome.err.toStdString();
    }
}

TEST_F(Program, VersionIsOneLine)
{
    const Outcome outcome = runBare({QStringLiteral("--version")});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.lines().size(), 1);
    EXPECT_TRUE(outcome.out.startsWith(QStringLiteral("zepa ")));
}

TEST_F(Program, WithoutAVerbSaysThatItsWindowNeedsADisplay)
{
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(QString::fromLatin1(name));
    const Outcome outcome = runBare({QStringLiteral("--settings"), inFolder(QStringLiteral("mine"))});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.err.startsWith(QStringLiteral("zepa: no display"))) << outcome.err.toStdString();
    EXPECT_FALSE(QFile::exists(inFolder(QStringLiteral("mine"))));
}

TEST_F(Program, WrongCommandLinesAreRefusedWithAReasonAndChangeNothing)
{
    const QList<QStringList> wrong{
        {QStringLiteral("nope")},
        {QStringLiteral("rule")},
        {QStringLiteral("rule"), QStringLiteral("nope")},
        {QStringLiteral("--nope")},
        {QStringLiteral("types"), QStringLiteral("too-much")},
        {QStringLiteral("types"), QStringLiteral("--nope")},
        {QStringLiteral("post")},
        {QStringLiteral("post"), QStringLiteral("message_received"), QStringLiteral("--title")},
        {QStringLiteral("setting"), QStringLiteral("set"), QStringLiteral("alerts")},
        {QStringLiteral("types"), QStringLiteral("--settings"), QString()},
        {QStringLiteral("types"), QStringLiteral("--settings")},
    };
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), inFolder(QStringLiteral("config")));
    for (const QStringList& arguments : wrong) {
        const Outcome outcome = runBare(arguments);
        const std::string said = arguments.join(u' ').toStdString() + ": " + outcome.err.toStdString();
        EXPECT_EQ(outcome.code, 2) << said;
        EXPECT_TRUE(outcome.out.isEmpty()) << said;
        EXPECT_TRUE(outcome.err.startsWith(QStringLiteral("zepa: "))) << said;
        EXPECT_FALSE(QFile::exists(inFolder(QStringLiteral("config")))) << said;
    }
}

TEST_F(Program, TakesTheSettingsOptionBeforeTheVerb)
{
    for (const char16_t* name : {u"mine", u"other"})
        QDir().mkdir(inFolder(QString::fromUtf16(name)));
    const Outcome outcome =
        runBare({QStringLiteral("--settings"), inFolder(QStringLiteral("mine")), QStringLiteral("types")});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(QFile::exists(inFolder(QStringLiteral("mine/notifications"))));
    EXPECT_EQ(
        runBare({QStringLiteral("--settings=") + inFolder(QStringLiteral("other")), QStringLiteral("types")}).code, 0);
    EXPECT_TRUE(QFile::exists(inFolder(QStringLiteral("other/notifications"))));
}

} // namespace
