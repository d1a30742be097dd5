// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/host_export.h"

#include <QIcon>
#include <QObject>

#include <memory>

class ZepaTrayIconPrivate;

/// An icon in the desktop's status area. Hidden and without a picture at first.
///
/// On a desktop without a status area it is harmless and appears once there is one.
class ZEPA_HOST_EXPORT ZepaTrayIcon : public QObject
{
public:
    /// `parent` deletes the icon with itself; with null the caller owns it.
    explicit ZepaTrayIcon(QObject* parent);
    /// Takes the icon out of the status area.
    ~ZepaTrayIcon() override;

    void setIcon(const QIcon& icon);
    QIcon icon() const;
    void setVisible(bool visible);
    bool isVisible() const;

private:
    std::unique_ptr<ZepaTrayIconPrivate> d;
};
