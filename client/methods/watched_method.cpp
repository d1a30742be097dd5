// SPDX-License-Identifier: Apache-2.0
#include "client/methods/watched_method.h"

#include "client/posting/chat_attention.h"
#include "client/rules/method_titles.h"
#include "core/notification.h"

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

constexpr char16_t attentionMethod[] = u"zepa_dock_bounce_notification_method";

} // namespace

WatchedMethod::WatchedMethod(ZepaNotificationMethod& watched, DeliveryLog& log) : m_watched(watched), m_log(log)
{
    fields = watched.fields;
    if (watched.getId() == u"zepa_hint_notification"_s)
        m_pictures.emplace();
}

void WatchedMethod::postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                                     const QString& text, const QString& icon, const QString& extra,
                                     const QList<ZepaField>& config, const ZepaPluginAction& action,
                                     const QList<ZepaArg>& args)
{
    const PopupPicture picture = m_pictures ? m_pictures->prepare(icon) : PopupPicture{icon, {}};
    m_log.delivered(
        {getId(), methodTitle(m_watched), config, m_names.contains(notification->getName()), picture.problem});
    // The method itself has no arguments to give to the platform.
    if (getId() == attentionMethod)
        nameChatForAttention(args);
    m_watched.postNotification(sequence, notification, title, text, picture.path, extra, config, action, args);
}

QString WatchedMethod::getId() const
{
    return m_watched.getId();
}

QString WatchedMethod::getActionName() const
{
    return m_watched.getActionName();
}

QString WatchedMethod::getActionIcon() const
{
    return m_watched.getActionIcon();
}

// The module asks for a type's default configuration right after it announced the type: that is when to copy it.
void WatchedMethod::registerNotification(ZepaNotification* notification)
{
    copyDefaults(*notification);
    // The pop-up method registers every type there is then, also those that a shorter list left out.
    m_told.insert(notification->getName());
    m_names = m_told;
    m_watched.registerNotification(notification);
}

void WatchedMethod::registerNotifications(const QList<ZepaNotification*>& notifications)
{
    m_names.clear();
    for (const ZepaNotification* notification : notifications) {
        copyDefaults(*notification);
        m_names.insert(notification->getName());
    }
    m_told.unite(m_names);
    m_watched.registerNotifications(notifications);
}

void WatchedMethod::copyDefaults(const ZepaNotification& notification)
{
    // "No default rule" is itself a configuration, so it is copied like every other.
    setDefaultNotificationConfig(notification.getId(), m_watched.getDefaultNotificationConfig(notification.getId()));
}

} // namespace zepa
