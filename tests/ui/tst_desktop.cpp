// The game on a desktop: arrow keys, dropped pictures, a screen reader, and a dense screen's drawing.
#include "game.h"
#include "platform/facebutton.h"
#include "platform/qtservices.h"

#include <QAccessible>
#include <QMimeData>
#include <QTest>
#include <QTimer>

class DesktopTest : public QObject
{
    Q_OBJECT
private slots:
    // An arrow presses the tile beside the blank on its side, up to the edge; not in type "D" nor as a hint.
    void arrowsPressTheTileBesideTheBlank()
    {
        const std::tuple<Qt::Key, int, int> arrows[] = { { Qt::Key_Left, -1, 0 }, { Qt::Key_Right, 1, 0 },
            { Qt::Key_Up, 0, -1 }, { Qt::Key_Down, 0, 1 } };
        for (const QString type : { "S", "S hint", "D" })
            for (const auto &[key, dc, dr] : arrows) {
                Game g;
                QVERIFY(g.play(type.left(1), 4, 3));
                for (int i = 0; i < 4; ++i) {
                    const int blank = g.s().BlankPos, col = blank % 4 + dc, row = blank / 4 + dr;
                    const bool moves = type == "S" && col >= 0 && col < 4 && row >= 0 && row < 4;
                    const QImage shown = g.w.vxrz->image();
                    if (type == "S hint" && !g.s().HintMode)
                        g.w.cb_help_Click();
                    QTest::keyClick(g.w.cb_scramble, key);
                    QCOMPARE(g.s().BlankPos, moves ? row * 4 + col : blank);
                    QVERIFY(moves ? holdersShowTables(g.w) : g.w.vxrz->image() == shown);
                }
            }
    }

    // A dropped file takes the road of "Open Image": the same refusals, messages and guard.
    void droppedFileOpensAsOpenImage()
    {
        const std::tuple<QString, QString, bool> drops[]
            = { { "drop.bmp", "", false }, { "lib/VX_drop.bmp", "Open", false }, { "drop.bmp", "", true } };
        for (const auto &[name, title, hint] : drops) {
            Game g;
            QVERIFY(g.play("S", 3));
            const QString before = g.s().PicFile,
                          path = g.picture(name, QImage(80, 60, QImage::Format_RGB32));
            if (hint)
                g.w.cb_help_Click();
            QMimeData mime;
            mime.setUrls({ QUrl::fromLocalFile(path) });
            QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
            QDropEvent drop(QPointF(300, 300), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&g.w, &enter);
            QCoreApplication::sendEvent(&g.w, &drop);
            QCOMPARE(g.tp.messages.asked.value(0).title, title);
            QCOMPARE(g.s().PicFile, title.isEmpty() && !hint ? path : before);
        }
    }

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

    // At ratio 2 a stretch samples the picture's pixels, copies carry them, a line covers device squares.
    void denseBoxKeepsDevicePixels()
    {
        QImage pic(40, 30, QImage::Format_RGB32);
        for (int i = 0; i < 40 * 30; ++i)
            pic.setPixel(i % 40, i / 40, (i % 40 + i / 40) % 2 ? qRgb(255, 255, 255) : qRgb(0, 0, 128));
        PictureBox a(nullptr), b(nullptr);
        for (PictureBox *box : { &a, &b })
            box->setBoxSize(20, 15), box->setFineRatio(2);
        a.stretchDraw(pic, a.rect());
        bitBlt(b, 0, 0, 10, 10, a, 5, 5);
        b.drawLine(0, 14, 20, 14, qRgb(255, 0, 0));
        QVERIFY(a.image().size() == QSize(20, 15) && *a.fine() == pic);
        QVERIFY(b.fine()->copy(0, 0, 20, 20) == pic.copy(10, 10, 20, 20));
        QVERIFY(b.fine()->pixel(0, 28) == qRgb(255, 0, 0) && b.fine()->pixel(39, 29) == qRgb(255, 0, 0));
    }
};

QTEST_MAIN(DesktopTest)
#include "tst_desktop.moc"
