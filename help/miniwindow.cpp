// The minimise command and the hand-over to the small window: MinState goes -1 -> 1 (the command) -> 2
// (the small window's first showing) and back to -1 when the restored game window activates.
#include "help/miniwindow.h"

#include "app/vxmain.h"

#include <QCloseEvent>
#include <QWindow>

MiniWindow::MiniWindow(std::function<void()> onResize)
    : QWidget(nullptr, Qt::Window)
    , m_onResize(std::move(onResize))
{
}

void MiniWindow::minimise()
{
    m_awaitingMinimised = true;
    QWindow *w = windowHandle();
    if (w)
        w->installEventFilter(this);
    if (!w || w->isExposed())
        setWindowState(Qt::WindowMinimized);
    else
        m_minimiseOnExpose = true;
}

bool MiniWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Expose && watched == windowHandle()) {
        if (windowHandle()->isExposed() && m_minimiseOnExpose) {
            m_minimiseOnExpose = false;
            QMetaObject::invokeMethod(
                this, [this] { setWindowState(Qt::WindowMinimized); }, Qt::QueuedConnection);
        } else if (!windowHandle()->isExposed() && !m_minimiseOnExpose) {
            // Taken off the screen: the desktop has minimised it.
            m_awaitingMinimised = false;
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
}

void MiniWindow::closeEvent(QCloseEvent *event)
{
    // Closed from the desktop, the stand-in brings the game back rather than leave it hidden.
    if (event->spontaneous()) {
        event->ignore();
        setWindowState(Qt::WindowNoState);
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
