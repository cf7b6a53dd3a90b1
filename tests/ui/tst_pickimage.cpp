// Choosing a picture: the open dialog asked again after each refusal, and the "Open Image" command.
#include "app/vxmain.h"
#include "doubles.h"
#include "picturegen.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"

#include <QImageWriter>
#include <QTemporaryDir>
#include <QTest>

namespace
{
const QString Cancel = QStringLiteral("<cancel>");
const QString LibraryText = QStringLiteral("This Picture is Already in the Library");
const QString ExtensionText = QStringLiteral("File Extension Must Be jpg, gif, or bmp");

bool barsShown(const vxmain &w)
{
    return w.vxfr_t->isVisible() && w.vxfr_r->isVisible() && w.vxfr_b->isVisible() && w.vxfr_l->isVisible();
}
} // namespace

struct Game {
    QTemporaryDir dir;
    TestPlatform tp;
    vxmain w { tp.platform(), dir.path() };
    Game()
    {
        w.show();
    }
    // "lib/name" lies in the library folder, Cancel cancels, anything else lies beside the program.
    void script(const QStringList &choices)
    {
        for (const QString &c : choices) {
            if (c == Cancel)
                tp.files.cancel();
            else if (c.startsWith(QLatin1String("lib/")))
                tp.files.choose(w.state().LibPath + c.mid(3));
            else
                tp.files.choose(dir.filePath(c));
        }
    }
    QString picture(const QString &name, QSize size, quint32 seed)
    {
        const QString path = dir.filePath(name);
        if (!QImageWriter(path).write(picturegen::scene(size, seed)))
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }
    // A picture on the board, scrambled and in play.
    void play(const QString &path)
    {
        tp.files.choose(path);
        w.cb_new_Click();
        w.setRandomSeed(1);
        w.cb_scramble_Click();
        if (!w.state().InPlay)
            qFatal("no puzzle in play");
        tp.messages.asked.clear();
        tp.files.filters.clear();
    }
};

class PickImageTest : public QObject
{
    Q_OBJECT

private slots:
    // Files in the library are refused first, then names not ending exactly in .jpg, .gif or .bmp; the
    // dialog comes back after each refusal until a file is accepted or the player cancels.
    void dialogAsksUntilAcceptedOrCancelled_data()
    {
        QTest::addColumn<QStringList>("choices");
        QTest::addColumn<QStringList>("refusals"); // "lib" or "ext", in order
        QTest::addColumn<QString>("accepted"); // empty: cancelled
        using L = QStringList;
        QTest::newRow("jpg at once") << L { "a.jpg" } << L {} << "a.jpg";
        QTest::newRow("gif at once") << L { "a.gif" } << L {} << "a.gif";
        QTest::newRow("bmp at once") << L { "a.bmp" } << L {} << "a.bmp";
        QTest::newRow("upper-case JPG") << L { "a.JPG", "a.jpg" } << L { "ext" } << "a.jpg";
        QTest::newRow("jpeg") << L { "a.jpeg", "b.gif" } << L { "ext" } << "b.gif";
        QTest::newRow("mixed-case Bmp") << L { "a.Bmp", "a.bmp" } << L { "ext" } << "a.bmp";
        QTest::newRow("library picture") << L { "lib/VX_a.jpg", "b.bmp" } << L { "lib" } << "b.bmp";
        QTest::newRow("library before extension") << L { "lib/notes.txt", "b.jpg" } << L { "lib" } << "b.jpg";
        QTest::newRow("several refusals")
            << L { "a.png", "lib/x.gif", "a.JPG", "c.gif" } << L { "ext", "lib", "ext" } << "c.gif";
        QTest::newRow("cancel at once") << L { Cancel } << L {} << "";
        QTest::newRow("cancel after refusal") << L { "a.jpeg", Cancel } << L { "ext" } << "";
        QTest::newRow("cancel after library") << L { "lib/VX_a.jpg", Cancel } << L { "lib" } << "";
    }
    void dialogAsksUntilAcceptedOrCancelled()
    {
        QFETCH(QStringList, choices);
        QFETCH(QStringList, refusals);
        QFETCH(QString, accepted);
        Game g;
        PuzzleState &s = g.w.state();
        s.OpenFile = QStringLiteral("earlier");
        s.OpenTitle = QStringLiteral("earlier.jpg");
        g.script(choices);
        g.w.PickImageFile();

        QCOMPARE(g.tp.files.filters.size(), refusals.size() + 1);
        for (const QString &f : g.tp.files.filters)
            QCOMPARE(f, QStringLiteral("Graphic Files(*.jpg;*.gif;*.bmp)|*.jpg;*.gif;*.bmp"));
        QCOMPARE(g.tp.files.lastFlags, 7172);
        QCOMPARE(g.tp.messages.asked.size(), refusals.size());
        for (int i = 0; i < refusals.size(); ++i) {
            const AskedBox &box = g.tp.messages.asked[i];
            if (refusals[i] == QLatin1String("lib")) {
                QCOMPARE(box.text, LibraryText);
                QCOMPARE(box.title, QStringLiteral("Open"));
                QCOMPARE(box.style, 64);
            } else {
                QCOMPARE(box.text, ExtensionText);
                QCOMPARE(box.title, QStringLiteral("Open - ERROR"));
                QCOMPARE(box.style, 0);
            }
        }
        if (accepted.isEmpty()) {
            QCOMPARE(s.OpenFile, QString());
            QCOMPARE(s.OpenTitle, QStringLiteral("earlier.jpg"));
        } else {
            QCOMPARE(s.OpenFile, g.dir.filePath(accepted));
            QCOMPARE(s.OpenTitle, accepted);
        }
    }

