// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/buddy.h"

#include <QGroupBox>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QMenu;

namespace zepa {

class Client;

/// Plays every event that a client knows, for one contact at a time, through the client's own way of announcing.
class Simulator final : public QGroupBox
{
    Q_OBJECT

public:
    /// The client must outlive this; it is started by the first posting if it has not been.
    explicit Simulator(Client& client, QWidget* parent = nullptr);

    /// Whom the events are about from now on.
    void setContact(const ZepaBuddy& contact);
    /// Adds an action for each event to the menu.
    void fill(QMenu& menu);

Q_SIGNALS:
    /// The user clicked a pop-up, which is about that person; `contact` is nobody (an empty identifier) when it is
    /// about none.
    void clicked(const ZepaBuddy& contact);

private:
    void play(qsizetype number);

    Client& m_client;
    ZepaBuddy m_contact;
    QComboBox* m_events;
    QLineEdit* m_text;
    QCheckBox* m_hasAction;
};

} // namespace zepa
