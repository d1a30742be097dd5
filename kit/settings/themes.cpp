// SPDX-License-Identifier: Apache-2.0
#include "kit/settings/themes.h"

#include "kit/files/base_folders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSet>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

QString subfolder(ThemeKind kind)
{
    switch (kind) {
    case ThemeKind::Icons:
        return u"icons/"_s;
    case ThemeKind::Roster:
        return u"roster/"_s;
    case ThemeKind::Sounds:
        return u"sounds/"_s;
    }
    return {};
}

QString userThemes()
{
    return dataFolder() + u"themes/"_s;
}

/// A name is one folder's name: it comes from a file, and must not lead elsewhere.
bool isName(const QString& name)
{
    return !name.isEmpty() && !name.startsWith(u'.') && !name.contains(u'/');
}

} // namespace

QString installedThemes()
{
    const QString installed =
        QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/../share/zepa/themes"_s) + u'/';
    const QString inSourceTree = QString::fromUtf16(ZEPA_SOURCE_THEMES "/");
    return !QFileInfo(installed).isDir() && QFileInfo(inSourceTree).isDir() ? inSourceTree : installed;
}

QString themeFolder(ThemeKind kind, const QString& name)
{
    const QString fallback = QString::fromUtf16(defaultTheme);
    const QString installed = installedThemes() + subfolder(kind);
    for (const QString& wanted : {name, fallback}) {
        if (!isName(wanted))
            continue;
        for (const QString& parent : {userThemes() + subfolder(kind), installed}) {
            QString folder = parent + wanted + u'/';
            if (QFileInfo(folder).isDir())
                return folder;
        }
    }
    return installed + fallback + u'/';
}

QStringList themeNames(ThemeKind kind)
{
    QSet<QString> names{QString::fromUtf16(defaultTheme)};
    for (const QString& parent : {userThemes(), installedThemes()}) {
        const QStringList found = QDir(parent + subfolder(kind)).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        names.unite(QSet<QString>(found.begin(), found.end()));
    }
    QStringList sorted = names.values();
    sorted.sort();
    return sorted;
}

} // namespace zepa
