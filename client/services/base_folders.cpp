// SPDX-License-Identifier: Apache-2.0
#include "client/services/base_folders.h"

#include <QDir>

namespace zepa {

namespace {

QString folder(const char* variable, const QString& fallback)
{
    const QString base = qEnvironmentVariable(variable);
    const QString usable = QDir::isAbsolutePath(base) ? base : QDir::homePath() + fallback;
    return QDir::cleanPath(usable + QStringLiteral("/zepa")) + u'/';
}

} // namespace

QString configFolder()
{
    return folder("XDG_CONFIG_HOME", QStringLiteral("/.config"));
}

QString dataFolder()
{
    return folder("XDG_DATA_HOME", QStringLiteral("/.local/share"));
}

QString stateFolder()
{
    return folder("XDG_STATE_HOME", QStringLiteral("/.local/state"));
}

} // namespace zepa
