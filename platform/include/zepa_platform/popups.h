// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

/// What a program needs to know of the desktop's notification service when it posts and ends within a moment.
///
/// Main thread only. Nothing here waits; what is told changes with the events that the program handles.

enum class ZepaPopupService {
    NotKnownYet, ///< the session bus has not said; it does within seconds, or counts as none
    NoBus,
    None, ///< none runs, and the bus can start none
    There
};

/// Connects to the session bus unless that was done. NoBus without a QCoreApplication.
Q_DECL_EXPORT ZepaPopupService zepaPopupService();

/// How many pop-ups were posted of which the service has not said that it took or refused them. Each ends within
/// seconds, whether the service answers or not.
Q_DECL_EXPORT int zepaPopupsOnTheirWay();
