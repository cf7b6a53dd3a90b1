// Type "D" play: lifting a piece from the board or the tray, carrying it, and the drop that exchanges
// the contents of two holders (board places and tray boxes), up to the drop that solves the puzzle.
#include "game.h"
#include "platform/shapes.h"

#include <QRandomGenerator>
#include <QTest>

namespace
{
// A scrambled type "D" puzzle of n x n pieces on a generated picture.
std::unique_ptr<Game> dragGame(Integer n, quint32 seed = 7)
{
    auto g = std::make_unique<Game>();
    return g->play(Codes::Drag, n, seed) ? std::move(g) : nullptr;
}

// Holders are numbered as one list: board places 0 .. TileTotal - 1, then tray slots 0 .. GridN - 1.
struct Tables {
    std::vector<TileRec> held;
    Integer inPlace = 0;
};

Tables tablesOf(const PuzzleState &s)
{
    Tables t;
    t.held.assign(s.Board.begin(), s.Board.begin() + s.TileTotal);
    t.held.insert(t.held.end(), s.Pcs.begin(), s.Pcs.begin() + s.GridN);
    t.inPlace = s.InPlace;
    return t;
}

int slot(const PuzzleState &s, int k)
{
    return s.TileTotal + k;
}

// What the tables must be after the contents of holders a and b changed places.
Tables exchanged(const PuzzleState &s, Tables t, int a, int b)
{
    std::swap(t.held[a], t.held[b]);
    t.inPlace = 0;
    for (int p = 0; p < s.TileTotal; ++p)
        t.inPlace += t.held[p].Home == p;
    return t;
}

QString describe(const TileRec &r)
{
    return QStringLiteral("{%1,%2 home %3}").arg(r.SrcX).arg(r.SrcY).arg(r.Home);
}
} // namespace

char *toString(const TileRec &r)
{
    return QTest::toString(describe(r));
}

namespace
{

// Empty when the state holds exactly the expected tables, otherwise the first difference.
QString tableMismatch(const PuzzleState &s, const Tables &want)
{
    const Tables got = tablesOf(s);
    for (std::size_t i = 0; i < want.held.size(); ++i)
        if (!(got.held[i] == want.held[i]))
            return QStringLiteral("holder %1 holds %2, expected %3")
                .arg(i)
                .arg(describe(got.held[i]), describe(want.held[i]));
    for (int k = s.GridN; k < Codes::TraySlots; ++k)
        if (s.Pcs[k].Home >= 0)
            return QStringLiteral("unused tray slot %1 holds a piece").arg(k);
    if (got.inPlace != want.inPlace)
        return QStringLiteral("InPlace %1, expected %2").arg(got.inPlace).arg(want.inPlace);
    return {};
}

QPoint placeCorner(const PuzzleState &s, int p)
{
    return { p % s.GridN * s.TileW, p / s.GridN * s.TileH };
}

// Empty when every board place and tray box in use shows its record: the piece's own picture (inside
// the grid lines and outlines), or the blank colour when it is empty.
QString drawingMismatch(vxmain &w)
{
    const PuzzleState &s = w.state();
    const QSize inner(s.TileW - 2, s.TileH - 2);
    auto expected = [&](const TileRec &t) { return expectedInside(w, t, inner); };
    for (int p = 0; p < s.TileTotal; ++p)
        if (w.vxrz->image().copy(QRect(placeCorner(s, p) + QPoint(1, 1), inner)) != expected(s.Board[p]))
            return QStringLiteral("board place %1 does not show %2").arg(p).arg(describe(s.Board[p]));
    for (int k = 0; k < s.GridN; ++k)
        if (w.vxpcs[k]->image().copy(QRect(QPoint(1, 1), inner)) != expected(s.Pcs[k]))
            return QStringLiteral("tray box %1 does not show %2").arg(k).arg(describe(s.Pcs[k]));
    // The grid lines were redrawn after the change: drawing them again alters nothing.
    if (s.InPlay) {
        const QImage shown = w.vxrz->image();
        w.DrawLines();
        if (w.vxrz->image() != shown)
            return QStringLiteral("the grid lines were not redrawn");
    }
    return {};
}

QPoint holderCentre(vxmain &w, int h)
{
    const PuzzleState &s = w.state();
    const QPoint half(s.TileW / 2, s.TileH / 2);
    if (h < s.TileTotal)
        return w.vxrz->pos() + placeCorner(s, h) + half;
    return w.vxpcs[h - s.TileTotal]->pos() + half;
}

// A press on the middle of a holder, in the pixels of the box pressed.
void lift(vxmain &w, int h, Qt::MouseButton button = Qt::LeftButton)
{
    const PuzzleState &s = w.state();
    if (h < s.TileTotal) {
        const QPoint c = holderCentre(w, h) - w.vxrz->pos();
        w.vxrz_MouseDown(button, {}, c.x(), c.y());
    } else {
        w.vxpcs_MouseDown(h - s.TileTotal, button, {}, s.TileW / 2, s.TileH / 2);
    }
}

// The release whose drop point (4 pixels above and left of the pointer) is the given client point.
void dropAt(vxmain &w, QPoint p)
{
    w.Form_MouseUp(p.x() + 4, p.y() + 4);
}

void move(vxmain &w, int from, int to, Qt::MouseButton button = Qt::LeftButton)
{
    lift(w, from, button);
    dropAt(w, holderCentre(w, to));
}

int placeOfHome(const PuzzleState &s, int home)
{
    for (int p = 0; p < s.TileTotal; ++p)
        if (s.Board[p].Home == home)
            return p;
    return -1;
}

// Fails with the mismatch found, if any, told after the context; the check runs once, as it may redraw.
#define VERIFY_NO_MISMATCH(mismatch, context)                                                                \
    do {                                                                                                     \
        const QString m_ = (mismatch);                                                                       \
        QVERIFY2(m_.isEmpty(), qPrintable(QString(context) + m_));                                           \
    } while (false)

enum Target { Nowhere, FirstPlace, LastPlace, FirstPlaceIfLeftEven };
} // namespace

