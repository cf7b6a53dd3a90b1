// Start-up: the state it leaves, the two paths beside the program and the library folder.
#include "app/programfolder.h"
#include "app/vxmain.h"
#include "doubles.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class StartupTest : public QObject
{
    Q_OBJECT
    TestPlatform m_tp;

private slots:
    // Right after start-up: the defaults, nothing loaded, the hidden surfaces hidden.
    void stateAfterStartup()
    {
        QTemporaryDir dir;
        vxmain w(m_tp.platform(), dir.path());
        w.show();
        const PuzzleState &s = w.state();
        QCOMPARE(s.GridN, Integer(6));
        QCOMPARE(s.TileTotal, Integer(36));
        QCOMPARE(s.PuzType, QStringLiteral("S"));
        QCOMPARE(s.GridColor, Long(0xFFFFFF));
        QVERIFY(!s.InPlay && !s.HintMode);
        QCOMPARE(s.DragIdx, Integer(-1));
        QCOMPARE(s.MinState, Integer(-1));
        QVERIFY(s.PicFile.isEmpty());
        QCOMPARE(s.PzlFile, dir.path() + "/varno.pzl");
        QCOMPARE(s.LibPath, dir.path() + "/lib");
        for (QWidget *hidden : std::initializer_list<QWidget *> {
                 w.vxrz_s, w.vxblank, w.vxdrag, w.hlpdoc, w.lblmsg, w.vxfr_t, w.vxfr_b, w.vxfr_l, w.vxfr_r })
            QVERIFY(!hidden->isVisible());
        for (QWidget *shown :
            std::initializer_list<QWidget *> { w.vxrz, w.fr_cmd, w.lbllogo, w.imglogo, w.vxframe_main })
            QVERIFY(shown->isVisible());
        // The empty board is its plain background.
        QCOMPARE(w.vxrz->image().pixel(200, 200), qRgb(255, 192, 192));
        // The help document carries its closing line, one line down.
        const QImage &doc = w.hlpdoc->image();
        bool inked = false;
        const int lineH = QFontMetrics(w.hlpdoc->font()).height();
        for (int y = lineH; y < 2 * lineH && !inked; ++y)
            for (int x = 0; x < 100 && !inked; ++x)
                inked = doc.pixel(x, y) != qRgb(255, 255, 255);
        QVERIFY(inked);
        // An activation while the game is in normal use changes nothing.
        const QRect board = w.vxrz->geometry();
        w.Form_Activate();
        QCOMPARE(w.state().MinState, Integer(-1));
        QCOMPARE(w.vxrz->geometry(), board);
    }

    // A missing library folder is created; a present one is left as it is.
    void libraryFolderCreatedOrKept()
    {
        QTemporaryDir dir;
        {
            vxmain w(m_tp.platform(), dir.path());
            QVERIFY(QFileInfo(dir.path() + "/lib").isDir());
        }
        QFile keep(dir.path() + "/lib/keep.jpg");
        QVERIFY(keep.open(QIODevice::WriteOnly));
        keep.write("x");
        keep.close();
        vxmain again(m_tp.platform(), dir.path());
        QVERIFY(QFile::exists(dir.path() + "/lib/keep.jpg"));
    }

    // A library that cannot be created does not stop the game.
    void libraryThatCannotBeCreated()
    {
        QTemporaryDir dir;
        // A plain file named "lib" stands where the folder would go.
        QFile blocker(dir.path() + "/lib");
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        vxmain w(m_tp.platform(), dir.path());
        QVERIFY(QFileInfo(dir.path() + "/lib").isFile());
        // A folder nobody can write, not even root.
        vxmain w2(m_tp.platform(), QStringLiteral("/proc"));
        QVERIFY(!QFileInfo::exists(QStringLiteral("/proc/lib")));
        QCOMPARE(w2.state().GridN, Integer(6));
    }

    // The game's files live beside the program unless that folder cannot be written.
    void programFolderFallsBackToUserFolder()
    {
        QTemporaryDir exe;
        QTemporaryDir user;
        QCOMPARE(chooseProgramFolder(exe.path(), user.path() + "/data"), exe.path());
        QVERIFY(!folderIsWritable(QStringLiteral("/proc")));
        QCOMPARE(chooseProgramFolder(QStringLiteral("/proc"), user.path() + "/data"), user.path() + "/data");
        QVERIFY(QFileInfo(user.path() + "/data").isDir());
    }
};

QTEST_MAIN(StartupTest)
#include "tst_startup.moc"
