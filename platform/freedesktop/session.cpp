// SPDX-License-Identifier: Apache-2.0
#include "session.h"

#include "bus_text.h"
#include "cf_values.h"

#include <QGuiApplication>
#include <QIcon>

#include <algorithm>
#include <utility>

namespace zepa::freedesktop {

namespace {

/// Texts are cut here already, so that a posting that is held does not hold megabytes.
Posting postingOf(const Growl_Notification& notification, const QString& name, const QString& applicationName)
{
    Posting posting;
    posting.applicationName = applicationName.isNull() ? QCoreApplication::applicationName() : applicationName;
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr) {
        posting.desktopEntry = QGuiApplication::desktopFileName();
        posting.applicationIcon = QGuiApplication::windowIcon().name();
    }
    posting.title = busText(notification.title == nullptr ? name : toQString(notification.title), summaryLimit);
    posting.text = busText(toQString(notification.description), bodyLimit);
    posting.priority = notification.priority;
    posting.sticky = notification.isSticky != 0;
    posting.clickable = notification.clickContext != nullptr;
    posting.clickLabel = QCoreApplication::translate("translation", "Open", "the action of clicking a pop-up");
    return posting;
}

} // namespace

Session::Session(const Registration& registration) : m_registration(registration), m_outbox(m_link)
{
    m_clock.start();
    m_deadline.setSingleShot(true);
    m_deadline.setTimerType(Qt::PreciseTimer);
    // Never at once: nobody is called back from inside one of Growl's functions.
    m_delivery.setSingleShot(true);
    m_delivery.setInterval(0);
    connect(&m_delivery, &QTimer::timeout, this, &Session::deliverAnswers);
    connect(&m_deadline, &QTimer::timeout, this, [this] {
        m_book.advance(now());
        afterBookChanged();
    });
    connect(&m_outbox, &Outbox::settled, this, [this](Ticket ticket, quint32 id) {
        m_book.settle(ticket, id, now());
        afterBookChanged();
    });
    connect(&m_outbox, &Outbox::shownLate, this, [this](quint32 id) {
        // Given up long ago, unless a later pop-up got the same id.
        if (!m_book.isShown(id))
            m_link.closeNotification(id);
    });
    connect(&m_link, &BusLink::ownerChanged, this, [this](const QString& oldOwner) {
        m_tokens.clear();
        if (!oldOwner.isEmpty())
            m_book.forgetShown();
        // What is still to be told is told, but its ids mean other pop-ups from now on.
        for (Answer& answer : m_answers)
            answer.id = 0;
        afterBookChanged();
    });
    connect(&m_link, &BusLink::notificationClosed, this, [this](quint32 id) {
        m_book.closed(id, now());
        afterBookChanged();
    });
    connect(&m_link, &BusLink::actionInvoked, this, &Session::onActionInvoked);
    connect(&m_link, &BusLink::activationToken, this, [this](quint32 id, const QString& token) {
        // One for each click; a service that sends them without clicks gains nothing.
        if (m_tokens.size() >= tokenLimit)
            m_tokens.clear();
        m_tokens.insert(id, token);
    });
}

ZepaPopupService Session::service()
{
    if (!m_link.open())
        return ZepaPopupService::NoBus;
    if (!m_link.isServiceKnown())
        return ZepaPopupService::NotKnownYet;
    return m_link.isServiceAvailable() ? ZepaPopupService::There : ZepaPopupService::None;
}

void Session::post(const Growl_Notification& notification)
{
    // 1. Names that are not registered are not shown. An array of names holds no null: something without a name is
    //    registered under the empty one.
    const QString name = notification.name == nullptr ? QStringLiteral("") : toQString(notification.name);
    if (!m_registration.isSet() || !m_registration.isEnabled(name))
        return;
    // 2. Everything of the record that is needed becomes ours.
    Posting posting = postingOf(notification, name, m_registration.applicationName());
    posting.icon = m_icons.icon(notification.iconData);
    if (posting.icon.isNull())
        posting.icon = m_icons.icon(m_registration.iconData());
    // 3. The book first: whatever becomes of the call, the answer is owed from here on.
    const ClickContext context(notification.clickContext, notification.clickCallback, m_registration.generation());
    const Ticket ticket = m_book.expect(context, now());
    m_link.open();
    m_outbox.post(std::move(posting), ticket);
    afterBookChanged();
}

void Session::onActionInvoked(quint32 id, const QString& key)
{
    // The only action that is ever offered. Services that invoke it on a pop-up that offered none meet a pop-up in the
    // book that wants no answer.
    if (key != QStringLiteral("default"))
        return;
    m_book.clicked(id, m_tokens.take(id), now());
    afterBookChanged();
}

void Session::afterBookChanged()
{
    if (m_book.hasAnswers()) {
        m_answers += m_book.takeAnswers();
        m_delivery.start();
    }
    for (const quint32 id : m_book.takeUnwanted())
        m_link.closeNotification(id);
    if (const auto deadline = m_book.nextDeadline())
        m_deadline.start(std::max(PopupBook::Time(0), *deadline - now()));
    else
        m_deadline.stop();
}

void Session::deliverAnswers()
{
    if (m_answers.isEmpty())
        return;
    // A call-back may post, register or run an event loop of its own: the answer leaves the list before it is told, and
    // the others do not wait for it.
    const Answer answer = m_answers.takeFirst();
    if (!m_answers.isEmpty())
        m_delivery.start();
    deliver(answer);
}

void Session::deliver(const Answer& answer)
{
    const bool clicked = answer.kind == Answer::Kind::Clicked;
    // Some services leave a pop-up open after its action.
    if (clicked && m_book.isShown(answer.id))
        m_link.closeNotification(answer.id);
    if (!m_registration.isSet() || answer.context.generation() != m_registration.generation())
        return;
    Registration::CallBack callBack = clicked ? m_registration.clicked() : m_registration.timedOut();
    if (clicked && answer.context.clickCallBack() != nullptr)
        callBack = answer.context.clickCallBack();
    if (callBack == nullptr)
        return;
    // An earlier click's token would raise the wrong window, or none.
    if (clicked && answer.activationToken.isEmpty())
        qunsetenv("XDG_ACTIVATION_TOKEN");
    else if (clicked)
        qputenv("XDG_ACTIVATION_TOKEN", answer.activationToken.toUtf8());
    callBack(answer.context.get());
}

} // namespace zepa::freedesktop
