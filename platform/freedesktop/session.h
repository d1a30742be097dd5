// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "bus_link.h"
#include "icon_cache.h"
#include "outbox.h"
#include "popup_book.h"
#include "registration.h"

#include <zepa_platform/popups.h>

#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QObject>
#include <QTimer>

namespace zepa::freedesktop {

/// Growl's three functions while there is an application object: from records to postings, from what the service says
/// to call-backs.
class Session : public QObject
{
    Q_OBJECT

public:
    /// `registration` must outlive the session; what it says counts at the moment of each posting and each answer.
    explicit Session(const Registration& registration);

    /// Connects to the bus unless it is connected; false without one.
    bool open() { return m_link.open(); }
    bool isRunning() { return m_link.open() && m_link.isServiceAvailable(); }
    ZepaPopupService service();
    int onTheirWayCount() const { return m_book.idlessCount(); }
    void post(const Growl_Notification& notification);

private:
    void onActionInvoked(quint32 id, const QString& key);
    PopupBook::Time now() const { return PopupBook::Time(m_clock.elapsed()); }
    void afterBookChanged();
    void deliverAnswers();
    void deliver(const Answer& answer);

    const Registration& m_registration;
    QElapsedTimer m_clock;
    IconCache m_icons;
    BusLink m_link;
    Outbox m_outbox;
    PopupBook m_book;
    QTimer m_deadline;
    QList<Answer> m_answers; ///< to be delivered, in order
    QTimer m_delivery;
    QHash<quint32, QString> m_tokens; ///< activation tokens of clicks that are still to come, by pop-up
    static constexpr qsizetype tokenLimit = 100;
};

} // namespace zepa::freedesktop
