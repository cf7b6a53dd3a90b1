// Choosing a picture, loading it onto the board and into the library, the pixel limit, and the red
// frame round the board.
#include "game.h"
#include "platform/qtservices.h"
#include "render/picturefile.h"

#include <QComboBox>
#include <QDataStream>
#include <QDir>
#include <QFileDialog>
#include <QImageReader>
#include <QMimeData>
#include <QRegion>
#include <QTest>

namespace
{
// A 1 x 1 GIF, written by hand because Qt has no GIF writer.
const QByteArray Gif = QByteArray::fromBase64("R0lGODlhAQABAIAAAP///wAAACwAAAAAAQABAAACAkQBADs=");

// A whole uncompressed BMP of img, 24 or 32 bits per pixel, rows stored bottom-up or top-down.
QByteArray bmpFile(const QImage &img, int bits, bool topDown)
{
    const qint32 w = img.width(), h = img.height(), stride = (w * bits / 8 + 3) / 4 * 4;
    QByteArray out;
    QDataStream ds(&out, QIODevice::WriteOnly);
    ds.setByteOrder(QDataStream::LittleEndian);
    ds.writeRawData("BM", 2);
    ds << quint32(54 + stride * h) << quint32(0) << quint32(54) << quint32(40) << w << (topDown ? -h : h)
       << quint16(1) << quint16(bits) << quint32(0) << quint32(0) << qint32(2835) << qint32(2835)
       << quint32(0) << quint32(0);
    for (int i = 0; i < h; ++i) {
        QByteArray row(stride, '\0');
        for (int x = 0; x < w; ++x) {
            const QRgb c = img.pixel(x, topDown ? i : h - 1 - i); // blue, green, red in memory order
            memcpy(row.data() + x * bits / 8, &c, bits / 8);
        }
        out += row;
    }
    return out;
}

// Plays the choices on the open dialog: "lib/name" lies in the library folder, a null name cancels, any
// other name lies beside the program.
void script(Game &g, const QStringList &choices)
{
    for (const QString &c : choices)
        g.tp.files.choose(c.isNull()   ? c
                : c.startsWith("lib/") ? g.s().LibPath + c.mid(3)
                                       : g.dir.filePath(c));
}
} // namespace

class PictureTest : public QObject
{
    Q_OBJECT

private slots:
    // A picture is fitted into at most 520 x 390 with its proportions, the board rounded to whole tiles;
    // the tile source takes the board's size and holds the whole picture, smoothly scaled and not shifted
    // (also a large BMP read straight into board size, whatever its row order and pixel width); the board
    // shows it whole, the frame closes round it and the hourglass shows while loading.
    void loadFitsPictureToBoard_data()
    {
        // The file, the board, and how far it may be from the picture (JPEG blocks and reduced-scale
        // decoding differ a little).
        columns<QString, QByteArray, QSize, double>({ "name", "bytes", "board", "limit" });
        const auto scene = [](int w, int h, const char *format) {
            return encode(picturegen::scene({ w, h }, 3), format);
        };
        const QImage large = picturegen::scene({ 1601, 1203 }, 5);
        QTest::newRow("bmp") << "a.bmp" << scene(800, 600, "bmp") << QSize(517, 391) << 4.0;
        QTest::newRow("tall jpg, 292 wide") << "a.jpg" << scene(600, 800, "jpg") << QSize(289, 391) << 9.0;
        QTest::newRow("wide, 156 high") << "a.bmp" << scene(1000, 300, "bmp") << QSize(517, 157) << 4.0;
        QTest::newRow("small grows") << "a.jpg" << scene(100, 75, "jpg") << QSize(517, 391) << 9.0;
        QTest::newRow("large bmp, 24 bits") << "b.bmp" << bmpFile(large, 24, false) << QSize(517, 391) << 4.0;
        QTest::newRow("large bmp, top-down") << "b.bmp" << bmpFile(large, 24, true) << QSize(517, 391) << 4.0;
        QTest::newRow("large bmp, 32 bits") << "b.bmp" << bmpFile(large, 32, false) << QSize(517, 391) << 4.0;
    }
    void loadFitsPictureToBoard()
    {
        const auto [name, bytes, board, limit]
            = fetch<QString, QByteArray, QSize, double>("name", "bytes", "board", "limit");
        Game g;
        g.s().InPlay = true; // the caller's value is kept
        g.tp.pointers.history.clear();
        const QString path = g.file(name, bytes);
        QVERIFY2(g.load(path), qPrintable(g.tp.messages.asked.value(0).text));
        QCOMPARE(QSize(g.s().TileW * 6 + 1, g.s().TileH * 6 + 1), board);
        QCOMPARE(g.w.vxrz->image(), g.w.vxrz_s->image());
        const double d = difference(g.w.vxrz_s->image(), QImage(path));
        QVERIFY2(d < limit, qPrintable(QString::number(d)));
        QVERIFY(g.s().InPlay && g.tp.messages.asked.isEmpty());
        QCOMPARE(g.tp.pointers.history, HourglassThenDefault);
        // A ring 4 pixels wide over the border shape but for its last column and row.
        const QRect B = g.w.vxframe_border->geometry(), outer(B.topLeft(), B.size() - QSize(1, 1));
        QRegion ring;
        for (const ShapeBox *bar : { g.w.vxfr_t, g.w.vxfr_r, g.w.vxfr_b, g.w.vxfr_l })
            ring += bar->geometry();
        QVERIFY(framed(g.w));
        QCOMPARE(ring, QRegion(outer) - QRegion(outer.adjusted(4, 4, -4, -4)));
    }

