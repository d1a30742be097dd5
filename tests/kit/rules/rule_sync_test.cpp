// SPDX-License-Identifier: Apache-2.0
// How a client learns what another one stored.
#include "kit/rules/rule_sync.h"

#include "host/xml_node.h"
#include "kit/rules/rule_state.h"
#include "safe_change_fixture.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class RuleSyncTest : public SafeChangeTest
{
protected:
    void write(const QByteArray& bytes) const
    {
        QFile open(file());
        ASSERT_TRUE(open.open(QIODevice::WriteOnly | QIODevice::Truncate));
        open.write(bytes);
    }
    static QByteArray rule(const QByteArray& sound, const QByteArray& more = {})
    {
        ZepaNotificationMethod* method =
            ZepaNotificationModule::getInstance()->getMethods().value(SafeChangeTest::sound);
        QList<ZepaField> fields = method->fields;
        fields.first().setText(QString::fromUtf8(sound));
        ZepaXmlNode root(u"rules"_s, QString(), nullptr);
        root.addChild(method->getId(), QString()).appendChild(ZepaField::toXml(fields));
        QByteArray bytes = root.toByteArray(-1);
        const qsizetype from = bytes.indexOf("<zepa_sound");
        return bytes.sliced(from, bytes.lastIndexOf("</rules") - from) + more;
    }
    static QByteArray document(const QByteArray& rules) { return "<rules>" + rules + "</rules>"; }
    QStringList sounds() const
    {
        QStringList found;
        const auto rules = zepa::rulesOf(*m_module, type);
        for (const zepa::RuleState& state : rules)
            found.append(state.method == sound ? state.fields.constFirst().getText() : state.method);
        found.sort();
        return found;
    }
    /// The state of the file: another one after each writing.
    QByteArray stamp() const
    {
        struct stat status = {};
        ::stat(QFile::encodeName(file()).constData(), &status);
        return QByteArray::number(qulonglong(status.st_ino)) + ' ' +
               QByteArray::number(qlonglong(status.st_ctim.tv_sec)) + '.' +
               QByteArray::number(qlonglong(status.st_ctim.tv_nsec));
    }
};

TEST_F(RuleSyncTest, TakesOverRulesThatWereChangedAddedAndRemovedAndStoresNothing)
{
    start();
    write(document(rule("a.wav") + rule("b.wav") + rule("c.wav")));
    zepa::bringUpToDate(*m_module, *m_backup);
    EXPECT_EQ(sounds(), (QStringList{u"a.wav"_s, u"b.wav"_s, u"c.wav"_s}));
    for (const QByteArray& rules : {rule("a.wav") + rule("d.wav") + rule("c.wav"), rule("c.wav"),
                                    rule("c.wav") + rule("c.wav") + rule("e.wav"), QByteArray(), rule("f.wav")}) {
        write(document(rules));
        const QByteArray before = stamp();
        zepa::bringUpToDate(*m_module, *m_backup);
        EXPECT_EQ(stamp(), before);
        const QStringList found = sounds();
        EXPECT_EQ(found.size(), rules.count("<zepa_sound"));
        for (const QString& name : found)
            EXPECT_TRUE(rules.contains(name.toUtf8())) << name.toStdString();
    }
    // What it learnt it stores as it is.
    ASSERT_EQ(add(), zepa::SafeChange::Stored);
    EXPECT_TRUE(content().contains("f.wav"));
}

TEST_F(RuleSyncTest, LeavesRulesAloneThatStandInAnotherOrder)
{
    start();
    write(document(rule("a.wav") + rule("b.wav")));
    zepa::bringUpToDate(*m_module, *m_backup);
    const auto before = m_module->getRules(m_module->getNotifications().value(type));
    write(document(rule("b.wav") + rule("a.wav")));
    zepa::bringUpToDate(*m_module, *m_backup);
    EXPECT_EQ(m_module->getRules(m_module->getNotifications().value(type)), before);
}

TEST_F(RuleSyncTest, AChangeKeepsWhatAnotherClientStoredMeanwhile)
{
    start();
    write(document(rule("theirs.wav")));
    ASSERT_EQ(add(), zepa::SafeChange::Stored);
    EXPECT_TRUE(content().contains("theirs.wav"));
    EXPECT_EQ(count(), 2);
}

TEST_F(RuleSyncTest, PrefersTheCopyToItsMemory)
{
    start();
    ASSERT_EQ(add(), zepa::SafeChange::Stored);
    // Another client stored this with its copy, and was killed in its next change.
    const QByteArray theirs = document(rule("theirs.wav"));
    write({});
    QFile copy(m_folder.filePath(u"rules-backup/copies/"_s + type));
    ASSERT_TRUE(copy.open(QIODevice::WriteOnly));
    copy.write(theirs);
    copy.close();
    zepa::bringUpToDate(*m_module, *m_backup);
    EXPECT_EQ(content(), theirs);
    EXPECT_EQ(sounds(), QStringList{u"theirs.wav"_s});
}

TEST_F(RuleSyncTest, PutsBackItsMemoryWhenThereIsNoCopy)
{
    start();
    ASSERT_EQ(add(), zepa::SafeChange::Stored);
    const QByteArray before = content();
    QFile::remove(m_folder.filePath(u"rules-backup/copies/"_s + type));
    write("<rules>typed by hand");
    zepa::bringUpToDate(*m_module, *m_backup);
    EXPECT_EQ(content(), before);
}

} // namespace
