// SPDX-License-Identifier: Apache-2.0
#include "client/chats/chat_header.h"

#include "host/settings_manager.h"
#include "kit/widgets/elided_label.h"
#include "kit/widgets/theme_pictures.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QPixmap>

namespace zepa {

ChatHeader::ChatHeader(QWidget* parent)
    : QWidget(parent), m_picture(new QLabel(this)), m_name(new ElidedLabel(this)), m_status(new ElidedLabel(this))
{
    QFont bold = m_name->font();
    bold.setBold(true);
    m_name->setFont(bold);
    const int side = 2 * fontMetrics().height();
    m_picture->setFixedSize(side, side);
    m_picture->setAlignment(Qt::AlignCenter);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(0);
    grid->addWidget(m_picture, 0, 0, 2, 1);
    grid->addWidget(m_name, 0, 1);
    grid->addWidget(m_status, 1, 1);
    grid->setColumnStretch(1, 1);
    setPresence(Presence::Unavailable);
}

void ChatHeader::setName(const QString& name)
{
    m_name->setText(name);
}

void ChatHeader::setPresence(Presence presence)
{
    m_presence = presence;
    const QString text = presenceText(presence);
    m_status->setText(text);
    m_picture->setAccessibleName(text);
    showPicture();
}

void ChatHeader::showPicture()
{
    const QString folder = ZepaSettingsManager::getInstance()->getCurrentRosterThemeDir();
    const QString file = pictureFile(folder + presencePicture(m_presence), {folder});
    const qreal ratio = devicePixelRatioF();
    QImage picture = file.isEmpty() ? QImage() : readPicture(file, (QSizeF(m_picture->size()) * ratio).toSize());
    // A theme without the picture leaves no gap: the words stand beside it.
    m_picture->setVisible(!picture.isNull());
    if (picture.width() > m_picture->width() || picture.height() > m_picture->height())
        picture.setDevicePixelRatio(ratio);
    m_picture->setPixmap(QPixmap::fromImage(picture));
}

} // namespace zepa
