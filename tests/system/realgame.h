// The real program in a real X window, driven as a person would: the mouse and the keyboard through
// xdotool, the screen read back through screenshots. Shared by the real-window tests, each of which runs
// under its own Xvfb.
#pragma once

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

inline QString xdotool(const QStringList &args)
{
    QProcess p;
    p.start(QStringLiteral("xdotool"), args);
    p.waitForFinished(10000);
    return QString::fromLocal8Bit(p.readAllStandardOutput()).trimmed();
}

// True once a visible window whose name matches the pattern is mapped.
inline bool windowNamed(const QString &pattern)
{
    return !xdotool({ "search", "--onlyvisible", "--name", pattern }).isEmpty();
}

class RealGame
{
public:
    // The game's own folder: the program file is copied there, so the puzzle file and lib/ live there.
    QTemporaryDir home;
    QProcess game;
    QString window;
    // Screen position of the client area's top-left pixel: the centred 806 x 606 window on 1280 x 1024,
    // inside its 3-pixel frame.
    QPoint client { 240, 212 };

    // Starts the game in this environment; start() waits for its window on the X server too.
    bool launch(const QProcessEnvironment &env = QProcessEnvironment::systemEnvironment())
    {
        const QString exe = home.filePath(QStringLiteral("varno"));
        if (!QFileInfo::exists(exe)) {
            // `make soak` plays the sanitized program, named by VARNO_GAME.
            QFile::copy(qEnvironmentVariable("VARNO_GAME", QStringLiteral(VARNO_EXE)), exe);
            QFile::setPermissions(exe, QFile::ExeOwner | QFile::ReadOwner | QFile::WriteOwner);
        }
        game.setProgram(exe);
        game.setProcessEnvironment(env);
        game.start();
        return game.waitForStarted();
    }
    bool start(const QProcessEnvironment &env = QProcessEnvironment::systemEnvironment())
    {
        if (!launch(env))
            return false;
        for (int i = 0; i < 150; ++i) {
            window = xdotool(
                { "search", "--onlyvisible", "--pid", QString::number(game.processId()), "--class", "varno" })
                         .section('\n', 0, 0);
            if (!window.isEmpty())
                return true;
            QTest::qWait(100);
        }
        return false;
    }
    ~RealGame()
    {
        game.kill();
        game.waitForFinished();
    }
    // Waits until a window with this name (a message box, a dialog) is mapped and ready for keys.
    static void waitFor(const QString &name)
    {
        QTRY_VERIFY_WITH_TIMEOUT(windowNamed(name), 10000);
        QTest::qWait(300);
    }
    static void answer(const QString &name, const QString &key = QStringLiteral("Return"))
    {
        waitFor(name);
        xdotool({ QStringLiteral("key"), key });
    }
    // "Open Image" through the real dialog, the path typed; the picture loads and its frame grows.
    void open(const QString &path)
    {
        command(0);
        waitFor(QStringLiteral("Open|Graphic|Files"));
        xdotool({ "type", "--delay", "10", path });
        xdotool({ "key", "Return" });
        QTest::qWait(1500);
    }

    // The whole screen after the window has settled; saved as build/tests/realwindow-NAME.png.
    QImage shot(const QString &name, int settleMs = 150)
    {
        QTest::qWait(settleMs);
        const QImage img = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
        if (!name.isEmpty())
            img.save(QStringLiteral(SHOT_DIR "/realwindow-%1.png").arg(name));
        return img;
    }
    // A pixel of the client area, as the screen shows it.
    QRgb at(const QImage &img, int x, int y) const
    {
        return img.pixel(client.x() + x, client.y() + y) & 0xFFFFFF;
    }
    void moveTo(QPoint p)
    {
        xdotool({ "mousemove", QString::number(client.x() + p.x()), QString::number(client.y() + p.y()) });
    }
    void click(int x, int y)
    {
        moveTo({ x, y });
        xdotool({ "click", "1" });
    }
    // A command button's centre: the command bar's left is 224; buttons stand at their design lefts.
    void command(int left)
    {
        click(224 + left + 11, 12);
    }
    // The pixels of one tile of a 6 x 6 board of 86 x 65 tiles at board (a sparse sample), to follow
    // where a tile's image went.
    QList<QRgb> tile(const QImage &img, QPoint board, int place) const
    {
        QList<QRgb> px;
        const QPoint o = board + QPoint(place % 6 * 86, place / 6 * 65);
        for (int y = 3; y < 63; y += 7)
            for (int x = 3; x < 84; x += 7)
                px << at(img, o.x() + x, o.y() + y);
        return px;
    }
    bool blankTile(const QImage &img, QPoint board, int place) const
    {
        const QList<QRgb> px = tile(img, board, place);
        return std::all_of(
            px.begin(), px.end(), [](QRgb c) { return c == (qRgb(255, 192, 192) & 0xFFFFFF); });
    }
    void drag(QPoint from, QPoint to)
    {
        moveTo(from);
        xdotool({ "mousedown", "1" });
        for (int i = 1; i <= 8; ++i)
            moveTo(from + (to - from) * i / 8);
        xdotool({ "mouseup", "1" });
        QTest::qWait(200);
    }
};
