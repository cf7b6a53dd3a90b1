// Choosing a picture: the open dialog asked again after each refusal, and the "Open Image" command.
#include "game.h"
#include "platform/shapes.h"

#include <QTest>

namespace
{
const QString Cancel = QStringLiteral("<cancel>");

// Plays the choices on the open dialog: "lib/name" lies in the library folder, Cancel cancels, any other
// name lies beside the program.
void script(Game &g, const QStringList &choices)
{
    for (const QString &c : choices) {
        if (c == Cancel)
            g.tp.files.cancel();
        else
            g.tp.files.choose(c.startsWith("lib/") ? g.s().LibPath + c.mid(3) : g.dir.filePath(c));
    }
}

int visibleBars(const vxmain &w)
{
    return w.vxfr_t->isVisible() + w.vxfr_r->isVisible() + w.vxfr_b->isVisible() + w.vxfr_l->isVisible();
}
} // namespace

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
        QTest::newRow("upper-case JPG") << L { "a.JPG", "a.jpg" } << L { "ext" } << "a.jpg";
        QTest::newRow("jpeg") << L { "a.jpeg", "b.gif" } << L { "ext" } << "b.gif";
        QTest::newRow("mixed-case Bmp") << L { "a.Bmp", "a.bmp" } << L { "ext" } << "a.bmp";
        QTest::newRow("library picture") << L { "lib/VX_a.jpg", "b.bmp" } << L { "lib" } << "b.bmp";
        QTest::newRow("library before extension") << L { "lib/notes.txt", "b.jpg" } << L { "lib" } << "b.jpg";
        QTest::newRow("several refusals")
            << L { "a.png", "lib/x.gif", "a.JPG", "c.gif" } << L { "ext", "lib", "ext" } << "c.gif";
        QTest::newRow("cancel at once") << L { Cancel } << L {} << "";
        QTest::newRow("cancel after refusal") << L { "a.jpeg", Cancel } << L { "ext" } << "";
    }
    void dialogAsksUntilAcceptedOrCancelled()
    {
        QFETCH(QStringList, choices);
        QFETCH(QStringList, refusals);
        QFETCH(QString, accepted);
        Game g;
        g.s().OpenFile = QStringLiteral("earlier");
        g.s().OpenTitle = QStringLiteral("earlier.jpg");
        script(g, choices);
        g.w.PickImageFile();

        QCOMPARE(g.tp.files.filters,
            QStringList(
                refusals.size() + 1, QStringLiteral("Graphic Files(*.jpg;*.gif;*.bmp)|*.jpg;*.gif;*.bmp")));
        QCOMPARE(g.tp.files.lastFlags, 7172);
        QCOMPARE(g.tp.messages.asked.size(), refusals.size());
        for (int i = 0; i < refusals.size(); ++i) {
            const AskedBox &box = g.tp.messages.asked[i];
            QCOMPARE(box.text + " | " + box.title + " | " + QString::number(box.style),
                refusals[i] == "lib" ? "This Picture is Already in the Library | Open | 64"
                                     : "File Extension Must Be jpg, gif, or bmp | Open - ERROR | 0");
        }
        QCOMPARE(g.s().OpenFile, accepted.isEmpty() ? QString() : g.dir.filePath(accepted));
        QCOMPARE(g.s().OpenTitle, accepted.isEmpty() ? QStringLiteral("earlier.jpg") : accepted);
    }

    // "Open Image" shows an accepted picture whole and framed, dropping any puzzle; a cancel, an armed
    // hint or a picture that fails to load leaves the puzzle, the board and the frame as they were.
    void openImageCommand_data()
    {
        QTest::addColumn<QStringList>("choices");
        QTest::addColumn<bool>("inPlay");
        QTest::addColumn<bool>("hint");
        QTest::addColumn<int>("boxes");
        using L = QStringList;
        QTest::newRow("accepted during play") << L { "b.bmp" } << true << false << 0;
        QTest::newRow("cancel at once") << L { Cancel } << true << false << 0;
        QTest::newRow("cancel after refusal") << L { "b.JPG", Cancel } << true << false << 1;
        QTest::newRow("hint armed") << L { "b.bmp" } << true << true << 0;
        QTest::newRow("fails during play") << L { "broken.gif" } << true << false << 1;
        QTest::newRow("fails on a framed picture") << L { "broken.gif" } << false << false << 1;
    }
    void openImageCommand()
    {
        QFETCH(QStringList, choices);
        QFETCH(bool, inPlay);
        QFETCH(bool, hint);
        QFETCH(int, boxes);
        Game g;
        QVERIFY(inPlay ? g.play("S", 6) : g.load(g.picture("pic.jpg", picturegen::scene({ 800, 600 }, 1))));
        const QString next = g.picture("b.bmp", picturegen::scene({ 600, 800 }, 2));
        g.file("broken.gif", "not a picture");
        g.s().HintMode = hint;
        const PuzzleState before = g.s();
        const QImage board = g.w.vxrz->image();
        const int bars = visibleBars(g.w);
        script(g, choices);
        g.w.cb_new_Click();

        QCOMPARE(g.tp.files.filters.size(), hint ? 0 : choices.size());
        QCOMPARE(g.tp.messages.asked.size(), boxes);
        if (!hint && choices.last() == "b.bmp") {
            QVERIFY(!g.s().InPlay && g.s().PicFile == next && g.s().OpenTitle == "b.bmp");
            QCOMPARE(g.w.vxrz->size(), QSize(289, 391));
            QCOMPARE(g.w.vxrz->image(), g.w.vxrz_s->image());
            QCOMPARE(visibleBars(g.w), 4);
        } else {
            QVERIFY(g.s().PicFile == before.PicFile && g.s().InPlay == inPlay && g.s().Board == before.Board);
            QCOMPARE(g.w.vxrz->image(), board);
            QCOMPARE(visibleBars(g.w), bars);
        }
    }
};

QTEST_MAIN(PickImageTest)
#include "tst_pickimage.moc"
