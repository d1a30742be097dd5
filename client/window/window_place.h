// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/settings/settings_file.h"

#include <QList>
#include <QString>

class QSplitter;
class QWidget;

namespace zepa {

class Settings;

/// Where the user left a window and the parts in it, kept in the file of the client's settings. A window that would
/// not be seen on any screen is moved to where it is.
class WindowPlace
{
public:
    /// @param name  key of the window in the file
    WindowPlace(const Settings& settings, QString name);

    /// Does nothing to what was never kept.
    void restore(QWidget& window) const;
    void restore(QSplitter& splitter) const;
    /// Splitters are told apart by their objectName(). Does nothing while another process changes the file.
    void keep(const QWidget& window, const QList<const QSplitter*>& splitters) const;

private:
    QString key(const QString& what) const { return m_name + u'/' + what; }

    SettingsFile m_file;
    QString m_name;
};

} // namespace zepa
