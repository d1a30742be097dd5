// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qstring.h>

/// What Growl's functions do not say about the desktop's pop-ups. An application that needs none of it calls none of
/// it.
///
/// Main thread only. Nothing here waits; what is told changes with the events that the program handles. "Name" is what
/// Growl knows a posting by: the registered one.

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

/// Whether the user asked the desktop for silence. The service shows, holds or drops pop-ups by itself then; this is
/// for everything else that would disturb.
enum class ZepaDoNotDisturb {
    NotTold, ///< the desktop has not said, or does not say
    Off,
    On
};
Q_DECL_EXPORT ZepaDoNotDisturb zepaDoNotDisturb();

/// Takes the pop-ups of that name and title off the screen, as the user has seen what they were about; those that are
/// on their way, too. Clickable ones count as timed out.
Q_DECL_EXPORT void zepaWithdrawPopups(const QString& name, const QString& title);

/// What the pop-ups of a name are about, for services that treat kinds differently.
struct ZepaPopupKind
{
    QString category;         ///< one of the desktop notification standard, "im.received" for example; empty for none
    bool isTransient = false; ///< of no interest later: services that keep what they showed do not keep it
};
/// Counts for postings from now on, whether the name is registered yet or not.
Q_DECL_EXPORT void zepaSetPopupKind(const QString& name, const ZepaPopupKind& kind);

/// Whether the service may play a sound of its own with our pop-ups. It is asked not to unless this allowed it.
Q_DECL_EXPORT void zepaAllowPopupSound(bool isAllowed);
