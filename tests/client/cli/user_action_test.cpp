// SPDX-License-Identifier: Apache-2.0
#include "client/cli/user_action.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using zepa::cli::problemWithAction;
using zepa::cli::startAction;

/// A program that writes down its arguments, one a line, and the activation token behind them.
class UserAction : public testing::Test
{
protected:
    QString makeProgram(const QString& name)
    {
        const QString program = m_folder.filePath(name);
        QFile file(program);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\nfor word; do echo \"$word\"; done >" + result().toLocal8Bit() +
                   ".part\necho \"token=$XDG_ACTIVATION_TOKEN\" >>" + result().toLocal8Bit() + ".part\nmv " +
                   result().toLocal8Bit() + ".part " + result().toLocal8Bit() + "\n");
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return program;
    }

    QString result() const { return m_folder.filePath(u"result"_s); }

    /// What the program wrote; it runs on its own, so there is something to wait for.
    QByteArray written() const
    {
        QElapsedTimer clock;
        clock.start();
        while (!QFileInfo::exists(result()) && !clock.hasExpired(20000))
            QThread::msleep(5);
        QFile file(result());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("nothing");
    }

    QTemporaryDir m_folder;
};

TEST_F(UserAction, IsAnAddressOrACommandThatIsThere)
{
    for (const char16_t* good : {u"https://example.org", u"mailto:a@example.org", u"file:///tmp/x", u"true",
                                 u"/bin/true", u"\"true\" x", u"x-custom:y"})
        EXPECT_TRUE(problemWithAction(QString::fromUtf16(good)).isEmpty()) << QString::fromUtf16(good).toStdString();
    for (const QString& bad :
         {QString(), u" "_s, u"no-such-program"_s, u"/nonexistent/program x"_s, u"c:true"_s, u"\"\""_s})
        EXPECT_FALSE(problemWithAction(bad).isEmpty()) << bad.toStdString();
}

TEST_F(UserAction, StartsACommandWithoutAShell)
{
    const QString program = makeProgram(u"program"_s);
    qputenv("XDG_ACTIVATION_TOKEN", "the-token");
    startAction(program + u" one \"two words\" $(id) ;rm * 'a b' c\\ d"_s);
    EXPECT_EQ(written(), "one\ntwo words\n$(id)\n;rm\n*\na b\nc d\ntoken=the-token\n");
}

TEST_F(UserAction, IsRefusedWhenItCannotBeTakenApart)
{
    for (const char16_t* open : {u"true \"x", u"true 'x", u"true x\\"})
        EXPECT_TRUE(problemWithAction(QString::fromUtf16(open)).contains(u"quote"_s))
            << QString::fromUtf16(open).toStdString();
    EXPECT_EQ(problemWithAction(u"'true' 'x y'"_s), QString());
}

TEST_F(UserAction, MayBeAProgramInTheFolderInWhichItRuns)
{
    makeProgram(u"program"_s);
    const QString action = u"./program x"_s;
    EXPECT_EQ(problemWithAction(action, m_folder.path()), QString());
    EXPECT_FALSE(problemWithAction(action, u"/nonexistent"_s).isEmpty());
    EXPECT_FALSE(problemWithAction(u"program x"_s, m_folder.path()).isEmpty());
    // A folder of that name is no program.
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"folder"_s));
    EXPECT_FALSE(problemWithAction(u"./folder"_s, m_folder.path()).isEmpty());
    startAction(action, m_folder.path());
    EXPECT_EQ(written(), "x\ntoken=\n");
}

TEST_F(UserAction, OpensAnAddressWithTheDesktopsProgram)
{
    makeProgram(u"xdg-open"_s);
    qputenv("PATH", m_folder.path().toLocal8Bit() + ":" + qgetenv("PATH"));
    startAction(u"https://example.org/a?b=c&d=e"_s);
    EXPECT_EQ(written(), "https://example.org/a?b=c&d=e\ntoken=\n");
}

} // namespace
