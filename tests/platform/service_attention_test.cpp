// SPDX-License-Identifier: Apache-2.0
#include "service_fixture.h"

#include <zepa_platform/attention.h>

#include <QDBusConnection>
#include <QGuiApplication>
#include <QMetaObject>
#include <QRasterWindow>
#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace {

/// What docks hear, in order: the address of the application and whether it is urgent.
class Dock : public QObject
{
    Q_OBJECT

public:
    explicit Dock(const QByteArray& address)
        : m_bus(QDBusConnection::connectToBus(QString::fromLocal8Bit(address), u"dock"_s))
    {
        m_listens =
            m_bus.connect(QString(), u"/com/canonical/Unity/LauncherEntry/1"_s, u"com.canonical.Unity.LauncherEntry"_s,
                          u"Update"_s, this, SLOT(onUpdate(QString, QVariantMap)));
    }
    ~Dock() override { QDBusConnection::disconnectFromBus(m_bus.name()); }
    Q_DISABLE_COPY_MOVE(Dock)

    bool listens() const { return m_listens; }

    std::vector<bool> urgent;
    QStringList addresses;

private Q_SLOTS:
    void onUpdate(const QString& address, const QVariantMap& properties)
    {
        addresses.append(address);
        urgent.push_back(properties.value(u"urgent"_s).toBool());
    }

private:
    QDBusConnection m_bus;
    bool m_listens = false;
};

using AttentionTest = ServiceTest;

using Urgent = std::vector<bool>;

} // namespace

TEST_F(AttentionTest, IsHeardByDocksWhileTheApplicationIsInTheBackgroundAndWithdrawnWhenItIsActivated)
{
    QGuiApplication::setApplicationName(u"Zepa"_s);
    Dock dock(directBusAddress());
    ASSERT_TRUE(dock.listens());
    ASSERT_TRUE(waitFor([] { return !Growl_IsRunning(); })) << "the bus is there, and no service";
    QRasterWindow window;
    QRasterWindow sibling;
    // Windows that no task bar lists.
    QRasterWindow tip;
    tip.setFlags(Qt::ToolTip);
    QRasterWindow hidden;
    hidden.create();
    for (QWindow* shown :
         {static_cast<QWindow*>(&window), static_cast<QWindow*>(&sibling), static_cast<QWindow*>(&tip)})
        shown->show();
    // Offscreen, a window becomes active with the next events.
    ASSERT_NE(QGuiApplication::applicationState(), Qt::ApplicationActive);
    zepaRequestAttention();
    EXPECT_NE(QGuiApplication::applicationState(), Qt::ApplicationActive) << "events were handled in the middle of it";
    ASSERT_TRUE(waitFor([] { return QGuiApplication::applicationState() == Qt::ApplicationActive; }));
    ASSERT_TRUE(waitFor([&] { return dock.urgent.size() == 2; }));
    EXPECT_EQ(dock.urgent, (Urgent{true, false}));
    EXPECT_EQ(dock.addresses, QStringList(2, u"application://zepa.desktop"_s));

    zepaRequestAttention();
    letEverythingArrive(*startService());
    EXPECT_EQ(dock.urgent.size(), 2U) << "an active application asks for nothing";
}

TEST_F(AttentionTest, IsHeardAgainAfterTheBusWasStartedAgain)
{
    zepaRequestAttention();
    {
        Dock dock(directBusAddress());
        zepaRequestAttention();
        ASSERT_TRUE(waitFor([&] { return !dock.urgent.empty(); }));
    }
    killBus();
    ASSERT_TRUE(waitFor([] { return !Growl_IsRunning(); }));
    zepaRequestAttention();
    startBus();
    Dock dock(directBusAddress());
    ASSERT_TRUE(waitFor([&] {
        zepaRequestAttention();
        return !dock.urgent.empty();
    }));
}

TEST(WindowAlert, CanBeTakenBackInThisVersionOfQt)
{
    EXPECT_GE(QWindow::staticMetaObject.indexOfMethod("_q_clearAlert()"), 0)
        << "the slot that ends an alert has another name";
}

#include "service_attention_test.moc"
