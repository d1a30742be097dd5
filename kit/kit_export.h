// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

/// Marks what the kit's libraries offer, beside the bodies for host/.
#define ZEPA_KIT_EXPORT Q_DECL_EXPORT
