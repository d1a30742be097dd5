// SPDX-License-Identifier: Apache-2.0
#include "client/chats/chat_manager.h"
#include "client/chats/chat_window.h"
#include "client/client.h"
#include "client/window/contact_panel.h"
#include "client/window/main_window.h"
#include "client/window/settings_dialog.h"
#include "client/window/simulator.h"
#include "core/notification.h"
#include "core/notification_module.h"
#include "kit/journal/announce.h"
#include "kit/rules/method_titles.h"
#include "kit/settings/global_settings.h"
#include "kit/settings_page/rule_pane.h"
#include "kit/texts/message_text.h"
#include "kit/texts/plain_text.h"
#include "kit/widgets/plain_widgets.h"
#include "qt_printers.h"
#include "shown_texts.h"

#include <QDir>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <sys/inotify.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using namespace zepa;

/// A method from outside that names everything as it likes.
class ProbeMethod final : public ZepaNotificationMethod
{
public:
    ProbeMethod(QString id, QString action, const QList<ZepaField>& settings)
        : m_id(std::move(id)), m_action(std::move(action))
    {
        fields = settings;
    }
    void postNotification(unsigned int, ZepaNotification*, const QString&, const QString&, const QString&,
                          const QString&, const QList<ZepaField>&, const ZepaPluginAction&,
                          const QList<ZepaArg>&) override
    {}
    QString getId() const override { return m_id; }
    QString getActionName() const override { return m_action; }
    QString getActionIcon() const override { return {}; }

private:
    const QString m_id;
    const QString m_action;
};

/// A client in which every text from outside is markup with a picture in it, and a watch on that picture.
class ForeignTexts : public testing::Test
{
protected:
    ForeignTexts()
    {
        qputenv("XDG_DATA_HOME", folder.filePath(u"data"_s).toLocal8Bit());
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(picture()));
        m_watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
        EXPECT_GE(inotify_add_watch(m_watch, QFile::encodeName(picture()).constData(), IN_OPEN), 0);
    }
    ~ForeignTexts() override
    {
        ChatManager::instance().closeAll();
        ::close(m_watch);
    }

    QString picture() const { return folder.filePath(u"p.png"_s); }
    /// A text from outside, each time another one.
    QString text()
    {
        m_texts.append(
            u"<h1>%1</h1><img src=\"%2\"><a href=\"x\">l</a>&quot;&amp;"_s.arg(m_texts.size() + 100).arg(picture()));
        return m_texts.constLast();
    }
    /// The same without a slash, for the name of a file.
    QString fileName()
    {
        m_texts.append(u"<h1>%1<img src=p.png><a href=x>&quot;&amp;"_s.arg(m_texts.size() + 100));
        return m_texts.constLast();
    }

    /// Whether each text of text() and fileName() is shown somewhere, and none otherwise than it was written.
    void expectAllAsWritten(const QStringList& shown) const
    {
        for (const QString& written : m_texts) {
            const QString number = QString::number(m_texts.indexOf(written) + 100);
            bool isShown = false;
            for (const QString& one : shown) {
                isShown = isShown || one.contains(written);
                EXPECT_TRUE(!one.contains(number) || one.contains(written))
                    << one.toStdString() << "\nshows " << written.toStdString();
            }
            EXPECT_TRUE(isShown) << written.toStdString() << " is shown nowhere";
        }
        char event[4096];
        EXPECT_LT(::read(m_watch, event, sizeof event), 0) << "the picture was opened";
    }

    Posting post(const QString& type, const QString& name)
    {
        return {type, text(), text(), {}, ZepaBuddy(name, name, ZepaBuddy::NotOnContactList), {}, false};
    }

    QTemporaryDir folder;

private:
    QStringList m_texts;
    int m_watch = -1;
};

TEST_F(ForeignTexts, StandInTheMainWindowAsTheyWereWritten)
{
    Client client(folder.filePath(u"settings"_s));
    MainWindow window(client);
    window.show();
    ASSERT_TRUE(QTest::qWaitFor([&window] { return window.findChild<ContactPanel*>(); }));
    ASSERT_TRUE(QTest::qWaitFor([&client] { return client.hasStarted(); }));

    const QString type = text();
    client.module().registerNotification(type, text(), {}, text());
    QStringList shown;
    // The details of a posting are shown while it is the last one.
    for (const QString& posted : {type, text(), u"message_received"_s}) {
        announce(client.recorder(), post(posted, text()));
        shown += zepa::test::shownTexts(window);
    }
    announce(client.recorder(), {u"buddy_changed_status"_s,
                                 u"Ann"_s,
                                 text(),
                                 {},
                                 ZepaBuddy(u"Ann"_s, u"Ann"_s, ZepaBuddy::Contact),
                                 {},
                                 false});
    window.tell(text());
    const QString contact = text();
    auto* simulator = window.findChild<Simulator*>();
    ASSERT_TRUE(simulator);
    simulator->setContact(ZepaBuddy(contact, contact, ZepaBuddy::Contact));
    QMenu menu;
    simulator->fill(menu);
    shown += zepa::test::shownTexts(window);
    shown += zepa::test::shownTexts(menu);
    // Its description, and the identifier of a type that has a name, are for the settings.
    shown += client.module().getNotifications().value(type)->getDescription();
    expectAllAsWritten(shown);
}

