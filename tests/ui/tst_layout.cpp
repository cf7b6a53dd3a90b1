// The main window's layout: board, frames, command bar and tray, for both puzzle types and all sizes.
#include "app/vxmain.h"
#include "doubles.h"
#include "platform/facebutton.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"

#include <QTemporaryDir>
#include <QTest>

class LayoutTest : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;
    TestPlatform m_tp;

    std::unique_ptr<vxmain> window()
    {
        auto w = std::make_unique<vxmain>(m_tp.platform(), m_dir.path());
        w->show();
        return w;
    }
    static QRect geo(const QWidget *w)
    {
        return w->geometry();
    }

private slots:
    // The window is 806 x 606 outside, with an 800 x 600 client area inside a 3-pixel frame.
    void windowHasFixedSizeAndClient()
    {
        auto w = window();
        QCOMPARE(w->size(), QSize(806, 606));
        QCOMPARE(w->client()->geometry(), QRect(3, 3, 800, 600));
        QVERIFY(w->windowFlags() & Qt::FramelessWindowHint);
        w->resize(300, 200);
        QCOMPARE(w->size(), QSize(806, 606));
    }

    // The worked example: a 6 x 6 slide board from a 520 x 390 box.
    void slideBoardSixBySix()
    {
        auto w = window();
        const PuzzleState &s = w->state();
        QCOMPARE(QSize(s.TileW, s.TileH), QSize(86, 65));
        QCOMPARE(geo(w->vxrz), QRect(146, 109, 517, 391));
        QCOMPARE(geo(w->vxframe_main), QRect(138, 101, 534, 408));
        QCOMPARE(geo(w->vxframe_border), QRect(140, 103, 530, 404));
        QCOMPARE(geo(w->vxframe_inner), QRect(144, 107, 522, 396));
        QCOMPARE(w->vxrz_s->pos(), QPoint(146, 109));
        QCOMPARE(geo(w->fr_cmd), QRect(224, 0, 353, 24));
        QCOMPARE(w->lbllogo->pos(), QPoint(622, 0));
        QCOMPARE(w->imglogo->pos(), QPoint(1, 0));
        QCOMPARE(w->lblmsg->pos(), QPoint(223, -1));
        const int lefts[] = { 138, 227, 316, 405, 494, 583 };
        for (int i = 0; i < 6; ++i) {
            QCOMPARE(geo(w->vxpcs[i]), QRect(lefts[i], 523, 86, 65));
            QVERIFY(!w->vxpcs[i]->isVisible()); // type "S" leaves the tray hidden
        }
        QCOMPARE(w->vxblank->size(), QSize(86, 65));
        QCOMPARE(w->vxdrag->size(), QSize(87, 66));
        QCOMPARE(w->hlpfr_rz->size(), QSize(88, 67));
        QCOMPARE(w->hlpfr_pcs->size(), QSize(88, 67));
    }

    // The same board in type "D" makes room for the tray row.
    void dragBoardSixBySix()
    {
        auto w = window();
        w->state().PuzType = Codes::Drag;
        w->vxrz->setBoxSize(520, 390);
        w->ScrResize();
        QCOMPARE(geo(w->vxframe_main), QRect(138, 61, 534, 408));
        QCOMPARE(w->vxrz->pos(), QPoint(146, 69));
        QCOMPARE(w->vxpcs[0]->pos(), QPoint(138, 503));
        for (int i = 0; i < Codes::TraySlots; ++i)
            QCOMPARE(w->vxpcs[i]->isVisible(), i < 6);
    }

    // The largest board: 11 x 11 tiles from a 520 x 390 box.
    void elevenByElevenBoard()
    {
        auto w = window();
        w->state().setGridSize(11);
        w->vxrz->setBoxSize(520, 390);
        w->ScrResize();
        QCOMPARE(QSize(w->state().TileW, w->state().TileH), QSize(47, 35));
        QCOMPARE(w->vxrz->size(), QSize(518, 386));
        // The tray spans the outer frame's width.
        const QRect M = geo(w->vxframe_main);
        QCOMPARE(w->vxpcs[0]->x(), M.x());
        QVERIFY(w->vxpcs[10]->geometry().right() <= M.right() + 1);
    }

    // When frame, tray and command bar do not fit, the frame starts 2 pixels under the command bar.
    void dragFrameThatDoesNotFit()
    {
        auto w = window();
        w->state().PuzType = Codes::Drag;
        w->state().setGridSize(2);
        w->vxrz->setBoxSize(520, 390);
        w->ScrResize(); // A = 391 + 24 + 17 + 195 + 4 = 631 > 600
        QCOMPARE(w->vxframe_main->y(), 26);
    }

    // A second pass with unchanged inputs leaves every control where the first put it.
    void layoutIsIdempotent()
    {
        auto w = window();
        for (const QString &type : { Codes::Slide, Codes::Drag }) {
            w->state().PuzType = type;
            w->state().setGridSize(5);
            w->vxrz->setBoxSize(300, 390);
            w->ScrResize();
            QList<QRect> first;
            for (QWidget *c : w->client()->findChildren<QWidget *>())
                first << c->geometry();
            w->ScrResize();
            QList<QRect> second;
            for (QWidget *c : w->client()->findChildren<QWidget *>())
                second << c->geometry();
            QCOMPARE(second, first);
        }
    }

    // Each pass empties the tray boxes in use and draws only their outlines in the grid colour.
    void trayBoxesAreOutlined()
    {
        auto w = window();
        w->vxpcs[2]->image().fill(Qt::blue);
        w->ScrResize();
        const QImage &img = w->vxpcs[2]->image();
        QCOMPARE(img.pixel(0, 0), qRgb(255, 255, 255));
        QCOMPARE(img.pixel(85, 64), qRgb(255, 255, 255));
        QCOMPARE(img.pixel(40, 30), qRgb(255, 192, 192));
    }

    // The command bar: 13 face buttons in order, 22 x 22, with their tooltips and twip positions.
    void commandBarButtons()
    {
        auto w = window();
        const QList<FaceButton *> buttons = w->fr_cmd->findChildren<FaceButton *>();
        const QStringList tips = { "Open Image", "Image Library", "Open Saved Game", "Save Current Game",
            "Change Game Type", "Set Grid Color", "Set Number of Tiles", "Scramble Tyles",
            "Display Full Image", "Find Tile Position", "View Help", "Minimize Game", "Exit Game" };
        const int lefts[] = { 0, 27, 55, 82, 110, 137, 164, 192, 219, 247, 274, 301, 329 };
        QCOMPARE(buttons.size(), 13);
        for (int i = 0; i < 13; ++i) {
            QCOMPARE(buttons[i]->toolTip(), tips[i]);
            QCOMPARE(buttons[i]->geometry(), QRect(lefts[i], 1, 22, 22));
        }
        QCOMPARE(w->cb_type->Tag, QStringLiteral("S"));
        QCOMPARE(w->cb_grid->Tag, QStringLiteral("W"));
    }
};

QTEST_MAIN(LayoutTest)
#include "tst_layout.moc"
