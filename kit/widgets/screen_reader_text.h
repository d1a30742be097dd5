// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QWidget>

namespace zepa {

/// Speaks to screen readers: a notification, one pixel large, whose name is what was said last.
class ZEPA_KIT_EXPORT ScreenReaderText : public QWidget
{
    Q_OBJECT

public:
    explicit ScreenReaderText(QWidget* parent = nullptr);

    /// Has `text` read aloud. The same text twice is read twice.
    void say(const QString& text);
};

} // namespace zepa
