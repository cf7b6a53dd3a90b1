// The real program in a real X window under Xvfb, driven as a person would: with the mouse and the
// keyboard through xdotool, looked at through screenshots. One game from start to exit, a saved puzzle
// brought back in the next run, then the library window; last, the game on a Wayland compositor.
#include "measure.h"
#include "picturegen.h"
#include "realgame.h"
#include "weston.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace
{
QVariant call(
    const QDBusConnection &bus, const QStringList &at, const QString &method, QVariantList args = {})
{
    QDBusMessage m = QDBusMessage::createMethodCall(at[0], at[1], at[2], method);
    m.setArguments(args);
    return bus.call(m, QDBus::Block, 5000).arguments().value(0);
}

// A screen reader's view through AT-SPI, as Orca reads it: the name of the table cell in the focused state,
// found by walking the accessibility tree from the registry's root on the accessibility bus.
QString focusedCellName()
{
    const QString acc = "org.a11y.atspi.Accessible";
    const QDBusConnection bus = QDBusConnection::connectToBus(
        call(QDBusConnection::sessionBus(), { "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus" }, "GetAddress")
            .toString(),
        "a11y");
    QList<QStringList> todo { { "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root", acc } };
    while (!todo.isEmpty()) {
        const QStringList n = todo.takeFirst();
        if (call(bus, n, "GetRoleName").toString().endsWith("cell") // "cell" from Qt, "table cell" from GTK
            && qdbus_cast<QList<uint>>(call(bus, n, "GetState")).value(0) & 1u << 12) // ATSPI_STATE_FOCUSED
            return call(bus, { n[0], n[1], "org.freedesktop.DBus.Properties" }, "Get", { acc, "Name" })
                .value<QDBusVariant>()
                .variant()
                .toString();
        const QDBusArgument children = call(bus, n, "GetChildren").value<QDBusArgument>();
        children.beginArray();
        for (QString service; !children.atEnd();) {
            QDBusObjectPath path;
            children.beginStructure();
            children >> service >> path;
            children.endStructure();
            todo << QStringList { service, path.path(), acc };
        }
        children.endArray();
    }
    return {};
}
} // namespace

class RealWindowTest : public QObject
{
    Q_OBJECT
    RealGame g;
    QImage m_opened; // the screen with the whole picture on the slide puzzle's board
    const QPoint lib { 174, 127 }; // the library window's top-left, centred on the screen as the game is
    QImage m_start; // the screen at the game's first start

    static QImage clientArea(const QImage &screen, QPoint at)
    {
        return screen.copy(QRect(at + QPoint(3, 3), QSize(800, 600))).convertToFormat(QImage::Format_RGB32);
    }

private slots:
    // The program starts from its own folder, the build's program and starter pictures copied there.
    void initTestCase()
    {
        QVERIFY(QProcess::execute("cp", { "-r", QFileInfo(VARNO_EXE).path() + "/lib", g.home.path() }) == 0);
        QVERIFY(g.start());
    }

    // The window: 806 x 606, centred on the 1280 x 1024 screen, with the empty board in its frames.
    void windowShowsEmptyBoard()
    {
        const QString geo = xdotool({ "getwindowgeometry", "--shell", g.window });
        QVERIFY2(geo.contains("WIDTH=806") && geo.contains("HEIGHT=606"), qPrintable(geo));
        QVERIFY2(geo.contains("X=237") && geo.contains("Y=209"), qPrintable(geo));
        QCOMPARE(xdotool({ "getwindowname", g.window }), QString()); // no caption, not even Qt's fallback
        const QImage img = m_start = g.shot("start");
        QCOMPARE(g.at(img, 138, 101), qRgb(128, 64, 64) & 0xFFFFFF); // outer frame
        QCOMPARE(g.at(img, 141, 104), qRgb(192, 122, 133) & 0xFFFFFF); // middle frame
        QCOMPARE(g.at(img, 145, 108), qRgb(128, 64, 64) & 0xFFFFFF); // inner frame
        QCOMPARE(g.at(img, 146, 109), qRgb(255, 192, 192) & 0xFFFFFF); // board
        QCOMPARE(g.at(img, 662, 499), qRgb(255, 192, 192) & 0xFFFFFF); // board's last pixel
        QCOMPARE(g.at(img, 20, 300), 0u); // black window
    }

