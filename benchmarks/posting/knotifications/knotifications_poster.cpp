// SPDX-License-Identifier: Apache-2.0
// Posts through KNotifications. Its events are in zepa_bench.notifyrc, which the driver installs for the run.
#include "poster.h"
#include "qt_loop.h"

#include <KNotification>

#include <QApplication>
#include <QPixmap>

namespace {

class KNotificationsPoster : public Poster
{
public:
    void start() override {}
    void prepare(const std::string& title, const std::string& text, const std::string& icon) override
    {
        m_title = QString::fromStdString(title);
        m_text = QString::fromStdString(text);
        m_icon = QString::fromStdString(icon);
    }
    void post() override
    {
        auto* notification = new KNotification(QStringLiteral("measured"));
        notification->setComponentName(QStringLiteral("zepa_bench"));
        notification->setTitle(m_title);
        notification->setText(m_text);
        if (!m_icon.isEmpty())
            notification->setPixmap(QPixmap(m_icon));
        notification->sendEvent();
    }
    void settle(int microseconds) override { runEventLoop(microseconds); }

private:
    QString m_title;
    QString m_text;
    QString m_icon;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("zepa"));
    KNotificationsPoster poster;
    return runPoster(poster);
}
