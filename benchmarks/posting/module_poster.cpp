// SPDX-License-Identifier: Apache-2.0
// Posts through the library: one notification type with one rule, of the pop-up method.
#include "core/method_ids.h"
#include "poster.h"
#include "qt_loop.h"

#include "benchmarks/remembered_postings.h"
#include "core/notification_module.h"
#include "host/plugin_action.h"
#include "kit/settings/settings.h"

#include <QApplication>
#include <QString>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

class ModulePoster : public Poster
{
public:
    explicit ModulePoster(const QString& settingsFolder) : m_settings(settingsFolder) {}

    void start() override
    {
        m_module.reset(ZepaNotificationModule::getInstance());
        ZepaNotificationModule::init();
        addType();
    }
    void prepare(const std::string& title, const std::string& text, const std::string& icon) override
    {
        m_title = QString::fromStdString(title);
        m_text = QString::fromStdString(text);
        m_icon = QString::fromStdString(icon);
    }
    void post() override
    {
        m_module->postNotification(u"measured"_s, m_title, m_text, m_icon, QString(), ZepaPluginAction(), {});
    }
    void settle(int microseconds) override { runEventLoop(microseconds); }
    /// Every title is a new one, which the module remembers for a while: what that costs is measured elsewhere.
    void refresh() override { rememberedPostings(*m_module).clear(); }

private:
    void addType()
    {
        m_module->registerNotification(u"measured"_s, u"Measured"_s, QString(), QString());
        const QString method = ZepaMethodId::hint;
        QList<ZepaField> config;
        if (m_module->getNotificationRule(u"measured"_s, method) == nullptr)
            m_module->addNotificationRule(u"measured"_s, method, config);
    }

    zepa::Settings m_settings;
    std::unique_ptr<ZepaNotificationModule> m_module;
    QString m_title;
    QString m_text;
    QString m_icon;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(u"zepa"_s);
    ModulePoster poster(QString::fromLocal8Bit(argc > 1 ? argv[1] : "."));
    return runPoster(poster);
}
