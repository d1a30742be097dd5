// SPDX-License-Identifier: Apache-2.0
#include "session.h"

#include "cf_values.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace zepa::growl {

namespace {

/// What the book knows the pop-ups of a name and title by: a number, since it may hold two thousand, and titles have
/// any length.
size_t groupOf(const QString& name, const QString& title)
{
    return qHashMulti(0, name, title);
}

} // namespace

Session::Session(const Registration& registration, std::unique_ptr<PopupService> service)
    : m_registration(registration), m_service(std::move(service))
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
    connect(m_service.get(), &PopupService::shown, this, [this](Ticket ticket, PopupId id) {
        // Given up long ago, unless a later pop-up got the same id.
        if (!m_book.settle(ticket, id) && !m_book.isShown(id))
            m_service->close(id);
        afterBookChanged();
    });
    connect(m_service.get(), &PopupService::notShown, this, [this](Ticket ticket) {
        m_book.fail(ticket);
        afterBookChanged();
    });
    connect(m_service.get(), &PopupService::clicked, this, [this](PopupId id, const QString& activationToken) {
        m_book.clicked(id, activationToken);
        afterBookChanged();
    });
    connect(m_service.get(), &PopupService::closed, this, [this](PopupId id) {
        m_book.closed(id);
        afterBookChanged();
    });
    connect(m_service.get(), &PopupService::lost, this, [this] {
        m_book.forgetShown();
        // What is still to be told is told, but its ids mean other pop-ups from now on.
        for (const Answer& answer : m_answers) {
            if (answer.click)
                answer.click->id = 0;
        }
        afterBookChanged();
    });
}

Session::~Session()
{
    const QList<PopupId> clickable = m_book.clickableIds();
    for (const PopupId id : clickable)
        m_service->close(id);
}

PopupPosting Session::postingOf(const Growl_Notification& notification, const QString& name)
{
    PopupPosting posting;
    posting.applicationName = m_registration.applicationName();
    if (posting.applicationName.isNull())
        posting.applicationName = QCoreApplication::applicationName();
    posting.title = notification.title == nullptr ? name : toQString(notification.title);
    posting.text = toQString(notification.description);
    posting.icon = m_icons.icon(notification.iconData);
    if (posting.icon.isNull())
        posting.icon = m_icons.icon(m_registration.iconData());
    posting.priority = notification.priority;
    posting.sticky = notification.isSticky != 0;
    posting.clickable = notification.clickContext != nullptr;
    posting.clickLabel = QCoreApplication::translate("translation", "Open", "the action of clicking a pop-up");
    posting.kind = m_registration.kind(name);
    posting.wantsSound = m_registration.allowsSound();
    return posting;
}

void Session::post(const Growl_Notification& notification)
{
    // 1. Names that are not registered are not shown. An array of names holds no null: something without a name is
    //    registered under the empty one.
    const QString name = notification.name == nullptr ? u""_s : toQString(notification.name);
    if (!m_registration.isSet() || !m_registration.isEnabled(name))
        return;
    // 2. Everything of the record that is needed becomes ours.
    const PopupPosting posting = postingOf(notification, name);
    // 3. The book first: whatever becomes of the posting, the answer is owed from here on.
    const ClickContext context(notification.clickContext, notification.clickCallback, m_registration.generation());
    const Ticket ticket = m_book.expect(context, groupOf(name, posting.title), now());
    m_service->post(posting, ticket);
    afterBookChanged();
}

void Session::withdraw(const QString& name, const QString& title)
{
    m_book.withdraw(groupOf(name, title));
    afterBookChanged();
}

void Session::afterBookChanged()
{
    if (m_book.hasAnswers()) {
        std::ranges::move(m_book.takeAnswers(), std::back_inserter(m_answers));
        m_delivery.start();
    }
    for (const PopupId id : m_book.takeUnwanted())
        m_service->close(id);
    if (const auto deadline = m_book.nextDeadline())
        m_deadline.start(std::max(PopupBook::Time(0), *deadline - now()));
    else
        m_deadline.stop();
}

void Session::deliverAnswers()
{
    if (m_answers.empty())
        return;
    // A call-back may post, register or run an event loop of its own: the answer leaves the list before it is told, and
    // the others do not wait for it.
    const Answer answer = std::move(m_answers.front());
    m_answers.pop_front();
    if (!m_answers.empty())
        m_delivery.start();
    deliver(answer);
}

void Session::deliver(const Answer& answer)
{
    const Answer::Click* click = answer.click.get();
    // Some services leave a pop-up open after its action.
    if (click != nullptr && m_book.isShown(click->id))
        m_service->close(click->id);
    if (!m_registration.isSet() || answer.context.generation() != m_registration.generation())
        return;
    Registration::CallBack callBack = click != nullptr ? m_registration.clicked() : m_registration.timedOut();
    if (click != nullptr && answer.context.clickCallBack() != nullptr)
        callBack = answer.context.clickCallBack();
    if (callBack == nullptr)
        return;
    // A token is good for one window, or for one program that the call-back starts; whatever came later would raise the
    // wrong one with it, or none.
    if (click != nullptr)
        qunsetenv("XDG_ACTIVATION_TOKEN");
    if (click != nullptr && !click->activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", click->activationToken.toUtf8());
    callBack(answer.context.get());
    if (click != nullptr)
        qunsetenv("XDG_ACTIVATION_TOKEN");
}

} // namespace zepa::growl
