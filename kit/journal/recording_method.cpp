// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/recording_method.h"

#include "core/method_ids.h"
#include "core/notification.h"
#include "kit/journal/popup_kind.h"
#include "kit/rules/method_titles.h"

#include <utility>

namespace zepa {

RecordingMethod::RecordingMethod(ZepaNotificationMethod& watched, DeliveryLog& log, Preparation prepare)
    : m_watched(watched), m_log(log), m_prepare(std::move(prepare))
{
    fields = watched.fields;
    if (watched.getId() == ZepaMethodId::hint)
        m_pictures.emplace();
}

void RecordingMethod::postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                                       const QString& text, const QString& icon, const QString& extra,
                                       const QList<ZepaField>& config, const ZepaPluginAction& action,
                                       const QList<ZepaArg>& args)
{
    const PopupPicture picture = m_pictures ? m_pictures->prepare(icon) : PopupPicture{icon, {}};
    m_log.delivered(
        {getId(), methodTitle(m_watched), config, m_names.contains(notification->getName()), picture.problem});
    if (m_prepare)
        m_prepare(args);
    m_watched.postNotification(sequence, notification, title, text, picture.path, extra, config, action, args);
}

QString RecordingMethod::getId() const
{
    return m_watched.getId();
}

QString RecordingMethod::getActionName() const
{
    return m_watched.getActionName();
}

QString RecordingMethod::getActionIcon() const
{
    return m_watched.getActionIcon();
}

// The module asks for a type's default configuration right after it announced the type: that is when to copy it.
void RecordingMethod::registerNotification(ZepaNotification* notification)
{
    learn(*notification);
    // The pop-up method registers every type there is then, also those that a shorter list left out.
    m_told.insert(notification->getName());
    m_names = m_told;
    m_watched.registerNotification(notification);
}

void RecordingMethod::registerNotifications(const QList<ZepaNotification*>& notifications)
{
    m_names.clear();
    for (const ZepaNotification* notification : notifications) {
        learn(*notification);
        m_names.insert(notification->getName());
    }
    m_told.unite(m_names);
    m_watched.registerNotifications(notifications);
}

void RecordingMethod::learn(const ZepaNotification& notification)
{
    if (m_pictures)
        setPopupKind(notification);
    // "No default rule" is itself a configuration, so it is copied like every other.
    setDefaultNotificationConfig(notification.getId(), m_watched.getDefaultNotificationConfig(notification.getId()));
}

} // namespace zepa
