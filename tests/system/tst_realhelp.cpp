// The help and the views in the real program under Xvfb: the help document, the full image view, the
// tile position hint as the screen shows it over time, and the minimised window under a window manager.
#include "realgame.h"

#include <QElapsedTimer>
#include <QRegularExpression>

namespace
{
const QPoint Board(146, 109);
const QSize Tile(86, 65);
constexpr QRgb Red = 0xFF0000;
} // namespace

class RealHelpTest : public QObject
{
    Q_OBJECT
    RealGame g;
    QImage m_full; // the whole picture as the full image view shows it

    QPoint placeAt(int p) const
    {
        return Board + QPoint(p % 6 * Tile.width(), p / 6 * Tile.height());
    }
    // The inside of a place on a screenshot, where neither the grid nor a marker reaches.
    QImage inside(const QImage &img, QPoint at) const
    {
        return img.copy(QRect(g.client + at + QPoint(3, 3), Tile - QSize(6, 6)));
    }
    // True when a red 2-pixel marker stands round place p of a board sample (its left and top sides).
    bool marked(const QImage &board, int p) const
    {
        const QPoint o = placeAt(p) - Board;
        return (board.pixel(o.x() + 1, o.y() + 32) & 0xFFFFFF) == Red
            && (board.pixel(o.x() + 43, o.y() + 1) & 0xFFFFFF) == Red;
    }

    // The small window stands in for the game: the one window named exactly "Varno".
    QString mini() const
    {
        for (const QString &id : xdotool({ "search", "--name", "^Varno$" }).split('\n'))
            if (!id.isEmpty() && xdotool({ "getwindowname", id }) == "Varno")
                return id;
        return QString();
    }
    static QString xprop(const QStringList &args)
    {
        QProcess p;
        p.start("xprop", args);
        p.waitForFinished(10000);
        return QString::fromLocal8Bit(p.readAllStandardOutput());
    }

private slots:
    void initTestCase()
    {
        QVERIFY(g.start());
    }

    // "View Help" with no picture: the document, 594 x 600 centred 4 pixels under the top, its closing
    // line in blue; a click on it brings the board and the command bar back.
    void helpDocumentOpensAndCloses()
    {
        g.command(274);
        QImage img = g.shot("help");
        QCOMPARE(g.at(img, 105, 200), 0xFFFFFFu); // the picture's white ground, inside the 2-pixel border
        QVERIFY(g.at(img, 102, 200) == 0 && g.at(img, 697, 200) == 0); // black round the box
        int blue = 0, black = 0; // the closing line on the second line, the help text under it
        for (int y = 4; y < 600; ++y)
            for (int x = 105; x < 695; ++x)
                (y < 62 ? blue : black) += y < 62 ? g.at(img, x, y) == 0x0000FF : qGray(g.at(img, x, y)) < 60;
        QVERIFY2(blue > 150 && black > 3000, qPrintable(QStringLiteral("%1 %2").arg(blue).arg(black)));
        g.click(300, 300);
        img = g.shot("help-closed");
        QCOMPARE(g.at(img, 146, 109), qRgb(255, 192, 192) & 0xFFFFFF);
        QVERIFY(g.at(img, 224 + 11, 12) != 0); // a face of the command bar
    }

    // With a puzzle in play, "Display Full Image" shows the whole picture with its label and a cyan
    // border; a click on the picture brings back the board exactly as it was.
    void fullImageViewShowsWholePicture()
    {
        QImage pic(1024, 768, QImage::Format_RGB32);
        for (int y = 0; y < 768; ++y)
            for (int x = 0; x < 1024; ++x)
                pic.setPixel(x, y, qRgb(40 + x % 97, x / 5, y / 4)); // no red, every tile different
        const QString path = g.home.filePath("grad.bmp");
        QVERIFY(pic.save(path));
        g.command(0);
        QTRY_VERIFY_WITH_TIMEOUT(windowNamed("Open|Graphic|Files"), 10000);
        QTest::qWait(300);
        xdotool({ "type", "--delay", "10", path });
        xdotool({ "key", "Return" });
        const QImage opened = g.shot("full-opened", 1500);
        g.command(192);
        const QImage board = g.shot("full-before", 500);
        g.command(219);
        m_full = g.shot("full");
        QCOMPARE(g.at(m_full, 141, 104), 0x00FFFFu); // the border, filled cyan
        QCOMPARE(g.at(m_full, 224 + 1, 1), qRgb(128, 128, 128) & 0xFFFFFF); // the label's grey
        const QRect boardArea(g.client + Board, QSize(517, 391));
        QCOMPARE(m_full.copy(boardArea), opened.copy(boardArea)); // the whole picture, as first shown
        g.click(300, 300);
        const QImage back = g.shot("full-closed");
        const QRect area(g.client + QPoint(130, 30), QSize(560, 560));
        QCOMPARE(back.copy(area), board.copy(area));
    }

