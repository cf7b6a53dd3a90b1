// The real program in a real X window under Xvfb, driven as a person would: with the mouse and the
// keyboard through xdotool, looked at through screenshots.
#include "picturegen.h"
#include "xserver.h"

#include <QApplication>
#include <QImage>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

namespace
{
QString xdotool(const QStringList &args)
{
    QProcess p;
    p.start(QStringLiteral("xdotool"), args);
    p.waitForFinished(10000);
    return QString::fromLocal8Bit(p.readAllStandardOutput()).trimmed();
}
} // namespace

class RealWindowTest : public QObject
{
    Q_OBJECT
    QTemporaryDir m_home;
    QProcess m_game;
    QString m_window;
    QPoint m_client; // screen position of the client area's top-left pixel

    QImage shot(const QString &name)
    {
        QTest::qWait(150);
        const QImage img = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
        img.save(QStringLiteral(SHOT_DIR "/realwindow-%1.png").arg(name));
        return img;
    }
    QRgb at(const QImage &img, int x, int y) const
    {
        return img.pixel(m_client.x() + x, m_client.y() + y) & 0xFFFFFF;
    }
    void click(int x, int y)
    {
        xdotool({ "mousemove", QString::number(m_client.x() + x), QString::number(m_client.y() + y) });
        xdotool({ "click", "1" });
    }
    // A command button's centre: the command bar's left is 224; buttons stand at their design lefts.
    void command(int left)
    {
        click(224 + left + 11, 12);
    }
    // The pixels of one tile (a sparse sample), to follow where a tile's image went.
    QList<QRgb> tile(const QImage &img, QPoint board, QSize t, int place, int n)
    {
        QList<QRgb> px;
        const QPoint o = board + QPoint((place % n) * t.width(), (place / n) * t.height());
        for (int y = 3; y < t.height() - 2; y += 7)
            for (int x = 3; x < t.width() - 2; x += 7)
                px << at(img, o.x() + x, o.y() + y);
        return px;
    }
    bool blankTile(const QImage &img, QPoint board, QSize t, int place, int n)
    {
        const QList<QRgb> px = tile(img, board, t, place, n);
        return std::all_of(
            px.begin(), px.end(), [](QRgb c) { return c == (qRgb(255, 192, 192) & 0xFFFFFF); });
    }
    void drag(QPoint from, QPoint to)
    {
        xdotool({ "mousemove", QString::number(m_client.x() + from.x()),
            QString::number(m_client.y() + from.y()) });
        xdotool({ "mousedown", "1" });
        for (int i = 1; i <= 8; ++i) {
            const QPoint p = from + (to - from) * i / 8;
            xdotool({ "mousemove", QString::number(m_client.x() + p.x()),
                QString::number(m_client.y() + p.y()) });
        }
        xdotool({ "mouseup", "1" });
        QTest::qWait(200);
    }

private slots:
    // The program starts from its own folder; the build's program is copied there.
    void initTestCase()
    {
        QVERIFY(QFile::copy(QStringLiteral(VARNO_EXE), m_home.filePath("varno")));
        QFile::setPermissions(
            m_home.filePath("varno"), QFile::ExeOwner | QFile::ReadOwner | QFile::WriteOwner);
        m_game.setProgram(m_home.filePath("varno"));
        m_game.start();
        QVERIFY(m_game.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(
            !(m_window = xdotool({ "search", "--onlyvisible", "--class", "varno" }).section('\n', 0, 0))
                 .isEmpty(),
            15000);
    }

    // The window: 806 x 606, centred on the 1280 x 1024 screen, with the empty board in its frames.
    void windowShowsEmptyBoard()
    {
        const QString geo = xdotool({ "getwindowgeometry", "--shell", m_window });
        QVERIFY2(geo.contains("WIDTH=806") && geo.contains("HEIGHT=606"), qPrintable(geo));
        QVERIFY2(geo.contains("X=237") && geo.contains("Y=209"), qPrintable(geo));
        m_client = QPoint(240, 212);
        const QImage img = shot("start");
        QCOMPARE(at(img, 138, 101), qRgb(128, 64, 64) & 0xFFFFFF); // outer frame
        QCOMPARE(at(img, 141, 104), qRgb(192, 122, 133) & 0xFFFFFF); // middle frame
        QCOMPARE(at(img, 145, 108), qRgb(128, 64, 64) & 0xFFFFFF); // inner frame
        QCOMPARE(at(img, 146, 109), qRgb(255, 192, 192) & 0xFFFFFF); // board
        QCOMPARE(at(img, 662, 499), qRgb(255, 192, 192) & 0xFFFFFF); // board's last pixel
        QCOMPARE(at(img, 20, 300), 0u); // black window
        QVERIFY(QFileInfo(m_home.filePath("lib")).isDir());
    }

    // "Open Image": the real dialog takes a typed path; the picture fills the board, framed in red.
    void openPictureThroughDialog()
    {
        const QString path = m_home.filePath("photo.jpg");
        QVERIFY(picturegen::pattern(QSize(1024, 768), 4).save(path, "JPEG", 95));
        command(0);
        QTRY_VERIFY_WITH_TIMEOUT(
            !xdotool({ "search", "--onlyvisible", "--name", "Open|Graphic|Files" }).isEmpty(), 10000);
        QTest::qWait(300);
        xdotool({ "type", "--delay", "10", path });
        xdotool({ "key", "Return" });
        QTest::qWait(1500); // the picture loads and the frame grows for about half a second
        const QImage img = shot("opened");
        QCOMPARE(at(img, 140, 103), qRgb(255, 0, 0) & 0xFFFFFF); // the red frame's top-left corner
        QCOMPARE(at(img, 140 + 528, 103 + 399), qRgb(255, 0, 0) & 0xFFFFFF); // and its bottom-right one
        // The board shows the picture, not its empty background.
        QImage expected = QImage(path).scaled(517, 391, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        int close = 0;
        for (int y = 20; y < 380; y += 40)
            for (int x = 20; x < 500; x += 40) {
                const QRgb a = at(img, 146 + x, 109 + y), b = expected.pixel(x, y);
                close += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b))
                        + std::abs(qBlue(a) - qBlue(b))
                    < 40;
            }
        QVERIFY2(close > 100, qPrintable(QString::number(close)));
    }

