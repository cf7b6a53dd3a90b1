// Emptying the X11 window name properties that Qt fills with the application's name, and placing
// secondary windows.
#include "platform/caption.h"
#include "platform/x11atom.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

void clearNativeCaption(QWidget *window)
{
    // Only the xcb platform has a window on an X server (the offscreen one may answer without one).
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (QGuiApplication::platformName() != QLatin1String("xcb") || !x11 || !x11->connection())
        return;
    xcb_connection_t *c = x11->connection();
    const auto id = xcb_window_t(window->winId());
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, id, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0, nullptr);
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, id, internAtom(c, "_NET_WM_NAME"),
        internAtom(c, "UTF8_STRING"), 8, 0, nullptr);
    xcb_flush(c);
}

void centreOnScreen(QWidget *window, const QWidget *over)
{
    if (const QScreen *sc = over ? over->screen() : window->screen())
        window->move(sc->geometry().center() - QPoint(window->width() / 2, window->height() / 2));
}
