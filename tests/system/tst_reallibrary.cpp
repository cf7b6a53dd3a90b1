// The library window in the real program: a picture played with a double-click, one deleted by a drag.
#include "realgame.h"

class RealLibraryTest : public QObject
{
    Q_OBJECT
    RealGame g;
    const QPoint lib { 164, 87 }; // the library window's top-left, where Qt centres it over the game

private slots:
    // The build's starter pictures lie beside the program.
    void initTestCase()
    {
        QVERIFY(QProcess::execute("cp", { "-r", QFileInfo(VARNO_EXE).path() + "/lib", g.home.path() }) == 0);
        QVERIFY(g.start());
    }

    // "Image Library", then a double-click on the first thumbnail: its picture in the red frame.
    void doubleClickPlaysPicture()
    {
        g.command(27);
        QTRY_VERIFY_WITH_TIMEOUT(windowNamed("Picture Library"), 10000);
        g.shot("library", 300);
        g.moveTo(lib + QPoint(85, 70));
        xdotool({ "click", "--repeat", "2", "--delay", "80", "1" });
        QTRY_VERIFY_WITH_TIMEOUT(!windowNamed("Picture Library"), 10000);
        const QImage img = g.shot("library-chosen", 1500);
        QCOMPARE(g.at(img, 140, 103), qRgb(255, 0, 0) & 0xFFFFFF);
        QVERIFY(g.at(img, 300, 200) != (qRgb(255, 192, 192) & 0xFFFFFF));
    }

    // A thumbnail dragged onto the delete symbol with the mouse, and Yes: its file leaves the library.
    void dragOntoDeleteSymbolDeletes()
    {
        const QString gif = g.home.filePath("lib/VX_lighthouse.gif");
        QVERIFY(QFileInfo::exists(gif));
        g.command(27);
        QTRY_VERIFY_WITH_TIMEOUT(windowNamed("Picture Library"), 10000);
        g.drag(lib + QPoint(85, 185), lib + QPoint(50, 307));
        QTRY_VERIFY_WITH_TIMEOUT(windowNamed("Delete Image"), 10000);
        g.shot("library-delete", 300);
        xdotool({ "key", "Return" }); // Yes is the default answer
        QTRY_VERIFY_WITH_TIMEOUT(!QFileInfo::exists(gif), 10000);
    }
};
REALWINDOW_MAIN(RealLibraryTest)
#include "tst_reallibrary.moc"
