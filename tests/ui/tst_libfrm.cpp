// The library window: browsing, adding, choosing and leaving, deleting by a drag, camera thumbnails.
#include "exifwriter.h"
#include "game.h"
#include "pictures/libfrm.h"
#include "pictures/thumbnail.h"

#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

namespace
{
using Six = std::array<int, 6>;
const auto colour = [](int i) { return qRgb(30 + 20 * i, 220 - 20 * i, 60 + 90 * (i % 3)); };
const auto libFile = [](Game &g, int i) { return g.s().LibPath + QStringLiteral("/VX_c%1.bmp").arg(i + 1); };
const auto step = [](libfrm &d, QAbstractSlider::SliderAction a) { d.libscroll->triggerAction(a); };
const auto solid = [](QSize s, QRgb c) { return QImage((uchar *)&c, 1, 1, QImage::Format_RGB32).scaled(s); };

// Library entry i is a picture of colour(i); a thumbnail shows an entry, -1 nothing, -2 the unreadable mark.
Six view(Game &g, const libfrm &d)
{
    Six out;
    for (int k = 0; k < 6; ++k) {
        const LibImage *t = d.libimg[k];
        out[k] = t->Tag.isEmpty() && t->image().pixel(56, 42) == qRgb(128, 128, 128) ? -1 : -9;
        out[k] = !t->Problem.isEmpty() && t->image() == thumbnail::unreadableMark(t->size()) ? -2 : out[k];
        for (int i = 0; i < 9; ++i)
            out[k] = t->Tag == libFile(g, i) && t->image().pixel(56, 42) == colour(i) ? i : out[k];
    }
    return out;
}

// A library of n pictures, and "Image Library" run with a script played on its window.
void withLibrary(Game &g, int n, const std::function<void(libfrm &)> &script)
{
    for (int i = 0; i < n; ++i)
        QVERIFY(solid({ 40, 30 }, colour(i)).save(libFile(g, i)));
    g.tp.modals.script = [script](QDialog &d) { script(static_cast<libfrm &>(d)); };
    g.w.cb_lib_Click();
}
} // namespace

class LibraryWindowTest : public QObject
{
    Q_OBJECT
private slots:
    // A step right reads two files, a step left six (spoilt files show which); "Add Image" replaces a shown
    // picture; a double-click plays a picture, not an unreadable one; "Cancel" leaves no picture.
    void browseAddChooseAndCancel()
    {
        Game g;
        QVERIFY(g.play("S", 4));
        g.tp.files.choose(g.picture("VX_c3.bmp", solid({ 80, 60 }, colour(8))));
        withLibrary(g, 9, [&](libfrm &d) {
            QCOMPARE(view(g, d), Six({ 0, 1, 2, 3, 4, 5 }));
            for (int i = 2; i < 6; ++i)
                g.file("lib/" + QFileInfo(libFile(g, i)).fileName(), "spoilt");
            step(d, QAbstractSlider::SliderSingleStepAdd);
            QCOMPARE(view(g, d), Six({ 2, 3, 4, 5, 6, 7 }));
            step(d, QAbstractSlider::SliderSingleStepSub);
            QCOMPARE(view(g, d), Six({ 0, 1, -2, -2, -2, -2 }));
            d.cb_add->click();
            QVERIFY(d.libscroll->value() == 2 && d.libimg[2]->image().pixel(56, 42) == colour(8));
            QCOMPARE(QImage(libFile(g, 2)).size(), QSize(520, 390));
            step(d, QAbstractSlider::SliderToMaximum);
            QCOMPARE(view(g, d), Six({ -2, -2, 6, 7, 8, -1 }));
            d.libimg_DblClick(0); // unreadable: refused with a message
            d.libimg_DblClick(3);
            QCOMPARE(g.tp.messages.asked.size(), 1);
        });
        QVERIFY(g.s().PicFile == libFile(g, 7) && g.w.vxrz->image().pixel(50, 50) == colour(7));
        withLibrary(g, 0, [](libfrm &d) { d.cb_cancel->click(); });
        g.w.cb_scramble_Click();
        QVERIFY(g.s().PicFile.isEmpty() && !g.s().InPlay && g.w.vxrz->image().pixel(50, 50) == BlankColour);
    }

    // A drag onto the delete symbol, with the delete cursor over it, deletes the file after Yes.
    void deleteByDrag()
    {
        for (const auto &[count, off, answer, after] :
            { std::tuple(9, 0, MsgAnswer::Yes, Six { 0, 1, 2, 4, 5, 6 }),
                { 9, 0, MsgAnswer::No, Six { 2, 3, 4, 5, 6, 7 } },
                { 9, 40, MsgAnswer::Yes, Six { 2, 3, 4, 5, 6, 7 } },
                { 1, 0, MsgAnswer::Yes, Six { -1, -1, -1, -1, -1, -1 } } }) {
            Game g;
            g.tp.messages.answers = { answer };
            withLibrary(g, count, [&](libfrm &d) {
                step(d, QAbstractSlider::SliderSingleStepAdd);
                LibImage *t = d.libimg[count > 1];
                const QString path = t->Tag;
                const QPoint target = t->mapFrom(&d, d.cb_del->geometry().center()) + QPoint(off, 0);
                QTest::mousePress(t, Qt::LeftButton, {}, QPoint(5, 5));
                QTest::mouseMove(t, target);
                QCOMPARE(t->cursor(), off ? d.libscroll_DragIcon : d.cb_del_DragIcon);
                QTest::mouseRelease(t, Qt::LeftButton, {}, target);
                const QList<AskedBox> &asked = g.tp.messages.asked;
                QVERIFY(asked.size() == !off
                    && (off || asked[0].text + asked[0].title == "Delete '" + path + "'Delete Image"));
                QCOMPARE(QFileInfo::exists(path), off || answer == MsgAnswer::No);
                QCOMPARE(view(g, d), after);
                d.libimg_DblClick(0);
                QCOMPARE(d.result(), int(count > 1));
            });
        }
    }

    // A camera's embedded thumbnail shows, turned as the picture is: the yellow corner lands top right.
    void embeddedThumbnail()
    {
        Game g;
        QImage thumb = solid({ 160, 120 }, qRgb(0, 0, 255));
        QPainter(&thumb).fillRect(0, 0, 80, 60, Qt::yellow);
        const QString path = g.file("cam.jpg",
            exifwriter::withExif(
                encode(solid({ 640, 480 }, qRgb(255, 0, 0)), "jpg"), 6, encode(thumb, "jpg")));
        const QImage shown = thumbnail::decode(path, { 112, 84 }).image;
        QVERIFY(qGray(shown.pixel(84, 21)) > 180 && qBlue(shown.pixel(28, 21)) > 200);
    }
};

QTEST_MAIN(LibraryWindowTest)
#include "tst_libfrm.moc"
