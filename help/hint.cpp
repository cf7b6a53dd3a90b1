// The tile position hint: armed by its button, it marks the pressed tile and then blinks on the place
// where that tile belongs.
#include "app/vxmain.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"

#include <QPainter>
#include <QSvgRenderer>

namespace
{
QCursor hintCursor()
{
    QPixmap pm(32, 32);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    QSvgRenderer(QStringLiteral(":/cursors/hint.svg")).render(&p);
    // The hot spot is the arrow's tip.
    return QCursor(pm, 2, 2);
}
} // namespace

void vxmain::cb_help_Click()
{
    PuzzleState &s = m_state;
    if (!s.allows(Command::Hint))
        return;
    if (!s.HintMode) {
        s.HintMode = true;
        m_platform.pointers.set(PointerShape::Custom, hintCursor());
    } else {
        s.HintMode = false;
        m_platform.pointers.set(PointerShape::Default);
    }
}

void vxmain::HelpOn(Integer pos, bool fromTray)
{
    PuzzleState &s = m_state;
    s.HintMode = false;
    m_platform.pointers.set(PointerShape::Default);
    hlpfr_pcs->resize(hlpfr_rz->size());
    QWidget *marker;
    QPoint start;
    Integer home;
    if (fromTray) {
        if (s.Pcs[pos].Home < 0)
            return;
        marker = hlpfr_pcs;
        start = vxpcs[pos]->pos() - QPoint(1, 1);
        home = s.Pcs[pos].Home;
    } else {
        if ((s.PuzType == Codes::Slide && pos == s.BlankPos) || s.Board[pos].Home < 0)
            return;
        marker = hlpfr_rz;
        s.Find_XY(pos);
        start = QPoint(s.PosX, s.PosY);
        home = s.Board[pos].Home;
    }
    s.Find_XY(home);
    const QPoint homePos(s.PosX, s.PosY);
    marker->move(start);
    marker->raise();
    marker->show();
    // The screen shows each step before the sleep; a run that ends meanwhile stops the blinking.
    EventPump &ev = m_platform.events;
    const auto shownFor = [&](int ms) {
        ev.processPendingEvents(false);
        if (m_ending)
            return false;
        ev.sleepMs(ms);
        return true;
    };
    if (!shownFor(600))
        return;
    hlpfr_rz->move(homePos);
    marker->hide();
    for (int i = 0; i < 4; ++i) {
        hlpfr_rz->show();
        if (!shownFor(300))
            return;
        hlpfr_rz->hide();
        if (!shownFor(300))
            return;
    }
}
