// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class ZepaNotification;

namespace zepa {

class Client;

/// Posts one event of the type as if it happened now, so that the user sees and hears what its rules do. Each sample
/// has a title of its own, since a repeat would be dropped. The result tells the user what was called and what kept a
/// method from reaching them.
QString postSample(Client& client, const ZepaNotification& type);

} // namespace zepa
