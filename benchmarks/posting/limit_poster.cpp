// SPDX-License-Identifier: Apache-2.0
// The limit: a bare asynchronous call of QtDBus with the arguments that the library would send, and nothing around it.
// Pictures are decoded before the call, each once.
#include "notify_image.h"
#include "poster.h"
#include "qt_loop.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QHash>
#include <QImage>
#include <QString>
#include <QVariantMap>

#include <optional>

namespace {

class LimitPoster : public Poster
{
public:
    void start() override
    {
        qDBusRegisterMetaType<NotifyImage>();
        m_bus.emplace(QDBusConnection::sessionBus());
    }
    void prepare(const std::string& title, const std::string& text, const std::string& icon) override
    {
        m_title = QString::fromStdString(title);
        m_text = QString::fromStdString(text);
        m_icon = icon.empty() ? NotifyImage() : decoded(QString::fromStdString(icon));
    }
    void post() override
    {
        constexpr int timeLimit = 5000;
        QDBusMessage message = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
            QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
        QVariantMap hints{{QStringLiteral("urgency"), QVariant::fromValue(uchar(1))},
                          {QStringLiteral("desktop-entry"), QStringLiteral("zepa")}};
        if (!m_icon.isNull())
            hints.insert(QStringLiteral("image-data"), QVariant::fromValue(m_icon));
        message.setArguments({QStringLiteral("Zepa"), 0U, QString(), m_title, m_text, QStringList(), hints, -1});
        m_bus->asyncCall(message, timeLimit);
    }
    void settle(int microseconds) override { runEventLoop(microseconds); }

private:
    NotifyImage decoded(const QString& path)
    {
        constexpr int longestSide = 128;
        NotifyImage& image = m_images[path];
        if (image.isNull()) {
            QImage picture(path);
            if (picture.width() > longestSide || picture.height() > longestSide)
                picture = picture.scaled(longestSide, longestSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            image = NotifyImage::fromImage(picture);
        }
        return image;
    }

    std::optional<QDBusConnection> m_bus;
    QHash<QString, NotifyImage> m_images;
    QString m_title;
    QString m_text;
    NotifyImage m_icon;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    LimitPoster poster;
    return runPoster(poster);
}
