// The tile position hint on a stand-in clock and the help picture's library button, offscreen (the views'
// guards and the tray after them: the soak).
#include "game.h"
#include "pictures/libfrm.h"

#include <QPushButton>
#include <QTest>

class HelpTest : public QObject
{
    Q_OBJECT
private slots:
    // A second press disarms; armed, no minimise (nor full view: the soak). A tray piece is marked 600 ms,
    // then blinks 4 times at home, events run before every sleep; the blank, empty places and boxes only
    // disarm. A run that ends meanwhile (the window closed, a stop signal) stops the hint at its next chance.
    void hintMarksTileThenBlinksHome_data()
    {
        // The type, the tray box pressed (-1: the board), the run ending during the first sleep.
        columns<QString, int, bool>({ "type", "box", "ending" });
        QTest::newRow("blank") << Codes::Slide << -1 << false;
        QTest::newRow("place emptied into the tray") << Codes::Drag << -1 << false;
        QTest::newRow("tray box holding its piece") << Codes::Drag << 0 << false;
        QTest::newRow("empty tray box") << Codes::Drag << 1 << false;
        QTest::newRow("run ended while marked") << Codes::Drag << 0 << true;
    }
    void hintMarksTileThenBlinksHome()
    {
        const auto [type, box, ending] = fetch<QString, int, bool>("type", "box", "ending");
        Game g;
        QVERIFY(g.play(type, 4));
        vxmain &w = g.w;
        PuzzleState &s = g.s();
        const int p = type == Codes::Slide ? s.BlankPos : 0;
        const QPoint in(p % 4 * s.TileW + 5, p / 4 * s.TileH + 5);
        if (type == Codes::Drag)
            park(w, 0);
        QList<QPoint> seen, want; // at each sleep the marker shown, (-1, -1) for none
        int pumped = g.tp.events.pumped;
        g.tp.events.onSleep = [&](int ms) {
            QWidget *m
                = w.hlpfr_pcs->isVisible() ? w.hlpfr_pcs : (w.hlpfr_rz->isVisible() ? w.hlpfr_rz : nullptr);
            seen << (m ? m->mapTo(w.client(), QPoint()) : QPoint(-1, -1))
                 << QPoint(ms, g.tp.events.pumped > pumped);
            pumped = g.tp.events.pumped;
            if (ending)
                w.Form_Unload();
        };
        w.cb_help_Click();
        w.cb_help_Click();
        QCOMPARE(g.tp.pointers.current(), PointerShape::Default);
        w.cb_help_Click();
        w.cb_min_Click();
        QVERIFY(g.tp.pointers.current() == PointerShape::Custom && s.MinState == -1);
        QTest::mousePress(box >= 0 ? w.vxpcs[box] : w.vxrz, Qt::LeftButton, {}, box >= 0 ? QPoint(5, 5) : in);
        if (box == 0) {
            const Integer home = s.Pcs[0].Home;
            want << w.vxpcs[0]->pos() - QPoint(1, 1) << QPoint(600, 1);
            for (int i = 0; i < 4 && !ending; ++i)
                want << w.vxrz->pos() + QPoint(home % 4 * s.TileW, home / 4 * s.TileH) << QPoint(300, 1)
                     << QPoint(-1, -1) << QPoint(300, 1);
        }
        QCOMPARE(seen, want);
        QVERIFY(!s.HintMode && g.tp.pointers.current() == PointerShape::Default);
    }

    // The help's line on adding pictures shows the library window's "Add Image" button as that window
    // shows it, as tall as a line: exactly once, wherever the line is laid out.
    void helpShowsLibraryAddButton()
    {
        Game g;
        QList<QImage> buttons;
        g.tp.modals.script = [&](QDialog &d) {
            QPushButton *add = static_cast<libfrm &>(d).cb_add;
            d.show();
            for (int h = 14; h <= 22; ++h) {
                add->resize(add->sizeHint().width(), h);
                buttons << add->grab().toImage().convertToFormat(QImage::Format_RGB32);
            }
        };
        g.w.cb_lib_Click();
        g.w.cb_helpdoc_Click();
        const QImage &help = g.w.hlpdoc->image();
        int found = 0;
        for (const QImage &want : std::as_const(buttons))
            for (int y = 0; y + want.height() <= help.height(); ++y)
                for (int x = 0; x + want.width() <= help.width(); ++x)
                    found += help.pixel(x, y) == want.pixel(0, 0)
                        && help.copy(QRect({ x, y }, want.size())) == want;
        QCOMPARE(found, 1);
    }
};
QTEST_MAIN(HelpTest)
#include "tst_help.moc"