    // "Open Image": the real dialog takes a typed path; the picture fills the board, framed in red.
    void openPictureThroughDialog()
    {
        const QString path = g.home.filePath("photo.jpg");
        QVERIFY(picturegen::pattern(QSize(1024, 768), 4).save(path, "JPEG", 95));
        g.open(path);
        const QImage img = m_opened = g.shot("opened");
        QCOMPARE(g.at(img, 140, 103), qRgb(255, 0, 0) & 0xFFFFFF); // the red frame's top-left corner
        QCOMPARE(g.at(img, 140 + 528, 103 + 399), qRgb(255, 0, 0) & 0xFFFFFF); // and its bottom-right one
        // The board shows the picture (its sharp lines decoded at half size, then enlarged).
        const double d
            = difference(img.copy(QRect(g.client + QPoint(146, 109), QSize(516, 390))), QImage(path));
        QVERIFY2(d < 40, qPrintable(QString::number(d))); // a mirror image gives 217
    }

    // "Scramble Tyles", then a press beside the blank slides that tile into it.
    void scrambleAndSlide()
    {
        g.command(192);
        QTest::qWait(500);
        const QPoint board(146, 109);
        QImage img = g.shot("scrambled");
        int blank = -1;
        for (int p = 0; p < 36; ++p)
            if (g.blankTile(img, board, p)) {
                QVERIFY2(blank < 0, "two blank places");
                blank = p;
            }
        QVERIFY(blank >= 0);
        const int neighbour = blank % 6 > 0 ? blank - 1 : blank + 1;
        const QList<QRgb> moving = g.tile(img, board, neighbour);
        g.click(board.x() + (neighbour % 6) * 86 + 43, board.y() + (neighbour / 6) * 65 + 32);
        img = g.shot("slid");
        QVERIFY(g.blankTile(img, board, neighbour));
        QVERIFY(!g.blankTile(img, board, blank));
        QCOMPARE(g.tile(img, board, blank), moving);
    }

    // "Change Game Type" during play asks first; in the drag puzzle pieces are dragged with the mouse.
    void dragPiecesInDragPuzzle()
    {
        g.command(110);
        g.answer("Change Puzzle Type"); // Yes is the default answer
        QTest::qWait(1500);
        g.command(192);
        QTest::qWait(500);
        const QPoint board(146, 69);
        QImage img = g.shot("drag-scrambled");
        const QList<QRgb> first = g.tile(img, board, 0);
        const QList<QRgb> fifth = g.tile(img, board, 5);
        g.drag(board + QPoint(43, 32), board + QPoint(5 * 86 + 43, 32));
        img = g.shot("dragged");
        QCOMPARE(g.tile(img, board, 5), first);
        QCOMPARE(g.tile(img, board, 0), fifth);
        // Onto the first tray box under the board: the place is left empty.
        g.drag(board + QPoint(5 * 86 + 43, 32), QPoint(138 + 43, 503 + 32));
        img = g.shot("parked");
        QVERIFY(g.blankTile(img, board, 5));
        QCOMPARE(g.tile(img, QPoint(138, 503), 0), first);
    }

    // "Save Game" writes the puzzle beside the program; Exit offers to save (Yes saves again) and ends the
    // program; in the next run "Open Saved Game" shows the puzzle as it was, framed.
    void savedPuzzleComesBackAfterRestart()
    {
        g.command(82);
        g.answer("Saved");
        const QImage saved = g.shot("store-saved");
        const QByteArray bytes = bytesOf(g.home.filePath("varno.pzl"));
        QCOMPARE(bytes.size(), 127 + g.home.filePath("photo.jpg").toUtf8().size() + 6 * 36);
        QCOMPARE(bytes.left(13), QByteArray("VARNO01.01D\x06\x00", 13));
        g.command(329);
        g.answer("Save on Exit");
        g.answer("Saved");
        QVERIFY(g.game.waitForFinished(10000));
        QCOMPARE(g.game.exitCode(), 0);
        QVERIFY(g.start());
        g.command(55);
        const QImage loaded = g.shot("store-loaded", 1500);
        for (const QRect &r : { QRect(146, 69, 517, 391), QRect(139, 504, 84, 63) }) // board, first tray box
            QCOMPARE(loaded.copy(r.translated(g.client)), saved.copy(r.translated(g.client)));
        QCOMPARE(g.at(loaded, 140, 63), qRgb(255, 0, 0) & 0xFFFFFF); // the frame stands round the board
    }

