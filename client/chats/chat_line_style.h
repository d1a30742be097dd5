// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/chats/chat_line.h"

#include <QColor>
#include <QImage>
#include <QPalette>
#include <QTextBlockFormat>
#include <QTextCharFormat>

class QTextDocument;

namespace zepa {

/// How the lines of a conversation look in one palette. Whatever a line has of colour is noted in its formats by what
/// it is for, so that recolour() can give it the colour of another palette.
class LineStyle
{
public:
    explicit LineStyle(const QPalette& palette);

    QTextBlockFormat block(ChatLine::Kind kind, Qt::LayoutDirection direction) const;
    QTextCharFormat author(ChatLine::Kind kind) const;
    QTextCharFormat time() const;
    QTextCharFormat text(ChatLine::Kind kind) const;
    /// The sign at the start of an information line: a letter i in a disc, `pixels` wide and high.
    QImage informationSign(int pixels) const;

    /// Gives every line of `document` the colours of this style. Takes time for every line.
    void recolour(QTextDocument& document) const;

private:
    enum class Colour { Text, Incoming, Outgoing, Information, Time };

    QColor colour(Colour what) const;
    QBrush background(ChatLine::Kind kind) const;
    QTextCharFormat format(Colour what) const;

    QPalette m_palette;
};

} // namespace zepa
