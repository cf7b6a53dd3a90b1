// The real program in a real X window under Xvfb, driven as a person would: with the mouse and the
// keyboard through xdotool, looked at through screenshots.
#include "picturegen.h"
#include "realgame.h"

class RealWindowTest : public QObject
{
    Q_OBJECT
    RealGame g;

private slots:
    // The program starts from its own folder; the build's program is copied there.
    void initTestCase()
    {
        QVERIFY(g.start());
    }

    // The window: 806 x 606, centred on the 1280 x 1024 screen, with the empty board in its frames.
    void windowShowsEmptyBoard()
    {
        const QString geo = xdotool({ "getwindowgeometry", "--shell", g.window });
        QVERIFY2(geo.contains("WIDTH=806") && geo.contains("HEIGHT=606"), qPrintable(geo));
        QVERIFY2(geo.contains("X=237") && geo.contains("Y=209"), qPrintable(geo));
        QCOMPARE(xdotool({ "getwindowname", g.window }), QString()); // no caption, not even Qt's fallback
        const QImage img = g.shot("start");
        QCOMPARE(g.at(img, 138, 101), qRgb(128, 64, 64) & 0xFFFFFF); // outer frame
        QCOMPARE(g.at(img, 141, 104), qRgb(192, 122, 133) & 0xFFFFFF); // middle frame
        QCOMPARE(g.at(img, 145, 108), qRgb(128, 64, 64) & 0xFFFFFF); // inner frame
        QCOMPARE(g.at(img, 146, 109), qRgb(255, 192, 192) & 0xFFFFFF); // board
        QCOMPARE(g.at(img, 662, 499), qRgb(255, 192, 192) & 0xFFFFFF); // board's last pixel
        QCOMPARE(g.at(img, 20, 300), 0u); // black window
        QVERIFY(QFileInfo(g.home.filePath("lib")).isDir());
    }

    // "Open Image": the real dialog takes a typed path; the picture fills the board, framed in red.
    void openPictureThroughDialog()
    {
        const QString path = g.home.filePath("photo.jpg");
        QVERIFY(picturegen::pattern(QSize(1024, 768), 4).save(path, "JPEG", 95));
        g.command(0);
        QTRY_VERIFY_WITH_TIMEOUT(windowNamed("Open|Graphic|Files"), 10000);
        QTest::qWait(300);
        xdotool({ "type", "--delay", "10", path });
        xdotool({ "key", "Return" });
        QTest::qWait(1500); // the picture loads and the frame grows for about half a second
        const QImage img = g.shot("opened");
        QCOMPARE(g.at(img, 140, 103), qRgb(255, 0, 0) & 0xFFFFFF); // the red frame's top-left corner
        QCOMPARE(g.at(img, 140 + 528, 103 + 399), qRgb(255, 0, 0) & 0xFFFFFF); // and its bottom-right one
        // The board shows the picture, not its empty background.
        QImage expected = QImage(path).scaled(517, 391, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        int close = 0;
        for (int y = 20; y < 380; y += 40)
            for (int x = 20; x < 500; x += 40) {
                const QRgb a = g.at(img, 146 + x, 109 + y), b = expected.pixel(x, y);
                close += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b))
                        + std::abs(qBlue(a) - qBlue(b))
                    < 40;
            }
        QVERIFY2(close > 100, qPrintable(QString::number(close)));
    }

    // "Scramble Tyles", then a press beside the blank slides that tile into it.
    void scrambleAndSlide()
    {
        g.command(192);
        QTest::qWait(500);
        const QPoint board(146, 109);
        const QSize t(86, 65);
        QImage img = g.shot("scrambled");
        int blank = -1;
        for (int p = 0; p < 36; ++p)
            if (g.blankTile(img, board, t, p, 6)) {
                QVERIFY2(blank < 0, "two blank places");
                blank = p;
            }
        QVERIFY(blank >= 0);
        const int neighbour = blank % 6 > 0 ? blank - 1 : blank + 1;
        const QList<QRgb> moving = g.tile(img, board, t, neighbour, 6);
        g.click(board.x() + (neighbour % 6) * 86 + 43, board.y() + (neighbour / 6) * 65 + 32);
        img = g.shot("slid");
        QVERIFY(g.blankTile(img, board, t, neighbour, 6));
        QVERIFY(!g.blankTile(img, board, t, blank, 6));
        QCOMPARE(g.tile(img, board, t, blank, 6), moving);
    }

    // "Change Game Type" during play asks first; in the drag puzzle pieces are dragged with the mouse.
    void dragPiecesInDragPuzzle()
    {
        g.command(110);
        QTRY_VERIFY_WITH_TIMEOUT(windowNamed("Change Puzzle Type"), 10000);
        QTest::qWait(300);
        xdotool({ "key", "Return" }); // Yes is the default answer
        QTest::qWait(1500);
        g.command(192);
        QTest::qWait(500);
        const QPoint board(146, 69);
        const QSize t(86, 65);
        QImage img = g.shot("drag-scrambled");
        const QList<QRgb> first = g.tile(img, board, t, 0, 6);
        const QList<QRgb> fifth = g.tile(img, board, t, 5, 6);
        g.drag(board + QPoint(43, 32), board + QPoint(5 * 86 + 43, 32));
        img = g.shot("dragged");
        QCOMPARE(g.tile(img, board, t, 5, 6), first);
        QCOMPARE(g.tile(img, board, t, 0, 6), fifth);
        // Onto the first tray box under the board: the place is left empty.
        g.drag(board + QPoint(5 * 86 + 43, 32), QPoint(138 + 43, 503 + 32));
        img = g.shot("parked");
        QVERIFY(g.blankTile(img, board, t, 5, 6));
        QCOMPARE(g.tile(img, QPoint(138, 503), t, 0, 6), first);
    }

    // The exit button ends the program.
    void exitButtonEndsProgram()
    {
        g.command(329);
        QTRY_VERIFY_WITH_TIMEOUT(windowNamed("Save on Exit"), 10000); // a puzzle is in play: No
        QTest::qWait(300);
        xdotool({ "key", "Escape" });
        QVERIFY(g.game.waitForFinished(10000));
        QCOMPARE(g.game.exitCode(), 0);
    }
};
REALWINDOW_MAIN(RealWindowTest)
#include "tst_realwindow.moc"
