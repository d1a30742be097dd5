// SPDX-License-Identifier: Apache-2.0
#include "client/chats/chat_line_style.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace zepa {

namespace {

constexpr int colourProperty = QTextFormat::UserProperty + 1;
constexpr int kindProperty = QTextFormat::UserProperty + 2;

/// `share` of `front` before `back`.
QColor mixed(const QColor& front, const QColor& back, double share)
{
    const auto part = [share](int a, int b) { return qRound(a * share + b * (1 - share)); };
    return {part(front.red(), back.red()), part(front.green(), back.green()), part(front.blue(), back.blue())};
}

} // namespace

LineStyle::LineStyle(const QPalette& palette) : m_palette(palette)
{}

QColor LineStyle::colour(Colour what) const
{
    const QColor text = m_palette.color(QPalette::Text);
    const QColor base = m_palette.color(QPalette::Base);
    switch (what) {
    case Colour::Incoming:
        // Half of the highlight: bright or dark, it stays readable on the base.
        return mixed(m_palette.color(QPalette::Highlight), text, 0.55);
    case Colour::Outgoing:
        return mixed(text, base, 0.85);
    case Colour::Information:
        return mixed(text, base, 0.78);
    case Colour::Time:
        return mixed(text, base, 0.68);
    case Colour::Text:
        break;
    }
    return text;
}

QBrush LineStyle::background(ChatLine::Kind kind) const
{
    const QColor base = m_palette.color(QPalette::Base);
    switch (kind) {
    case ChatLine::Kind::Incoming:
        break;
    case ChatLine::Kind::Outgoing:
        return mixed(m_palette.color(QPalette::Highlight), base, 0.10);
    case ChatLine::Kind::Information:
        return mixed(m_palette.color(QPalette::Text), base, 0.06);
    }
    return Qt::NoBrush;
}

QTextCharFormat LineStyle::format(Colour what) const
{
    QTextCharFormat format;
    format.setProperty(colourProperty, int(what));
    format.setForeground(colour(what));
    return format;
}

QTextBlockFormat LineStyle::block(ChatLine::Kind kind, Qt::LayoutDirection direction) const
{
    QTextBlockFormat format;
    format.setLayoutDirection(direction);
    format.setAlignment(kind == ChatLine::Kind::Information ? Qt::AlignHCenter : Qt::AlignLeading);
    format.setTopMargin(3);
    format.setBottomMargin(3);
    format.setLeftMargin(6);
    format.setRightMargin(6);
    format.setProperty(kindProperty, int(kind));
    format.setBackground(background(kind));
    return format;
}

QTextCharFormat LineStyle::author(ChatLine::Kind kind) const
{
    QTextCharFormat named = format(kind == ChatLine::Kind::Incoming ? Colour::Incoming : Colour::Outgoing);
    named.setFontWeight(QFont::Bold);
    return named;
}

QTextCharFormat LineStyle::time() const
{
    QTextCharFormat small = format(Colour::Time);
    small.setProperty(QTextFormat::FontSizeAdjustment, -1);
    return small;
}

QTextCharFormat LineStyle::text(ChatLine::Kind kind) const
{
    if (kind != ChatLine::Kind::Information)
        return format(Colour::Text);
    QTextCharFormat italic = format(Colour::Information);
    italic.setFontItalic(true);
    return italic;
}

QImage LineStyle::informationSign(int pixels) const
{
    QImage sign(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    sign.fill(Qt::transparent);
    QPainter painter(&sign);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour(Colour::Incoming));
    painter.drawEllipse(QRectF(0, 0, pixels, pixels).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.setBrush(m_palette.color(QPalette::Base));
    const qreal unit = pixels / 16.0;
    painter.drawEllipse(QPointF(8 * unit, 4.4 * unit), 1.3 * unit, 1.3 * unit);
    painter.drawRoundedRect(QRectF(6.9 * unit, 6.8 * unit, 2.2 * unit, 6 * unit), unit, unit);
    return sign;
}

void LineStyle::recolour(QTextDocument& document) const
{
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (QTextBlock line = document.begin(); line.isValid(); line = line.next()) {
        cursor.setPosition(line.position());
        QTextBlockFormat blockFormat = line.blockFormat();
        blockFormat.setBackground(background(ChatLine::Kind(blockFormat.intProperty(kindProperty))));
        cursor.setBlockFormat(blockFormat);
        // Formats that become equal join fragments, so what to change is noted before anything changes.
        QList<QTextFragment> fragments;
        for (auto piece = line.begin(); !piece.atEnd(); ++piece)
            fragments.append(piece.fragment());
        for (const QTextFragment& fragment : fragments) {
            if (!fragment.isValid() || !fragment.charFormat().hasProperty(colourProperty))
                continue;
            QTextCharFormat change;
            change.setForeground(colour(Colour(fragment.charFormat().intProperty(colourProperty))));
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.mergeCharFormat(change);
        }
    }
    cursor.endEditBlock();
}

} // namespace zepa
