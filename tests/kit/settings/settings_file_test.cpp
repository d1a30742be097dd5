// SPDX-License-Identifier: Apache-2.0
#include "kit/files/file_lock.h"
#include "kit/settings/settings_file.h"
#include "qt_printers.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using zepa::SettingsFile;
using Change = SettingsFile::Change;

class SettingsFileTest : public testing::Test
{
protected:
    const QTemporaryDir m_folder;
    const SettingsFile m_file{m_folder.path() + u'/'};
    const QVariantHash one{{u"window/one"_s, QByteArray("\0\1,;\"x", 6)}};
    const QVariantHash two{{u"two"_s, u"a, b = c; \u00e4"_s}};
};

TEST_F(SettingsFileTest, KeepsEachValueUntilItIsChanged)
{
    EXPECT_EQ(m_file.read(), QVariantHash());
    EXPECT_EQ(m_file.change(one), Change::Done);
    EXPECT_EQ(m_file.change(two), Change::Done);
    QVariantHash both = one;
    both.insert(two);
    EXPECT_EQ(m_file.read(), both);
}

TEST_F(SettingsFileTest, IsNotChangedAndNotWaitedForWhileSomebodyElseChangesIt)
{
    ASSERT_EQ(m_file.change(one), Change::Done);
    {
        const zepa::FileLock other(m_folder.filePath(u"settings.lock"_s));
        ASSERT_TRUE(other.isHeld());
        EXPECT_EQ(m_file.change(two), Change::Busy);
        EXPECT_EQ(m_file.read(), one) << "to read takes no lock";
    }
    EXPECT_EQ(m_file.change(two), Change::Done);
}

TEST_F(SettingsFileTest, LosesNoChangeThatItAcknowledged)
{
    constexpr int writers = 4;
    constexpr int changes = 25;
    std::vector<std::thread> threads;
    threads.reserve(writers);
    for (int writer = 0; writer < writers; ++writer) {
        threads.emplace_back([this, writer] {
            const SettingsFile file(m_folder.path() + u'/');
            for (int i = 0; i < changes; ++i) {
                const QVariantHash value{{u"%1-%2"_s.arg(writer).arg(i), QString::number(i)}};
                while (file.change(value) == Change::Busy)
                    std::this_thread::yield();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(m_file.read()->size(), writers * changes);
}

TEST_F(SettingsFileTest, ThatIsDamagedOrTooLargeIsReadAsFarAsItGoesAndNeverReplaced)
{
    QFile file(m_file.path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("two=2\nno key and no value\n") > 0);
    file.close();
    EXPECT_EQ(m_file.read()->value(u"two"_s), u"2"_s);
    EXPECT_EQ(m_file.change(one), Change::Failed);
    ASSERT_TRUE(file.resize(SettingsFile::mostBytes + 1));
    EXPECT_EQ(m_file.read(), std::nullopt);
    EXPECT_EQ(m_file.change(one), Change::Failed);
    EXPECT_EQ(file.size(), SettingsFile::mostBytes + 1);
}

} // namespace
