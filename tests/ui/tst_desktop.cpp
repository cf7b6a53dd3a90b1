// The game on a desktop: the arrow keys, pictures dropped from the file manager, what a screen reader
// is told, the dialogs' access keys, and the files of an installed copy.
#include "app/programfolder.h"
#include "game.h"
#include "platform/facebutton.h"
#include "platform/qtservices.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QDialog>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QTimer>

class DesktopTest : public QObject
{
    Q_OBJECT
private slots:
    // An arrow presses the tile on that side of the blank, from any focused button too: it slides until the
    // edge, then nothing moves; in the drag-and-drop puzzle or with the hint armed no tile moves.
    void arrowsPressTheTileBesideTheBlank_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("hint");
        QTest::addColumn<int>("key");
        QTest::newRow("left") << "S" << false << int(Qt::Key_Left);
        QTest::newRow("right") << "S" << false << int(Qt::Key_Right);
        QTest::newRow("up") << "S" << false << int(Qt::Key_Up);
        QTest::newRow("down") << "S" << false << int(Qt::Key_Down);
        QTest::newRow("hint armed") << "S" << true << int(Qt::Key_Left);
        QTest::newRow("drag and drop") << "D" << false << int(Qt::Key_Up);
    }
    void arrowsPressTheTileBesideTheBlank()
    {
        QFETCH(QString, type);
        QFETCH(bool, hint);
        QFETCH(int, key);
        Game g;
        QVERIFY(g.play(type, 4, 3));
        const int dc = key == Qt::Key_Left ? -1 : key == Qt::Key_Right ? 1 : 0;
        const int dr = key == Qt::Key_Up ? -1 : key == Qt::Key_Down ? 1 : 0;
        for (int i = 0; i < 4; ++i) {
            const auto before = g.s().Board;
            const int blank = g.s().BlankPos, col = blank % 4 + dc, row = blank / 4 + dr;
            const bool moves = type == "S" && !hint && col >= 0 && col < 4 && row >= 0 && row < 4;
            if (hint && !g.s().HintMode)
                g.w.cb_help_Click();
            QTest::keyClick(g.w.cb_scramble, Qt::Key(key));
            QCOMPARE(g.s().BlankPos, moves ? row * 4 + col : blank);
            QCOMPARE(g.s().Board[blank].Home != before[blank].Home, moves);
            QVERIFY(!moves || placeShowsRecord(g.w, blank));
        }
    }

    // A dropped file takes the road of "Open Image": the same refusals and messages, and the same guard.
    void droppedFileOpensAsOpenImage_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("hint");
        QTest::addColumn<QString>("title");
        QTest::newRow("picture") << "drop.bmp" << false << "";
        QTest::newRow("library picture") << "lib/VX_drop.bmp" << false << "Open";
        QTest::newRow("upper-case extension") << "drop.BMP" << false << "Open - ERROR";
        QTest::newRow("hint armed") << "drop.bmp" << true << "";
    }
    void droppedFileOpensAsOpenImage()
    {
        QFETCH(QString, name);
        QFETCH(bool, hint);
        QFETCH(QString, title);
        Game g;
        QVERIFY(g.play("S", 3));
        const QString before = g.s().PicFile, path = g.picture(name, QImage(80, 60, QImage::Format_RGB32));
        if (hint)
            g.w.cb_help_Click();
        QMimeData mime;
        mime.setUrls({ QUrl::fromLocalFile(path) });
        QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QDropEvent drop(QPointF(300, 300), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&g.w, &enter);
        QCoreApplication::sendEvent(&g.w, &drop);
        QCOMPARE(g.tp.messages.asked.isEmpty() ? QString() : g.tp.messages.asked.constFirst().title, title);
        const bool opened = title.isEmpty() && !hint;
        QCOMPARE(g.s().PicFile, opened ? path : before);
        QCOMPARE(g.s().InPlay, !opened);
    }

    // A screen reader names every face by its tooltip and reads a message box's title and text.
    void screenReaderSeesFacesAndMessages()
    {
        Game g;
        for (FaceButton *b : g.w.fr_cmd->findChildren<FaceButton *>()) {
            QAccessibleInterface *a = QAccessible::queryAccessibleInterface(b);
            QVERIFY(!b->toolTip().isEmpty() && a->text(QAccessible::Name) == b->toolTip());
        }
        QString heard;
        QTimer::singleShot(0, [&] {
            QWidget *box = QApplication::activeModalWidget();
            QAccessibleInterface *a = QAccessible::queryAccessibleInterface(box);
            heard = a->text(QAccessible::Name) + '|' + a->text(QAccessible::Description);
            box->close();
        });
        QtMessageBoxes(&g.w).show("Picture Too Large", "Open - ERROR", MsgStyle::Critical);
        QCOMPARE(heard, QStringLiteral("Open - ERROR|Picture Too Large"));
    }

    // The dialogs answer their access keys (a click shown briefly first): Alt+R resizes, Alt+C leaves the
    // library, Alt+A adds a picture.
    void accessKeysWork()
    {
        Game g;
        const auto press = [](QDialog &d, char key) {
            d.show();
            d.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&d));
            QTest::keyClick(&d, key, Qt::AltModifier);
        };
        g.tp.modals.script = [&](QDialog &d) {
            d.findChildren<QAbstractButton *>().at(2)->click();
            press(d, 'r');
            QTRY_VERIFY(d.isHidden());
        };
        g.w.cb_resize_Click();
        QCOMPARE(g.s().GridN, Integer(4));
        g.tp.modals.script = [&](QDialog &d) {
            press(d, 'a');
            QTRY_COMPARE(g.tp.files.filters.size(), 1);
            press(d, 'c');
            QTRY_VERIFY(d.isHidden());
        };
        g.w.cb_lib_Click();
    }

    // An installed copy keeps its files in the per-user folder, whose new library gets the starter
    // pictures once: a picture the player deleted stays deleted.
    void installedCopySeedsTheUserLibrary()
    {
        QTemporaryDir root;
        QVERIFY(
            QDir().mkpath(root.filePath("usr/bin")) && QDir().mkpath(root.filePath("usr/share/varno/lib")));
        QVERIFY(QImage(8, 8, QImage::Format_RGB32).save(root.filePath("usr/share/varno/lib/VX_a.bmp")));
        const QString user = root.filePath("home/data"), exe = root.filePath("usr/bin");
        QCOMPARE(chooseProgramFolder(exe, user), user);
        seedLibrary(user, starterFolder(exe));
        QVERIFY(QFile::remove(user + "/lib/VX_a.bmp"));
        seedLibrary(user, starterFolder(exe));
        QVERIFY(QDir(user + "/lib").isEmpty());
    }
};

QTEST_MAIN(DesktopTest)
#include "tst_desktop.moc"
