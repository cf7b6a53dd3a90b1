// FrAnimate: the red frame grows round the board one pixel at a time, clockwise from the top left.
#include "app/vxmain.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"

namespace
{
// The whole ring takes about this long on any machine: the growth is seen, and never drags.
constexpr qint64 RingUs = 500'000;

// Paces the steps against the clock: a step that comes early waits; a slow screen never waits.
class Pacer
{
public:
    Pacer(EventPump &events, int steps)
        : m_events(events)
        , m_steps(std::max(steps, 1))
        , m_start(events.nowUs())
    {
    }
    void step()
    {
        ++m_done;
        const qint64 due = m_start + RingUs * m_done / m_steps;
        const qint64 early = due - m_events.nowUs();
        // Sleeps shorter than this cost more than they pace.
        if (early > 200)
            m_events.sleepUs(early);
    }

private:
    EventPump &m_events;
    int m_steps;
    qint64 m_start;
    int m_done = 0;
};
} // namespace

void vxmain::FrAnimate()
{
    hideFrameBars();
    vxfr_t->resize(1, 4);
    vxfr_b->resize(1, 4);
    vxfr_l->resize(4, 1);
    vxfr_r->resize(4, 1);
    const QRect B = vxframe_border->geometry();
    const int L = B.x(), T = B.y(), W = B.width(), H = B.height();
    const int w = vxrz->width(), h = vxrz->height();
    vxfr_t->move(L, T);
    vxfr_r->move(L + W - 5, T + 4);
    vxfr_b->move(L + W - 5, T + H - 5);
    vxfr_l->move(L, T + H - 4);

    const int nTop = vb::CLng(w + 11), nRight = vb::CLng(h + 7), nBottom = vb::CLng(w + 8),
              nLeft = vb::CLng(h + 8);
    Pacer pacer(m_platform.events, nTop + nRight + nBottom + nLeft);
    // Each step repaints only the new one-pixel slice, at once: the whole window would be far slower.
    vxfr_t->show();
    for (int i = 0; i < nTop; ++i) {
        vxfr_t->resize(vxfr_t->width() + 1, 4);
        vxfr_t->repaint(vxfr_t->width() - 1, 0, 1, 4);
        pacer.step();
    }
    vxfr_r->show();
    for (int i = 0; i < nRight; ++i) {
        vxfr_r->resize(4, vxfr_r->height() + 1);
        vxfr_r->repaint(0, vxfr_r->height() - 1, 4, 1);
        pacer.step();
    }
    vxfr_b->show();
    for (int i = 0; i < nBottom; ++i) {
        vxfr_b->setGeometry(vxfr_b->x() - 1, vxfr_b->y(), vxfr_b->width() + 1, 4);
        vxfr_b->repaint(0, 0, 1, 4);
        pacer.step();
    }
    vxfr_l->show();
    for (int i = 0; i < nLeft; ++i) {
        vxfr_l->setGeometry(vxfr_l->x(), vxfr_l->y() - 1, 4, vxfr_l->height() + 1);
        vxfr_l->repaint(0, 0, 4, 1);
        pacer.step();
    }
}
