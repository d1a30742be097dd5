// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/buddy.h"

#include <QString>

#include <functional>
#include <optional>

namespace zepa {

/// One event as a part of the client announces it.
struct Posting
{
    QString type;
    QString title;
    QString text;
    QString icon; ///< path of a picture
    /// Whom it is about; becomes the posting's first argument.
    std::optional<ZepaBuddy> buddy;
    /// What a click on the pop-up does. Empty: the posting carries no action, unless `wantsAnswer`.
    std::function<void()> action;
    /// The answer to the pop-up is to be learnt even when a click does nothing: a pop-up without an action has none.
    bool wantsAnswer = false;
};

} // namespace zepa
