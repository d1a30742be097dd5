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
        attention::alertWindows();
        tellLauncher(true);
    }

    void withdraw() override
    {
        attention::clearWindowAlerts();
        tellLauncher(false);
    }

private:
    void tellLauncher(bool urgent)
    {
        m_launcher.send(attention::launcherUpdate(
            attention::launcherAddress(QGuiApplication::desktopFileName(), QGuiApplication::applicationName()),
            urgent));
    }

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
    }

    void request() { m_request.request(QGuiApplication::applicationState() == Qt::ApplicationActive); }

private:
    DesktopEffects m_effects;
    attention::AttentionRequest m_request{m_effects};
};

} // namespace

void zepaRequestAttention()
{
    auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (application == nullptr)
        return;
    static QPointer<ApplicationAttention> attention;
    if (attention.isNull())
        attention = new ApplicationAttention(*application);
    attention->request();
}