    // The keys alone: a piece parked in the tray, then every piece carried home with the arrows, Space and
    // Enter (the tray's piece brought back among them); the last drop frames the whole picture. A screen
    // reader names the holder under the cursor and follows it.
    void keysAloneSolveDragPuzzle()
    {
        const auto home = [&](int p) { return g.tile(m_opened, QPoint(146, 109), p); };
        // Holders 0 .. 35 are the board's places, 36 .. 41 the tray boxes, 89 pixels apart.
        const auto shown = [&](const QImage &img, int h) {
            return h < 36 ? g.tile(img, QPoint(146, 69), h)
                          : g.tile(img, QPoint(138 + 89 * (h - 36), 503), 0);
        };
        const QImage start = g.shot("keys-start");
        QList<int> held(42, -1); // the home of the piece each holder shows, -1 for none
        for (int h = 0; h < 42; ++h)
            for (int p = 0; p < 36; ++p)
                held[h] = shown(start, h) == home(p) ? p : held[h];
        QCOMPARE(held.count(-1), 6);
        int cursor = 0;
        QStringList keys;
        const auto go = [&](int to) {
            for (; cursor % 6 != to % 6; cursor += cursor % 6 < to % 6 ? 1 : -1)
                keys << (cursor % 6 < to % 6 ? "Right" : "Left");
            for (; cursor != to; cursor += cursor < to ? 6 : -6)
                keys << (cursor < to ? "Down" : "Up");
        };
        const auto carry = [&](int from, int to) {
            go(from);
            keys << "space";
            go(to);
            keys << "Return";
            held.swapItemsAt(from, to);
        };
        const auto pressThenGo = [&](int to) {
            go(to);
            for (int i = 0; i < keys.size(); i += 60)
                xdotool(QStringList { "key", "--delay", "20" } + keys.mid(i, 60));
            keys.clear();
        };
        const auto named = [&](int h) {
            return QString("Row %1, column %2: piece %3").arg(h / 6 + 1).arg(h % 6 + 1).arg(held[h] + 1)
                + (held[h] == h ? ", in place" : "");
        };
        carry(held[0] >= 0 ? 0 : 1, 37);
        pressThenGo(20);
        QCOMPARE(shown(g.shot("keys-parked", 300), 37), home(held[37]));
        QTRY_COMPARE_WITH_TIMEOUT(focusedCellName(), named(20), 5000);
        pressThenGo(21);
        QTRY_COMPARE_WITH_TIMEOUT(focusedCellName(), named(21), 5000);
        for (int p = 0; p < 36; ++p)
            if (held[p] != p)
                carry(int(held.indexOf(p)), p);
        pressThenGo(0);
        const QImage solved = g.shot("keys-solved", 2000);
        QCOMPARE(g.at(solved, 140, 63), qRgb(255, 0, 0) & 0xFFFFFF);
        for (int p = 0; p < 36; ++p)
            QCOMPARE(shown(solved, p), home(p));
    }

    // "Image Library", then a double-click on the first thumbnail: its picture in the red frame.
    void libraryDoubleClickPlaysPicture()
    {
        g.command(27);
        g.waitFor("Picture Library");
        g.shot("library");
        g.moveTo(lib + QPoint(85, 70));
        xdotool({ "click", "--repeat", "2", "--delay", "80", "1" });
        QTRY_VERIFY_WITH_TIMEOUT(!windowNamed("Picture Library"), 10000);
        const QImage img = g.shot("library-chosen", 1500);
        QCOMPARE(g.at(img, 140, 63), qRgb(255, 0, 0) & 0xFFFFFF);
        QVERIFY(g.at(img, 300, 200) != (qRgb(255, 192, 192) & 0xFFFFFF));
    }

