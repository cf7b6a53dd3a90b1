// The main window: what start-up leaves, the folders beside the program, and the board's layout for both
// puzzle types and the sizes whose numbers the layout rules are known by.
#include "app/programfolder.h"
#include "game.h"

#include <QTest>

class WindowTest : public QObject
{
    Q_OBJECT
private slots:
    // Right after start-up: the defaults, nothing loaded (the saved puzzle's and the library's paths: the
    // store and picture tests); the window keeps its size whatever asks it to change.
    void startupLeavesDefaults()
    {
        Game g;
        const PuzzleState &s = g.s();
        QVERIFY(s.GridN == 6 && s.TileTotal == 36 && s.PuzType == "S" && s.GridColor == 0xFFFFFF);
        QVERIFY(!s.InPlay && !s.HintMode && s.DragIdx == -1 && s.MinState == -1 && s.PicFile.isEmpty());
        for (QWidget *hidden : std::initializer_list<QWidget *> {
                 g.w.vxrz_s, g.w.vxblank, g.w.vxdrag, g.w.hlpdoc, g.w.lblmsg, g.w.vxfr_t, g.w.vxpcs[0] })
            QVERIFY(!hidden->isVisible());
        g.w.resize(300, 200);
        QCOMPARE(g.w.size(), QSize(806, 606));
        QCOMPARE(g.w.client()->geometry(), QRect(3, 3, 800, 600));
    }

    // A library folder that cannot be made (a file in the way, a folder nobody may write) does not stop
    // the game; an unwritable program folder gives way to the user's.
    void foldersBesideTheProgram()
    {
        QTemporaryDir dir, user;
        QVERIFY(QFile(dir.filePath("lib")).open(QIODevice::WriteOnly));
        TestPlatform tp;
        vxmain blocked(tp.platform(), dir.path());
        QVERIFY(QFileInfo(dir.filePath("lib")).isFile());
        vxmain readOnly(tp.platform(), QStringLiteral("/proc"));
        QCOMPARE(readOnly.state().GridN, Integer(6));
        QCOMPARE(chooseProgramFolder(dir.path(), user.filePath("data")), dir.path());
        QCOMPARE(chooseProgramFolder(QStringLiteral("/proc"), user.filePath("data")), user.filePath("data"));
        QVERIFY(QFileInfo(user.filePath("data")).isDir());
    }

    // The board box rounded to whole tiles plus one pixel, centred with its frames under the command bar,
    // the tray row below it for type "D"; a second pass moves nothing.
    void boardLayout_data()
    {
        columns<QString, int, QSize, QSize, QRect, QRect, QPoint>(
            { "type", "n", "box", "tile", "board", "frame", "tray" });
        QTest::newRow("S 6x6") << "S" << 6 << QSize(520, 390) << QSize(86, 65) << QRect(146, 109, 517, 391)
                               << QRect(138, 101, 534, 408) << QPoint();
        QTest::newRow("D 6x6") << "D" << 6 << QSize(520, 390) << QSize(86, 65) << QRect(146, 69, 517, 391)
                               << QRect(138, 61, 534, 408) << QPoint(138, 503);
        QTest::newRow("S 11x11") << "S" << 11 << QSize(520, 390) << QSize(47, 35) << QRect(145, 111, 518, 386)
                                 << QRect(137, 103, 535, 403) << QPoint();
        // Frame, tray and command bar do not fit: the frame starts 2 pixels under the command bar.
        QTest::newRow("D 2x2") << "D" << 2 << QSize(520, 390) << QSize(260, 195) << QRect(144, 34, 521, 391)
                               << QRect(136, 26, 538, 408) << QPoint(136, 436);
        QTest::newRow("D 5x5, 300 wide")
            << "D" << 5 << QSize(300, 390) << QSize(60, 78) << QRect(254, 63, 301, 391)
            << QRect(246, 55, 318, 408) << QPoint(246, 493);
    }
    void boardLayout()
    {
        const auto [type, n, box, tray] = fetch<QString, int, QSize, QPoint>("type", "n", "box", "tray");
        Game g;
        g.s().PuzType = type;
        g.s().setGridSize(Integer(n));
        g.w.vxrz->setBoxSize(box.width(), box.height());
        const auto laidOut = [&] {
            g.w.ScrResize();
            QList<QRect> all;
            for (QWidget *c : g.w.client()->findChildren<QWidget *>())
                all << c->geometry();
            return all;
        };
        QCOMPARE(laidOut(), laidOut());
        QTEST(QSize(g.s().TileW, g.s().TileH), "tile");
        QTEST(g.w.vxrz->geometry(), "board");
        QTEST(g.w.vxframe_main->geometry(), "frame");
        QVERIFY(trayShown(g.w, tray.isNull() ? 0 : n));
        if (!tray.isNull())
            QCOMPARE(g.w.vxpcs[0]->pos(), tray);
    }

    // At every size the tray's boxes stand evenly spaced from the outer frame's left edge to its right one:
    // the last box ends less than a pixel per gap short of it.
    void trayRowSpansFrame()
    {
        Game g;
        g.s().PuzType = Codes::Drag;
        for (Integer n = 2; n <= 11; ++n) {
            g.s().setGridSize(n);
            g.w.ScrResize();
            const QRect frame = g.w.vxframe_main->geometry(), last = g.w.vxpcs[n - 1]->geometry();
            QVERIFY2(g.w.vxpcs[0]->x() == frame.x()
                    && last.x() == frame.x() + (n - 1) * (g.w.vxpcs[1]->x() - frame.x())
                    && last.right() <= frame.right() && frame.right() - last.right() < n - 1,
                qPrintable(QString::number(n)));
        }
    }
};

QTEST_MAIN(WindowTest)
#include "tst_window.moc"
