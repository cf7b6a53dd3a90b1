// On X11 the window manager asks a window to close with a WM_DELETE_WINDOW client message; only the xcb
// platform has one to watch (elsewhere the window's own close event is all there is).
#include "platform/closewatch.h"
#include "platform/x11atom.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QWidget>

CloseWatch::CloseWatch(QWidget *window, std::function<void()> onClose)
    : m_window(window)
    , m_onClose(std::move(onClose))
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (QGuiApplication::platformName() != QLatin1String("xcb") || !x11 || !x11->connection())
        return;
    m_protocols = internAtom(x11->connection(), "WM_PROTOCOLS");
    m_delete = internAtom(x11->connection(), "WM_DELETE_WINDOW");
    QCoreApplication::instance()->installNativeEventFilter(this);
}

CloseWatch::~CloseWatch()
{
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool CloseWatch::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE)
        return false;
    const auto *cm = static_cast<const xcb_client_message_event_t *>(message);
    if (cm->format == 32 && cm->type == m_protocols && cm->data.data32[0] == m_delete
        && cm->window == xcb_window_t(m_window->winId()))
        m_onClose();
    return false;
}
