// Type "D" play: lifting a piece from the board or the tray, carrying it, and the drop that exchanges
// the contents of two holders (board places and tray boxes), up to the drop that solves the puzzle.
#include "game.h"
#include "options/rzfrm.h"
#include "platform/facebutton.h"

#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace
{
// Holders are numbered as one list: board places 0 .. TileTotal - 1, then tray slots 0 .. GridN - 1.
using Held = std::vector<TileRec>;
Held held(const PuzzleState &s)
{
    Held h(s.Board.begin(), s.Board.begin() + s.TileTotal);
    h.insert(h.end(), s.Pcs.begin(), s.Pcs.begin() + s.GridN);
    return h;
}

PictureBox *boxOf(const vxmain &w, int h)
{
    return h < w.state().TileTotal ? w.vxrz : w.vxpcs[h - w.state().TileTotal];
}

// A point of holder h (its middle unless told), in the window's client pixels.
QPoint holderPoint(const vxmain &w, int h, QPoint at = QPoint(-1, -1))
{
    const PuzzleState &s = w.state();
    if (at.x() < 0)
        at = QPoint(s.TileW / 2, s.TileH / 2);
    if (h < s.TileTotal)
        at += QPoint(h % s.GridN * s.TileW, h / s.GridN * s.TileH);
    return boxOf(w, h)->pos() + at;
}

// True when the tables are `want` with holders a and b exchanged and every holder shows its record (the
// tables' soundness and the redrawn grid are the soak's to check).
bool tablesShown(const vxmain &w, Held want, int a, int b)
{
    std::swap(want.at(a), want.at(b));
    return held(w.state()) == want && holdersShowTables(w);
}

// A press (with a modifier, which changes nothing) on a point of a holder, given to the box pressed.
void lift(vxmain &w, int h, Qt::MouseButton button = Qt::LeftButton, QPoint at = QPoint(-1, -1))
{
    QTest::mousePress(boxOf(w, h), button, Qt::ShiftModifier, holderPoint(w, h, at) - boxOf(w, h)->pos());
}

// The release whose drop point (4 pixels above and left of the pointer) is the given client point.
void dropAt(vxmain &w, QPoint p, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mouseRelease(w.client(), button, {}, p + QPoint(4, 4));
}

// No drag under way: the pointer free, the board and every tray box enabled, no drag image.
bool idle(const vxmain &w)
{
    return w.vxrz->isEnabled() && !w.vxdrag->isVisible() && !QWidget::mouseGrabber() && w.state().DragIdx < 0
        && std::all_of(w.vxpcs.begin(), w.vxpcs.end(), [](const QWidget *b) { return b->isEnabled(); });
}

enum Interruption { KeyOnSize, KeyOnHint, KeyOnType, KeyOnNew, ClickOnScramble, Deactivated, Hidden };
} // namespace

class DragDropTest : public QObject
{
    Q_OBJECT

private slots:
    // The target is the point 4 pixels above and left of the pointer, tested half-open against the
    // board; a piece dropped nowhere goes back to place 5 and the tables stay as they were.
    void dropPointDecidesTarget_data()
    {
        // The pointer: this offset from the board's top-left corner, plus ends times its width and height;
        // to: the place dropped on, or -1 - p: place p if the drop point rounds inside, else back.
        columns<QPointF, QPoint, int>({ "pointer", "ends", "to" });
        QTest::newRow("pointer 3 px inside left edge") << QPointF(3, 50) << QPoint(0, 0) << 5;
        QTest::newRow("pointer 3 px inside top edge") << QPointF(50, 3) << QPoint(0, 0) << 5;
        QTest::newRow("drop point at left + width") << QPointF(4, 50) << QPoint(1, 0) << 5;
        QTest::newRow("drop point at top + height") << QPointF(50, 4) << QPoint(0, 1) << 5;
        QTest::newRow("drop point on first pixel") << QPointF(4, 4) << QPoint(0, 0) << 0;
        QTest::newRow("drop point on last pixel") << QPointF(3, 3) << QPoint(1, 1) << 15;
        QTest::newRow("half pixel before left edge") << QPointF(3.5, 4) << QPoint(0, 0) << -1;
        QTest::newRow("half pixel before right edge") << QPointF(3.5, 50) << QPoint(1, 0) << -4;
    }
    void dropPointDecidesTarget()
    {
        auto [pointer, ends, to] = fetch<QPointF, QPoint, int>("pointer", "ends", "to");
        Game g;
        QVERIFY(g.play(Codes::Drag, 4));
        const Held before = held(g.s());
        const QRect board = g.w.vxrz->geometry();
        lift(g.w, 5);
        g.w.Form_MouseUp(board.x() + ends.x() * board.width() + pointer.x(),
            board.y() + ends.y() * board.height() + pointer.y());
        if (to < 0) // halves round to the even neighbour: onto the edge when it is even
            to = (board.x() + ends.x() * board.width()) % 2 == ends.x() ? -1 - to : 5;
        QVERIFY(tablesShown(g.w, before, 5, to));
    }

