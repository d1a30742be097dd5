// SPDX-License-Identifier: Apache-2.0
#pragma once

class ZepaNotificationModule;

namespace zepa {

class DeliveryLog;
class Journal;

/// Where events are posted and what became of them is recorded. All three must outlive the objects that use it.
///
/// Every method of the module must be installed through a RecordingMethod with that log, or its deliveries are not
/// seen.
struct Recorder
{
    ZepaNotificationModule& module;
    DeliveryLog& deliveries;
    Journal& journal;
};

} // namespace zepa