    // The library gets BMP pictures as BMP at board size and other pictures byte for byte, under the
    // prefixed name, replacing an older copy; a failing write is skipped silently.
    void libraryStoresPicture_data()
    {
        // The file, its stored name and size (of a BMP; empty: a byte-for-byte copy), and whether the name is
        // already taken by a "file" or a "folder".
        columns<QString, QByteArray, QString, QSize, QString>({ "name", "bytes", "stored", "size", "taken" });
        const auto bmp = [](int w, int h) { return encode(picturegen::scene({ w, h }, 11), "bmp"); };
        const QByteArray jpeg = encode(picturegen::scene({ 1200, 900 }, 11), "jpg");
        QTest::newRow("reduced") << "photo.bmp" << bmp(800, 600) << "VX_photo.bmp" << QSize(520, 390) << "";
        QTest::newRow("wide, padded") << "w.bmp" << bmp(1001, 500) << "VX_w.bmp" << QSize(520, 260) << "";
        QTest::newRow("jpeg") << "photo.jpg" << jpeg << "VX_photo.jpg" << QSize() << "";
        QTest::newRow("gif keeps its name") << "vx_old.gif" << Gif << "vx_old.gif" << QSize() << "";
        QTest::newRow("older jpeg") << "photo.jpg" << jpeg << "VX_photo.jpg" << QSize() << "file";
        QTest::newRow("bmp write fails") << "p.bmp" << bmp(80, 60) << "VX_p.bmp" << QSize() << "folder";
    }
    void libraryStoresPicture()
    {
        const auto [name, bytes, stored, size, taken]
            = fetch<QString, QByteArray, QString, QSize, QString>("name", "bytes", "stored", "size", "taken");
        Game g;
        const QString target = g.s().LibPath + "/" + stored;
        if (taken == "file")
            QVERIFY(QFile(target).open(QIODevice::WriteOnly) && QFile::resize(target, 10));
        if (taken == "folder")
            QVERIFY(QDir().mkpath(target + "/inside"));
        const QImage board = g.w.vxrz->image();
        g.tp.pointers.history.clear();
        const QString source = g.file(name, bytes);
        g.store(source);
        QVERIFY(g.tp.messages.asked.isEmpty() && g.s().PicFile.isEmpty());
        QCOMPARE(g.tp.pointers.history, HourglassThenDefault);
        QCOMPARE(g.w.vxrz->image(), board);
        if (taken == "folder") {
            QVERIFY(QFileInfo(target).isDir());
        } else if (size.isEmpty()) {
            QCOMPARE(bytesOf(target), bytes);
        } else {
            QImageReader reader(target);
            QCOMPARE(reader.format(), QByteArray("bmp"));
            const QImage img = reader.read();
            QCOMPARE(img.size(), size);
            QVERIFY(difference(img, QImage(source)) < 9);
        }
    }

    // Pictures of up to 100 million pixels pass the header check; one row more is refused.
    void pixelLimitIsOneHundredMillion()
    {
        Game g;
        for (const char h : { '\x10', '\x11' }) { // 10000 x 10000, then 10000 x 10001 (0x2711)
            QByteArray bytes = Gif;
            for (int at : { 6, 24 })
                bytes.replace(at, 4, QByteArray("\x10\x27") + h + '\x27');
            QCOMPARE(picturefile::probe(g.file("a.gif", bytes)).error.contains("too large"), h == '\x11');
        }
    }

