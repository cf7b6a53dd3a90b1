// The saved puzzle: the file's bytes, save and load through their buttons, the refusal of unsound files,
// a failed save, and the exit command's question.
#include "game.h"
#include "platform/facebutton.h"
#include "store/puzzlefile.h"

#include <QSignalSpy>
#include <QTest>
#include <csignal>
#include <sys/resource.h>

namespace
{
using Craft = std::function<void(QByteArray &, const PuzzleState &)>;

// An Int16 at offset f of the header (r < 0), or in field f (SrcX, SrcY, Home) of record r: the board's
// records, then the tray's.
void set16(QByteArray &b, const PuzzleState &s, int r, int f, int v)
{
    const qsizetype at = r < 0 ? f : 55 + QFile::encodeName(s.PicFile).size() + 6 * r + 2 * f;
    b[at] = char(v), b[at + 1] = char(v >> 8);
}
} // namespace
Q_DECLARE_METATYPE(Craft)

class StoreTest : public QObject
{
    Q_OBJECT

private slots:
    // The layout byte for byte: the 3 x 3 example with its path C:\p.jpg is 189 bytes.
    void writesExampleBytes()
    {
        const QByteArray b = puzzlefile::encode(puzzlefile::SavedPuzzle { Codes::Slide, 3, 9, 5, 2,
            Codes::WhiteColor, QStringLiteral("C:\\p.jpg"), std::vector<TileRec>(10) });
        QCOMPARE(b.left(25).toHex(), "5641524e4f30312e3031530300090005000200ffffff000800");
        QCOMPARE(b.mid(25, 38), QByteArray("C:\\p.jpg") + QByteArray(30, '\0'));
        QCOMPARE(b.size(), 189);
    }

    // Saved, then loaded into another window playing another puzzle without a question: every field,
    // the board and the tray come back, the buttons show the saved codes while the picture is framed; a
    // path's UTF-8 bytes, the spare record and another signature survive; a second save of the loaded
    // puzzle writes the same file. (The soak goes round every size, type and colour in any order, and
    // checks every holder after each load.)
    void saveAndLoadRoundTrip()
    {
        Game a, b;
        QVERIFY(a.play(Codes::Drag, 2) && b.play(Codes::Slide, 6));
        a.w.cb_grid_Click();
        park(a.w, 0);
        const QString pic = a.dir.filePath(QStringLiteral("Bild ü 狐.bmp"));
        QVERIFY(QFile::rename(std::exchange(a.s().PicFile, pic), pic));
        a.s().Board[a.s().TileTotal] = { 7, -8, 9 };
        a.w.cb_save_Click();
        QByteArray saved = bytesOf(a.s().PzlFile);
        b.file(QStringLiteral("varno.pzl"), saved.replace(0, 10, "OTHER02.00"));
        const auto codes = [](Game &g) {
            return g.w.cb_grid->Tag + g.w.cb_grid->face() + g.w.cb_type->Tag + g.w.cb_type->face();
        };
        QString framing;
        b.tp.events.onPace = [&] { framing = codes(b); };
        b.w.cb_load_Click();
        QVERIFY(b.tp.messages.asked.isEmpty() && b.s().InPlay); // every field: the second save below
        QCOMPARE(framing, codes(a));
        QCOMPARE(codes(b), codes(a));
        b.w.cb_save_Click();
        QCOMPARE(bytesOf(b.s().PzlFile), "VARNO01.01" + saved.mid(10));
    }

