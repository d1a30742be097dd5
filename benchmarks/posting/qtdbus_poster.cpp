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

using namespace Qt::StringLiterals;

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
        QDBusMessage message =
            QDBusMessage::createMethodCall(u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s,
                                           u"org.freedesktop.Notifications"_s, u"Notify"_s);
        QVariantMap hints{{u"urgency"_s, QVariant::fromValue(uchar(1))}, {u"desktop-entry"_s, u"zepa"_s}};
        if (!m_picture.isNull())
            hints.insert(u"image-data"_s, QVariant::fromValue(ImageData{m_picture}));
        message.setArguments({u"Zepa"_s, 0U, QString(), m_title, m_text, QStringList(), hints, -1});
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
