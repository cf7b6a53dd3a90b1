// The real program in a real X window under Xvfb, driven as a person would: with the mouse and the
// keyboard through xdotool, looked at through screenshots.
#include "xserver.h"

#include <QApplication>
#include <QImage>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

namespace {
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
        xdotool({"mousemove", QString::number(m_client.x() + x), QString::number(m_client.y() + y)});
        xdotool({"click", "1"});
    }

private slots:
    // The program starts from its own folder; the build's program is copied there.
    void initTestCase()
    {
        QVERIFY(QFile::copy(QStringLiteral(VARNO_EXE), m_home.filePath("varno")));
        QFile::setPermissions(m_home.filePath("varno"), QFile::ExeOwner | QFile::ReadOwner | QFile::WriteOwner);
        m_game.setProgram(m_home.filePath("varno"));
        m_game.start();
        QVERIFY(m_game.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(
            !(m_window = xdotool({"search", "--onlyvisible", "--class", "varno"}).section('\n', 0, 0)).isEmpty(),
            15000);
    }

    // The window: 806 x 606, centred on the 1280 x 1024 screen, with the empty board in its frames.
    void windowShowsEmptyBoard()
    {
        const QString geo = xdotool({"getwindowgeometry", "--shell", m_window});
        QVERIFY2(geo.contains("WIDTH=806") && geo.contains("HEIGHT=606"), qPrintable(geo));
        QVERIFY2(geo.contains("X=237") && geo.contains("Y=209"), qPrintable(geo));
        m_client = QPoint(240, 212);
        const QImage img = shot("start");
        QCOMPARE(at(img, 138, 101), qRgb(128, 64, 64) & 0xFFFFFF);  // outer frame
        QCOMPARE(at(img, 141, 104), qRgb(192, 122, 133) & 0xFFFFFF); // middle frame
        QCOMPARE(at(img, 145, 108), qRgb(128, 64, 64) & 0xFFFFFF);  // inner frame
        QCOMPARE(at(img, 146, 109), qRgb(255, 192, 192) & 0xFFFFFF); // board
        QCOMPARE(at(img, 662, 499), qRgb(255, 192, 192) & 0xFFFFFF); // board's last pixel
        QCOMPARE(at(img, 20, 300), 0u);                             // black window
        QVERIFY(QFileInfo(m_home.filePath("lib")).isDir());
    }

    // The exit button ends the program.
    void exitButtonEndsProgram()
    {
        click(224 + 329 + 11, 12);
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
