// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/host_export.h"

#include <functional>
#include <memory>

class ZepaPluginActionData;

/// What happens when the user reacts to a notification. A value type: copies share the same work.
///
/// The library keeps a copy while a pop-up waits for its answer and drops it when the pop-up goes away unclicked.
/// So when the last copy is gone without a run, nobody clicked.
class ZEPA_HOST_EXPORT ZepaPluginAction
{
public:
    /// No action: isValid() is false.
    ZepaPluginAction();
    /// An action that calls `work`; an empty function makes an invalid action.
    explicit ZepaPluginAction(std::function<void()> work);
    ZepaPluginAction(const ZepaPluginAction& other);
    ZepaPluginAction(ZepaPluginAction&& other) noexcept;
    ZepaPluginAction& operator=(const ZepaPluginAction& other);
    ZepaPluginAction& operator=(ZepaPluginAction&& other) noexcept;
    ~ZepaPluginAction();

    bool isValid() const;
    /// Does the work, on the calling (main) thread. An invalid action does nothing. The work may post, click, remove
    /// rules or destroy this very object.
    void operator()() const;

private:
    std::shared_ptr<ZepaPluginActionData> d;
};
