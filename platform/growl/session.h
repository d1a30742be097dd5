// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "icon_cache.h"
#include "popup_book.h"
#include "popup_service.h"
#include "registration.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <deque>
#include <memory>

namespace zepa::growl {

/// Growl's three functions while there is an application object: from records to postings, from what the service says
/// to call-backs.
class Session : public QObject
{
    Q_OBJECT

public:
    /// `registration` must outlive the session; what it says counts at the moment of each posting and each answer.
    Session(const Registration& registration, std::unique_ptr<PopupService> service);
    /// Takes what is clickable off the screen: a click on it would do nothing any more.
    ~Session() override;
    Q_DISABLE_COPY_MOVE(Session)

    PopupService& service() { return *m_service; }
    int onTheirWayCount() const { return m_book.idlessCount(); }
    void post(const Growl_Notification& notification);
    void withdraw(const QString& name, const QString& title);

private:
    PopupPosting postingOf(const Growl_Notification& notification, const QString& name);
    PopupBook::Time now() const { return PopupBook::Time(m_clock.elapsed()); }
    void afterBookChanged();
    void deliverAnswers();
    void deliver(const Answer& answer);

    const Registration& m_registration;
    QElapsedTimer m_clock;
    IconCache m_icons;
    const std::unique_ptr<PopupService> m_service;
    PopupBook m_book;
    QTimer m_deadline;
    std::deque<Answer> m_answers; ///< to be delivered, in order
    QTimer m_delivery;
};

} // namespace zepa::growl
