#include "platform/widgets/Desktop.h"

#include <QGuiApplication>
#include <QWidget>

#include <xcb/xcb.h>
// The XKB header names a field "explicit", a word of C++.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <cstdlib>
#include <cstring>

namespace platform::desktop {

namespace {

xcb_connection_t* x11()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return nullptr;
    const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return native ? native->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t* connection, const char* name)
{
    const xcb_intern_atom_cookie_t cookie =
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(name)), name);
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(connection, cookie, nullptr);
    const xcb_atom_t result = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(reply);
    return result;
}

xcb_window_t rootOf(xcb_connection_t* connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

bool askForDetectableRepeat(xcb_connection_t* connection)
{
    xcb_xkb_use_extension_reply_t* use = xcb_xkb_use_extension_reply(
        connection, xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION), nullptr);
    const bool present = use && use->supported;
    std::free(use);
    if (!present)
        return false;
    const uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    xcb_xkb_per_client_flags_reply_t* flags = xcb_xkb_per_client_flags_reply(
        connection, xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0),
        nullptr);
    const bool granted = flags && (flags->value & flag);
    std::free(flags);
    return granted;
}

} // namespace

bool reportHeldKeysOnce()
{
    static const bool granted = [] {
        xcb_connection_t* connection = x11();
        return connection && askForDetectableRepeat(connection);
    }();
    return granted;
}

// The state goes two ways, since the window manager may or may not have taken
// the window yet: into the window's own property, which a manager reads when it
// maps the window, and as a request to the manager (EWMH), which changes the
// state of a window it already manages.
void keepOffTaskbar(QWidget* window)
{
    xcb_connection_t* connection = x11();
    if (!connection || !window->isWindow())
        return;
    const auto id = static_cast<xcb_window_t>(window->winId());
    const xcb_atom_t state = atom(connection, "_NET_WM_STATE");
    const xcb_atom_t skip = atom(connection, "_NET_WM_STATE_SKIP_TASKBAR");
    if (state == XCB_ATOM_NONE || skip == XCB_ATOM_NONE)
        return;
    xcb_change_property(connection, XCB_PROP_MODE_APPEND, id, state, XCB_ATOM_ATOM, 32, 1, &skip);

    xcb_client_message_event_t request{};
    request.response_type = XCB_CLIENT_MESSAGE;
    request.format = 32;
    request.window = id;
    request.type = state;
    request.data.data32[0] = 1; // add
    request.data.data32[1] = skip;
    request.data.data32[3] = 1; // from an ordinary program
    xcb_send_event(connection, 0, rootOf(connection),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&request));
    xcb_flush(connection);
}

void removeWindowIcon(QWidget* window)
{
    xcb_connection_t* connection = x11();
    if (!connection || !window->isWindow())
        return;
    const xcb_atom_t icon = atom(connection, "_NET_WM_ICON");
    if (icon == XCB_ATOM_NONE)
        return;
    xcb_delete_property(connection, static_cast<xcb_window_t>(window->winId()), icon);
    xcb_flush(connection);
}

} // namespace platform::desktop
