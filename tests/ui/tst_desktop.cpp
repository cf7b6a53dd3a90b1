// The game on a desktop: a screen reader, and a dense screen's drawing (arrow keys: the soak; dropped
// pictures: with "Open Image" in tst_picture).
#include "game.h"
#include "platform/facebutton.h"
#include "platform/qtservices.h"

#include <QAccessible>
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
