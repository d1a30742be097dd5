// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_method.h"
#include "kit/journal/delivery_log.h"
#include "kit/journal/popup_pictures.h"

#include <QSet>

#include <functional>
#include <optional>

namespace zepa {

/// Stands in front of another delivery method: everything goes through to it, and each posting is noted in a log.
///
/// It has the identifier of the other, so it takes its place in the module: uninstall that one first, then install
/// this, both before the module's init(). The other method and the log must outlive it.
///
/// The pop-up method gets pictures that are fit to be loaded; every other method the path as it was posted. The
/// platform learns what its pop-ups are about.
class RecordingMethod final : public ZepaNotificationMethod
{
public:
    /// Called with the arguments of each posting before it goes through.
    using Preparation = std::function<void(const QList<ZepaArg>& args)>;

    RecordingMethod(ZepaNotificationMethod& watched, DeliveryLog& log, Preparation prepare = {});

    void postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                          const QString& text, const QString& icon, const QString& extra,
                          const QList<ZepaField>& config, const ZepaPluginAction& action,
                          const QList<ZepaArg>& args) override;
    QString getId() const override;
    QString getActionName() const override;
    QString getActionIcon() const override;
    void registerNotification(ZepaNotification* notification) override;
    void registerNotifications(const QList<ZepaNotification*>& notifications) override;

private:
    void learn(const ZepaNotification& notification);

    ZepaNotificationMethod& m_watched;
    DeliveryLog& m_log;
    const Preparation m_prepare;
    std::optional<PopupPictures> m_pictures; ///< the pop-up method's
    /// The display names of all types that the other method was ever told of, and of those it was told of last:
    /// pop-ups are registered under them.
    QSet<QString> m_told;
    QSet<QString> m_names;
};

} // namespace zepa
