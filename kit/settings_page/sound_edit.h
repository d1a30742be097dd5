// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/settings_page/field_edit.h"

class QFileDialog;
class QLabel;
class QLineEdit;

namespace zepa {

/// A sound file, with a button to hear it and one to choose another. Says below when the file cannot be played.
class SoundEdit final : public FieldEdit
{
    Q_OBJECT

public:
    SoundEdit(const ZepaField& field, QWidget* parent);

    void setField(const ZepaField& field) override;

private:
    void finishTyping();
    void play();
    void choose();
    void take(const QString& path);
    void setValue(const QString& value);
    void showWhetherItPlays();

    QLineEdit* m_line;
    QLabel* m_warning;
    QString m_value;
    /// What the line made of the value: of a very long one it takes only a part.
    QString m_shown;
};

} // namespace zepa
