// SPDX-License-Identifier: Apache-2.0
#include <zepa_platform/attention.h>

#include "attention/attention_request.h"
#include "attention/launcher_entry.h"
#include "attention/window_alert.h"

#include <QGuiApplication>
#include <QPointer>

namespace {

class DesktopEffects : public attention::Effects
{
public:
    void ask() override
    {
        m_alert.set(attention::askingWindow(named, lastActive));
        tellLauncher(true);
    }

    void withdraw() override
    {
        m_alert.clear();
        tellLauncher(false);
    }

    QPointer<QWindow> named;
    QPointer<QWindow> lastActive;

private:
    void tellLauncher(bool urgent)
    {
        m_launcher.tell(
            attention::launcherAddress(QGuiApplication::desktopFileName(), QGuiApplication::applicationName()), urgent);
    }

    attention::WindowAlert m_alert;
    attention::Launcher m_launcher;
};

/// Lives as long as the application object that it listens to.
class ApplicationAttention : public QObject
{
public:
    explicit ApplicationAttention(QGuiApplication& application) : QObject(&application)
    {
        connect(&application, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive)
                m_request.applicationActivated();
        });
        connect(&application, &QGuiApplication::focusWindowChanged, this, [this](QWindow* window) {
            if (attention::canAsk(window))
                m_effects.lastActive = window;
        });
    }

    void name(QWindow* window) { m_effects.named = window; }
    void request() { m_request.request(QGuiApplication::applicationState() == Qt::ApplicationActive); }

private:
    DesktopEffects m_effects;
    attention::AttentionRequest m_request{m_effects};
};

/// Null without a QGuiApplication.
ApplicationAttention* current()
{
    auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    static QPointer<ApplicationAttention> attention;
    if (attention.isNull() && application != nullptr)
        attention = new ApplicationAttention(*application);
    return attention;
}

/// From the start, since nobody can tell later which window was active.
void watchWindows()
{
    current();
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchWindows)

void zepaRequestAttention()
{
    if (ApplicationAttention* attention = current())
        attention->request();
}

void zepaSetAttentionWindow(QWindow* window)
{
    if (ApplicationAttention* attention = current())
        attention->name(window);
}
