// SPDX-License-Identifier: Apache-2.0
#include "instance_fixture.h"

#include "client/instance/bus_name.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>

#include <csignal>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

using namespace zepa;

std::unique_ptr<QProcess> InstanceTest::startWindow(const QString& settings)
{
    auto process = std::make_unique<QProcess>();
    environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    process->setProcessEnvironment(environment);
    process->setWorkingDirectory(u"/"_s);
    process->setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process->start(QString::fromUtf8(ZEPA_PROGRAM), {u"--settings"_s, inFolder(settings)});
    return process;
}

void InstanceTest::startFirst()
{
    m_first = startWindow();
    ASSERT_TRUE(waitFor([this] { return isClientThere(); })) << m_first->readAllStandardError().constData();
}

void InstanceTest::endFirst()
{
    m_first->kill();
    m_first->waitForFinished();
}

QString InstanceTest::clientName(const QString& settings) const
{
    return QString::fromLatin1(instance::busName(inFolder(settings)));
}

bool InstanceTest::isClientThere(const QString& settings)
{
    return QDBusConnection::sessionBus().interface()->isServiceRegistered(clientName(settings));
}

QDBusMessage InstanceTest::message(const QString& method, const QVariantList& arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(clientName(), QString::fromLatin1(instance::objectPath),
                                                          QString::fromLatin1(instance::interfaceName), method);
    message.setArguments(arguments);
    return message;
}

QDBusMessage InstanceTest::call(const QString& method, const QVariantList& arguments) const
{
    return QDBusConnection::sessionBus().call(message(method, arguments));
}

bool InstanceTest::waitForOutput(QProcess& process, const QByteArray& text)
{
    return waitFor([&] { return process.peek(process.bytesAvailable()).contains(text); });
}
