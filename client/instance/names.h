// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

/// One client a settings folder: where it is found on the session bus. zepa.Client1.xml describes the rest.
namespace zepa::instance {

inline const QString interfaceName = QStringLiteral("zepa.Client1");
inline const QString objectPath = QStringLiteral("/zepa/Client");

/// The bus name of the client with these settings. The same for every way to write the folder's name, as long as the
/// folder is there.
QString busName(const QString& settingsFolder);

} // namespace zepa::instance
