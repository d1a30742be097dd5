// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_method.h"
#include "kit/extra_methods/methods_log.h"
#include "kit/texts/fault_log.h"

namespace zepa {

/// Writes one line for each event: time, type, title and text, with tabs between. No type has a rule for it until the
/// user adds one.
///
/// Settings of a rule: "file" (absolute, or in the user's home when it begins with "~/", or in the client's state
/// folder), "size" in kilobytes, after which a new file begins, and "older_files", how many old ones stay.
class LogFileMethod final : public ZepaNotificationMethod
{
public:
    LogFileMethod();

    void postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                          const QString& text, const QString& icon, const QString& extra,
                          const QList<ZepaField>& config, const ZepaPluginAction& action,
                          const QList<ZepaArg>& args) override;
    QString getId() const override;
    QString getActionName() const override;
    QString getActionIcon() const override;

private:
    FaultLog m_faults{lcZepaMethods};
};

} // namespace zepa
