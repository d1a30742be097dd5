// SPDX-License-Identifier: Apache-2.0
#include "registration.h"
#include "session.h"

#include <Growl/Growl.h>
#include <zepa_platform/popups.h>

#include <QCoreApplication>
#include <QThread>

#include <utility>

namespace {

using zepa::growl::Registration;
using zepa::growl::Session;

/// Never destroyed: it may be set before there is an application object and by destructors that run at the very end.
Registration& registration()
{
    static auto* const instance = new Registration;
    return *instance;
}

/// Ends with the application object, and not with the process: exit() may be called while it is in use, and when there
/// is little left of what it stands on.
Session* session = nullptr;

void endSession()
{
    delete std::exchange(session, nullptr);
}

/// Null without an application object.
Session* startedSession()
{
    const QCoreApplication* application = QCoreApplication::instance();
    if (application == nullptr || QCoreApplication::closingDown())
        return nullptr;
    Q_ASSERT(QThread::currentThread() == application->thread());
    if (session == nullptr) {
        session = new Session(registration(), zepa::growl::makePopupService());
        qAddPostRoutine(endSession);
    }
    return session;
}

} // namespace

Boolean Growl_SetDelegate(struct Growl_Delegate* newDelegate)
{
    registration().set(newDelegate);
    // Early, so that what the service can do is known when the first pop-up comes.
    if (Session* started = newDelegate == nullptr ? nullptr : startedSession())
        started->service().state();
    return true;
}

Boolean Growl_IsRunning()
{
    const ZepaPopupService state = zepaPopupService();
    return state == ZepaPopupService::There || state == ZepaPopupService::NotKnownYet;
}

void Growl_PostNotification(const struct Growl_Notification* notification)
{
    if (Session* started = startedSession())
        started->post(*notification);
}

ZepaPopupService zepaPopupService()
{
    Session* started = startedSession();
    return started == nullptr ? ZepaPopupService::NoBus : started->service().state();
}

int zepaPopupsOnTheirWay()
{
    const Session* started = startedSession();
    return started == nullptr ? 0 : started->onTheirWayCount();
}

ZepaDoNotDisturb zepaDoNotDisturb()
{
    Session* started = startedSession();
    return started == nullptr ? ZepaDoNotDisturb::NotTold : started->service().doNotDisturb();
}

void zepaWithdrawPopups(const QString& name, const QString& title)
{
    if (Session* started = startedSession())
        started->withdraw(name, title);
}

void zepaSetPopupKind(const QString& name, const ZepaPopupKind& kind)
{
    registration().setKind(name, kind);
}

void zepaAllowPopupSound(bool isAllowed)
{
    registration().allowSound(isAllowed);
}
