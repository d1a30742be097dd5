// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFrame>
#include <QString>

class QLabel;

namespace zepa {

/// Something the user should know once, above everything else in a window until it is put away. Hidden at first.
class NoticeBar final : public QFrame
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Shows `text`, plain, in place of what was there.
    void tell(const QString& text);

private:
    QLabel* m_text;
};

} // namespace zepa
