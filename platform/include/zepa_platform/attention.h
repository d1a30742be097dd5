// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

/// Asks once, and not insistently, for the user's attention to this application.
Q_DECL_EXPORT void zepaRequestAttention();
