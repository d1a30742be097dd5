// SPDX-License-Identifier: Apache-2.0
#include "client/client.h"
#include "client/languages.h"
#include "client/window/main_window.h"
#include "client/window/settings_dialog.h"
#include "tests/client/pictures/picture_checks.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHash>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using namespace zepa;

/// Fails for a text whose key another of the texts has: a key that two have only moves the focus between them.
void expectKeysOfTheirOwn(const QStringList& texts)
{
    QHash<QString, QString> taken;
    for (const QString& text : texts) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (key.isEmpty())
            continue;
        EXPECT_FALSE(taken.contains(key))
            << key.toStdString() << ": " << taken.value(key).toStdString() << ", " << text.toStdString();
        taken.insert(key, text);
    }
    EXPECT_GT(taken.size(), 1);
}

QStringList textsOf(const QList<QAction*>& actions)
{
    QStringList texts;
    for (const QAction* action : actions)
        texts.append(action->text());
    return texts;
}

/// The texts of all that has a key in the window, shown or not, except what menus hold.
QStringList textsOf(const QWidget& window)
{
    QStringList texts;
    const auto buttons = window.findChildren<QAbstractButton*>();
    for (const QAbstractButton* button : buttons)
        texts.append(button->text());
    const auto labels = window.findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (label->buddy())
            texts.append(label->text());
    }
    return texts;
}

class TranslatedWindows : public testing::TestWithParam<const char*>
{
protected:
    TranslatedWindows()
    {
        qputenv("LC_ALL", GetParam());
        qunsetenv("LANGUAGE");
        installTranslations(*qApp);
    }

    QTemporaryDir folder;
    Client client{folder.path()};
};

TEST_P(TranslatedWindows, HaveEachKeyOnceInTheMainWindow)
{
    MainWindow window(client);
    window.tell(u"news"_s);
    window.show();
    const auto* bar = window.findChild<QMenuBar*>();
    ASSERT_NE(bar, nullptr);
    expectKeysOfTheirOwn(textsOf(window) + textsOf(bar->actions()));
    const auto menus = bar->actions();
    EXPECT_EQ(menus.size(), 3);
    for (const QAction* action : menus) {
        if (action->menu()->actions().size() > 1)
            expectKeysOfTheirOwn(textsOf(action->menu()->actions()));
    }
}

TEST_P(TranslatedWindows, HaveEachKeyOnceInTheSettings)
{
    SettingsDialog window(client);
    window.show();
    auto* table = window.findChild<QTableView*>(u"rules"_s);
    ASSERT_NE(table, nullptr);
    // The first event has a sound, whose field has most keys.
    table->setCurrentIndex(table->model()->index(0, 1));
    ASSERT_NE(window.findChild<QAbstractButton*>(u"play"_s), nullptr);
    expectKeysOfTheirOwn(textsOf(window));
}

TEST_P(TranslatedWindows, HaveRoomForEachText)
{
    MainWindow window(client);
    window.show();
    ASSERT_TRUE(QTest::qWaitFor([&window] { return window.findChild<QMenuBar*>() != nullptr; }));
    window.openNotificationSettings();
    auto* settings = window.findChild<SettingsDialog*>();
    ASSERT_NE(settings, nullptr);
    QTest::qWait(50);
    checkWidgets(window);
    checkWidgets(*settings);
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslatedWindows,
                         testing::Values("C", "de_DE", "es_ES", "fr_FR", "pl_PL", "pt_PT"),
                         [](const auto& language) { return std::string(language.param).substr(0, 2); });

} // namespace
