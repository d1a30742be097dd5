// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <zepa_platform/popups.h>

#include <QImage>
#include <QObject>
#include <QString>

#include <memory>

namespace zepa::growl {

/// Names a posting. Never 0, and never used twice while the program runs.
using Ticket = quint64;

/// Names a pop-up that was shown; never 0. The service chooses it. One whose own names are texts, or come from the
/// application, makes them from the ticket, which is a fine id too.
using PopupId = quint64;

/// One pop-up as the application wants it. Texts are of any length and may hold anything, unpaired surrogates too.
struct PopupPosting
{
    QString applicationName;
    QString title;
    QString text;
    /// Format_RGBA8888, no side longer than PopupService::iconSide; null for none. Equal icons share one cacheKey()
    /// as long as they are remembered, for services that convert them.
    QImage icon;
    int priority = 0;        ///< -2 to 2
    bool sticky = false;     ///< stays until it is clicked or closed
    bool clickable = false;  ///< a click on it means something
    QString clickLabel;      ///< what that is called where it is shown
    ZepaPopupKind kind;      ///< hints that a service may pass over
    bool wantsSound = false; ///< the service may play its own sound; otherwise it must not
};

/// The system's pop-ups, as Growl's functions use them. For another system, derive from this in a folder of your own,
/// and define makePopupService() there.
///
/// Main thread only. No function waits for anybody. A signal may be emitted from within post(), but not from any other
/// function here.
class PopupService : public QObject
{
    Q_OBJECT

public:
    /// Longest side of a posting's icon, in pixels; larger pictures were scaled down.
    static constexpr int iconSide = 128;

    /// Whether pop-ups can be shown. Connects to the service unless that was done, so it is called early.
    virtual ZepaPopupService state() = 0;
    /// What the user wants to be spared; NotTold from a service that does not know.
    virtual ZepaDoNotDisturb doNotDisturb() { return ZepaDoNotDisturb::NotTold; }

    /// Shows a pop-up of its own for each posting, in their order. shown() or notShown() follows within seconds for
    /// each ticket, however the service behaves, and what cannot be sent yet is held within bounds.
    virtual void post(const PopupPosting& posting, Ticket ticket) = 0;
    /// Takes a pop-up off the screen. An id that means nothing any more is ignored.
    virtual void close(PopupId id) = 0;

Q_SIGNALS:
    /// The pop-up is on the screen. After notShown() for the same ticket it means that it came late: it is closed, as
    /// nobody would take a click on it. An id that another ticket has means that the service merged the two.
    void shown(zepa::growl::Ticket ticket, zepa::growl::PopupId id);
    void notShown(zepa::growl::Ticket ticket);
    /// The user clicked a pop-up; also before shown(). `activationToken` is what the system gave for coming to the
    /// front, empty for none. A click that comes after closed() is none.
    void clicked(zepa::growl::PopupId id, const QString& activationToken);
    /// A pop-up is gone, for whatever reason; also before shown(). A service that is never told says nothing: what is
    /// clickable counts as timed out after a day then, or when a thousand later ones wait.
    void closed(zepa::growl::PopupId id);
    /// Every id that was told so far means nothing any more: the service ended or was replaced. Tickets go on.
    void lost();
};

/// The service of this system; defined by the folder that implements it, and in tests by a recorder.
std::unique_ptr<PopupService> makePopupService();

} // namespace zepa::growl
