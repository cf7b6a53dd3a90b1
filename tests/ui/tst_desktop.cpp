// The game on a desktop: a screen reader, and a dense screen's drawing, this test running at a device
// pixel ratio of 2 (arrow keys: the soak; dropped pictures: with "Open Image" in tst_picture).
#include "game.h"
#include "pictures/libfrm.h"
#include "platform/facebutton.h"
#include "platform/qtservices.h"

#include <QAccessible>
#include <QPushButton>
#include <QTest>
#include <QTimer>

class DesktopTest : public QObject
{
    Q_OBJECT
private slots:
    // A screen reader names every face by its tooltip and reads a message box's title and text.
    void screenReaderSeesFacesAndMessages()
    {
        Game g;
        for (FaceButton *b : g.w.fr_cmd->findChildren<FaceButton *>())
            QCOMPARE(QAccessible::queryAccessibleInterface(b)->text(QAccessible::Name), b->toolTip());
        QString heard;
        QTimer::singleShot(0, [&] {
            QAccessibleInterface *a
                = QAccessible::queryAccessibleInterface(QApplication::activeModalWidget());
            heard = a->text(QAccessible::Name) + '|' + a->text(QAccessible::Description);
            QApplication::activeModalWidget()->close();
        });
        QtMessageBoxes(&g.w).show("Picture Too Large", "Open - ERROR", MsgStyle::Critical);
        QCOMPARE(heard, QStringLiteral("Open - ERROR|Picture Too Large"));
    }

    // The board is a table of holders, the tray its last row, each named by its place and what stands on it;
    // the holder under the cursor has the focus and describes the last lift or drop; the board tells of the
    // picture solved by the keys alone. (The events a reader hears: the real-window test, through AT-SPI.)
    void screenReaderFollowsTheCursor()
    {
        Game g;
        QVERIFY(g.play(Codes::Drag, 2) && QTest::qWaitForWindowActive(&g.w));
        vxmain &w = g.w;
        park(w, 0);
        const QString piece = QString::number(g.s().Pcs[0].Home + 1);
        QAccessibleInterface *board = QAccessible::queryAccessibleInterface(w.vxrz);
        QVERIFY(board->role() == QAccessible::Table && board->text(QAccessible::Name) == "Puzzle board"
            && board->childCount() == 6);
        QCOMPARE(board->child(0)->text(QAccessible::Name), "Row 1, column 1: blank");
        QCOMPARE(board->tableInterface()->cellAt(2, 1)->text(QAccessible::Name), "Tray box 2: empty");
        QVERIFY(board->tableInterface()->rowCount() == 3
            && board->child(3)->tableCellInterface()->rowIndex() == 1);
        const auto focused = [&](QAccessible::Text t) { return board->focusChild()->text(t); };
        cursorTo(w, 4); // down into the tray
        QTest::keyClick(w.vxrz, Qt::Key_Space);
        QVERIFY(focused(QAccessible::Name) == "Tray box 1: piece " + piece
            && focused(QAccessible::Description) == "Piece " + piece + " lifted");
        const int home = piece.toInt() - 1;
        cursorTo(w, home);
        QTest::keyClick(w.vxrz, Qt::Key_Space);
        QVERIFY(board->focusChild() == board->child(home) && board->child(home)->state().focused);
        QCOMPARE(board->child(home)->text(QAccessible::Name),
            QString("Row %1, column %2: piece %3, in place").arg(home / 2 + 1).arg(home % 2 + 1).arg(piece));
        QCOMPARE(focused(QAccessible::Description), "Piece " + piece + " dropped");
        solveByKeys(w); // the keys alone: the last drop frames the whole picture and ends play
        QVERIFY(!g.s().InPlay && framed(w) && board->text(QAccessible::Description) == "Solved");
    }

    // The board and the library's thumbnails decode their pictures at device resolution (stripes one device
    // pixel wide stay sharp), the tray boxes and the carried piece copy those pixels, grid lines cover whole
    // squares of them, and the help's fine drawing holds every line.
    void denseScreenDrawsDevicePixels()
    {
        Game g;
        QVERIFY(g.play(Codes::Drag, 4) && g.w.devicePixelRatio() == 2);
        QImage stripes(1040, 780, QImage::Format_RGB32);
        for (int i = 0; i < 1040 * 780; ++i)
            stripes.setPixel(i % 1040, i / 1040, i % 2 ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
        QVERIFY(g.load(g.picture("stripes.bmp", stripes)));
        g.w.cb_scramble_Click();
        QVERIFY(difference(*g.w.vxrz_s->fine(), stripes) < 20);
        park(g.w, 1);
        g.w.vxrz_MouseDown(Qt::LeftButton, {}, g.s().TileW + 5, 5);
        QCOMPARE(g.w.vxdrag->fine()->copy(QRect(2, 2, g.s().TileW * 2 - 4, g.s().TileH * 2 - 4)),
            expectedInside(g.w, g.s().Board[1], {}, true));
        g.w.Form_MouseUp(0, 0);
        QVERIFY(holdersShowTables(g.w));
        for (int y = 0; y < g.w.vxrz->height(); ++y) // a grid line covers whole squares (the stripes' black)
            if (g.w.vxrz->image().pixel(g.s().TileW, y) == qRgb(255, 255, 255))
                QCOMPARE(g.w.vxrz->fine()->pixel(2 * g.s().TileW, 2 * y + 1), qRgb(255, 255, 255));
        const QImage small = stripes.copy(0, 0, 224, 168); // a thumbnail's box at ratio 2
        g.file("lib/VX_stripes.gif", encode(small, "gif"));
        g.tp.modals.script = [&](QDialog &d) {
            QVERIFY(difference(*static_cast<libfrm &>(d).libimg[0]->fine(), small) < 20);
            static_cast<libfrm &>(d).cb_cancel->click();
        };
        g.w.cb_lib_Click();
        g.w.cb_helpdoc_Click();
        // The rows, in window pixels, that hold the blue of the lines printed on the help.
        const auto blueRows = [](const QImage &img, int r) {
            QSet<int> rows;
            for (int i = 0; i < img.width() * img.height(); ++i)
                if (img.pixel(i % img.width(), i / img.width()) == qRgb(0, 0, 255))
                    rows << i / img.width() / r;
            return rows;
        };
        QVERIFY(blueRows(*g.w.hlpdoc->fine(), 2).contains(blueRows(g.w.hlpdoc->image(), 1)));
    }
};

QTEST_MAIN(DesktopTest)
#include "tst_desktop.moc"
