// The minimise command and the hand-over to the small window: MinState goes -1 -> 1 (the command) -> 2
// (the small window's first showing) and back to -1 when the restored game window activates.
#include "help/miniwindow.h"

#include "app/vxmain.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>
#include <utility>

namespace
{
// How long a new window waits for the compositor's activation before it asks to be minimised all the same.
constexpr int ActivationWaitMs = 250;
} // namespace

MiniWindow::MiniWindow(std::function<void()> onResize)
    : QWidget(nullptr, Qt::Window)
    , m_onResize(std::move(onResize))
    , m_stateUnreported(QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
{
}

void MiniWindow::minimise()
{
    m_awaitingMinimised = true;
    QWindow *w = windowHandle();
    if (w)
        w->installEventFilter(this);
    if (!w || w->isExposed())
        requestMinimised();
    else
        m_minimiseOnExpose = true;
}

void MiniWindow::requestMinimised()
{
    setWindowState(Qt::WindowMinimized);
    // A window off the screen is never asked for its next frame, which is how Qt on Wayland learns that
    // it is hidden: one more frame is drawn after the request.
    if (m_stateUnreported)
        update();
}

void MiniWindow::awaitActivation()
{
    // Qt can lose a deactivation that follows its activation too closely, and would then never report the
    // restore: the request waits until the compositor's activation of the new window is through, or a
    // moment where it activates none.
    m_minimiseOnActivation = true;
    QTimer::singleShot(ActivationWaitMs, this, [this] {
        if (std::exchange(m_minimiseOnActivation, false))
            requestMinimised();
    });
}

void MiniWindow::takenOff()
{
    m_awaitingMinimised = false;
    m_offScreen = m_stateUnreported;
}

bool MiniWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Expose && watched == windowHandle()) {
        if (windowHandle()->isExposed() && m_minimiseOnExpose) {
            m_minimiseOnExpose = false;
            if (m_stateUnreported)
                awaitActivation();
            else
                QMetaObject::invokeMethod(
                    this, [this] { requestMinimised(); }, Qt::QueuedConnection);
        } else if (!windowHandle()->isExposed() && !m_minimiseOnExpose && !m_minimiseOnActivation) {
            // Taken off the screen: the desktop has minimised it.
            takenOff();
        }
    }
    return QWidget::eventFilter(watched, event);
}

void MiniWindow::changed(bool fromDesktop)
{
    // Until the desktop has taken the window off the screen, its reports of the normal state are those
    // of the first showing or the echo of the request (on X11), not a restore by the player.
    if (m_awaitingMinimised && fromDesktop)
        return;
    m_onResize();
}

void MiniWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    changed(event->spontaneous());
}

void MiniWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        changed(event->spontaneous());
    // Where the desktop never reports a restore (Wayland), the player's restore is seen as the window
    // becoming active again once it was taken off the screen or lost its activation. Its coming back on
    // the screen is not enough: a window switcher shows minimised windows while it is browsed.
    if (event->type() == QEvent::ActivationChange && m_stateUnreported) {
        if (isActiveWindow() && std::exchange(m_minimiseOnActivation, false))
            QMetaObject::invokeMethod(
                this, [this] { requestMinimised(); }, Qt::QueuedConnection);
        else if (isActiveWindow() && m_offScreen)
            restore();
        else if (!isActiveWindow() && m_awaitingMinimised && !m_minimiseOnExpose && !m_minimiseOnActivation)
            takenOff();
    }
}

void MiniWindow::closeEvent(QCloseEvent *event)
{
    // Closed from the desktop, the stand-in brings the game back rather than leave it hidden.
    if (event->spontaneous()) {
        event->ignore();
        restore();
    }
}

void MiniWindow::mousePressEvent(QMouseEvent *)
{
    // Where no desktop can restore it (a bare X server shows it as it is), a click brings the game back.
    restore();
}

void MiniWindow::restore()
{
    m_awaitingMinimised = false;
    m_minimiseOnExpose = false;
    m_minimiseOnActivation = false;
    m_offScreen = false;
    if (windowState() & Qt::WindowMinimized)
        setWindowState(Qt::WindowNoState);
    else
        m_onResize();
}

void vxmain::cb_min_Click()
{
    PuzzleState &s = m_state;
    if (!s.allows(Command::Minimise))
        return;
    s.MinState = 1;
    if (vxmin) { // one left from a hand-over the desktop never finished
        vxmin->close();
        vxmin->deleteLater();
    }
    auto *mini = new MiniWindow([this] { vxmin_Resize(); });
    vxmin = mini;
    vxmin->setWindowTitle(tr("Varno"));
    // 1560 x 210 twips.
    vxmin->resize(104, 14);
    vxmin->setWindowIcon(windowIcon());
    hide();
    vxmin->show();
    mini->minimise();
}

void vxmain::vxmin_Resize()
{
    PuzzleState &s = m_state;
    if (!vxmin || (vxmin->windowState() & (Qt::WindowMinimized | Qt::WindowMaximized)))
        return;
    if (s.MinState == 1) {
        s.MinState = 2;
        return;
    }
    show();
    // The game window keeps off the taskbar, so the window manager is asked to make it active.
    raise();
    activateWindow();
}

void vxmain::BringForward()
{
    if (m_ending)
        return;
    // Standing in for the game, the small window hands it back as when the player restores it.
    if (m_state.MinState > 1 && vxmin) {
        static_cast<MiniWindow *>(vxmin)->restore();
        return;
    }
    if (isMinimized())
        setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}
