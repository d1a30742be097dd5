// SPDX-License-Identifier: Apache-2.0
#include "kit/files/base_folders.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

QString folder(const char* variable, const QString& fallback)
{
    const QString base = qEnvironmentVariable(variable);
    const QString usable = QDir::isAbsolutePath(base) ? base : QDir::homePath() + fallback;
    return QDir::cleanPath(usable + u"/zepa"_s) + u'/';
}

} // namespace

QString configFolder()
{
    return folder("XDG_CONFIG_HOME", u"/.config"_s);
}

QString dataFolder()
{
    return folder("XDG_DATA_HOME", u"/.local/share"_s);
}

QString stateFolder()
{
    return folder("XDG_STATE_HOME", u"/.local/state"_s);
}

} // namespace zepa
