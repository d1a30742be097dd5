// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "growl/popup_service.h"
#include "held_postings.h"
#include "service_choice.h"

#include <zepa_platform/bus.h>

#include <QPointer>

#include <memory>
#include <optional>

namespace zepa::portal {

/// Holds postings until the bus has said enough to choose a service, and hands everything on to that one from then on.
/// The choice stays for the life of the process: what the sandbox lets through does not change either.
class ChosenService final : public growl::PopupService
{
    Q_OBJECT

public:
    /// Null for no bus.
    ChosenService(const ProcessFacts& process, bus::Connection* connection);

    ZepaPopupService state() override;
    ZepaDoNotDisturb doNotDisturb() override;
    void post(const growl::PopupPosting& posting, growl::Ticket ticket) override;
    void close(growl::PopupId id) override;

private:
    void tryToChoose();
    qsizetype byteCount(const growl::PopupPosting& posting);

    const ProcessFacts m_process;
    const QPointer<bus::Connection> m_connection;
    std::optional<bus::ServiceWatcher> m_watcher;
    std::unique_ptr<growl::PopupService> m_service; ///< null until it is chosen
    HeldPostings<growl::PopupPosting> m_held;
    qint64 m_lastIcon = 0; ///< its cacheKey()
};

} // namespace zepa::portal
