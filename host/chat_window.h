// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/host_export.h"

#include <QString>

/// A window in which the user talks with one buddy.
class ZEPA_HOST_EXPORT ZepaChatWindow
{
public:
    /// Adds an information line, set apart from what people wrote. The text comes from outside and is not to be
    /// trusted: it is plain text, in which "image:ADDRESS:image" marks a picture (ADDRESS is a path or, for what is
    /// built into the program, begins with "qrc:/"). What may be shown of it is the window's decision.
    virtual void notifyMessage(const QString& text) = 0;

protected:
    ~ZepaChatWindow() = default;
};
