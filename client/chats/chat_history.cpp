// SPDX-License-Identifier: Apache-2.0
#include "client/chats/chat_history.h"

#include "kit/texts/image_markers.h"
#include "kit/texts/message_text.h"
#include "kit/widgets/sealed_document.h"
#include "kit/widgets/theme_pictures.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QFileInfo>
#include <QFontMetrics>
#include <QLocale>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QUrl>

#include <cmath>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// A name that is nobody's file.
QString pictureName(int number)
{
    return u"picture:%1"_s.arg(number);
}

constexpr int informationSignNumber = 0;
/// The shape of a picture is free up to this width, in heights.
constexpr int widestPicture = 4;

QString shownTime(QTime time)
{
    // Without a language, the short form has seconds.
    const QLocale locale;
    return locale.language() == QLocale::C ? time.toString(u"HH:mm"_s) : locale.toString(time, QLocale::ShortFormat);
}

constexpr QChar beginIsolate = u'\u2068';
constexpr QChar endIsolate = u'\u2069';

/// Keeps the direction of `name` from turning what stands around it.
QString isolated(const QString& name)
{
    return beginIsolate + name + endIsolate;
}

} // namespace

ChatHistory::ChatHistory(QWidget* parent) : QTextEdit(parent), m_style(palette())
{
    setDocument(new SealedDocument(this));
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(4);
    addInformationSign();

    QScrollBar* bar = verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this,
            [this, bar](int value) { m_following = value >= bar->maximum() - signHeight(); });
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar](int, int maximum) {
        if (m_following)
            bar->setValue(maximum);
    });
}

void ChatHistory::append(const ChatLine& line)
{
    const QString text = messageText(line.text);
    const QString time = shownTime(line.time.time());
    QTextCursor cursor(document());
    // Inside the edit, where moving a cursor does not lay the last line out anew.
    cursor.beginEditBlock();
    cursor.movePosition(QTextCursor::End);
    const QTextBlockFormat block = m_style.block(line.kind, directionOf(text, layoutDirection()));
    if (m_empty)
        cursor.setBlockFormat(block);
    else
        cursor.insertBlock(block, QTextCharFormat());
    m_empty = false;
    // The time comes first: no mark in the text can move what stands before it.
    if (line.kind == ChatLine::Kind::Information) {
        insertInformationSign(cursor);
        cursor.insertText(u' ' + time + u"  "_s, m_style.time());
    } else {
        cursor.insertText(isolated(nameText(line.author)), m_style.author(line.kind));
        cursor.insertText(u"  "_s + time + QChar(QChar::LineSeparator), m_style.time());
    }
    insertText(cursor, text, line.kind);
    cursor.endEditBlock();
    forgetOldLines();
}

void ChatHistory::insertText(QTextCursor& cursor, const QString& text, ChatLine::Kind kind)
{
    const QTextCharFormat format = m_style.text(kind);
    const QList<MessagePart> parts = splitAtImageMarkers(text);
    const QStringList folders =
        parts.size() > 1 || (!parts.isEmpty() && parts.first().isMarker()) ? currentThemeFolders() : QStringList();
    int pictures = 0;
    for (const MessagePart& part : parts) {
        const bool shown = part.isMarker() && pictures < mostPictures &&
                           insertPicture(cursor, pictureFile(part.address, folders), format);
        if (shown)
            ++pictures;
        else
            cursor.insertText(part.text, format);
    }
}

bool ChatHistory::insertPicture(QTextCursor& cursor, const QString& file, const QTextCharFormat& format)
{
    if (file.isEmpty())
        return false;
    const qreal ratio = devicePixelRatioF();
    const QSizeF most(pictureHeight() * widestPicture, pictureHeight());
    int number = m_pictures.value(file);
    if (number == 0) {
        const QImage picture = readPicture(file, (most * ratio).toSize());
        if (picture.isNull())
            return false;
        number = int(m_pictures.size()) + 1;
        m_pictures.insert(file, number);
        document()->addResource(QTextDocument::ImageResource, QUrl(pictureName(number)), picture);
    }
    const auto picture = document()->resource(QTextDocument::ImageResource, QUrl(pictureName(number))).value<QImage>();
    QSizeF size = picture.size();
    if (size.width() > most.width() || size.height() > most.height())
        size.scale(most, Qt::KeepAspectRatio);
    QTextImageFormat image;
    image.merge(format);
    image.setName(pictureName(number));
    image.setWidth(qMax(1.0, size.width()));
    image.setHeight(qMax(1.0, size.height()));
    image.setVerticalAlignment(QTextCharFormat::AlignMiddle);
    image.setProperty(QTextFormat::ImageAltText, nameText(QFileInfo(file).completeBaseName()));
    cursor.insertImage(image);
    return true;
}

