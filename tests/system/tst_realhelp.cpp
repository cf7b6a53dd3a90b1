// The help and the views in the real program under Xvfb: the help document, the full image view, the
// tile position hint as the screen shows it over time, and the minimised window under a window manager.
#include "picturegen.h"
#include "realgame.h"

#include <QElapsedTimer>
#include <QRegularExpression>

class RealHelpTest : public QObject
{
    Q_OBJECT
    RealGame g;
    const QPoint board { 146, 109 };
    QImage m_board, m_full; // the scrambled board, and the whole picture as the full image view shows it

    // The small window that stands in for the game: the one window named exactly "Varno".
    static QString mini()
    {
        for (const QString &id : xdotool({ "search", "--name", "^Varno$" }).split('\n'))
            if (xdotool({ "getwindowname", id }) == "Varno")
                return id;
        return QString();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(g.start());
    }

    // "View Help" shows the document 4 pixels under the top, its closing line blue over the text; "Display
    // Full Image" the picture as first opened, its label, a cyan border. A click on either returns.
    void viewsShowAndReturn()
    {
        g.command(274);
        QImage img = g.shot("help");
        // The picture's white ground inside the box's 2-pixel border, the black window round it.
        QVERIFY(g.at(img, 105, 200) == 0xFFFFFF && g.at(img, 102, 200) == 0 && g.at(img, 697, 200) == 0);
        int blue = 0, black = 0;
        for (int y = 4; y < 600; ++y)
            for (int x = 105; x < 695; ++x)
                (y < 62 ? blue : black) += y < 62 ? g.at(img, x, y) == 0x0000FF : qGray(g.at(img, x, y)) < 60;
        QVERIFY2(blue > 150 && black > 3000, qPrintable(QStringLiteral("%1 %2").arg(blue).arg(black)));
        g.click(300, 300);
        const QString path = g.home.filePath("scene.bmp");
        QVERIFY(picturegen::scene(QSize(1024, 768), 5).save(path));
        g.open(path); // the command bar is back
        const QImage opened = g.shot("full-opened");
        g.command(192);
        m_board = g.shot("full-before", 500);
        g.command(219);
        m_full = g.shot("full");
        QCOMPARE(g.at(m_full, 141, 104), 0x00FFFFu); // the border, filled cyan
        QCOMPARE(g.at(m_full, 224 + 1, 1), qRgb(128, 128, 128) & 0xFFFFFF); // the label's grey
        const QRect boardArea(g.client + board, QSize(517, 391));
        QCOMPARE(m_full.copy(boardArea), opened.copy(boardArea));
        g.click(300, 300);
        const QRect area(g.client + QPoint(130, 30), QSize(560, 560));
        QCOMPARE(g.shot("full-closed").copy(area), m_board.copy(area));
    }

    // Sampled all along, the screen shows the pressed tile marked 600 ms, then four blinks on its home.
    void hintMarksTileThenBlinksHome()
    {
        int pressed = -1, home = -1;
        for (int p = 0; p < 35 && home < 0; ++p)
            for (int h = 0; h < 36; ++h)
                if (h != p && g.tile(m_board, board, p) == g.tile(m_full, board, h))
                    pressed = p, home = h;
        QVERIFY(home >= 0);
        g.command(247);
        const auto corner = [](int p) { return QPoint(p % 6 * 86, p / 6 * 65); };
        g.click(board.x() + corner(pressed).x() + 43, board.y() + corner(pressed).y() + 32);
        // A red 2-pixel marker round place p: the left and top sides red.
        const auto marked = [&](const QImage &sample, int p) {
            const QPoint o = board + corner(p);
            return g.at(sample, o.x() + 1, o.y() + 32) == 0xFF0000
                && g.at(sample, o.x() + 43, o.y() + 1) == 0xFF0000;
        };
        QElapsedTimer clock;
        clock.start();
        QString seen; // a letter a sample: P the pressed place marked, H its home, . neither
        while (clock.elapsed() < 3600) {
            const QImage sample = g.shot(QString(), 0);
            seen += marked(sample, pressed) ? 'P' : (marked(sample, home) ? 'H' : '.');
        }
        QVERIFY2(QRegularExpression("^\\.{0,6}P{6,}\\.?(H{4,}\\.{4,}){4}$").match(seen).hasMatch(),
            qPrintable(seen));
    }

    // Under a window manager "Minimize Game" leaves an iconified window "Varno" in the game's place;
    // restoring it brings the game back, centred and laid out as it was, and removes it. Twice. Then
    // "Exit", saving on the way, ends the program cleanly.
    void minimiseAndRestoreTwice()
    {
        QProcess wm; // ended with the test
        wm.start("openbox", { "--sm-disable" });
        QTRY_VERIFY_WITH_TIMEOUT(xdotool({ "get_num_desktops" }).toInt() > 0, 10000);
        const QRect area(g.client + QPoint(130, 90), QSize(560, 440)); // the board in its frames
        for (int cycle = 0; cycle < 2; ++cycle) {
            g.command(301);
            QTRY_VERIFY_WITH_TIMEOUT( // the game hidden and the small window iconified
                !mini().isEmpty() && xdotool({ "search", "--onlyvisible", "--class", "varno" }).isEmpty(),
                10000);
            xdotool({ "windowactivate", mini() });
            QTRY_VERIFY_WITH_TIMEOUT(mini().isEmpty(), 10000);
            QCOMPARE(g.shot(QStringLiteral("restored%1").arg(cycle)).copy(area), m_board.copy(area));
        }
        g.command(329);
        g.answer("Save on Exit");
        g.answer("Saved");
        QVERIFY(g.game.waitForFinished(10000) && g.game.exitCode() == 0);
    }
};
QTEST_MAIN(RealHelpTest)
#include "tst_realhelp.moc"