    // "Scramble Tyles", then a press beside the blank slides that tile into it.
    void scrambleAndSlide()
    {
        command(192);
        QTest::qWait(500);
        const QPoint board(146, 109);
        const QSize t(86, 65);
        QImage img = shot("scrambled");
        int blank = -1;
        for (int p = 0; p < 36; ++p)
            if (blankTile(img, board, t, p, 6)) {
                QVERIFY2(blank < 0, "two blank places");
                blank = p;
            }
        QVERIFY(blank >= 0);
        const int neighbour = blank % 6 > 0 ? blank - 1 : blank + 1;
        const QList<QRgb> moving = tile(img, board, t, neighbour, 6);
        click(board.x() + (neighbour % 6) * 86 + 43, board.y() + (neighbour / 6) * 65 + 32);
        img = shot("slid");
        QVERIFY(blankTile(img, board, t, neighbour, 6));
        QVERIFY(!blankTile(img, board, t, blank, 6));
        QCOMPARE(tile(img, board, t, blank, 6), moving);
    }

    // "Change Game Type" during play asks first; in the drag puzzle pieces are dragged with the mouse.
    void dragPiecesInDragPuzzle()
    {
        command(110);
        QTRY_VERIFY_WITH_TIMEOUT(
            !xdotool({ "search", "--onlyvisible", "--name", "Change Puzzle Type" }).isEmpty(), 10000);
        QTest::qWait(300);
        xdotool({ "key", "Return" }); // Yes is the default answer
        QTest::qWait(1500);
        command(192);
        QTest::qWait(500);
        const QPoint board(146, 69);
        const QSize t(86, 65);
        QImage img = shot("drag-scrambled");
        const QList<QRgb> first = tile(img, board, t, 0, 6);
        const QList<QRgb> fifth = tile(img, board, t, 5, 6);
        drag(board + QPoint(43, 32), board + QPoint(5 * 86 + 43, 32));
        img = shot("dragged");
        QCOMPARE(tile(img, board, t, 5, 6), first);
        QCOMPARE(tile(img, board, t, 0, 6), fifth);
        // Onto the first tray box under the board: the place is left empty.
        drag(board + QPoint(5 * 86 + 43, 32), QPoint(138 + 43, 503 + 32));
        img = shot("parked");
        QVERIFY(blankTile(img, board, t, 5, 6));
        QCOMPARE(tile(img, QPoint(138, 503), t, 0, 6), first);
    }

    // The exit button ends the program.
    void exitButtonEndsProgram()
    {
        command(329);
        QVERIFY(m_game.waitForFinished(10000));
        QCOMPARE(m_game.exitCode(), 0);
    }

    void cleanupTestCase()
    {
        if (m_game.state() != QProcess::NotRunning) {
            m_game.kill();
            m_game.waitForFinished();
        }
    }
};
int main(int argc, char **argv)
{
    XServer x;
    if (!x.start()) {
        qCritical("cannot start Xvfb");
        return 1;
    }
    qputenv("DISPLAY", x.display().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication app(argc, argv);
    RealWindowTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_realwindow.moc"
