// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

/// Marks what the client's library offers to the client's program and windows, beside the bodies for host/.
#define ZEPA_CLIENT_EXPORT Q_DECL_EXPORT
