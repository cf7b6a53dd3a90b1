// A library file deleted while the library window shows it.
#include "game.h"
#include "pictures/libfrm.h"

#include <QPushButton>
#include <QTest>

class FaultsTest : public QObject
{
    Q_OBJECT

private slots:
    // A file deleted after its thumbnail was read is refused when chosen, and the game goes on.
    void libraryFileDeletedWhileOpen()
    {
        Game g;
        const QString pic = g.picture("lib/VX_a.bmp", picturegen::scene({ 300, 200 }, 3));
        g.tp.modals.script = [&](QDialog &d) {
            QFile::remove(pic);
            static_cast<libfrm &>(d).libimg_DblClick(0);
            static_cast<libfrm &>(d).cb_cancel->click();
        };
        g.w.cb_lib_Click();
        QCOMPARE(g.tp.messages.asked.size(), 1);
        QVERIFY2(
            g.tp.messages.asked[0].text.contains("cannot be found"), qPrintable(g.tp.messages.asked[0].text));
        QVERIFY(g.s().PicFile.isEmpty() && !g.s().InPlay);
    }
};

QTEST_MAIN(FaultsTest)
#include "tst_faults.moc"
