// SPDX-License-Identifier: Apache-2.0
#include "client/methods/watched_method.h"
#include "core/notification.h"
#include "host/buddy.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <utility>

namespace {

/// Remembers how it was called.
class Probe final : public ZepaNotificationMethod
{
public:
    explicit Probe(QString id = QStringLiteral("probe")) : m_id(std::move(id))
    {
        fields.append(ZepaField::checkBox({}, QStringLiteral("sticky"), false, {}, {}));
        setDefaultNotificationConfig(QStringLiteral("with"), fields);
        setDefaultNotificationConfig(QStringLiteral("empty"), {});
    }

    void postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                          const QString& text, const QString& icon, const QString& extra,
                          const QList<ZepaField>& config, const ZepaPluginAction& action,
                          const QList<ZepaArg>& args) override
    {
        texts = {QString::number(sequence), notification->getId(), title, text, icon, extra};
        configSize = config.size();
        actionIsValid = action.isValid();
        buddy = args.value(0).toBuddy().getName();
    }
    QString getId() const override { return m_id; }
    QString getActionName() const override { return QStringLiteral("probe it"); }
    QString getActionIcon() const override { return QStringLiteral("probe.png"); }
    void registerNotification(ZepaNotification* notification) override { registered.append(notification); }
    void registerNotifications(const QList<ZepaNotification*>& notifications) override { registered = notifications; }

    QStringList texts;
    qsizetype configSize = 0;
    bool actionIsValid = false;
    QString buddy;
    QList<ZepaNotification*> registered;

private:
    const QString m_id;
};

class WatchedMethodTest : public testing::Test
{
protected:
    Probe m_probe;
    zepa::DeliveryLog m_log;
    zepa::WatchedMethod m_watched{m_probe, m_log};
    ZepaNotification m_with{QStringLiteral("with"), {}, {}, {}};
    ZepaNotification m_empty{QStringLiteral("empty"), {}, {}, {}};
    ZepaNotification m_none{QStringLiteral("none"), {}, {}, {}};
};

TEST_F(WatchedMethodTest, LooksLikeTheOther)
{
    EXPECT_EQ(m_watched.getId(), QStringLiteral("probe"));
    EXPECT_EQ(m_watched.getActionName(), QStringLiteral("probe it"));
    EXPECT_EQ(m_watched.getActionIcon(), QStringLiteral("probe.png"));
    EXPECT_EQ(m_watched.fields.size(), 1);
}

TEST_F(WatchedMethodTest, HandsEverythingOnAndNotesIt)
{
    const zepa::DeliveryLog::Recording recording(m_log);
    EXPECT_TRUE(recording.deliveries().isEmpty());
    m_watched.postNotification(7, &m_with, QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                               QStringLiteral("d"), m_probe.fields, ZepaPluginAction([] {}),
                               {ZepaArg::fromBuddy(ZepaBuddy({}, QStringLiteral("Anna"), 1))});
    EXPECT_EQ(m_probe.texts, QStringList({QStringLiteral("7"), QStringLiteral("with"), QStringLiteral("a"),
                                          QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")}));
    EXPECT_EQ(m_probe.configSize, 1);
    EXPECT_TRUE(m_probe.actionIsValid);
    EXPECT_EQ(m_probe.buddy, QStringLiteral("Anna"));
    ASSERT_EQ(recording.deliveries().size(), 1);
    EXPECT_EQ(recording.deliveries().constFirst().methodId, QStringLiteral("probe"));
    EXPECT_EQ(recording.deliveries().constFirst().config.size(), 1);
}

TEST_F(WatchedMethodTest, LetsNoPictureThroughToPopUpsThatCannotBeLoadedAndLeavesTheOthersTheirPath)
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("pipe.png"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    Probe popups(QStringLiteral("zepa_hint_notification"));
    zepa::WatchedMethod watchedPopups(popups, m_log);
    const zepa::DeliveryLog::Recording recording(m_log);
    for (zepa::WatchedMethod* method : {&watchedPopups, &m_watched})
        method->postNotification(7, &m_with, {}, {}, pipe, {}, {}, {}, {});
    EXPECT_EQ(popups.texts.at(4), QString());
    EXPECT_EQ(m_probe.texts.at(4), pipe);
    ASSERT_EQ(recording.deliveries().size(), 2);
    EXPECT_EQ(recording.deliveries().at(0).pictureProblem, QStringLiteral("not a regular file"));
    EXPECT_EQ(recording.deliveries().at(1).pictureProblem, QString());
}

TEST_F(WatchedMethodTest, HasTheOthersDefaultsFromTheMomentATypeIsAnnounced)
{
    m_watched.registerNotification(&m_with);
    m_watched.registerNotifications({&m_empty, &m_none});
    EXPECT_EQ(m_probe.registered, QList<ZepaNotification*>({&m_empty, &m_none}));
    const auto defaults = [this](const ZepaNotification& type) {
        return m_watched.getDefaultNotificationConfig(type.getId());
    };
    ASSERT_EQ(defaults(m_with).size(), 1);
    EXPECT_EQ(defaults(m_with).constFirst().getId(), QStringLiteral("sticky"));
    EXPECT_TRUE(defaults(m_empty).isEmpty());
    ASSERT_EQ(defaults(m_none).size(), 1);
    EXPECT_EQ(defaults(m_none).constFirst().getType(), 0);
}

} // namespace
