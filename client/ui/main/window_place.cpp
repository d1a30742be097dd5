// SPDX-License-Identifier: Apache-2.0
#include "client/ui/main/window_place.h"

#include "client/services/settings.h"

#include <QSettings>
#include <QSplitter>
#include <QWidget>

#include <utility>

namespace zepa {

namespace {

const QString& geometry()
{
    static const QString name = QStringLiteral("geometry");
    return name;
}

} // namespace

WindowPlace::WindowPlace(const Settings& settings, QString name)
    : m_file(settings.settingsFile()), m_name(std::move(name))
{}

void WindowPlace::restore(QWidget& window) const
{
    window.restoreGeometry(QSettings(m_file, QSettings::IniFormat).value(key(geometry())).toByteArray());
}

void WindowPlace::restore(QSplitter& splitter) const
{
    splitter.restoreState(QSettings(m_file, QSettings::IniFormat).value(key(splitter.objectName())).toByteArray());
}

void WindowPlace::keep(const QWidget& window, const QList<const QSplitter*>& splitters) const
{
    QSettings file(m_file, QSettings::IniFormat);
    file.setValue(key(geometry()), window.saveGeometry());
    for (const QSplitter* splitter : splitters)
        file.setValue(key(splitter->objectName()), splitter->saveState());
}

} // namespace zepa
