// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

/// Marks what the library offers. Everything else in it is hidden.
#ifdef ZEPA_BUILDING_NOTIFICATION
#define ZEPA_NOTIFICATION_EXPORT Q_DECL_EXPORT
#else
#define ZEPA_NOTIFICATION_EXPORT Q_DECL_IMPORT
#endif