    // The hint on the screen: the pressed tile is marked for 600 ms, then its home blinks four times.
    void hintMarksTileThenBlinksHome()
    {
        const QImage board = g.shot(QString());
        int pressed = -1, home = -1;
        for (int p = 0; p < 36 && home < 0; ++p)
            for (int h = 0; h < 36 && p != 35; ++h)
                if (h != p && inside(board, placeAt(p)) == inside(m_full, placeAt(h)))
                    pressed = p, home = h;
        QVERIFY(home >= 0);
        g.command(247);
        QTest::qWait(200);
        g.click(placeAt(pressed).x() + 43, placeAt(pressed).y() + 32);
        QElapsedTimer clock;
        clock.start();
        QList<std::pair<qint64, QImage>> samples;
        while (clock.elapsed() < 3600) {
            samples.append({ clock.elapsed(),
                QGuiApplication::primaryScreen()
                    ->grabWindow(0, g.client.x() + Board.x(), g.client.y() + Board.y(), 518, 392)
                    .toImage() });
            QTest::qSleep(25);
        }
        // One letter a sample: P the pressed place marked, H its home, . neither.
        QString seen;
        qint64 firstP = -1, lastMark = 0;
        for (const auto &[t, img] : samples) {
            const bool p = marked(img, pressed), h = marked(img, home);
            seen += p ? 'P' : (h ? 'H' : '.');
            firstP = (p && firstP < 0) ? t : firstP;
            lastMark = (p || h) ? t : lastMark;
        }
        QVERIFY2(
            QRegularExpression("^\\.*P{6,}\\.?(H{4,}\\.{4,}){4}$").match(seen).hasMatch(), qPrintable(seen));
        QVERIFY2(firstP >= 0 && firstP < 250 && lastMark > 2500 && lastMark < 3300, qPrintable(seen));
    }

    // Under a window manager, "Minimize Game" leaves an iconified window "Varno" with the game's icon in
    // its place; restoring it brings the game back, centred and laid out, and removes it. Twice.
    void minimiseAndRestoreTwice()
    {
        QProcess wm;
        wm.start("openbox", { "--sm-disable" });
        QVERIFY(wm.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(xprop({ "-root", "_NET_SUPPORTING_WM_CHECK" }).contains("window id"), 10000);
        const QImage before = g.shot(QString(), 500);
        const QRect area(g.client + QPoint(130, 90), QSize(560, 440)); // the board in its frames
        for (int cycle = 0; cycle < 2; ++cycle) {
            g.command(301);
            QTRY_VERIFY_WITH_TIMEOUT(xprop({ "-id", mini(), "WM_STATE" }).contains("Iconic"), 10000);
            QVERIFY(xdotool({ "search", "--onlyvisible", "--class", "varno" }).isEmpty());
            QVERIFY(xprop({ "-id", mini(), "-notype", "_NET_WM_ICON" }).contains("Icon ("));
            xdotool({ "windowactivate", mini() });
            QTRY_VERIFY_WITH_TIMEOUT(mini().isEmpty(), 10000);
            const QString geo = xdotool({ "getwindowgeometry", "--shell", g.window });
            QVERIFY2(geo.contains("X=237") && geo.contains("Y=209"), qPrintable(geo));
            QCOMPARE(g.shot(QStringLiteral("restored%1").arg(cycle)).copy(area), before.copy(area));
        }
        wm.terminate();
        wm.waitForFinished();
    }
};
REALWINDOW_MAIN(RealHelpTest)
#include "tst_realhelp.moc"
