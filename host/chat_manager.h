// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/buddy.h"
#include "host/chat_window.h"
#include "host/host_export.h"

/// Knows the chat windows that are open.
class ZEPA_HOST_EXPORT ZepaChatManager
{
public:
    /// The one chat manager, never null. Defined by the client.
    static ZepaChatManager* getInstance();

    /// The open window of that buddy, owned by the manager, or null when there is none. Opens nothing.
    virtual ZepaChatWindow* getChatWindow(const ZepaBuddy& buddy) = 0;

protected:
    ~ZepaChatManager() = default;
};
