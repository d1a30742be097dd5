// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

/// Marks what the client brings and the notification library calls: visible wherever the client defines it.
#define ZEPA_HOST_EXPORT Q_DECL_EXPORT