    // Any button lifts a piece: the holder then looks empty, the grid is drawn round it, the board and the
    // tray are disabled, the pointer is held and the drag image follows it until the release. A tray box
    // lifts nothing while the hint is armed (it shows the hint instead).
    void liftCarriesPieceUntilRelease_data()
    {
        // The holder lifted (16 + k: tray box k), the button, the hint armed.
        columns<int, int, bool>({ "holder", "button", "hint" });
        QTest::newRow("board, right button") << 5 << int(Qt::RightButton) << false;
        QTest::newRow("tray, middle button") << 18 << int(Qt::MiddleButton) << false;
        QTest::newRow("tray, hint armed") << 18 << int(Qt::LeftButton) << true;
    }
    void liftCarriesPieceUntilRelease()
    {
        const auto [holder, button, hint] = fetch<int, int, bool>("holder", "button", "hint");
        Game g;
        QVERIFY(g.play(Codes::Drag, 4));
        vxmain &w = g.w;
        const PuzzleState &s = w.state();
        lift(w, 3); // parks place 3's piece in tray box 2
        dropAt(w, holderPoint(w, 18));
        if (hint)
            w.cb_help_Click();
        const Held before = held(s);
        lift(w, holder, Qt::MouseButton(button), QPoint(7, 9));
        QVERIFY(s.DragIdx == (hint ? -1 : holder % 16) && !s.HintMode);
        if (!hint) {
            QVERIFY(w.vxdrag->isVisible() && !w.vxrz->isEnabled() && !w.vxpcs[3]->isEnabled()
                && QWidget::mouseGrabber() == w.client());
            QCOMPARE(w.vxdrag->pos(), holderPoint(w, holder, QPoint(7, 9)));
            QCOMPARE(insideHolder(w, holder), expectedInside(w, { 0, 0, -1 }));
            const QImage lifted = w.vxrz->image();
            w.DrawLines();
            QCOMPARE(w.vxrz->image(), lifted);
            w.Form_MouseMove(301.5f, 202.5f); // halves round to the even neighbour
            QCOMPARE(w.vxdrag->pos(), QPoint(298, 198));
            w.Form_MouseMove(302.5f, 201.5f);
            QCOMPARE(w.vxdrag->pos(), QPoint(298, 198));
        }
        dropAt(w, holderPoint(w, 0), Qt::MouseButton(button));
        QVERIFY(idle(w) && tablesShown(w, before, holder, hint ? holder : 0));
    }

    // While a piece is lifted nothing but the pointer acts on the game: the commands, by keyboard or by
    // mouse, do nothing; a window that stops getting the pointer puts the piece back and ends the drag.
    void onlyTheReleaseActsDuringDrag_data()
    {
        QTest::addColumn<int>("act");
        QTest::newRow("Space on size, 2 x 2 picked") << int(KeyOnSize);
        QTest::newRow("Space on hint") << int(KeyOnHint);
        QTest::newRow("Space on type, Yes") << int(KeyOnType);
        QTest::newRow("Space on open, a picture chosen") << int(KeyOnNew);
        QTest::newRow("click on scramble") << int(ClickOnScramble);
        QTest::newRow("window deactivated") << int(Deactivated);
        QTest::newRow("window hidden") << int(Hidden);
    }
    void onlyTheReleaseActsDuringDrag()
    {
        QFETCH(int, act);
        Game g;
        QVERIFY(g.play(Codes::Drag, 6));
        vxmain &w = g.w;
        const Held before = held(g.s());
        g.tp.modals.script = [](QDialog &d) {
            static_cast<rzfrm &>(d).szopt[0]->click();
            static_cast<rzfrm &>(d).cb_ok->click();
        };
        g.tp.messages.answers = { MsgAnswer::Yes };
        g.tp.files.choose(g.picture(QStringLiteral("other.bmp"), picturegen::pattern(QSize(400, 300), 5)));
        lift(w, 35);
        FaceButton *keyed[] = { w.cb_resize, w.cb_help, w.cb_type, w.cb_new };
        QEvent deactivate(QEvent::WindowDeactivate);
        if (act <= KeyOnNew) {
            keyed[act]->setFocus();
            QTest::keyClick(keyed[act], Qt::Key_Space);
        } else if (act == ClickOnScramble) {
            QTest::mouseClick(w.cb_scramble, Qt::LeftButton);
        } else if (act == Deactivated) {
            QApplication::sendEvent(&w, &deactivate);
        } else {
            w.hide();
            w.show();
        }
        dropAt(w, holderPoint(w, 0));
        QVERIFY(g.s().InPlay && !g.s().HintMode && g.s().PuzType == Codes::Drag);
        QVERIFY(idle(w) && tablesShown(w, before, act >= Deactivated ? 0 : 35, 0));
    }

