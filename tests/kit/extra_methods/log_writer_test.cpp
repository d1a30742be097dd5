// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/log_file/log_line.h"
#include "kit/extra_methods/log_file/log_writer.h"

#include "posting_support.h"
#include "qt_printers.h"

#include <QDir>
#include <QTemporaryDir>

#include <csignal>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using zepa::appendToLog;
using zepa::logLine;

TEST(LogLine, HasATabBetweenColumnsAndOneLineFeed)
{
    EXPECT_EQ(logLine({u"a"_s, QString(), u"b c"_s}), QByteArrayLiteral("a\t\tb c\n"));
    EXPECT_EQ(logLine({u"T\u00fcr \U0001f600"_s}), QByteArrayLiteral("T\xc3\xbcr \xf0\x9f\x98\x80\n"));
}

TEST(LogLine, StaysOneLineWhateverTheText)
{
    EXPECT_EQ(logLine({u"a\nb\tc\\n"_s}), QByteArrayLiteral("a\\nb\\tc\\\\n\n"));
    EXPECT_EQ(logLine({u"\r\x1b[2J\x7f\u0085\u2028\u202e\u200f"_s}),
              QByteArrayLiteral("\\u000d\\u001b[2J\\u007f\\u0085\\u2028\\u202e\\u200f\n"));
    EXPECT_EQ(logLine({QString(QChar::Null) + QChar(0xd83d) + u'x' + QChar(0xde00)}),
              QByteArrayLiteral("\\u0000\\ud83dx\\ude00\n"));
}

class LogWriter : public testing::Test
{
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QStringList files() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    const QTemporaryDir m_folder;
    zepa::LogTarget target{path(u"log"_s), 1000, 2};
};

TEST_F(LogWriter, AppendsToWhatIsThere)
{
    EXPECT_EQ(appendToLog(target, "one\n"), QString());
    EXPECT_EQ(appendToLog(target, "two\n"), QString());
    EXPECT_EQ(contentOf(target.file), QByteArrayLiteral("one\ntwo\n"));
    EXPECT_EQ(files(), QStringList{u"log"_s});
}

