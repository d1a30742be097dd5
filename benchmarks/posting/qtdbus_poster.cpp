// SPDX-License-Identifier: Apache-2.0
// A bare asynchronous call of QtDBus with the arguments that the library would send, and nothing around it. Pictures
// are decoded before the call, each once.
#include "picture.h"
#include "poster.h"
#include "qt_loop.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QImage>
#include <QString>
#include <QVariantMap>

#include <optional>

namespace {

/// The "image-data" hint, (iiibiiay).
struct ImageData
{
    QImage image;
};

QDBusArgument& operator<<(QDBusArgument& argument, const ImageData& data)
{
    constexpr int bitsPerSample = 8;
    constexpr int channels = 4;
    const QImage& image = data.image;
    argument.beginStructure();
    argument << image.width() << image.height() << static_cast<int>(image.bytesPerLine()) << true << bitsPerSample
             << channels << QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    argument.endStructure();
    return argument;
}

/// QtDBus asks for both directions; nothing here reads a picture.
const QDBusArgument& operator>>(const QDBusArgument& argument, ImageData& /*data*/)
{
    return argument;
}

} // namespace

Q_DECLARE_METATYPE(ImageData)

namespace {

class QtDBusPoster : public Poster
{
public:
    void start() override
    {
        qDBusRegisterMetaType<ImageData>();
        m_bus.emplace(QDBusConnection::sessionBus());
    }
    void prepare(const std::string& title, const std::string& text, const std::string& icon) override
    {
        m_title = QString::fromStdString(title);
        m_text = QString::fromStdString(text);
        m_picture = preparedPicture(icon);
    }
    void post() override
    {
        constexpr int timeLimit = 5000;
        QDBusMessage message = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
            QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
        QVariantMap hints{{QStringLiteral("urgency"), QVariant::fromValue(uchar(1))},
                          {QStringLiteral("desktop-entry"), QStringLiteral("zepa")}};
        if (!m_picture.isNull())
            hints.insert(QStringLiteral("image-data"), QVariant::fromValue(ImageData{m_picture}));
        message.setArguments({QStringLiteral("Zepa"), 0U, QString(), m_title, m_text, QStringList(), hints, -1});
        m_bus->asyncCall(message, timeLimit);
    }
    void settle(int microseconds) override { runEventLoop(microseconds); }

private:
    std::optional<QDBusConnection> m_bus;
    QString m_title;
    QString m_text;
    QImage m_picture;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QtDBusPoster poster;
    return runPoster(poster);
}
