// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "freedesktop/held_postings.h"
#include "growl/popup_service.h"
#include "service_choice.h"

#include <zepa_platform/bus.h>

#include <memory>

namespace zepa::portal {

/// Holds postings until the bus has said enough to choose a service, and hands everything on to that one from then on.
/// The choice stays for the life of the process: what the sandbox lets through does not change either.
class ChosenService final : public growl::PopupService
{
    Q_OBJECT

public:
    /// `connection` must outlive the service.
    ChosenService(const ProcessFacts& process, bus::Connection& connection);

    ZepaPopupService state() override;
    ZepaDoNotDisturb doNotDisturb() override;
    void post(const growl::PopupPosting& posting, growl::Ticket ticket) override;
    void close(growl::PopupId id) override;

private:
    void tryToChoose();

    const ProcessFacts m_process;
    bus::Connection& m_connection;
    bus::ServiceWatcher m_watcher;
    std::unique_ptr<growl::PopupService> m_service; ///< null until it is chosen
    freedesktop::HeldPostings m_held;
};

} // namespace zepa::portal
