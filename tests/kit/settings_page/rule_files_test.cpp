// SPDX-License-Identifier: Apache-2.0
// What the model says when rule files cannot be written: the module itself is silent.
#include "real_client.h"

#include "kit/rules/rule_file_check.h"
#include "kit/settings/global_settings.h"
#include "qt_printers.h"

#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace zepa;
using namespace zepa::test;

namespace {

using RuleFiles = RealClient;

/// While it lives, no file of this process grows beyond `bytes`: to the program that is a full disk.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

/// While it lives, the process is an ordinary user: for the system's administrator nothing is read-only.
class OrdinaryUser
{
public:
    OrdinaryUser()
    {
        if (geteuid() == 0 && setresuid(65534, 65534, 0) != 0)
            ADD_FAILURE() << "cannot become an ordinary user";
    }
    ~OrdinaryUser()
    {
        if (setresuid(0, 0, 0) == 0)
            prctl(PR_SET_DUMPABLE, 1); // for the leak checker
    }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)
};

} // namespace

TEST_F(RuleFiles, HoldWhatTheModuleHasAfterEachChange)
{
    EXPECT_TRUE(rulesAreStored(client->module(), client->settings().getSettingsDir(), message));
    editor->add(message, chat);
    editor->change(message, sound, 0, u"sound_file"_s, u"a\x01 <b> \u00fc.wav"_s);
    EXPECT_TRUE(rulesAreStored(client->module(), client->settings().getSettingsDir(), message));
    EXPECT_EQ(editor->problem(), QString());
}

TEST_F(RuleFiles, AreSeenToDifferInAValueARuleOrTheWhole)
{
    const QString settings = client->settings().getSettingsDir();
    editor->add(typing, popup);
    const QByteArray one = stored(typing);
    const auto differs = [&](const QByteArray& content) {
        QFile file(ruleFile(typing));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        return !rulesAreStored(client->module(), settings, typing);
    };
    EXPECT_FALSE(differs(one));
    editor->change(typing, popup, 0, u"sticky"_s, u"true"_s);
    EXPECT_TRUE(differs(one));
    EXPECT_TRUE(differs({}));
    EXPECT_TRUE(differs("<rules></rules>"));
    editor->remove(typing, popup);
    EXPECT_FALSE(differs("<rules></rules>"));
    EXPECT_TRUE(differs({}));
}

TEST_F(RuleFiles, OnAFullDiskTheChangeIsInUseAndTheUserIsTold)
{
    editor->add(typing, popup);
    QSignalSpy problem(editor.get(), &RuleEditor::problemChanged);
    {
        const FullDisk full(40);
        editor->add(typing, sound);
    }
    EXPECT_GE(problem.count(), 1);
    EXPECT_TRUE(editor->problem().contains(u"Typing started"_s)) << editor->problem().toStdString();
    EXPECT_TRUE(editor->problem().contains(folder.path()));
    EXPECT_TRUE(editor->canRetry());
    EXPECT_EQ(rules(typing).size(), 2);

    editor->retry();
    EXPECT_EQ(editor->problem(), QString());
    EXPECT_FALSE(editor->canRetry());
    EXPECT_EQ(rulesAfterRestart(typing).size(), 2);
}

// The module rewrites the files of all types when a rule is changed, and a full disk leaves them empty.
TEST_F(RuleFiles, OfOtherTypesAreWholeAfterAChangeOnAFullDisk)
{
    editor->add(typing, popup);
    const QStringList others = rules(message);
    {
        const FullDisk full(40);
        editor->change(typing, popup, 0, u"sticky"_s, u"true"_s);
        EXPECT_TRUE(editor->problem().contains(u"Typing started"_s)) << editor->problem().toStdString();
        EXPECT_FALSE(editor->problem().contains(u"Message received"_s));
        EXPECT_TRUE(rulesAreStored(client->module(), client->settings().getSettingsDir(), message));
    }
    EXPECT_EQ(rulesAfterRestart(typing), QStringList{u"zepa_hint_notification sticky=false"_s});
    EXPECT_EQ(sorted(rules(message)), sorted(others));
}

TEST_F(RuleFiles, RetryStoresAlsoThatThereIsNoRule)
{
    editor->add(typing, popup);
    {
        const FullDisk full(10);
        editor->remove(typing, popup);
    }
    EXPECT_TRUE(editor->canRetry());
    EXPECT_TRUE(editor->problem().contains(u"Typing started"_s));
    editor->retry();
    EXPECT_EQ(editor->problem(), QString());
    EXPECT_TRUE(stored(typing).contains("rules"));
}

TEST_F(RuleFiles, RetryInVainKeepsTheProblem)
{
    const FullDisk full(10);
    editor->add(typing, popup);
    const QString problem = editor->problem();
    editor->retry();
    EXPECT_EQ(editor->problem(), problem);
    EXPECT_NE(problem, QString());
}

TEST_F(RuleFiles, InAReadOnlyFolderNothingIsChangedAndTheUserIsTold)
{
    const QList<std::pair<QByteArray, mode_t>> guarded{
        {QFile::encodeName(ruleFile(message)), 0444},
        {QFile::encodeName(folder.filePath(u"notifications"_s)), 0555},
        {QFile::encodeName(folder.path()), 0555},
    };
    for (const auto& [path, mode] : guarded)
        ASSERT_EQ(chmod(path.constData(), mode), 0);
    const QStringList before = rules(message);
    {
        const OrdinaryUser user;
        editor->toggle(message, popup);
        EXPECT_EQ(rules(message), before);
        EXPECT_TRUE(editor->problem().contains(u"Message received"_s)) << editor->problem().toStdString();

        editor->toggle(typing, popup);
        EXPECT_EQ(rules(typing), QStringList());
        EXPECT_TRUE(editor->problem().contains(u"Typing started"_s)) << editor->problem().toStdString();

        editor->changeSetting(globalSettings().constFirst(), u"30"_s);
        EXPECT_EQ(editor->setting(globalSettings().constFirst()).getText(), u"5"_s);
        EXPECT_TRUE(editor->problem().contains(u"Drop repeats for"_s)) << editor->problem().toStdString();
    }
    EXPECT_FALSE(editor->canRetry());
    EXPECT_EQ(editor->undoText(), QString());

    for (const auto& [path, mode] : guarded)
        ASSERT_EQ(chmod(path.constData(), mode | 0700), 0);
    editor->toggle(message, popup);
    EXPECT_EQ(editor->problem(), QString());
    EXPECT_NE(rules(message), before);
}

TEST_F(RuleFiles, AFolderInTheirPlaceIsAProblemToo)
{
    ASSERT_TRUE(QDir().mkpath(ruleFile(typing)));
    editor->toggle(typing, popup);
    EXPECT_EQ(rules(typing), QStringList());
    EXPECT_NE(editor->problem(), QString());
}
