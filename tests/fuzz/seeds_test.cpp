// SPDX-License-Identifier: Apache-2.0
// Everything in corpus/, which holds ordinary inputs and those that once broke something, goes through the functions
// that the fuzzers call.
#include "entries.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using zepa::fuzz::Entry;

namespace {

class Seeds : public testing::TestWithParam<Entry>
{};

} // namespace

TEST_P(Seeds, EverySeedIsTaken)
{
    const QDir folder(QString::fromUtf8(ZEPA_FUZZ_CORPUS "/") + QString::fromLatin1(GetParam().name));
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    ASSERT_FALSE(names.isEmpty()) << folder.path().toStdString();
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        GetParam().run(file.readAll());
    }
}

// Each byte that is missing or wrong once: what a fuzzer tries first, in the same order everywhere.
TEST_P(Seeds, EverySeedIsTakenCutAndDamaged)
{
    const QDir folder(QString::fromUtf8(ZEPA_FUZZ_CORPUS "/") + QString::fromLatin1(GetParam().name));
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
        SCOPED_TRACE(name.toStdString());
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray seed = file.readAll();
        const qsizetype step = qMax<qsizetype>(1, seed.size() / 200);
        for (qsizetype at = 0; at < seed.size(); at += step) {
            GetParam().run(seed.first(at));
            QByteArray damaged = seed;
            damaged[at] = char(~damaged[at]);
            GetParam().run(damaged);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Corpus, Seeds, testing::ValuesIn(zepa::fuzz::entries()),
                         [](const testing::TestParamInfo<Entry>& entry) { return std::string(entry.param.name); });
