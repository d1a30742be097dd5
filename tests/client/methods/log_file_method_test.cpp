// SPDX-License-Identifier: Apache-2.0
#include "client/methods/log_file/log_file_method.h"

#include "posting_support.h"
#include "qt_printers.h"
#include "tests/client/audio/log_lines.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

class LogFile : public testing::Test
{
protected:
    LogFile()
    {
        qputenv("XDG_STATE_HOME", m_folder.path().toUtf8());
        qputenv("HOME", m_folder.path().toUtf8());
    }
    QString path(const QString& name) const { return m_folder.filePath(name); }

    zepa::LogFileMethod method;
    MethodCall call{method};
    LogLines log;

private:
    QTemporaryDir m_folder;
};

TEST_F(LogFile, HasALineForEachEventWithTimeTypeTitleAndText)
{
    const QDateTime before = QDateTime::currentDateTime();
    call.post(QStringLiteral("Ann"), QStringLiteral("Lunch?\n\tor tea"));
    call.post(QStringLiteral("Bob"));
    const QStringList lines = QString::fromUtf8(contentOf(path(QStringLiteral("zepa/notifications.log")))).split(u'\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0].section(u'\t', 1), QStringLiteral("message_received\tAnn\tLunch?\\n\\tor tea"));
    EXPECT_EQ(lines[1].section(u'\t', 1), QStringLiteral("message_received\tBob\t"));
    const QString time = lines[0].section(u'\t', 0, 0);
    EXPECT_GE(QDateTime::fromString(time, Qt::ISODateWithMs), before.addMSecs(-1)) << time.toStdString();
    EXPECT_TRUE(QRegularExpression(QStringLiteral("(Z|[+-]\\d\\d:\\d\\d)$")).match(time).hasMatch())
        << time.toStdString();
}

TEST_F(LogFile, LiesWhereTheRuleSays)
{
    call.set("file", path(QStringLiteral("absolute/log")));
    call.post(QStringLiteral("a"));
    EXPECT_TRUE(QFile::exists(path(QStringLiteral("absolute/log"))));
    call.set("file", QStringLiteral("~/of-mine"));
    call.post(QStringLiteral("a"));
    EXPECT_TRUE(QFile::exists(path(QStringLiteral("of-mine"))));
    call.set("file", QStringLiteral("sub/log"));
    call.post(QStringLiteral("a"));
    EXPECT_TRUE(QFile::exists(path(QStringLiteral("zepa/sub/log"))));
}

TEST_F(LogFile, TakesItsLimitsFromTheRule)
{
    const QString file = path(QStringLiteral("log"));
    call.set("file", file);
    call.set("size", QStringLiteral("1"));
    call.set("older_files", QStringLiteral("1"));
    for (int i = 0; i < 4; ++i)
        call.post(QString(700, u'x'));
    EXPECT_EQ(contentOf(file).count('\n'), 1);
    EXPECT_EQ(contentOf(file + QStringLiteral(".1")).count('\n'), 1);
    EXPECT_FALSE(QFile::exists(file + QStringLiteral(".2")));
}

TEST_F(LogFile, ThatCannotBeWrittenIsNamedOnceUntilItWorked)
{
    const QString file = path(QStringLiteral("log"));
    call.set("file", file);
    ASSERT_TRUE(QDir().mkpath(file));
    for (int i = 0; i < 3; ++i)
        call.post(QStringLiteral("secret"));
    const QString line = u'"' + file + QStringLiteral("\": is not a regular file");
    EXPECT_EQ(log.lines(), QStringList{line});
    ASSERT_TRUE(QDir().rmdir(file));
    call.post({});
    ASSERT_TRUE(QFile::remove(file));
    ASSERT_TRUE(QDir().mkpath(file));
    call.post({});
    EXPECT_EQ(log.lines(), (QStringList{line, line}));
}

TEST_F(LogFile, NeedsAName)
{
    call.set("file", QString());
    call.post({});
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().constFirst().contains(QStringLiteral("names no file")));
}

} // namespace
