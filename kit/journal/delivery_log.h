// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"

#include <QList>
#include <QString>

#include <utility>

namespace zepa {

/// One call of a method.
struct Delivery
{
    QString methodId;
    QString methodName; ///< short and translated
    /// The settings of the rule that called; they are all that a method learns about the rule.
    QList<ZepaField> config;
    /// The method was told of the posting's type, and no list without it has come since.
    bool isRegistered = true;
    /// Why the picture named in the event is not shown, in English; empty if it is shown or none was named. Set by the
    /// pop-up method only.
    QString pictureProblem = {};
};

/// Which methods were called. The library tells nobody whether it dropped a posting: who wants to know installs a
/// RecordingMethod around each method and records here while posting.
class DeliveryLog
{
public:
    /// Notes the calls from its construction on. A method may post again while it is called: the calls of that
    /// posting belong to its own recording, made later, as long as that one lives.
    class Recording
    {
    public:
        explicit Recording(DeliveryLog& log) : m_log(log), m_outer(std::exchange(log.m_innermost, this)) {}
        ~Recording() { m_log.m_innermost = m_outer; }
        Q_DISABLE_COPY_MOVE(Recording)

        /// In the order of the calls; a method with two rules stands here twice.
        const QList<Delivery>& deliveries() const { return m_deliveries; }

    private:
        friend class DeliveryLog;

        DeliveryLog& m_log;
        Recording* const m_outer;
        QList<Delivery> m_deliveries;
    };

    void delivered(const Delivery& delivery)
    {
        if (m_innermost)
            m_innermost->m_deliveries.append(delivery);
    }

private:
    Recording* m_innermost = nullptr;
};

} // namespace zepa