    // The keys play as the pointer does: the cursor walks the holders (the tray boxes as the board's last
    // row, no wrap at the edges), Space or Enter lifts and drops, Escape puts back, Space on an empty holder
    // or with the hint armed lifts nothing. A piece lifted by one input is not touched by the other.
    void keysLiftAndDrop_data()
    {
        // Keys (S Space, E Enter, X Escape, L R U D the arrows), pN a mouse lift from holder N, rN a release
        // over holder N, h the hint armed; then the two holders exchanged and where the cursor ends.
        columns<QString, int, int, int>({ "script", "a", "b", "cursor" });
        QTest::newRow("Space, Right, Space") << "S R S" << 0 << 1 << 1;
        QTest::newRow("no wrap at the edges") << "L U E R R R R E" << 0 << 3 << 3;
        QTest::newRow("parked in the tray") << "S D D D D D S" << 0 << 16 << 16;
        QTest::newRow("Escape puts back") << "S R X" << 0 << 0 << 1;
        QTest::newRow("parked, Space on an empty box, back")
            << "S D D D D S R S L E U U U U E" << 0 << 0 << 0;
        QTest::newRow("hint armed: Space shows the home") << "h S" << 0 << 0 << 0;
        QTest::newRow("mouse lift: keys ignored") << "p5 S R S X r0" << 5 << 0 << 0;
        QTest::newRow("key lift: mouse ignored") << "S p3 r3 R S" << 0 << 1 << 1;
    }
    void keysLiftAndDrop()
    {
        const auto [script, a, b, cursor] = fetch<QString, int, int, int>("script", "a", "b", "cursor");
        Game g;
        QVERIFY(g.play(Codes::Drag, 4));
        vxmain &w = g.w;
        const Held before = held(g.s());
        const Qt::Key keys[] = { Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Left, Qt::Key_Right,
            Qt::Key_Up, Qt::Key_Down };
        for (const QString &k : script.split(' ')) {
            const bool wasIdle = g.s().DragIdx < 0;
            if (k == "h")
                w.cb_help_Click();
            else if (k[0] == 'p')
                lift(w, k.mid(1).toInt());
            else if (k[0] == 'r')
                dropAt(w, holderPoint(w, k.mid(1).toInt()));
            else
                QTest::keyClick(w.vxrz, keys[QString("SEXLRUD").indexOf(k)]);
            // A piece lifted by a key leaves the pointer free and the board enabled, with its holder blank.
            if (wasIdle && g.s().DragIdx >= 0 && k[0] != 'p')
                QVERIFY(w.vxdrag->isVisible() && w.vxrz->isEnabled() && !QWidget::mouseGrabber()
                    && insideHolder(w, g.s().DragIdx) == expectedInside(w, { 0, 0, -1 }));
        }
        QVERIFY(idle(w) && !g.s().HintMode && tablesShown(w, before, a, b));
        QCOMPARE(w.cursorHolder(), cursor);
    }

    // After a scramble the board has the keys; Tab walks the command bar and comes back; a click on a
    // command leaves the keys where they were. The cursor's outline, dark beside light, lies over its holder
    // (the board's drawing unchanged) from the first arrow on, follows into the tray, and goes at a mouse
    // press and at a new scramble.
    void cursorAndFocus()
    {
        Game g;
        QVERIFY(g.play(Codes::Drag, 4) && QTest::qWaitForWindowActive(&g.w));
        vxmain &w = g.w;
        auto *outline = w.findChild<CursorOutline *>();
        QVERIFY(QApplication::focusWidget() == w.vxrz && !outline->isVisible());
        QTest::mouseClick(w.cb_grid, Qt::LeftButton);
        QSet<QWidget *> walked;
        for (int i = 0; i < 14; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab), walked << QApplication::focusWidget();
        QVERIFY(QApplication::focusWidget() == w.vxrz && walked.size() == 14);
        const QImage drawn = w.vxrz->image();
        QTest::keyClick(w.vxrz, Qt::Key_Right);
        QVERIFY(outline->isVisible() && outline->geometry() == w.holderRect(1) && w.vxrz->image() == drawn);
        const QImage seen = w.vxrz->grab(outline->geometry()).toImage();
        QVERIFY(qGray(seen.pixel(0, 9)) < 60 && qGray(seen.pixel(3, 9)) > 200);
        cursorTo(w, 17);
        QVERIFY(outline->isVisible() && outline->parentWidget() == w.vxpcs[1]);
        lift(w, 5);
        dropAt(w, holderPoint(w, 5));
        QVERIFY(!outline->isVisible() && QApplication::focusWidget() == w.vxrz);
        QTest::keyClick(w.vxrz, Qt::Key_Up);
        QVERIFY(outline->isVisible());
        g.tp.messages.answers = { MsgAnswer::Yes };
        w.cb_type_Click(); // play ends: the cursor goes; it stays away after the scramble
        QVERIFY(!outline->isVisible() && !g.s().InPlay);
        w.cb_scramble_Click();
        QVERIFY(!outline->isVisible() && w.cursorHolder() == 0);
    }
};

QTEST_MAIN(DragDropTest)
#include "tst_dragdrop.moc"
