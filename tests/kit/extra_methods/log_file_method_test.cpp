// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/log_file/log_file_method.h"

#include "posting_support.h"
#include "qt_printers.h"
#include "tests/kit/sound/log_lines.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

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
    call.post(u"Ann"_s, u"Lunch?\n\tor tea"_s);
    call.post(u"Bob"_s);
    const QStringList lines = QString::fromUtf8(contentOf(path(u"zepa/notifications.log"_s))).split(u'\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0].section(u'\t', 1), u"message_received\tAnn\tLunch?\\n\\tor tea"_s);
    EXPECT_EQ(lines[1].section(u'\t', 1), u"message_received\tBob\t"_s);
    const QString time = lines[0].section(u'\t', 0, 0);
    EXPECT_GE(QDateTime::fromString(time, Qt::ISODateWithMs), before.addMSecs(-1)) << time.toStdString();
    EXPECT_TRUE(QRegularExpression(u"(Z|[+-]\\d\\d:\\d\\d)$"_s).match(time).hasMatch()) << time.toStdString();
}

TEST_F(LogFile, LiesWhereTheRuleSays)
{
    call.set("file", path(u"absolute/log"_s));
    call.post(u"a"_s);
    EXPECT_TRUE(QFile::exists(path(u"absolute/log"_s)));
    call.set("file", u"~/of-mine"_s);
    call.post(u"a"_s);
    EXPECT_TRUE(QFile::exists(path(u"of-mine"_s)));
    call.set("file", u"sub/log"_s);
    call.post(u"a"_s);
    EXPECT_TRUE(QFile::exists(path(u"zepa/sub/log"_s)));
}

TEST_F(LogFile, TakesItsLimitsFromTheRule)
{
    const QString file = path(u"log"_s);
    call.set("file", file);
    call.set("size", u"1"_s);
    call.set("older_files", u"1"_s);
    for (int i = 0; i < 4; ++i)
        call.post(QString(700, u'x'));
    EXPECT_EQ(contentOf(file).count('\n'), 1);
    EXPECT_EQ(contentOf(file + u".1"_s).count('\n'), 1);
    EXPECT_FALSE(QFile::exists(file + u".2"_s));
}

TEST_F(LogFile, ThatCannotBeWrittenIsNamedOnceUntilItWorked)
{
    const QString file = path(u"log"_s);
    call.set("file", file);
    ASSERT_TRUE(QDir().mkpath(file));
    for (int i = 0; i < 3; ++i)
        call.post(u"secret"_s);
    const QString line = u'"' + file + u"\": is not a regular file"_s;
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
    EXPECT_TRUE(log.lines().constFirst().contains(u"names no file"_s));
}

} // namespace
