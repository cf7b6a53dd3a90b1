// The help and the views in the real program under Xvfb: the help document, the full image view, the
// tile position hint as the screen shows it over time; then, under a window manager, the minimised
// window, a second start, and every window closed by the window manager or the game stopped by a signal.
#include "measure.h"
#include "picturegen.h"
#include "realgame.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLocalSocket>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QWidget>

class RealHelpTest : public QObject
{
    Q_OBJECT
    RealGame g;
    QProcess wm; // openbox, from the minimise test on
    const QPoint board { 146, 109 };
    QImage m_board, m_full; // the scrambled board, and the whole picture as the full image view shows it
    const QRect area { g.client + QPoint(130, 90), QSize(560, 440) }; // the board in its frames
    const QRect boardArea { g.client + board, QSize(517, 391) };

    // The small window that stands in for the game: the one window named exactly "Varno".
    static QString mini()
    {
        for (const QString &id : xdotool({ "search", "--name", "^Varno$" }).split('\n'))
            if (xdotool({ "getwindowname", id }) == "Varno")
                return id;
        return QString();
    }
    // The game hidden, and the small window iconified in its place.
    static bool minimised()
    {
        return !mini().isEmpty() && xdotool({ "search", "--onlyvisible", "--class", "varno" }).isEmpty();
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
        QCOMPARE(m_full.copy(boardArea), opened.copy(boardArea));
        g.click(300, 300);
        const QRect view(g.client + QPoint(130, 30), QSize(560, 560));
        QCOMPARE(g.shot("full-closed").copy(view), m_board.copy(view));
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
    // restoring it brings the game back, centred and laid out as it was, and removes it; so does closing
    // it through the window manager. Then "Exit", saving on the way, ends the program cleanly.
    void minimiseAndRestoreTwice()
    {
        wm.start("openbox", { "--sm-disable" });
        QTRY_VERIFY_WITH_TIMEOUT(xdotool({ "get_num_desktops" }).toInt() > 0, 10000);
        for (const QString restore : { "windowactivate", "close" }) {
            g.command(301);
            QTRY_VERIFY_WITH_TIMEOUT(minimised(), 10000);
            if (restore == "close")
                QProcess::execute("wmctrl", { "-i", "-c", mini() });
            else
                xdotool({ restore, mini() });
            QTRY_VERIFY_WITH_TIMEOUT(mini().isEmpty(), 10000);
            QCOMPARE(g.shot(QStringLiteral("restored-%1").arg(restore)).copy(area), m_board.copy(area));
        }
        g.command(329);
        g.answer("Save on Exit");
        g.answer("Saved");
        QVERIFY(g.game.waitForFinished(10000) && g.game.exitCode() == 0);
    }

    // A second start ends at once, showing nothing, and brings the running game forward: back from the
    // small window, and from behind another window the player used last, raised and active. A line on its
    // socket that is no request does nothing. A picture named to a second start, in that start's folder,
    // is opened by the running game as "Open Image" opens it, whatever its name holds; one "Open Image"
    // refuses is refused there with its message, under which nothing opens.
    void secondStartBringsGameForward()
    {
        QVERIFY(g.start());
        g.command(55); // the saved puzzle
        const QImage before = g.shot(QString(), 1500);
        const QString folder = g.home.filePath("Fotos\nü & (1)");
        const QString picture = "Holiday (1) & more!\n ü.bmp";
        QVERIFY(QDir().mkpath(folder) && QFile::copy(g.home.filePath("scene.bmp"), folder + '/' + picture));
        const auto secondStart = [&](const QStringList &arguments = {}) {
            QProcess start;
            start.setWorkingDirectory(folder);
            start.start(g.home.filePath("varno"), arguments);
            return start.waitForFinished(10000) && start.exitCode() == 0 && start.readAll().isEmpty();
        };
        const auto active = [] { return xdotool({ "getactivewindow" }); };
        g.command(301);
        QTRY_VERIFY_WITH_TIMEOUT(minimised(), 10000);
        for (const QByteArray &line :
            { QByteArray("hello\n"), QByteArray("forward now\n"), QByteArray("forward token=a token=b\n"),
                QByteArray("forward picture=a.bmp\n"), QByteArray("forward picture=/a%zz.bmp\n"),
                "forward picture=/" + QByteArray(20000, 'a') + '\n' }) {
            QLocalSocket caller;
            caller.connectToServer(
                QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + "/varno.socket");
            QVERIFY(caller.waitForConnected(10000) && caller.write(line) > 0);
            QVERIFY(caller.waitForDisconnected(10000)); // heard
        }
        QTest::qWait(1000);
        QVERIFY(minimised());
        QVERIFY(secondStart());
        QTRY_VERIFY_WITH_TIMEOUT(mini().isEmpty() && active() == g.window, 10000);
        // Laid out anew on its return, as after every restore, the board stands without its red frame.
        QCOMPARE(g.shot("forward-minimised").copy(boardArea), before.copy(boardArea));
        QWidget cover;
        cover.setGeometry(100, 100, 1080, 820);
        cover.show();
        QTRY_COMPARE_WITH_TIMEOUT(active(), QString::number(cover.winId()), 10000);
        const auto useCover = [&] {
            xdotool({ "mousemove", "640", "150", "click", "1" });
            // Active on the screen and in its own program, so no late focus of its own follows.
            QTRY_VERIFY_WITH_TIMEOUT(
                active() == QString::number(cover.winId()) && cover.isActiveWindow(), 10000);
        };
        useCover();
        QVERIFY(g.shot("forward-covered").copy(boardArea) != before.copy(boardArea));
        QVERIFY(secondStart());
        QTRY_COMPARE_WITH_TIMEOUT(active(), g.window, 10000);
        QCOMPARE(g.shot("forward-behind").copy(boardArea), before.copy(boardArea));
        QVERIFY(secondStart({ "scene.png" }));
        RealGame::waitFor("Open - ERROR");
        QVERIFY(secondStart({ picture }));
        RealGame::answer("Open - ERROR");
        QCOMPARE(g.shot("handed-refused", 1500).copy(boardArea), before.copy(boardArea));
        useCover();
        QVERIFY(secondStart({ picture }));
        QTRY_COMPARE_WITH_TIMEOUT(active(), g.window, 10000);
        QCOMPARE(g.shot("handed-over", 1500).copy(boardArea), m_full.copy(boardArea));
    }

    // Closed by the window manager, each window does what its own cancel does: the library window leaves
    // the picture that was on the board, the size dialog no new size, the exit question answers No.
    void windowManagerClosesEachWindowAsCancelled()
    {
        g.command(27);
        RealGame::answer("Picture Library", "alt+F4");
        QTRY_VERIFY_WITH_TIMEOUT(!windowNamed("Picture Library"), 10000);
        const QImage before = g.shot("closed-library", 1500);
        QCOMPARE(before.copy(boardArea), m_full.copy(boardArea)); // the whole picture again
        g.command(164);
        RealGame::waitFor("Puzzle Size");
        const QString dialog = xdotool({ "search", "--onlyvisible", "--name", "Puzzle Size" });
        xdotool({ "mousemove", "--window", dialog, "180", "121", "click", "1" }); // " 11 * 11"
        xdotool({ "key", "alt+F4" });
        QTRY_VERIFY_WITH_TIMEOUT(!windowNamed("Puzzle Size"), 10000);
        QCOMPARE(g.shot("closed-size", 500).copy(area), before.copy(area)); // no 11 x 11 puzzle
        g.command(192);
        const QByteArray saved = bytesOf(g.home.filePath("varno.pzl"));
        g.command(329);
        RealGame::answer("Save on Exit", "alt+F4");
        QVERIFY(g.game.waitForFinished(10000) && g.game.exitCode() == 0);
        QCOMPARE(bytesOf(g.home.filePath("varno.pzl")), saved);
    }

    // The game window closed by the window manager (Alt+F4, or a pager's Close while the library window
    // stands over it) or the game stopped by SIGTERM (while the exit question is open) ends the program at
    // once with exit code 0, without the question and without a save; the lock goes with it.
    void closeOrStopEndsWithoutSaving()
    {
        const QString pzl = g.home.filePath("varno.pzl");
        const QByteArray saved = bytesOf(pzl);
        for (const QString how : { "alt+F4", "wmctrl", "SIGTERM" }) {
            QVERIFY(g.start());
            g.command(55); // a puzzle in play, so that "Exit Game" would ask (input waits for the load)
            if (how == "alt+F4") {
                xdotool({ "windowactivate", "--sync", g.window });
                xdotool({ "key", how });
            } else if (how == "wmctrl") {
                g.command(27);
                RealGame::waitFor("Picture Library");
                QProcess::execute("wmctrl", { "-i", "-c", g.window });
            } else {
                g.command(329);
                RealGame::waitFor("Save on Exit");
                g.game.terminate();
            }
            QVERIFY2(g.game.waitForFinished(10000), qPrintable(how));
            QVERIFY2(g.game.exitStatus() == QProcess::NormalExit && g.game.exitCode() == 0, qPrintable(how));
            QCOMPARE(bytesOf(pzl), saved);
        }
        QVERIFY(g.start()); // the next start is the game, not a second start
    }
};
QTEST_MAIN(RealHelpTest)
#include "tst_realhelp.moc"
