// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QObject>

namespace zepa {

/// What the user asks of the client from outside of its windows, for example at the status icon or in a terminal. The
/// windows connect to these signals; without windows nobody does, and nothing happens.
class ZEPA_KIT_EXPORT ClientRequests : public QObject
{
    Q_OBJECT

public:
    static ClientRequests& instance();

Q_SIGNALS:
    /// Bring the client's window to the front.
    void show();
    /// End the program.
    void quit();
    /// A command that another start of the program handed over was carried out in this one: rules and settings may be
    /// others now.
    void commandCarriedOut();

private:
    ClientRequests() = default;
};

} // namespace zepa
