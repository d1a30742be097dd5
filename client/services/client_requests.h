// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/client_export.h"

#include <QObject>

namespace zepa {

/// What the user asks of the client from outside of its windows, for example at the status icon. The windows connect
/// to these signals; without windows nobody does, and nothing happens.
class ZEPA_CLIENT_EXPORT ClientRequests : public QObject
{
    Q_OBJECT

public:
    static ClientRequests& instance();

Q_SIGNALS:
    /// Bring the client's window to the front.
    void show();
    /// End the program.
    void quit();

private:
    ClientRequests() = default;
};

} // namespace zepa
