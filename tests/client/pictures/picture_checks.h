// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QImage>
#include <QWidget>

/// Fails when the picture is (almost) of one colour, or not mostly dark or light, as it should be.
void checkDrawing(const QImage& picture, bool isDark);

/// Fails for each visible widget in the window that has no room for its text, that sticks out of its parent, or that
/// the keyboard reaches and that has no name for screen readers.
void checkWidgets(const QWidget& window);
