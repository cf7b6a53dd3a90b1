// The saved puzzle in the real program: saved through its button, checked from outside, and loaded again
// after the program was ended with Exit and started anew.
#include "picturegen.h"
#include "realgame.h"

class RealStoreTest : public QObject
{
    Q_OBJECT
    RealGame g;

    // Answers the message box with this title by its default button.
    static void answer(const QString &title)
    {
        QTRY_VERIFY_WITH_TIMEOUT(windowNamed(title), 10000);
        QTest::qWait(300);
        xdotool({ "key", "Return" });
    }

private slots:
    void savedPuzzleComesBackAfterRestart()
    {
        QVERIFY(g.start());
        const QString path = g.home.filePath("photo.jpg");
        QVERIFY(picturegen::pattern(QSize(1024, 768), 4).save(path, "JPEG", 95));
        g.command(0);
        QTRY_VERIFY_WITH_TIMEOUT(windowNamed("Open|Graphic|Files"), 10000);
        QTest::qWait(300);
        xdotool({ "type", "--delay", "10", path });
        xdotool({ "key", "Return" });
        QTest::qWait(1500);
        g.command(192); // scramble
        QTest::qWait(500);
        g.command(82); // save
        answer("Saved");
        const QImage saved = g.shot("store-saved");
        QFile file(g.home.filePath("varno.pzl"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        QCOMPARE(bytes.size(), 127 + path.toUtf8().size() + 6 * 36);
        QCOMPARE(bytes.left(13), QByteArray("VARNO01.01S\x06\x00", 13));

        g.command(329); // exit: Yes saves once more, then the program ends
        answer("Save on Exit");
        answer("Saved");
        QVERIFY(g.game.waitForFinished(10000));
        QVERIFY(g.start());
        g.command(55); // load
        const QImage loaded = g.shot("store-loaded", 1500);
        const QRect area(g.client + QPoint(146, 109), QSize(517, 391)); // the board
        QCOMPARE(loaded.copy(area), saved.copy(area));
        QCOMPARE(g.at(loaded, 140, 103), qRgb(255, 0, 0) & 0xFFFFFF); // the frame stands round the board
    }
};
REALWINDOW_MAIN(RealStoreTest)
#include "tst_realstore.moc"