class DragDropTest : public QObject
{
    Q_OBJECT

private slots:
    // A drop exchanges the contents of the two holders, whatever they are; InPlace follows the board.
    void everyKindOfDropExchangesTheTwoHolders()
    {
        auto g = dragGame(4);
        QVERIFY(g);
        vxmain &w = g->w;
        const PuzzleState &s = w.state();
        const Tables start = tablesOf(s);
        const std::vector<TileRec> &was = start.held;
        // {from, to}: onto itself; park on an empty box; onto a full box; onto an empty place; tray onto a
        // full place; tray onto an empty place; two parks; tray onto a full box; onto an empty box; its own
        // box.
        const QList<QPair<int, int>> steps = {
            { 5, 5 },
            { 2, slot(s, 1) },
            { 7, slot(s, 1) },
            { 9, 2 },
            { slot(s, 1), 6 },
            { slot(s, 1), 9 },
            { 3, slot(s, 0) },
            { 4, slot(s, 2) },
            { slot(s, 0), slot(s, 2) },
            { slot(s, 2), slot(s, 3) },
            { slot(s, 3), slot(s, 3) },
        };
        for (const auto &[from, to] : steps) {
            const Tables before = tablesOf(s);
            move(w, from, to);
            const Tables want = exchanged(s, before, from, to);
            const QString step = QStringLiteral("%1 to %2: ").arg(from).arg(to);
            VERIFY_NO_MISMATCH(tableMismatch(s, want), step);
            VERIFY_NO_MISMATCH(drawingMismatch(w), step);
            QCOMPARE(s.InPlace, s.countInPlace());
        }
        // Where every piece touched has ended up, from the first arrangement.
        QCOMPARE(s.Board[2], was[9]);
        QCOMPARE(s.Board[6], was[7]);
        QCOMPARE(s.Board[7], was[2]);
        QCOMPARE(s.Board[9], was[6]);
        QCOMPARE(s.Board[3].Home, Integer(-1));
        QCOMPARE(s.Board[4].Home, Integer(-1));
        QCOMPARE(s.Pcs[0], was[4]);
        QCOMPARE(s.Pcs[1].Home, Integer(-1));
        QCOMPARE(s.Pcs[2].Home, Integer(-1));
        QCOMPARE(s.Pcs[3], was[3]);
        for (int p : { 0, 1, 5, 8, 10, 11, 12, 13, 14, 15 })
            QCOMPARE(s.Board[p], was[p]);
        QCOMPARE(w.vxrz->image().pixel(placeCorner(s, 3) + QPoint(s.TileW / 2, s.TileH / 2)), BlankColour);
        QCOMPARE(w.vxpcs[2]->image().pixel(s.TileW / 2, s.TileH / 2), BlankColour);
    }

