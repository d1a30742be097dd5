// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

/// One client a settings folder: where it is found on the session bus. zepa.Client1.xml describes the rest.
namespace zepa::instance {

inline constexpr const char* interfaceName = "zepa.Client1";
inline constexpr const char* objectPath = "/zepa/Client";
/// Followed by the kind of the error: "WrongArgument".
inline constexpr const char* errorPrefix = "zepa.Client1.Error.";

/// The bus name of the client with these settings. The same for every way to write the folder's name, as long as the
/// folder exists.
QByteArray busName(const QString& settingsFolder);

} // namespace zepa::instance
