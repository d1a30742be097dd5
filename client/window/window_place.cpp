// SPDX-License-Identifier: Apache-2.0
#include "client/window/window_place.h"

#include "kit/settings/settings.h"

#include <QSplitter>
#include <QWidget>

#include <utility>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

const QString& geometry()
{
    static const QString name = u"geometry"_s;
    return name;
}

QByteArray bytesIn(const SettingsFile& file, const QString& key)
{
    return file.read().value_or(QVariantHash()).value(key).toByteArray();
}

} // namespace

WindowPlace::WindowPlace(const Settings& settings, QString name)
    : m_file(settings.getSettingsDir()), m_name(std::move(name))
{}

void WindowPlace::restore(QWidget& window) const
{
    window.restoreGeometry(bytesIn(m_file, key(geometry())));
}

void WindowPlace::restore(QSplitter& splitter) const
{
    splitter.restoreState(bytesIn(m_file, key(splitter.objectName())));
}

void WindowPlace::keep(const QWidget& window, const QList<const QSplitter*>& splitters) const
{
    QVariantHash places{{key(geometry()), window.saveGeometry()}};
    for (const QSplitter* splitter : splitters)
        places.insert(key(splitter->objectName()), splitter->saveState());
    m_file.change(places);
}

} // namespace zepa