    // With the hint armed, "Open Image" shows no dialog and changes nothing.
    void openImageIgnoredWhileHintArmed()
    {
        Game g;
        g.w.state().HintMode = true;
        g.tp.files.choose(g.picture("a.jpg", { 400, 300 }, 1));
        const QImage board = g.w.vxrz->image();
        g.w.cb_new_Click();
        QVERIFY(g.tp.files.filters.isEmpty());
        QVERIFY(g.w.state().PicFile.isEmpty());
        QCOMPARE(g.w.vxrz->image(), board);
    }

    // Cancelling, at once or after a refusal, leaves the puzzle in play and the board as they were.
    void cancelKeepsPuzzle_data()
    {
        QTest::addColumn<QStringList>("choices");
        QTest::newRow("at once") << QStringList { Cancel };
        QTest::newRow("after refusal") << QStringList { "b.JPG", Cancel };
    }
    void cancelKeepsPuzzle()
    {
        QFETCH(QStringList, choices);
        Game g;
        const QString first = g.picture("a.jpg", { 800, 600 }, 1);
        g.play(first);
        const QImage board = g.w.vxrz->image();
        const PuzzleState before = g.w.state();
        g.script(choices);
        g.w.cb_new_Click();
        const PuzzleState &s = g.w.state();
        QCOMPARE(s.OpenFile, QString());
        QCOMPARE(s.OpenTitle, before.OpenTitle);
        QCOMPARE(s.PicFile, first);
        QVERIFY(s.InPlay);
        QVERIFY(s.Board == before.Board);
        QCOMPARE(g.w.vxrz->image(), board);
        QCOMPARE(g.tp.messages.asked.size(), choices.size() - 1);
    }

    // Accepting a picture during play drops the puzzle and shows the new picture whole, framed.
    void acceptedPictureReplacesPuzzle()
    {
        Game g;
        g.play(g.picture("a.jpg", { 800, 600 }, 1));
        const QString next = g.picture("b.bmp", { 600, 800 }, 2);
        g.tp.files.choose(next);
        g.w.cb_new_Click();
        const PuzzleState &s = g.w.state();
        QVERIFY(!s.InPlay);
        QCOMPARE(s.PicFile, next);
        QCOMPARE(s.OpenTitle, QStringLiteral("b.bmp"));
        QCOMPARE(g.w.vxrz->size(), QSize(289, 391));
        QCOMPARE(g.w.vxrz->image(), g.w.vxrz_s->image());
        QVERIFY(barsShown(g.w));
        QVERIFY(g.tp.messages.asked.isEmpty());
    }

    // An accepted file that turns out not to be a picture is reported and the puzzle goes on.
    void unreadablePictureKeepsPuzzle()
    {
        Game g;
        const QString first = g.picture("a.jpg", { 800, 600 }, 1);
        g.play(first);
        const QImage board = g.w.vxrz->image();
        const PuzzleState before = g.w.state();
        QFile broken(g.dir.filePath("broken.gif"));
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("not a picture") > 0);
        broken.close();
        g.tp.files.choose(broken.fileName());
        g.w.cb_new_Click();
        const PuzzleState &s = g.w.state();
        QCOMPARE(g.tp.messages.asked.size(), 1);
        QCOMPARE(g.tp.messages.asked.first().title, QStringLiteral("Open - ERROR"));
        QCOMPARE(s.PicFile, first);
        QVERIFY(s.InPlay);
        QVERIFY(s.Board == before.Board);
        QCOMPARE(g.w.vxrz->image(), board);
        QVERIFY(!g.w.vxfr_t->isVisible());
    }
};

QTEST_MAIN(PickImageTest)
#include "tst_pickimage.moc"