void ChatHistory::insertInformationSign(QTextCursor& cursor)
{
    QTextImageFormat image;
    image.setName(pictureName(informationSignNumber));
    image.setWidth(signHeight());
    image.setHeight(signHeight());
    image.setVerticalAlignment(QTextCharFormat::AlignMiddle);
    image.setProperty(QTextFormat::ImageAltText, tr("Information:"));
    cursor.insertImage(image);
}

void ChatHistory::addInformationSign()
{
    const int pixels = int(std::ceil(signHeight() * devicePixelRatioF()));
    document()->addResource(QTextDocument::ImageResource, QUrl(pictureName(informationSignNumber)),
                            m_style.informationSign(pixels));
}

int ChatHistory::pictureHeight() const
{
    return 2 * fontMetrics().height();
}

int ChatHistory::signHeight() const
{
    return fontMetrics().ascent();
}

void ChatHistory::forgetOldLines()
{
    if (document()->blockCount() <= mostLines && document()->characterCount() <= mostUnits)
        return;
    // A tenth at once: what stays has to move, which a line a time would cost at every line.
    int keptUnits = document()->characterCount();
    QTextBlock kept = document()->begin();
    while (kept.next().isValid() && (document()->blockCount() - kept.blockNumber() > mostLines - mostLines / 10 ||
                                     keptUnits > mostUnits - mostUnits / 10)) {
        keptUnits -= kept.length();
        kept = kept.next();
    }
    const int removedHeight = int(document()->documentLayout()->blockBoundingRect(kept).top());
    const int place = verticalScrollBar()->value();
    const bool following = m_following;

    QTextCursor cursor(document());
    cursor.setPosition(kept.position(), QTextCursor::KeepAnchor);
    const QTextBlockFormat format = kept.blockFormat();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    cursor.setBlockFormat(format);
    cursor.endEditBlock();

    m_following = following;
    verticalScrollBar()->setValue(following ? verticalScrollBar()->maximum() : qMax(0, place - removedHeight));
}

QString ChatHistory::textAloud(int from, int to) const
{
    // By fragments: a cursor that moves lays its line out, to know its place in it.
    QString text;
    for (QTextBlock line = document()->findBlock(from); line.isValid() && line.position() < to; line = line.next()) {
        for (auto piece = line.begin(); !piece.atEnd(); ++piece) {
            const QTextFragment fragment = piece.fragment();
            const int begin = qMax(from, fragment.position());
            const int end = qMin(to, fragment.position() + fragment.length());
            if (begin >= end)
                continue;
            const QTextCharFormat format = fragment.charFormat();
            if (format.isImageFormat())
                text += format.stringProperty(QTextFormat::ImageAltText).repeated(end - begin);
            else
                text += fragment.text().sliced(begin - fragment.position(), end - begin);
        }
        if (line.position() + line.length() <= to)
            text += u'\n';
    }
    text.replace(QChar::LineSeparator, u'\n');
    return text.removeIf([](QChar c) { return c == beginIsolate || c == endIsolate; });
}

QString ChatHistory::lastLineAloud() const
{
    const QTextBlock line = document()->lastBlock();
    return textAloud(line.position(), line.position() + line.length() - 1);
}

QMimeData* ChatHistory::createMimeDataFromSelection() const
{
    auto* copied = new QMimeData;
    copied->setText(textAloud(textCursor().selectionStart(), textCursor().selectionEnd()));
    return copied;
}

void ChatHistory::changeEvent(QEvent* event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        restyle();
}

void ChatHistory::restyle()
{
    m_style = LineStyle(palette());
    addInformationSign();
    m_style.recolour(*document());
}

} // namespace zepa