TEST_F(ForeignTexts, StandInAChatWindowAsTheyWereWritten)
{
    const Settings settings(folder.filePath(u"settings"_s));
    const QString name = text();
    ChatWindow* window = ChatManager::instance().open(ZepaBuddy(name, name, ZepaBuddy::Contact));
    window->receiveMessage(text());
    window->showSentMessage(text());
    window->notifyMessage(text());
    expectAllAsWritten(zepa::test::shownTexts(*window));
}

TEST_F(ForeignTexts, KeepTheirLinesAndBlanksInAToolTip)
{
    const QString plain = u"a & b > c"_s;
    EXPECT_EQ(plainToolTip(plain), plain);
    QWidget owner;
    for (const char16_t* written : {u"<b>x</b>  two\n\n three &amp;\tend", u"&lt;b>", u" <i>", u"a\n<b>"}) {
        setPlainToolTip(owner, QString::fromUtf16(written));
        // The tip, and the description that a screen reader reads.
        QStringList shown = zepa::test::shownTexts(owner);
        EXPECT_GE(shown.removeAll(QString::fromUtf16(written)), 2);
        EXPECT_EQ(shown, QStringList());
        EXPECT_EQ(owner.accessibleDescription(), QString::fromUtf16(written));
    }
    EXPECT_LE(plainToolTip(QString(100'000, u'x')).size(), longestMessage);
}

/// The window of the rules, in which texts come from types, methods, rules, settings, themes and files.
class ForeignTextsInSettings : public ForeignTexts
{
protected:
    ForeignTextsInSettings()
    {
        const QString themes = folder.filePath(u"data/zepa/themes/icons/"_s);
        EXPECT_TRUE(QDir().mkpath(themes + m_theme));
        EXPECT_TRUE(client.settings().store(globalSettings().at(2), m_theme));
        client.module().registerNotification(m_type, text(), {}, text());
        client.module().installNotificationMethod(&m_method);
        QList<ZepaField> config = m_method.fields;
        config[0].setText(text());
        client.module().addNotificationRule(m_type, m_method.getId(), config);
    }

    /// Chooses the cell of the type and the method.
    void choose(SettingsDialog& window, const QString& type, const QString& method)
    {
        auto* table = window.findChild<QTableView*>(u"rules"_s);
        const auto types = typesInOrder(client.module());
        const auto methods = methodsInOrder(client.module());
        table->setCurrentIndex(table->model()->index(int(types.indexOf(client.module().getNotifications().value(type))),
                                                     int(methods.indexOf(client.module().getMethods().value(method)))));
        ASSERT_TRUE(table->currentIndex().isValid());
    }

    const QString m_theme = fileName();
    // Its rules have a file of that name.
    const QString m_type = fileName();
    ProbeMethod m_method{text(),
                         text(),
                         {ZepaField::textEdit(text(), u"a"_s, {}, text()),
                          ZepaField::comboBox(text(), u"b"_s, {u"1"_s, u"2"_s}, {text(), text()}, u"1"_s, text()),
                          ZepaField::checkBox(text(), u"c"_s, true, text(), {}),
                          ZepaField::spinBox(text(), u"d"_s, 9, 0, 5, text(), text()),
                          ZepaField::soundEdit(text(), u"e"_s, text(), text())}};
    Client client{folder.filePath(u"settings"_s)};
};

TEST_F(ForeignTextsInSettings, StandInEachFieldAsTheyWereWritten)
{
    SettingsDialog window(client);
    window.show();
    choose(window, m_type, m_method.getId());
    // A change names the field in the tool tip that undoes it, and a sample names the type.
    auto* pane = window.findChild<RulePane*>();
    auto* line = pane->findChild<QLineEdit*>(u"a"_s);
    ASSERT_TRUE(line);
    QStringList shown = zepa::test::shownTexts(window);
    line->setText(text());
    Q_EMIT line->editingFinished();
    Q_EMIT pane->sampleWanted();
    expectAllAsWritten(shown + zepa::test::shownTexts(window));
}

TEST_F(ForeignTextsInSettings, StandInTheWarningAboutAFileAsTheyWereWritten)
{
    SettingsDialog window(client);
    window.show();
    choose(window, m_type, m_method.getId());
    const QString file = folder.filePath(fileName());
    ASSERT_TRUE(QFile(file).open(QIODevice::WriteOnly));
    window.findChild<QPushButton*>(u"choose"_s)->click();
    auto* dialog = window.findChild<QFileDialog*>();
    ASSERT_TRUE(dialog);
    Q_EMIT dialog->fileSelected(file);
    dialog->close();
    auto* warning = window.findChild<QLabel*>(u"soundWarning"_s);
    ASSERT_TRUE(warning);
    EXPECT_TRUE(QTest::qWaitFor([&] { return warning->isVisible() && warning->text().contains(u"taken"); }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    expectAllAsWritten(zepa::test::shownTexts(window));
}

} // namespace
