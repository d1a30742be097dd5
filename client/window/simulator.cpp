// SPDX-License-Identifier: Apache-2.0
#include "client/window/simulator.h"

#include "client/chats/show_in_chat.h"
#include "client/client.h"
#include "client/window/simulated_event.h"
#include "kit/journal/announce.h"
#include "kit/texts/plain_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>

namespace zepa {

Simulator::Simulator(Client& client, QWidget* parent)
    : QGroupBox(tr("Simulator"), parent)
    , m_client(client)
    , m_events(new QComboBox(this))
    , m_text(new QLineEdit(this))
    , m_hasAction(new QCheckBox(tr("With an &action for a click"), this))
{
    for (const SimulatedEvent& event : simulatedEvents())
        m_events->addItem(phraseOf(event, m_contact));
    // Its name is what is chosen.
    m_events->setAccessibleDescription(tr("Event to simulate"));
    m_events->setMaxVisibleItems(int(simulatedEvents().size()));
    m_events->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_events->setMinimumContentsLength(16);
    m_text->setPlaceholderText(tr("A sample text"));
    m_hasAction->setChecked(true);
    m_hasAction->setToolTip(
        tr("A click on the pop-up opens the chat. Only a pop-up with an action tells whether it was "
           "clicked; only one without can be sticky."));
    auto* post = new QPushButton(tr("&Post"), this);

    auto* form = new QFormLayout(this);
    form->setRowWrapPolicy(QFormLayout::DontWrapRows);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("&Event:"), m_events);
    form->addRow(tr("&Text:"), m_text);
    form->addRow(m_hasAction);
    form->addRow(post);

    const auto playChosen = [this] { play(m_events->currentIndex()); };
    connect(m_text, &QLineEdit::returnPressed, this, playChosen);
    connect(post, &QPushButton::clicked, this, playChosen);
}

void Simulator::setContact(const ZepaBuddy& contact)
{
    m_contact = contact;
    const QList<SimulatedEvent>& events = simulatedEvents();
    for (qsizetype i = 0; i < events.size(); ++i)
        m_events->setItemText(int(i), phraseOf(events[i], contact));
}

void Simulator::fill(QMenu& menu)
{
    const QList<SimulatedEvent>& events = simulatedEvents();
    for (qsizetype i = 0; i < events.size(); ++i)
        menu.addAction(withoutMnemonics(phraseOf(events[i], m_contact)), this, [this, i] { play(i); });
}

void Simulator::play(qsizetype number)
{
    if (!m_client.hasStarted())
        return m_client.whenStarted(this, [this, number] { play(number); });
    const SimulatedEvent& event = simulatedEvents().at(number);
    Posting posting = postingOf(event, m_contact, m_text->text());
    if (m_hasAction->isChecked()) {
        // The pop-up may be clicked when this is gone.
        posting.action = [self = QPointer<Simulator>(this), contact = posting.buddy.value_or(ZepaBuddy())] {
            if (self)
                Q_EMIT self->clicked(contact);
        };
    }
    showInChat(posting);
    announce(m_client.recorder(), posting);
}

} // namespace zepa