    // Started with a German LANGUAGE (its own runtime folder, so as not to call the running game), the game
    // speaks German: the library window's caption and access keys, and Qt's own caption of the file dialog.
    void speaksThePlayersLanguage()
    {
        RealGame de;
        QTemporaryDir run;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("LANGUAGE", "de");
        env.insert("XDG_RUNTIME_DIR", run.path());
        QVERIFY(de.start(env));
        QTest::qWait(1000); // until it stands over the first game's window
        de.command(27);
        de.answer("Bildbibliothek", "alt+h"); // "Bild &hinzufügen"
        de.answer("Öffnen", "Escape"); // the file dialog's caption
        QTRY_VERIFY_WITH_TIMEOUT(!windowNamed("Öffnen"), 10000);
        de.shot("german-library");
    }

    // Natively on Wayland the window keeps its size and content wherever the compositor places it: its
    // client area is the X11 start's pixel for pixel, and nothing is printed. Wayland never tells a window it
    // is minimised or restored. "Minimize Game" takes the game off the compositor's screen with its stand-in;
    // a second start brings it back, so does the compositor restoring the stand-in (weston's window
    // switcher, Super+Tab); the stand-in goes, the game stands as it was. The compositor's end ends the game
    // at once and without a save (Qt ends a program whose display has gone with code 1).
    void waylandStartMinimiseAndRestore()
    {
        if (!Weston::missing().isEmpty())
            QSKIP(qPrintable(Weston::missing()));
        Weston w;
        QVERIFY(w.start("x11-backend.so"));
        RealGame game;
        QVERIFY(game.launch(w.env()));
        const auto onlyGame = [&] { return w.windows().keys() == QStringList { "varno" }; };
        const auto client = [&](const QString &name) {
            xdotool({ "mousemove", "0", "0" }); // weston draws the pointer into its screen
            return clientArea(w.shot(name), w.windows().value("varno"));
        };
        const QString keys = xdotool({ "search", "--class", "weston" }).section('\n', 0, 0);
        QTRY_VERIFY_WITH_TIMEOUT(onlyGame(), 10000);
        QImage before;
        QTRY_VERIFY_WITH_TIMEOUT(
            (before = client("start")) == clientArea(m_start, g.client - QPoint(3, 3)), 10000);
        QCOMPARE(game.game.readAllStandardError(), QByteArray());
        for (const QString restore : { "second start", "switcher" }) {
            QProcess requests; // the clients' requests as weston takes them
            requests.setProcessEnvironment(w.env());
            requests.start("weston-debug", { "proto" });
            QVERIFY(requests.waitForStarted());
            const QPoint button = w.windows().value("varno") + QPoint(3 + 224 + 301 + 11, 3 + 12);
            xdotool({ "mousemove", QString::number(button.x()), QString::number(button.y()), "click", "1" });
            QByteArray seen;
            QTRY_VERIFY_WITH_TIMEOUT(
                (seen += requests.readAllStandardOutput()).contains("set_minimized"), 10000);
            QTRY_VERIFY_WITH_TIMEOUT(w.windows().isEmpty(), 10000);
            requests.kill();
            requests.waitForFinished();
            if (restore == "second start") {
                QProcessEnvironment env = w.env();
                env.insert("XDG_ACTIVATION_TOKEN", "varno-test-token"); // as a launcher gives it
                QProcess second;
                second.setProcessEnvironment(env);
                second.start(game.home.filePath("varno"));
                QVERIFY(second.waitForFinished(10000) && second.exitCode() == 0);
            } else {
                xdotool(
                    { "windowfocus", "--sync", keys, "keydown", "super", "key", "Tab", "keyup", "super" });
            }
            QTRY_VERIFY_WITH_TIMEOUT(onlyGame(), 10000);
            QCOMPARE(client(QString(restore).replace(' ', '-')), before);
        }
        w.weston.terminate();
        QVERIFY(game.game.waitForFinished(10000) && game.game.exitStatus() == QProcess::NormalExit);
        QVERIFY(!QFileInfo::exists(game.home.filePath("varno.pzl")));
    }
};
QTEST_MAIN(RealWindowTest)
#include "tst_realwindow.moc"
