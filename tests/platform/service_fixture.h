// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "test_bus.h"

#include <Growl/Growl.h>

#include <QByteArray>
#include <QColor>
#include <QDBusMessage>
#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

/// The scripted service as a process of its own; ended with this object.
class ServiceProcess
{
public:
    /// `bus` is the address that it is given instead of the environment's.
    explicit ServiceProcess(const QStringList& options, const QByteArray& bus = {});
    ~ServiceProcess();

    /// Says a line of the script to it.
    void tell(const QString& command);
    void kill();
    /// SIGSTOP: it lives and does nothing.
    void stop() const;
    void resume() const;
    /// What it wrote so far, one object a line.
    const QList<QJsonObject>& lines();
    bool wrote(const QString& key);
    /// The calls of one method that it got.
    QList<QJsonObject> calls(const QString& method = u"Notify"_s);

private:
    QProcess m_process;
    QByteArray m_rest;
    QList<QJsonObject> m_lines;
};

/// What one test posts. Texts are UTF-16, so that what is no text can be posted too.
struct TestPosting
{
    std::optional<QString> name = u"Message"_s;
    std::optional<QString> title = u"Title"_s;
    std::optional<QString> text = u"Text"_s;
    /// No click context when empty.
    std::string context;
    CFStringRef ownContext = nullptr; ///< the object that becomes the context, instead of `context`
    QByteArray icon;
    int priority = 0;
    bool sticky = false;
    void (*clickCallBack)(CFPropertyListRef) = nullptr;
};

/// A private bus (TestBus) with the limits of a real session and an empty folder of services, an application registered
/// with Growl under the names "Message" and "Mail", and a list of what it was told.
class ServiceTest : public testing::Test
{
protected:
    ServiceTest();
    ~ServiceTest() override;
    void SetUp() override;

    /// `brokerLimits` are options of dbus-broker; dbus-daemon has those of setBusLimits().
    void startBus(const QStringList& brokerLimits = {});
    /// Of the bus that startBus() starts.
    QByteArray startedBusAddress() const { return m_bus.address(); }
    /// Of each bus that is started from now on, instead of a real session's: elements of its configuration.
    void setBusLimits(const QByteArray& limits);
    /// SIGSTOP: the bus lives and does nothing, until it is killed.
    void stopBus() const;
    qint64 busProcess() const { return m_bus.processId(); }
    /// Where those find it that are not tested, and so not behind a proxy.
    static QByteArray& directBusAddress();
    /// The bus dies without a word, and its socket goes too.
    void killBus();
    /// The bus can start the scripted service with these options from now on; it writes to the returned file.
    QString makeActivatable(const QStringList& options);
    /// Returns when it owns its name.
    std::unique_ptr<ServiceProcess> startService(const QStringList& options = {});

    /// Registers with these names, "DefaultNotifications" only when given.
    static void registerNames(const QStringList& all, const std::optional<QStringList>& enabled = std::nullopt);
    static void post(const TestPosting& posting);
    /// To be released.
    static CFStringRef newString(const QString& text);
    /// What the application registers as its icon from now on: a picture file's bytes.
    static QByteArray& applicationIcon();
    /// A picture file of one colour.
    static QByteArray pictureFile(QSize size, const QColor& colour = Qt::green);
    /// Posts with a click context.
    static void postClickable(const std::string& context);

    /// Lets the event loop run until it holds; false when it does not within `patience` milliseconds.
    static bool waitFor(const std::function<bool()>& condition, int patience = 30000);
    /// Until the service has said what it can do: no pop-up reaches it before. It shows one then, with id 1.
    static bool waitUntilAcquainted(ServiceProcess& service);
    /// Until each posting was shown or given up.
    static bool waitUntilSettled();
    static bool waitForAnswers(std::size_t count);
    /// Until the service got so many pop-ups.
    static bool waitForPopups(ServiceProcess& service, int count);

    /// Posts one more pop-up, clicks it and waits for that: by then everything before it has arrived too. Leaves no
    /// trace in answers().
    static void letEverythingArrive(ServiceProcess& service);

    /// Emits a signal in the service's name from a connection that does not own it; to `receiver` alone when given.
    static void forge(const QString& signal, const QVariantList& arguments, const QString& receiver = {});
    /// The same in the bus's own name.
    static void forgeOfTheBus(const QString& signal, const QVariantList& arguments, const QString& receiver);

    /// Any signal from a connection that owns no name.
    static void emitFromAStranger(QDBusMessage message, const QVariantList& arguments);

    using Answers = std::vector<std::string>;
    /// "clicked CONTEXT", "timed out CONTEXT", "own CONTEXT" (the pop-up's own call-back), in order.
    static Answers& answers();
    /// Whether a call of Growl's functions is running.
    static bool& insideGrowl();
    static void onClicked(CFPropertyListRef context);
    static void onTimedOut(CFPropertyListRef context);
    static void onOwnClick(CFPropertyListRef context);
    /// A pop-up's own call-back that notes the activation token in the environment.
    static void noteToken(CFPropertyListRef context);
    static QByteArray& notedToken();

private:
    QString path(const char* file) const { return m_folder.filePath(QLatin1String(file)); }

    QTemporaryDir m_folder;
    TestBus m_bus{m_folder.path()};
};