    // The target is the point 4 pixels above and left of the pointer, tested half-open against the
    // board and the tray boxes; a piece dropped nowhere goes back and the tables stay as they were.
    void dropPointDecidesTarget_data()
    {
        QTest::addColumn<bool>("fromTray");
        // The pointer: this offset from the board's top-left corner, plus boardEnds times its width and
        // height.
        QTest::addColumn<QPointF>("pointer");
        QTest::addColumn<QPoint>("boardEnds");
        QTest::addColumn<int>("target");
        for (bool fromTray : { false, true }) {
            const char *src = fromTray ? "tray" : "board";
            auto row = [&](const char *name) { return &QTest::addRow("%s, %s", src, name); };
            *row("far outside") << fromTray << QPointF(-140, -60) << QPoint(0, 0) << int(Nowhere);
            *row("pointer 3 px inside left edge")
                << fromTray << QPointF(3, 50) << QPoint(0, 0) << int(Nowhere);
            *row("pointer 3 px inside top edge")
                << fromTray << QPointF(50, 3) << QPoint(0, 0) << int(Nowhere);
            *row("drop point at left + width") << fromTray << QPointF(4, 50) << QPoint(1, 0) << int(Nowhere);
            *row("drop point at top + height") << fromTray << QPointF(50, 4) << QPoint(0, 1) << int(Nowhere);
            *row("drop point on first pixel") << fromTray << QPointF(4, 4) << QPoint(0, 0) << int(FirstPlace);
            *row("drop point on last pixel") << fromTray << QPointF(3, 3) << QPoint(1, 1) << int(LastPlace);
            *row("half pixel rounds to even")
                << fromTray << QPointF(3.5, 4) << QPoint(0, 0) << int(FirstPlaceIfLeftEven);
        }
    }
    void dropPointDecidesTarget()
    {
        QFETCH(bool, fromTray);
        QFETCH(QPointF, pointer);
        QFETCH(QPoint, boardEnds);
        QFETCH(int, target);
        auto g = dragGame(4);
        QVERIFY(g);
        vxmain &w = g->w;
        const PuzzleState &s = w.state();
        int source = 5;
        if (fromTray) {
            move(w, 5, slot(s, 0));
            source = slot(s, 0);
        }
        const Tables before = tablesOf(s);
        const QRect board = w.vxrz->geometry();
        if (target == FirstPlaceIfLeftEven)
            target = board.x() % 2 == 0 ? FirstPlace : Nowhere;
        lift(w, source);
        w.Form_MouseUp(board.x() + boardEnds.x() * board.width() + pointer.x(),
            board.y() + boardEnds.y() * board.height() + pointer.y());
        const Tables want = target == Nowhere ? before
            : target == FirstPlace            ? exchanged(s, before, source, 0)
                                              : exchanged(s, before, source, s.TileTotal - 1);
        VERIFY_NO_MISMATCH(tableMismatch(s, want), QString());
        VERIFY_NO_MISMATCH(drawingMismatch(w), QString());
    }

    // Empty holders lift nothing; a drag disables the board and the tray until the drop, and the drag
    // image follows the pointer. Every mouse button drags alike.
    void pressOnEmptyHolderStartsNoDrag()
    {
        auto g = dragGame(4);
        QVERIFY(g);
        vxmain &w = g->w;
        const PuzzleState &s = w.state();
        move(w, 5, slot(s, 0));
        const QImage board = w.vxrz->image();
        const QImage box = w.vxpcs[1]->image();
        const Tables before = tablesOf(s);
        for (int empty : { 5, slot(s, 1) }) {
            lift(w, empty);
            QCOMPARE(s.DragIdx, Integer(-1));
            QVERIFY(!w.vxdrag->isVisible());
            QVERIFY(w.vxrz->isEnabled());
            w.Form_MouseUp(holderCentre(w, 0).x() + 4, holderCentre(w, 0).y() + 4);
        }
        QCOMPARE(w.vxrz->image(), board);
        QCOMPARE(w.vxpcs[1]->image(), box);
        VERIFY_NO_MISMATCH(tableMismatch(s, before), QString());
    }

