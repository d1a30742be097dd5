// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "growl/popup_service.h"

#include <QString>

namespace zepa::portal {

/// The texts that the portal knows our pop-ups by. They are this object's alone: the portal replaces the pop-up of an
/// equal text, also when an earlier run of the program posted it.
class NotificationIds
{
public:
    NotificationIds();

    QString idOf(growl::PopupId popup) const { return m_prefix + QString::number(popup); }
    /// 0 for a text that idOf() did not make.
    growl::PopupId popupOf(const QString& id) const;

private:
    QString m_prefix;
};

} // namespace zepa::portal
