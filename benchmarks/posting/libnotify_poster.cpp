// SPDX-License-Identifier: Apache-2.0
// Posts through libnotify, as its documentation shows it.
#include "poster.h"

#include <libnotify/notify.h>

namespace {

gboolean stop(gpointer loop)
{
    g_main_loop_quit(static_cast<GMainLoop*>(loop));
    return G_SOURCE_REMOVE;
}

class LibnotifyPoster : public Poster
{
public:
    void start() override { notify_init("Zepa"); }
    void prepare(const std::string& title, const std::string& text, const std::string& icon) override
    {
        m_title = title;
        m_text = text;
        m_icon = icon;
    }
    void post() override
    {
        NotifyNotification* notification = notify_notification_new(m_title.c_str(), m_text.c_str(), nullptr);
        notify_notification_set_hint(notification, "desktop-entry", g_variant_new_string("zepa"));
        if (!m_icon.empty()) {
            if (GdkPixbuf* picture = gdk_pixbuf_new_from_file(m_icon.c_str(), nullptr)) {
                notify_notification_set_image_from_pixbuf(notification, picture);
                g_object_unref(picture);
            }
        }
        notify_notification_show(notification, nullptr);
        g_object_unref(notification);
    }
    void settle(int microseconds) override
    {
        constexpr int inOneMillisecond = 1000;
        GMainLoop* loop = g_main_loop_new(nullptr, FALSE);
        g_timeout_add(static_cast<guint>(microseconds / inOneMillisecond), stop, loop);
        g_main_loop_run(loop);
        g_main_loop_unref(loop);
    }

private:
    std::string m_title;
    std::string m_text;
    std::string m_icon;
};

} // namespace

int main()
{
    LibnotifyPoster poster;
    return runPoster(poster);
}
