// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/chats/chat_line.h"
#include "client/chats/chat_line_style.h"
#include "kit/kit_export.h"

#include <QHash>
#include <QTextEdit>

namespace zepa {

/// What was said in one conversation, one block of the document a line.
///
/// Texts are shown as they are, never as markup; only a picture that pictureFile() allows is shown in the place of its
/// marker. The newest lines are kept (mostLines, mostUnits), the view stays at the end when it was there.
class ZEPA_KIT_EXPORT ChatHistory : public QTextEdit
{
    Q_OBJECT

public:
    static constexpr int mostLines = 5000;
    /// Of text, in UTF-16 units.
    static constexpr int mostUnits = 2'000'000;
    /// In one line; further markers are shown as text.
    static constexpr int mostPictures = 16;

    explicit ChatHistory(QWidget* parent = nullptr);

    /// Adds a line at the end.
    void append(const ChatLine& line);
    /// The last line as it is to be read aloud: the pictures' names stand where the pictures are.
    QString lastLineAloud() const;

protected:
    QMimeData* createMimeDataFromSelection() const override;
    void changeEvent(QEvent* event) override;

private:
    void insertText(QTextCursor& cursor, const QString& text, ChatLine::Kind kind);
    bool insertPicture(QTextCursor& cursor, const QString& file, const QTextCharFormat& format);
    void insertInformationSign(QTextCursor& cursor);
    void addInformationSign();
    /// The shown height of a picture at most, and of a letter's.
    int pictureHeight() const;
    int signHeight() const;
    /// What stands between two positions of the document.
    QString textAloud(int from, int to) const;
    void forgetOldLines();
    void restyle();

    LineStyle m_style;
    /// The pictures that the document holds: their numbers by file.
    QHash<QString, int> m_pictures;
    bool m_empty = true;
    bool m_following = true;
};

} // namespace zepa
