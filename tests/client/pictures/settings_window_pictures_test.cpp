// SPDX-License-Identifier: Apache-2.0
#include "client/client.h"
#include "client/window/settings_dialog.h"
#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "kit/rules/method_titles.h"
#include "pictures.h"

#include <QAbstractItemModel>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using namespace zepa;

/// The cell of that pair chosen.
void choose(SettingsDialog& window, Client& client, const QString& type, const QString& method)
{
    const auto types = typesInOrder(client.module());
    const auto methods = methodsInOrder(client.module());
    int row = 0;
    while (types[row]->getId() != type)
        ++row;
    int column = 0;
    while (methods[column]->getId() != method)
        ++column;
    auto* table = window.findChild<QTableView*>(u"rules"_s);
    table->setCurrentIndex(table->model()->index(row, column));
}

class SettingsWindowPictures : public testing::Test
{
protected:
    const QString message = u"message_received"_s;
    const QString popup = u"zepa_hint_notification"_s;
    const QString sound = u"zepa_sound_notification_method"_s;
    SettingsWindowPictures() { qputenv("HOME", QFile::encodeName(folder.path())); }

    QTemporaryDir folder;
    const QString settings = folder.filePath(u".config/zepa/"_s);
    Client client{settings};
};

TEST_F(SettingsWindowPictures, ShowASoundAndItsFields)
{
    takePictures(u"notification-settings"_s, [this] {
        auto window = std::make_unique<SettingsDialog>(client);
        choose(*window, client, message, sound);
        window->resize(1120, 760);
        return window;
    });
}

TEST_F(SettingsWindowPictures, ShowAPairWithTwoRulesAndAProblem)
{
    QList<ZepaField> config;
    client.module().addNotificationRule(message, popup, config);
    ASSERT_TRUE(QDir().mkpath(settings + u"notifications/typing_started_notify"_s));
    takePictures(u"notification-settings-problem"_s, [this] {
        auto window = std::make_unique<SettingsDialog>(client);
        choose(*window, client, u"typing_started_notify"_s, popup);
        window->findChild<QPushButton*>(u"add"_s)->click();
        choose(*window, client, message, popup);
        window->resize(1120, 760);
        return window;
    });
}

TEST_F(SettingsWindowPictures, ShowThatANarrowWindowIsUsable)
{
    takePictures(u"notification-settings-narrow"_s, [this] {
        auto window = std::make_unique<SettingsDialog>(client);
        choose(*window, client, message, popup);
        window->resize(480, 640);
        return window;
    });
}

} // namespace
