// SPDX-License-Identifier: Apache-2.0
// The start of a client that has types and methods of its own.
#include "kit/rules/protected_module.h"

#include "core/notification_module.h"
#include "kit/rules/rule_lock.h"
#include "kit/rules/rule_state.h"
#include "kit/settings/settings.h"
#include "probe_method.h"

#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString backedUp = u"backup_finished"_s;

/// Has a default for the client's own type, and looks at the disk when that is registered.
class OwnMethod final : public ProbeMethod
{
public:
    explicit OwnMethod(const QTemporaryDir& folder) : ProbeMethod(u"own_method"_s), m_folder(folder)
    {
        fields = {text(u"where"_s, u"desk"_s)};
        setDefaultNotificationConfig(backedUp, fields);
    }
    void registerNotification(ZepaNotification* notification) override
    {
        ProbeMethod::registerNotification(notification);
        if (notification->getId() == backedUp)
            isNotedThatDefaultsAreWritten = QFile::exists(m_folder.filePath(u"rules-backup/starting"_s));
    }

    bool isNotedThatDefaultsAreWritten = false;

private:
    const QTemporaryDir& m_folder;
};

class ProtectedModuleTest : public testing::Test
{
protected:
    /// Ends the client, and makes the next one, which has not started yet.
    zepa::ProtectedModule& next()
    {
        m_notifications.reset();
        m_method = std::make_unique<OwnMethod>(m_folder);
        m_notifications.emplace(zepa::ModuleAdditions{
            .types = {{.id = backedUp, .name = u"Backup finished"_s}},
            .methods = {m_method.get()},
            .wrapMethods =
                [this](ZepaNotificationModule& module) {
                    ++m_wrapped;
                    m_methodsToWrap = module.getMethods().keys();
                    m_typesBeforeWrapping = module.getNotifications().size();
                },
        });
        return *m_notifications;
    }
    /// The same as a program with a window does it.
    zepa::ProtectedModule& started()
    {
        bool isStarted = false;
        next().whenStarted(&m_context, [&isStarted] { isStarted = true; });
        EXPECT_TRUE(isStarted);
        return *m_notifications;
    }
    QString file() const { return m_folder.filePath(u"notifications/"_s + backedUp); }
    QByteArray content() const
    {
        QFile open(file());
        return open.open(QIODevice::ReadOnly) ? open.readAll() : QByteArray();
    }

    const QTemporaryDir m_folder;
    const zepa::Settings m_settings{m_folder.path()};
    QObject m_context;
    std::unique_ptr<OwnMethod> m_method;
    std::optional<zepa::ProtectedModule> m_notifications;
    int m_wrapped = 0;
    QStringList m_methodsToWrap;
    qsizetype m_typesBeforeWrapping = -1;
};

TEST_F(ProtectedModuleTest, PutsBackTheFileOfATypeOfTheClientsOwnFromItsCopy)
{
    started();
    const QByteArray before = content();
    ASSERT_TRUE(before.contains("own_method"));
    ASSERT_TRUE(QFile::resize(file(), before.size() / 2));
    EXPECT_TRUE(next().start());
    EXPECT_EQ(content(), before);
    EXPECT_EQ(m_notifications->backup().restored(), QStringList{backedUp});
    const QList<zepa::RuleState> rules = zepa::rulesOf(m_notifications->module(), backedUp);
    ASSERT_EQ(rules.size(), 1);
    EXPECT_EQ(rules.constFirst().method, u"own_method"_s);
}

TEST_F(ProtectedModuleTest, NotesOnTheDiskThatDefaultsOfATypeOfTheClientsOwnAreBeingWritten)
{
    started();
    EXPECT_TRUE(m_method->isNotedThatDefaultsAreWritten);
    // The others have their files now.
    ASSERT_TRUE(QFile::remove(file()));
    started();
    EXPECT_TRUE(m_method->isNotedThatDefaultsAreWritten);
    EXPECT_FALSE(QFile::exists(m_folder.filePath(u"rules-backup/starting"_s)));
    started();
    EXPECT_FALSE(m_method->isNotedThatDefaultsAreWritten);
}

TEST_F(ProtectedModuleTest, HasAllMethodsBeforeTheyAreWrappedAndAllTypesOnceItHasStarted)
{
    started();
    EXPECT_TRUE(m_notifications->start());
    EXPECT_EQ(m_wrapped, 1);
    EXPECT_EQ(m_methodsToWrap.size(), 5);
    EXPECT_EQ(m_typesBeforeWrapping, 0);
    EXPECT_EQ(m_notifications->module().getNotifications().size(), 19);
    EXPECT_EQ(m_notifications->module().getNotifications().value(backedUp)->getName(), u"Backup finished"_s);
}

TEST_F(ProtectedModuleTest, NeitherReadsNorWritesRulesWhileAnotherProgramHasThem)
{
    std::optional<zepa::RuleLock> elsewhere(std::in_place, m_folder.filePath(u"notifications"_s));
    ASSERT_TRUE(elsewhere->tryNow());
    EXPECT_FALSE(next().start());
    EXPECT_FALSE(m_notifications->hasStarted());
    EXPECT_TRUE(content().isNull());
    QEventLoop loop;
    m_notifications->whenStarted(&m_context, [&loop] { loop.quit(); });
    EXPECT_FALSE(m_notifications->hasStarted());
    elsewhere.reset();
    loop.exec();
    EXPECT_TRUE(m_notifications->hasStarted());
    EXPECT_FALSE(content().isNull());
    EXPECT_EQ(m_wrapped, 1);
}

} // namespace
