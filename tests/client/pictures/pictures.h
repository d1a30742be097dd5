// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

/// Draws the window that `makeWindow` makes into "NAME-VARIANT.png" in the build tree's folder of pictures, where
/// VARIANT is "light", "dark" and "right-to-left", or "200" in a run with that scale. Checks each drawing: see
/// picture_checks.h.
///
/// `makeWindow` is called once a variant, after palette and direction are set. The window is shown, and events are
/// handled until there are none before it is drawn; it is deleted before the next one is made.
void takePictures(const QString& name, const std::function<std::unique_ptr<QWidget>()>& makeWindow);