TEST_F(LogWriter, MakesTheFolderAndAFileThatNobodyElseReads)
{
    target.file = path(u"new/folder/log"_s);
    ::umask(0);
    EXPECT_EQ(appendToLog(target, "one\n"), QString());
    struct stat state = {};
    ASSERT_EQ(::stat(QFile::encodeName(target.file).constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777U, 0600U);
}

TEST_F(LogWriter, BeginsANewFileWhenTheOldOneIsFullAndKeepsAFew)
{
    target.mostBytes = 8;
    for (const char* line : {"1aa\n", "1bb\n", "2aa\n", "2bb\n", "3aa\n", "3bb\n", "4aa\n"})
        EXPECT_EQ(appendToLog(target, line), QString());
    EXPECT_EQ(contentOf(target.file), QByteArrayLiteral("4aa\n"));
    EXPECT_EQ(contentOf(target.file + u".1"_s), QByteArrayLiteral("3aa\n3bb\n"));
    EXPECT_EQ(contentOf(target.file + u".2"_s), QByteArrayLiteral("2aa\n2bb\n"));
    EXPECT_EQ(files().size(), 3);
}

TEST_F(LogWriter, KeepsNoOlderFileWhenNoneIsWanted)
{
    target.mostBytes = 4;
    target.olderFiles = 0;
    for (const char* line : {"one\n", "two\n"})
        EXPECT_EQ(appendToLog(target, line), QString());
    EXPECT_EQ(contentOf(target.file), QByteArrayLiteral("two\n"));
    EXPECT_EQ(files(), QStringList{u"log"_s});
}

TEST_F(LogWriter, WritesALineThatIsLargerThanTheLimitIntoAFileOfItsOwn)
{
    const QByteArray large = QByteArray(5000, 'x') + '\n';
    for (const QByteArray& line : {QByteArrayLiteral("one\n"), large, QByteArrayLiteral("two\n")})
        EXPECT_EQ(appendToLog(target, line), QString());
    EXPECT_EQ(contentOf(target.file), QByteArrayLiteral("two\n"));
    EXPECT_EQ(contentOf(target.file + u".1"_s), large);
    EXPECT_EQ(contentOf(target.file + u".2"_s), QByteArrayLiteral("one\n"));
}

TEST_F(LogWriter, SaysSoWhenAFullFileCannotMakeRoom)
{
    target.mostBytes = 4;
    target.olderFiles = 1;
    EXPECT_EQ(appendToLog(target, "one\n"), QString());
    ASSERT_TRUE(QDir().mkpath(target.file + u".1/x"_s));
    EXPECT_FALSE(appendToLog(target, "two\n").isEmpty());
    EXPECT_EQ(contentOf(target.file), QByteArrayLiteral("one\n")) << "it does not grow for ever";
}

TEST_F(LogWriter, FollowsNoSymbolicLink)
{
    const QString other = path(u"other"_s);
    ASSERT_TRUE(QFile::link(other, target.file));
    EXPECT_EQ(appendToLog(target, "one\n"), u"is a symbolic link"_s);
    EXPECT_FALSE(QFile::exists(other));
}

TEST_F(LogWriter, WritesIntoNoPipeAndNoDeviceAndNoFolder)
{
    const QString pipe = path(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    target.file = pipe;
    EXPECT_FALSE(appendToLog(target, "one\n").isEmpty()) << "and does not wait for a reader";
    const int reader = ::open(QFile::encodeName(pipe).constData(), O_RDONLY | O_NONBLOCK);
    EXPECT_EQ(appendToLog(target, "one\n"), u"is not a regular file"_s);
    char byte = 0;
    EXPECT_EQ(::read(reader, &byte, 1), 0);
    ::close(reader);
    target.file = u"/dev/null"_s;
    EXPECT_EQ(appendToLog(target, "one\n"), u"is not a regular file"_s);
    target.file = m_folder.path();
    EXPECT_FALSE(appendToLog(target, "one\n").isEmpty());
}

TEST_F(LogWriter, LeavesNoHalfALineOnAFullDisk)
{
    EXPECT_EQ(appendToLog(target, "one\n"), QString());
    // A limit on the size of files stops a write in its middle, as a full disk does.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit small{7, limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const QString problem = appendToLog(target, "two and more\n");
    const QString again = appendToLog(target, "three\n");
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    EXPECT_EQ(problem, u"No space left on device"_s);
    EXPECT_EQ(again, problem);
    EXPECT_EQ(contentOf(target.file), QByteArrayLiteral("one\n"));
    EXPECT_EQ(appendToLog(target, "four\n"), QString());
    EXPECT_EQ(contentOf(target.file), QByteArrayLiteral("one\nfour\n"));
}

TEST_F(LogWriter, WaitsForNobodyWhoHoldsTheFile)
{
    EXPECT_EQ(appendToLog(target, "one\n"), QString());
    QFile holder(target.file);
    ASSERT_TRUE(holder.open(QIODevice::ReadOnly));
    ASSERT_EQ(::flock(holder.handle(), LOCK_EX), 0);
    target.mostBytes = 4;
    EXPECT_EQ(appendToLog(target, "two\n"), QString());
    EXPECT_EQ(contentOf(target.file), QByteArrayLiteral("one\ntwo\n"));
}

TEST_F(LogWriter, KeepsLinesWholeWhenSeveralWriteAtOnce)
{
    constexpr int writers = 4;
    constexpr int lines = 200;
    target.mostBytes = 4000;
    target.olderFiles = 99;
    std::vector<std::thread> threads;
    threads.reserve(writers);
    for (int writer = 0; writer < writers; ++writer) {
        threads.emplace_back([this, writer] {
            const QByteArray line = QByteArray(50, static_cast<char>('a' + writer)) + '\n';
            for (int i = 0; i < lines; ++i)
                appendToLog(target, line);
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    int found = 0;
    const QStringList names = files();
    for (const QString& name : names) {
        const QList<QByteArray> content = contentOf(path(name)).split('\n');
        for (const QByteArray& line : content) {
            if (line.isEmpty())
                continue;
            ++found;
            EXPECT_EQ(line, QByteArray(50, line[0])) << name.toStdString();
        }
    }
    EXPECT_EQ(found, writers * lines);
    EXPECT_GT(names.size(), 1);
}

} // namespace