    // An unsound file is refused with what is wrong and the game stays as it was; a picture
    // that is gone or cannot be decoded ends with no puzzle in play and a clean board.
    void refusesUnsoundFile_data()
    {
        columns<QString, QString, bool, Craft>({ "type", "says", "keeps", "craft" });
        const auto row = [](const char *name, const QString &type, const char *says, bool keeps, Craft c) {
            QTest::newRow(name) << type << QString::fromUtf8(says) << keeps << c;
        };
        const QString S = Codes::Slide, D = Codes::Drag;
        row("board of 12", D, "12 tiles a side", true, [](auto &b, auto &s) { set16(b, s, -1, 11, 12); });
        row("places 8", S, "counts 8 places", true, [](auto &b, auto &s) { set16(b, s, -1, 13, 8); });
        row("no path", S, "names no picture", true, [](auto &b, auto &s) { set16(b, s, -1, 23, 0); });
        row("path past the end", D, "999 bytes", true, [](auto &b, auto &s) { set16(b, s, -1, 23, 999); });
        row("one byte over", D, "where its contents take", true, [](auto &b, auto &) { b.append('\0'); });
        row("type X", S, "neither S nor D", true, [](auto &b, auto &) { b[10] = 'X'; });
        row("grey grid", D, "neither white nor", true, [](auto &b, auto &s) { set16(b, s, -1, 19, 0x8080); });
        row("home 9", D, "home (9) is not on", true, [](auto &b, auto &s) { set16(b, s, 4, 2, 9); });
        row("empty place", S, "place 3 is empty", true, [](auto &b, auto &s) { set16(b, s, 3, 2, -1); });
        row("tile missing", D, "is missing", true, [](auto &b, auto &s) { set16(b, s, 0, 2, -1); });
        row("home twice", S, "twice", true, [](auto &b, auto &s) { set16(b, s, 0, 2, s.Board[1].Home); });
        row("in tray box 3", D, "only 3 tray boxes", true, [](auto &b, auto &s) { set16(b, s, 13, 2, 0); });
        row("blank moved", S, "blank", true, [](auto &b, auto &s) { set16(b, s, -1, 15, s.BlankPos ^ 1); });
        row("count at home", D, "9 tiles at home", true, [](auto &b, auto &s) { set16(b, s, -1, 17, 9); });
        row("source outside", D, "reach outside", true, [](auto &b, auto &s) { set16(b, s, 4, 1, 262); });
        row("picture narrower", D, "reach outside", true, [](auto &, auto &s) { // tiles of 43 x 130 now
            picturegen::scene({ 130, 390 }, 1).save(s.PicFile, "BMP");
        });
        row("picture gone", D, "cannot be found", false, [](auto &, auto &s) { QFile::remove(s.PicFile); });
        row("picture damaged", D, "damaged", false, [](auto &, auto &s) { // whole up to its pixels
            picturegen::scene({ 520, 390 }, 1).save(s.PicFile, "PNG");
            QFile::resize(s.PicFile, bytesOf(s.PicFile).indexOf("IDAT") + 40);
        });
    }
    void refusesUnsoundFile()
    {
        const auto [type, says, keeps, craft]
            = fetch<QString, QString, bool, Craft>("type", "says", "keeps", "craft");
        Game g;
        QVERIFY(g.play(type, 3));
        g.w.cb_save_Click();
        QByteArray bytes = bytesOf(g.s().PzlFile);
        craft(bytes, g.s());
        g.file(QStringLiteral("varno.pzl"), bytes);
        g.w.cb_grid_Click(); // the game now differs from the file
        const PuzzleState before = g.s();
        const QImage board = g.w.vxrz->image();
        g.w.cb_load_Click();
        const AskedBox m = g.tp.messages.asked.last();
        QVERIFY2(m.title == "Open - ERROR" && m.style == 16 && m.text.contains(says) && !m.text.contains('%'),
            qPrintable(m.text));
        QVERIFY(g.tp.pointers.current() == PointerShape::Default && g.s().GridColor == before.GridColor);
        if (keeps)
            QVERIFY(puzzlefile::encode(g.s()) == puzzlefile::encode(before) && g.w.vxrz->image() == board);
        else
            QVERIFY(!g.s().InPlay && g.s().PicFile.isEmpty() && !g.w.vxpcs[0]->isVisible()
                && g.w.vxrz->image() == expectedInside(g.w, TileRec { 0, 0, -1 }, board.size()));
    }

    // Save acts only on a puzzle in play with the hint disarmed, load says when there is no saved puzzle.
    // Exit asks only with a puzzle in play, drops the hint, saves on Yes, and ends the run whatever the
    // answer, even when the save fails: a save that fails part-way (here the file may not grow) says why
    // and leaves the earlier save whole.
    void exitOffersToSave()
    {
        Game g;
        QSignalSpy ended(&g.w, &vxmain::exitRequested);
        g.w.cb_load_Click(); // no saved puzzle yet
        g.w.cb_save_Click(); // refused: no puzzle in play
        g.w.cb_exit_Click(); // no puzzle in play: no question
        g.tp.messages.answers = { MsgAnswer::No, MsgAnswer::Yes, MsgAnswer::Ok, MsgAnswer::Yes };
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit {};
        getrlimit(RLIMIT_FSIZE, &limit);
        for (const auto &[n, writes] : { std::pair(2, false), std::pair(2, true), std::pair(11, false) }) {
            QVERIFY(g.play(Codes::Drag, Integer(n)));
            g.w.cb_help_Click();
            g.w.cb_save_Click(); // refused: the hint is armed
            const QByteArray earlier = bytesOf(g.s().PzlFile);
            const rlimit small { rlim_t(earlier.size() + 50), limit.rlim_max };
            setrlimit(RLIMIT_FSIZE, n == 11 ? &small : &limit);
            g.w.cb_exit_Click();
            setrlimit(RLIMIT_FSIZE, &limit);
            QVERIFY(!g.s().HintMode && g.tp.pointers.current() == PointerShape::Default);
            QCOMPARE(bytesOf(g.s().PzlFile) != earlier, writes);
        }
        QStringList boxes;
        for (const AskedBox &b : g.tp.messages.asked)
            boxes << b.title + QString::number(b.style) + b.text;
        const QString ask = QStringLiteral("Save on Exit36Save Current Puzzle");
        QCOMPARE(boxes,
            QStringList({ "Load Saved Puzzle64No Saved Puzzle Found", ask, ask, "Saved64Puzzle Saved", ask,
                "Save - ERROR16The puzzle cannot be saved in " + g.s().PzlFile + ": File too large." }));
        QCOMPARE(ended.size(), 4);
    }
};

QTEST_MAIN(StoreTest)
#include "tst_store.moc"
