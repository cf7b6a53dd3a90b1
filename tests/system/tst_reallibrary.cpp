// The library window in the real program: opened with its button, a starter picture chosen with a
// double-click, and a picture deleted by dragging its thumbnail onto the delete symbol.
#include "realgame.h"

#include <QDir>

class RealLibraryTest : public QObject
{
    Q_OBJECT
    RealGame g;
    QPoint lib; // the library window's top-left pixel on the screen

    // "Image Library", until its window shows; the screenshot of the window itself is kept.
    void openLibrary(const QString &shot)
    {
        g.command(27);
        QTRY_VERIFY_WITH_TIMEOUT(windowNamed("Picture Library"), 10000);
        const QString id = xdotool({ "search", "--onlyvisible", "--name", "Picture Library" });
        const QString geo = xdotool({ "getwindowgeometry", "--shell", id.section('\n', 0, 0) });
        lib = QPoint(geo.section("X=", 1).section('\n', 0, 0).toInt(),
            geo.section("Y=", 1).section('\n', 0, 0).toInt());
        g.shot(QString())
            .copy(QRect(lib, QSize(453, 347)))
            .save(QStringLiteral(SHOT_DIR "/realwindow-%1.png").arg(shot));
    }
    // A point of the library window, as the main window's client area counts it.
    QPoint at(int x, int y) const
    {
        return lib - g.client + QPoint(x, y);
    }

private slots:
    // The program's folder gets the build's starter library beside it, as the build lays it out.
    void initTestCase()
    {
        const QDir starters(QFileInfo(QStringLiteral(VARNO_EXE)).dir().filePath("lib"));
        QVERIFY(QDir().mkpath(g.home.filePath("lib")));
        for (const QString &name : starters.entryList(QDir::Files))
            QVERIFY(QFile::copy(starters.filePath(name), g.home.filePath("lib/" + name)));
        QVERIFY(g.start());
    }

    // The five starter pictures show at once, in name order; a double-click plays the first one.
    void doubleClickPlaysPicture()
    {
        openLibrary("library");
        const QImage img = g.shot("library-open");
        const auto thumbPixel = [&](int k) {
            return img.pixel(lib + QPoint(29 + 140 * (k / 2) + 56, 28 + 115 * (k % 2) + 42)) & 0xFFFFFF;
        };
        for (int k = 0; k < 5; ++k)
            QVERIFY2(thumbPixel(k) != (qRgb(128, 128, 128) & 0xFFFFFF), qPrintable(QString::number(k)));
        QCOMPARE(thumbPixel(5), qRgb(128, 128, 128) & 0xFFFFFF);
        g.moveTo(at(29 + 56, 28 + 42));
        xdotool({ "click", "--repeat", "2", "--delay", "80", "1" });
        QTRY_VERIFY_WITH_TIMEOUT(!windowNamed("Picture Library"), 10000);
        QTest::qWait(1500);
        const QImage board = g.shot("library-chosen");
        QCOMPARE(g.at(board, 140, 103), qRgb(255, 0, 0) & 0xFFFFFF);
        QCOMPARE(g.at(board, 140 + 528, 103 + 399), qRgb(255, 0, 0) & 0xFFFFFF);
        const QImage expected = QImage(g.home.filePath("lib/VX_harbour.jpg"))
                                    .scaled(517, 391, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        int close = 0;
        for (int y = 20; y < 380; y += 40)
            for (int x = 20; x < 500; x += 40) {
                const QRgb a = g.at(board, 146 + x, 109 + y), b = expected.pixel(x, y);
                close += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b))
                        + std::abs(qBlue(a) - qBlue(b))
                    < 40;
            }
        QVERIFY2(close > 100, qPrintable(QString::number(close)));
    }

    // A thumbnail dragged onto the delete symbol with the mouse, and Yes: the file leaves the library.
    void dragOntoDeleteSymbolDeletes()
    {
        openLibrary("library-again");
        const QString gif = g.home.filePath("lib/VX_lighthouse.gif");
        QVERIFY(QFileInfo::exists(gif));
        g.drag(at(29 + 56, 143 + 42), at(38 + 12, 295 + 12));
        QTRY_VERIFY_WITH_TIMEOUT(windowNamed("Delete Image"), 10000);
        g.shot("library-delete-question", 300);
        xdotool({ "key", "Return" }); // Yes is the default answer
        QTRY_VERIFY_WITH_TIMEOUT(!QFileInfo::exists(gif), 10000);
        openLibrary("library-deleted");
    }
};
REALWINDOW_MAIN(RealLibraryTest)
#include "tst_reallibrary.moc"
