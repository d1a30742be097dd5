// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/chats/presence.h"

#include <QWidget>

class QLabel;

namespace zepa {

/// The head of a chat window: the buddy's presence picture, name and presence.
class ChatHeader : public QWidget
{
    Q_OBJECT

public:
    explicit ChatHeader(QWidget* parent = nullptr);

    void setName(const QString& name);
    void setPresence(Presence presence);

private:
    void showPicture();

    Presence m_presence = Presence::Unavailable;
    QLabel* m_picture;
    QLabel* m_name;
    QLabel* m_status;
};

} // namespace zepa
