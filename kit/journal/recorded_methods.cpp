// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/recorded_methods.h"

#include "core/notification_module.h"

namespace zepa {

RecordedMethods::RecordedMethods() = default;
RecordedMethods::~RecordedMethods() = default;

void RecordedMethods::prepare(const QString& methodId, const RecordingMethod::Preparation& preparation)
{
    m_preparations.insert(methodId, preparation);
}

void RecordedMethods::wrapIn(ZepaNotificationModule& module)
{
    const auto methods = module.getMethods();
    for (ZepaNotificationMethod* method : methods) {
        module.uninstallNotificationMethod(method);
        m_methods.push_back(
            std::make_unique<RecordingMethod>(*method, m_deliveries, m_preparations.value(method->getId())));
        module.installNotificationMethod(m_methods.back().get());
    }
}

} // namespace zepa
