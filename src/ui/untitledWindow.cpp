#include "ui/untitledWindow.h"

#include <QGuiApplication>
#include <QWidget>
#include <cassert>

#if QT_CONFIG(xcb)
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#endif

namespace quintline {

#if QT_CONFIG(xcb)
namespace {

xcb_atom_t atom(xcb_connection_t* connection, const char* name) {
    const xcb_intern_atom_cookie_t cookie =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(connection, cookie, nullptr);
    if (reply == nullptr) return XCB_ATOM_NONE;
    const xcb_atom_t result = reply->atom;
    std::free(reply);
    return result;
}

}  // namespace
#endif

void clearNativeTitle(QWidget* window) {
    assert(window->isWindow());
#if QT_CONFIG(xcb)
    // Other platforms (offscreen among them) may answer for X11 without an X connection.
    if (QGuiApplication::platformName() != QLatin1String("xcb")) return;
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* connection = x11 != nullptr ? x11->connection() : nullptr;
    if (connection == nullptr) return;
    const auto id = static_cast<xcb_window_t>(window->winId());
    const xcb_atom_t utf8 = atom(connection, "UTF8_STRING");
    const xcb_atom_t netWmName = atom(connection, "_NET_WM_NAME");
    if (utf8 != XCB_ATOM_NONE && netWmName != XCB_ATOM_NONE) {
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, netWmName, utf8, 8, 0, nullptr);
    }
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        0, nullptr);
    xcb_flush(connection);
#else
    (void)window;
#endif
}

}  // namespace quintline