    void rightButtonDragDisablesBoxesAndFollowsPointer()
    {
        auto g = dragGame(4);
        QVERIFY(g);
        vxmain &w = g->w;
        const PuzzleState &s = w.state();
        const Tables before = tablesOf(s);
        w.vxrz_MouseDown(Qt::RightButton, Qt::ShiftModifier, s.TileW + 10, s.TileH + 7); // place 5
        QCOMPARE(s.DragIdx, Integer(5));
        QCOMPARE(s.DragFrom, Codes::FromBoard);
        QVERIFY(w.vxdrag->isVisible());
        QCOMPARE(w.vxdrag->pos(), w.vxrz->pos() + QPoint(s.TileW + 10, s.TileH + 7));
        QVERIFY(!w.vxrz->isEnabled());
        for (int k = 0; k < s.GridN; ++k)
            QVERIFY(!w.vxpcs[k]->isEnabled());
        w.Form_MouseMove(301.5f, 200.5f);
        QCOMPARE(w.vxdrag->pos(), QPoint(298, 196)); // halves round to the even neighbour
        dropAt(w, holderCentre(w, 0));
        QVERIFY(!w.vxdrag->isVisible());
        QVERIFY(w.vxrz->isEnabled());
        for (int k = 0; k < s.GridN; ++k)
            QVERIFY(w.vxpcs[k]->isEnabled());
        VERIFY_NO_MISMATCH(tableMismatch(s, exchanged(s, before, 5, 0)), QStringLiteral("right button: "));

        // From the tray, with the middle button.
        move(w, 3, slot(s, 2));
        w.vxpcs_MouseDown(2, Qt::MiddleButton, {}, 5, 6);
        QCOMPARE(s.DragIdx, Integer(2));
        QCOMPARE(s.DragFrom, Codes::FromTray);
        QCOMPARE(w.vxdrag->pos(), w.vxpcs[2]->pos() + QPoint(5, 6));
        QVERIFY(!w.vxpcs[2]->isEnabled());
        dropAt(w, holderCentre(w, 3));
        QCOMPARE(s.Pcs[2].Home, Integer(-1));
    }

    void moveAndReleaseWithoutDragDoNothing()
    {
        auto g = dragGame(3);
        QVERIFY(g);
        vxmain &w = g->w;
        const QPoint at = w.vxdrag->pos();
        const QImage board = w.vxrz->image();
        const Tables before = tablesOf(w.state());
        w.Form_MouseMove(200, 200);
        w.Form_MouseUp(200, 200);
        QCOMPARE(w.vxdrag->pos(), at);
        QCOMPARE(w.vxrz->image(), board);
        VERIFY_NO_MISMATCH(tableMismatch(w.state(), before), QString());
    }

    // With the hint off the lifts and drops never reach the hint; armed during a drag, it holds the drop.
    void hintBranchesOnlyWhenArmed()
    {
        auto g = dragGame(4);
        QVERIFY(g);
        vxmain &w = g->w;
        const PuzzleState &s = w.state();
        const qint64 slept = g->tp.events.sleptUs;
        const qsizetype pointerChanges = g->tp.pointers.history.size();
        move(w, 1, slot(s, 0));
        move(w, slot(s, 0), 1);
        QCOMPARE(g->tp.events.sleptUs, slept);
        QCOMPARE(g->tp.pointers.history.size(), pointerChanges);
        QVERIFY(!w.hlpfr_rz->isVisible() && !w.hlpfr_pcs->isVisible());

        lift(w, 1);
        w.cb_help_Click();
        QVERIFY(s.HintMode);
        dropAt(w, holderCentre(w, 2));
        QCOMPARE(s.DragIdx, Integer(1));
        QVERIFY(w.vxdrag->isVisible());
        w.cb_help_Click();
        const Tables before = tablesOf(s);
        dropAt(w, holderCentre(w, 2));
        QCOMPARE(s.DragIdx, Integer(-1));
        VERIFY_NO_MISMATCH(tableMismatch(s, exchanged(s, before, 1, 2)), QString());
    }