    // Files in the library are refused first, then names not ending exactly in .jpg, .gif or .bmp; the
    // dialog comes back after each refusal until a file is accepted or the player cancels.
    void dialogAsksUntilAcceptedOrCancelled_data()
    {
        // The choices, the refusals in order ("lib" or "ext"), the file accepted (empty: cancelled).
        columns<QStringList, QStringList, QString>({ "choices", "refusals", "accepted" });
        using L = QStringList;
        QTest::newRow("library before extension") << L { "lib/notes.txt", "b.jpg" } << L { "lib" } << "b.jpg";
        QTest::newRow("several refusals")
            << L { "a.png", "lib/x.gif", "a.JPG", "c.gif" } << L { "ext", "lib", "ext" } << "c.gif";
        QTest::newRow("cancel after refusal") << L { "a.jpeg", QString() } << L { "ext" } << "";
    }
    void dialogAsksUntilAcceptedOrCancelled()
    {
        const auto [choices, refusals, accepted]
            = fetch<QStringList, QStringList, QString>("choices", "refusals", "accepted");
        Game g;
        g.s().OpenFile = QStringLiteral("earlier");
        g.s().OpenTitle = QStringLiteral("earlier.jpg");
        script(g, choices);
        g.w.PickImageFile();

        QCOMPARE(g.tp.files.filters,
            QStringList(
                refusals.size() + 1, QStringLiteral("Graphic Files(*.jpg;*.gif;*.bmp)|*.jpg;*.gif;*.bmp")));
        QCOMPARE(g.tp.files.lastFlags, 7172);
        // The dialog shows the filter's description as it stands, with nothing of Qt's added.
        QFileDialog dialog;
        QtFileDialogs::prepare(dialog, g.tp.files.filters.value(0), g.tp.files.lastFlags);
        QCOMPARE(dialog.findChild<QComboBox *>(QStringLiteral("fileTypeCombo"))->currentText(),
            QStringLiteral("Graphic Files(*.jpg;*.gif;*.bmp)"));
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

    // "Open Image", or a file dropped on the window, shows an accepted picture whole and framed, dropping
    // any puzzle; a cancel, an armed hint, a refusal or a picture that fails to load leaves the puzzle, the
    // board and the frame as they were.
    void openImageCommand_data()
    {
        // The choices ("drop NAME": that file dropped instead), the puzzle in play, the hint armed, the
        // message boxes shown.
        columns<QStringList, bool, bool, int>({ "choices", "inPlay", "hint", "boxes" });
        using L = QStringList;
        QTest::newRow("cancel after refusal") << L { "b.JPG", QString() } << true << false << 1;
        QTest::newRow("hint armed") << L { "b.bmp" } << true << true << 0;
        QTest::newRow("fails on a framed picture") << L { "broken.gif" } << false << false << 1;
        QTest::newRow("dropped during play") << L { "drop b.bmp" } << true << false << 0;
        QTest::newRow("dropped from the library") << L { "drop lib/b.bmp" } << true << false << 1;
        QTest::newRow("dropped, hint armed") << L { "drop b.bmp" } << true << true << 0;
    }
    void openImageCommand()
    {
        const auto [choices, inPlay, hint, boxes]
            = fetch<QStringList, bool, bool, int>("choices", "inPlay", "hint", "boxes");
        Game g;
        QVERIFY(inPlay ? g.play("S", 6) : g.load(g.picture("pic.jpg", picturegen::scene({ 800, 600 }, 1))));
        const QString next = g.picture("b.bmp", picturegen::scene({ 600, 800 }, 2));
        g.file("broken.gif", "not a picture");
        g.s().HintMode = hint;
        const PuzzleState before = g.s();
        const QImage board = g.w.vxrz->image();
        const bool wasFramed = framed(g.w);
        g.picture("lib/b.bmp", picturegen::scene({ 600, 800 }, 2));
        const bool dropped = choices[0].startsWith("drop ");
        QMimeData mime;
        mime.setUrls({ QUrl::fromLocalFile(g.dir.filePath(choices[0].mid(5))) });
        QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QDropEvent drop(QPointF(300, 300), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        if (dropped) { // the drop goes where the enter was accepted
            QCoreApplication::sendEvent(&g.w, &enter);
            QCoreApplication::sendEvent(&g.w, &drop);
        } else {
            script(g, choices);
            g.w.cb_new_Click();
        }

        QCOMPARE(g.tp.files.filters.size(), hint || dropped ? 0 : choices.size());
        QCOMPARE(g.tp.messages.asked.size(), boxes);
        if (!hint && choices.last().section(' ', -1) == "b.bmp") {
            QVERIFY(!g.s().InPlay && g.s().PicFile == next && g.s().OpenTitle == "b.bmp");
            QCOMPARE(g.w.vxrz->image(), g.w.vxrz_s->image());
            QVERIFY(framed(g.w));
        } else {
            QVERIFY(g.s().PicFile == before.PicFile && g.s().InPlay == inPlay && g.s().Board == before.Board);
            QCOMPARE(g.w.vxrz->image(), board);
            QCOMPARE(framed(g.w), wasFramed);
        }
    }
};

QTEST_MAIN(PictureTest)
#include "tst_picture.moc"
