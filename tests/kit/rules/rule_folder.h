// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/rules/rule_backup.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

/// A settings folder with rule files, and one start of the client after the other on it.
class RuleFolderTest : public testing::Test
{
protected:
    RuleFolderTest() { QDir(m_folder.path()).mkdir(u"notifications"_s); }

    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString rule(const QString& type) const { return path(u"notifications/"_s + type); }
    QString copy(const QString& type) const { return path(u"rules-backup/copies/"_s + type); }

    static void write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
        file.write(content);
    }
    /// Null when there is no such file.
    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// What was set aside, oldest first.
    QStringList aside() const
    {
        return QDir(path(u"rules-backup/set-aside"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    /// A start as a client with a window does it, with nothing in between where the module would be made.
    std::unique_ptr<zepa::RuleBackup> start()
    {
        auto backup = make();
        backup->restore();
        backup->started();
        backup->keepAll();
        return backup;
    }
    /// The same for a start that is cut off before the module has written the defaults of `withDefaults`.
    void startAndDie(const QStringList& withDefaults) { make()->restore(withDefaults); }

    /// The types whose files are ours.
    QStringList types{u"message_received"_s};

    std::unique_ptr<zepa::RuleBackup> make() const
    {
        return std::make_unique<zepa::RuleBackup>(m_folder.path() + u'/', types);
    }

    const QString message = u"message_received"_s;
    const QByteArray oneRule = "<rules><m><fields><field id=\"a\">1</field></fields></m></rules>";
    const QByteArray otherRule = "<rules><m><fields><field id=\"a\">2</field></fields></m></rules>";
    const QByteArray noRule = "<rules/>";

    QTemporaryDir m_folder;
};