    // Whatever the lifts and drops, every piece stays in exactly one holder, InPlace counts the solved
    // places, and the board and the tray show what the tables hold.
    void randomDragsKeepEveryPieceOnce_data()
    {
        QTest::addColumn<int>("n");
        for (int n = 2; n <= 11; ++n)
            QTest::addRow("%dx%d", n, n) << n;
    }
    void randomDragsKeepEveryPieceOnce()
    {
        QFETCH(int, n);
        auto g = dragGame(Integer(n), quint32(n));
        QVERIFY(g);
        vxmain &w = g->w;
        PuzzleState &s = w.state();
        QRandomGenerator rnd(quint32(100 + n));
        const QRect board = w.vxrz->geometry();
        int drops = 0, solved = 0;
        for (int step = 0; step < 250; ++step) {
            const int from = rnd.bounded(4) == 0 ? slot(s, rnd.bounded(n)) : rnd.bounded(s.TileTotal);
            const Tables before = tablesOf(s);
            lift(w, from);
            if (before.held[from].Home < 0) {
                QCOMPARE(s.DragIdx, Integer(-1));
                continue;
            }
            QCOMPARE(s.DragIdx, Integer(from < s.TileTotal ? from : from - s.TileTotal));
            // Anywhere on the board box (its last pixel row and column count as the last place), on a
            // tray box, or left of the frame.
            int to = -1;
            QPoint drop;
            switch (rnd.bounded(6)) {
            case 0:
                drop = QPoint(rnd.bounded(board.x() - 8), board.y() + rnd.bounded(board.height()));
                break;
            case 1:
            case 2:
                to = slot(s, rnd.bounded(n));
                drop = w.vxpcs[to - s.TileTotal]->geometry().topLeft()
                    + QPoint(rnd.bounded(s.TileW), rnd.bounded(s.TileH));
                break;
            default: {
                const QPoint in(rnd.bounded(board.width()), rnd.bounded(board.height()));
                to = std::min(in.y() / s.TileH, n - 1) * n + std::min(in.x() / s.TileW, n - 1);
                drop = board.topLeft() + in;
            }
            }
            dropAt(w, drop);
            ++drops;
            const Tables want = to < 0 ? before : exchanged(s, before, from, to);
            const QString where = QStringLiteral("step %1, %2 to %3: ").arg(step).arg(from).arg(to);
            VERIFY_NO_MISMATCH(tableMismatch(s, want), where);
            QCOMPARE(s.InPlace, s.countInPlace());
            std::vector<int> holders(s.TileTotal, 0);
            for (const TileRec &r : tablesOf(s).held)
                if (r.Home >= 0)
                    ++holders.at(r.Home);
            QVERIFY2(std::all_of(holders.begin(), holders.end(), [](int c) { return c == 1; }),
                qPrintable(where + "a piece is lost or doubled"));
            VERIFY_NO_MISMATCH(drawingMismatch(w), where);
            if (!s.InPlay) {
                QCOMPARE(s.InPlace, s.TileTotal);
                ++solved;
                w.cb_scramble_Click();
            }
        }
        QVERIFY(drops > 100);
        QVERIFY(s.InPlay || solved > 0);
    }

    // The drop that puts the last piece home ends play: frame bars, the whole picture, no more lifts.
    // A piece parked in the tray keeps the puzzle unsolved.
    void lastDropSolvesPuzzle_data()
    {
        QTest::addColumn<int>("n");
        QTest::addColumn<bool>("viaTray");
        QTest::newRow("2x2 board drop") << 2 << false;
        QTest::newRow("3x3 tray drop") << 3 << true;
        QTest::newRow("6x6 board drop") << 6 << false;
        QTest::newRow("11x11 tray drop") << 11 << true;
    }
    void lastDropSolvesPuzzle()
    {
        QFETCH(int, n);
        QFETCH(bool, viaTray);
        auto g = dragGame(Integer(n), quint32(n + 40));
        QVERIFY(g);
        vxmain &w = g->w;
        const PuzzleState &s = w.state();
        const Integer last = Integer(s.TileTotal - 1);
        // Every piece home but two that stand on each other's places.
        for (int p = 0; p < s.TileTotal && s.InPlace < s.TileTotal - 2; ++p)
            if (s.Board[p].Home != p)
                move(w, placeOfHome(s, p), p);
        QCOMPARE(s.InPlace, Integer(last - 1));
        QVERIFY(s.InPlay);
        int a = 0;
        while (s.Board[a].Home == a)
            ++a;
        const int b = s.Board[a].Home;
        if (viaTray) {
            move(w, a, slot(s, 0));
            move(w, slot(s, 0), b); // b's piece home, a's piece in the tray
            QCOMPARE(s.InPlace, last);
            QVERIFY(s.InPlay);
            move(w, slot(s, 0), a);
            QCOMPARE(s.Pcs[0].Home, Integer(-1));
        } else {
            move(w, a, b);
        }
        QCOMPARE(s.InPlace, s.TileTotal);
        QVERIFY(!s.InPlay);
        for (QWidget *bar : { w.vxfr_t, w.vxfr_b, w.vxfr_l, w.vxfr_r })
            QVERIFY(bar->isVisible());
        QCOMPARE(w.vxrz->image(), w.vxrz_s->image());
        lift(w, 0);
        QCOMPARE(s.DragIdx, Integer(-1));
        QVERIFY(!w.vxdrag->isVisible());
    }
};

QTEST_MAIN(DragDropTest)
#include "tst_dragdrop.moc"
