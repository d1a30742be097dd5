// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/journal/delivery_log.h"
#include "kit/journal/journal.h"
#include "kit/journal/recorder.h"
#include "kit/journal/recording_method.h"
#include "kit/kit_export.h"

#include <QHash>
#include <QString>

#include <memory>
#include <vector>

class ZepaNotificationModule;

namespace zepa {

/// Sees every delivery of a module, and has the journal of what was posted: what announce() works with. It must outlive
/// the module, so make it before the ProtectedModule, and hand wrapIn() to that:
///
///     zepa::RecordedMethods recorded;
///     zepa::ProtectedModule notifications({.wrapMethods = [&](auto& module) { recorded.wrapIn(module); }});
class ZEPA_KIT_EXPORT RecordedMethods
{
public:
    RecordedMethods();
    ~RecordedMethods();
    Q_DISABLE_COPY_MOVE(RecordedMethods)

    /// Called before each delivery of the method with that identifier. To be set before wrapIn().
    void prepare(const QString& methodId, const RecordingMethod::Preparation& preparation);
    /// Puts a RecordingMethod in the place of every method that is installed. Once, before the module's init().
    void wrapIn(ZepaNotificationModule& module);

    DeliveryLog& deliveries() { return m_deliveries; }
    Journal& journal() { return m_journal; }
    /// For a module whose methods are wrapped.
    Recorder recorder(ZepaNotificationModule& module) { return {module, m_deliveries, m_journal}; }

private:
    DeliveryLog m_deliveries;
    Journal m_journal;
    QHash<QString, RecordingMethod::Preparation> m_preparations;
    std::vector<std::unique_ptr<RecordingMethod>> m_methods;
};

} // namespace zepa
