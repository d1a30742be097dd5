// SPDX-License-Identifier: Apache-2.0
#include "core/notification.h"
#include "host/buddy.h"
#include "kit/journal/recording_method.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Remembers how it was called.
class Probe final : public ZepaNotificationMethod
{
public:
    explicit Probe(QString id = u"probe"_s) : m_id(std::move(id))
    {
        fields.append(ZepaField::checkBox({}, u"sticky"_s, false, {}, {}));
        setDefaultNotificationConfig(u"with"_s, fields);
        setDefaultNotificationConfig(u"empty"_s, {});
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
    QString getActionName() const override { return u"probe it"_s; }
    QString getActionIcon() const override { return u"probe.png"_s; }
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
    zepa::RecordingMethod m_watched{m_probe, m_log};
    ZepaNotification m_with{u"with"_s, {}, {}, {}};
    ZepaNotification m_empty{u"empty"_s, {}, {}, {}};
    ZepaNotification m_none{u"none"_s, {}, {}, {}};
};

TEST_F(WatchedMethodTest, LooksLikeTheOther)
{
    EXPECT_EQ(m_watched.getId(), u"probe"_s);
    EXPECT_EQ(m_watched.getActionName(), u"probe it"_s);
    EXPECT_EQ(m_watched.getActionIcon(), u"probe.png"_s);
    EXPECT_EQ(m_watched.fields.size(), 1);
}

TEST_F(WatchedMethodTest, HandsEverythingOnAndNotesIt)
{
    const zepa::DeliveryLog::Recording recording(m_log);
    EXPECT_TRUE(recording.deliveries().isEmpty());
    m_watched.postNotification(7, &m_with, u"a"_s, u"b"_s, u"c"_s, u"d"_s, m_probe.fields, ZepaPluginAction([] {}),
                               {ZepaArg::fromBuddy(ZepaBuddy({}, u"Anna"_s, 1))});
    EXPECT_EQ(m_probe.texts, QStringList({u"7"_s, u"with"_s, u"a"_s, u"b"_s, u"c"_s, u"d"_s}));
    EXPECT_EQ(m_probe.configSize, 1);
    EXPECT_TRUE(m_probe.actionIsValid);
    EXPECT_EQ(m_probe.buddy, u"Anna"_s);
    ASSERT_EQ(recording.deliveries().size(), 1);
    EXPECT_EQ(recording.deliveries().constFirst().methodId, u"probe"_s);
    EXPECT_EQ(recording.deliveries().constFirst().config.size(), 1);
}

TEST_F(WatchedMethodTest, LetsNoPictureThroughToPopUpsThatCannotBeLoadedAndLeavesTheOthersTheirPath)
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe.png"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    Probe popups(u"zepa_hint_notification"_s);
    zepa::RecordingMethod watchedPopups(popups, m_log);
    const zepa::DeliveryLog::Recording recording(m_log);
    for (zepa::RecordingMethod* method : {&watchedPopups, &m_watched})
        method->postNotification(7, &m_with, {}, {}, pipe, {}, {}, {}, {});
    EXPECT_EQ(popups.texts.at(4), QString());
    EXPECT_EQ(m_probe.texts.at(4), pipe);
    ASSERT_EQ(recording.deliveries().size(), 2);
    EXPECT_EQ(recording.deliveries().at(0).pictureProblem, u"not a regular file"_s);
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
    EXPECT_EQ(defaults(m_with).constFirst().getId(), u"sticky"_s);
    EXPECT_TRUE(defaults(m_empty).isEmpty());
    ASSERT_EQ(defaults(m_none).size(), 1);
    EXPECT_EQ(defaults(m_none).constFirst().getType(), 0);
}

} // namespace
