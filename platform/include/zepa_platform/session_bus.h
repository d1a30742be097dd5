// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

/// For programs that use the session bus in other ways than through this library: QtDBus, and what of Qt stands on it,
/// waits for ever for a bus that accepts and says nothing. Such a program asks at its start, before it makes its
/// application object, whether the bus answers. Where it does not, the program tells this library the bus's address,
/// and sets DBUS_SESSION_BUS_ADDRESS to "disabled:" for everybody else in the process. This library waits for nobody,
/// and finds the bus when it comes.
///
/// Main thread only. None of these functions needs an application object.

/// Whether there is an address that can be tried without waiting; a host of the network that has only a name cannot.
Q_DECL_EXPORT bool zepaHasSessionBusAddress();

/// Whether the session bus answers. Waits for that, `milliseconds` at most. False without an address.
Q_DECL_EXPORT bool zepaSessionBusAnswers(int milliseconds);

/// Where the bus is for this library, whatever the environment says from now on. Written as in
/// DBUS_SESSION_BUS_ADDRESS; null or empty: the socket in the user's run-time folder.
Q_DECL_EXPORT void zepaSetSessionBusAddress(const char* address);
