// Loading a picture onto the board and into the library, refusing bad pictures, and the red frame.
#include "game.h"
#include "platform/shapes.h"

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QImageReader>
#include <QRegion>
#include <QTest>

namespace
{
const QList<PointerShape> HourglassThenDefault { PointerShape::Hourglass, PointerShape::Default };
// A 1 x 1 GIF, written by hand because Qt has no GIF writer.
const QByteArray Gif = QByteArray::fromBase64("R0lGODlhAQABAIAAAP///wAAACwAAAAAAQABAAACAkQBADs=");

QByteArray encode(const QImage &img, const char *format)
{
    QByteArray out;
    QBuffer buf(&out);
    buf.open(QIODevice::WriteOnly);
    img.save(&buf, format, 95);
    return out;
}

// An EXIF block saying "turn a quarter clockwise" (orientation 6), right after the JPEG start marker.
QByteArray turnedByExif(QByteArray jpeg)
{
    const QByteArray body = QByteArray("Exif\0\0", 6)
        + QByteArray::fromHex("4d4d002a00000008000101120003000000010006000000000000");
    return jpeg.insert(2, QByteArray("\xFF\xE1\x00", 3) + char(body.size() + 2) + body);
}

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

// How far img is from a smooth scale of the picture in path, turned upright: the mean over the pixels
// of the summed channel differences. A nearest-pixel scale, or a shift by a third of a pixel, gives 10.
double differenceFromSmoothScale(const QImage &img, const QString &path)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QImage smooth = reader.read().scaled(img.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    qint64 sum = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) {
            const QRgb a = img.pixel(x, y), b = smooth.pixel(x, y);
            sum += qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) + qAbs(qBlue(a) - qBlue(b));
        }
    return double(sum) / img.width() / img.height();
}

QList<QRect> bars(const vxmain &w)
{
    return { w.vxfr_t->geometry(), w.vxfr_r->geometry(), w.vxfr_b->geometry(), w.vxfr_l->geometry() };
}

bool barsShown(const vxmain &w)
{
    return w.vxfr_t->isVisible() && w.vxfr_r->isVisible() && w.vxfr_b->isVisible() && w.vxfr_l->isVisible();
}
} // namespace

class PictureTest : public QObject
{
    Q_OBJECT

private slots:
    // A picture is fitted into at most 520 x 390 with its proportions and the board rounded to whole
    // tiles; the tile source takes the board's size, the board shows it whole, the frame closes round it
    // and the hourglass shows while loading.
    void loadFitsPictureToBoard_data()
    {
        QTest::addColumn<QSize>("picture");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("board");
        QTest::newRow("800x600 bmp") << QSize(800, 600) << "a.bmp" << QSize(517, 391);
        QTest::newRow("600x800, 292 wide") << QSize(600, 800) << "a.jpg" << QSize(289, 391);
        QTest::newRow("1000x300, 156 high") << QSize(1000, 300) << "a.bmp" << QSize(517, 157);
        QTest::newRow("exact 4:3") << QSize(520, 390) << "a.bmp" << QSize(517, 391);
        QTest::newRow("small grows") << QSize(100, 75) << "a.jpg" << QSize(517, 391);
    }
    void loadFitsPictureToBoard()
    {
        QFETCH(QSize, picture);
        QFETCH(QString, name);
        QFETCH(QSize, board);
        Game g;
        g.s().InPlay = true; // the caller's value is kept
        g.tp.pointers.history.clear();
        QVERIFY(g.load(g.picture(name, picturegen::scene(picture, 7))));
        QCOMPARE(QSize(g.s().TileW * 6 + 1, g.s().TileH * 6 + 1), board);
        QCOMPARE(g.w.vxrz->size(), board);
        QCOMPARE(g.w.vxrz_s->size(), board);
        QCOMPARE(g.w.vxrz->image(), g.w.vxrz_s->image());
        QImage blank(g.w.vxblank->size(), QImage::Format_RGB32);
        blank.fill(g.w.vxblank->backColor());
        QCOMPARE(g.w.vxblank->image(), blank);
        QVERIFY(g.s().InPlay && g.tp.messages.asked.isEmpty());
        QCOMPARE(g.tp.pointers.history, HourglassThenDefault);
        // A ring 4 pixels wide over the border shape but for its last column and row.
        const QRect B = g.w.vxframe_border->geometry(), outer(B.topLeft(), B.size() - QSize(1, 1));
        QRegion ring;
        for (const QRect &r : bars(g.w))
            ring += r;
        QVERIFY(barsShown(g.w));
        QCOMPARE(ring, QRegion(outer) - QRegion(outer.adjusted(4, 4, -4, -4)));
    }

    // The tile source holds the whole picture, upright by its EXIF orientation, smoothly scaled and not
    // shifted, also for a large BMP read straight into board size whatever its row order and pixel width.
    void tileSourceLooksLikeSmoothScale_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QSize>("board");
        QTest::addColumn<double>("limit"); // JPEG blocks and reduced-scale decoding differ a little
        const QImage picture = picturegen::scene({ 800, 600 }, 3),
                     large = picturegen::scene({ 1601, 1203 }, 5);
        QTest::newRow("bmp") << "a.bmp" << encode(picture, "bmp") << QSize(517, 391) << 4.0;
        QTest::newRow("jpg") << "a.jpg" << encode(picture, "jpg") << QSize(517, 391) << 9.0;
        QTest::newRow("exif-turned jpg")
            << "t.jpg" << turnedByExif(encode(picture, "jpg")) << QSize(289, 391) << 9.0;
        QTest::newRow("large bmp, 24 bits") << "b.bmp" << bmpFile(large, 24, false) << QSize(517, 391) << 4.0;
        QTest::newRow("large bmp, top-down") << "b.bmp" << bmpFile(large, 24, true) << QSize(517, 391) << 4.0;
        QTest::newRow("large bmp, 32 bits") << "b.bmp" << bmpFile(large, 32, false) << QSize(517, 391) << 4.0;
    }
    void tileSourceLooksLikeSmoothScale()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QSize, board);
        QFETCH(double, limit);
        Game g;
        const QString path = g.file(name, bytes);
        QVERIFY2(g.load(path), qPrintable(g.tp.messages.asked.value(0).text));
        QCOMPARE(g.w.vxrz_s->size(), board);
        const double difference = differenceFromSmoothScale(g.w.vxrz_s->image(), path);
        QVERIFY2(difference < limit, qPrintable(QString::number(difference)));
    }

    // A picture that cannot be used, on the board or in the library, is reported with what is wrong, and
    // the board, the frame, the state and the library stay as they were.
    void badPictureChangesNothing_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes"); // null: no such file
        QTest::addColumn<QString>("reason");
        QTest::addColumn<bool>("library");
        const QByteArray jpeg = encode(picturegen::scene({ 640, 480 }, 3), "jpg");
        const QByteArray cutBmp = bmpFile(picturegen::scene({ 64, 48 }, 3), 24, false).left(200);
        const QByteArray strip = encode(picturegen::scene({ 1000, 5 }, 3), "bmp");
        QByteArray huge = Gif;
        for (int i : { 6, 7, 8, 9, 24, 25, 26, 27 }) // the screen's and the image's sizes
            huge[i] = char(0xFF);
        QTest::newRow("missing") << "gone.jpg" << QByteArray() << "cannot be found" << false;
        QTest::newRow("empty") << "empty.jpg" << QByteArray("") << "empty" << false;
        QTest::newRow("truncated jpeg") << "cut.jpg" << jpeg.left(jpeg.size() / 2) << "incomplete" << false;
        QTest::newRow("truncated bmp") << "cut.bmp" << cutBmp << "incomplete" << false;
        QTest::newRow("text named bmp") << "notes.bmp" << QByteArray("words") << "not a picture" << false;
        QTest::newRow("text to the library") << "notes.jpg" << QByteArray("words") << "not a picture" << true;
        QTest::newRow("too flat for the tiles") << "strip.bmp" << strip << "too narrow or too flat" << false;
        QTest::newRow("header claims 65535x65535") << "huge.gif" << huge << "too large" << false;
    }
    void badPictureChangesNothing()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        QFETCH(bool, library);
        Game g;
        QVERIFY(g.load(g.picture("good.jpg", picturegen::scene({ 640, 480 }, 5))));
        const QString path = bytes.isNull() ? g.dir.filePath(name) : g.file(name, bytes);
        g.s().PicFile = path;
        const PuzzleState before = g.s();
        const QImage board = g.w.vxrz->image(), source = g.w.vxrz_s->image();
        const QList<QRect> frame = bars(g.w);

        QVERIFY(!(library ? g.store(path) : g.w.LoadPic(QStringLiteral("Load"))));
        QCOMPARE(g.tp.messages.asked.size(), 1);
        const AskedBox box = g.tp.messages.asked.first();
        QCOMPARE(box.title + " | " + QString::number(box.style), "Open - ERROR | 16");
        QVERIFY2(box.text.contains(name) && box.text.contains(reason), qPrintable(box.text));
        QCOMPARE(g.w.vxrz->image(), board);
        QCOMPARE(g.w.vxrz_s->image(), source);
        QCOMPARE(bars(g.w), frame);
        QVERIFY(barsShown(g.w));
        QCOMPARE(QSize(g.s().TileW, g.s().TileH), QSize(before.TileW, before.TileH));
        QVERIFY(g.s().PicFile == path && g.s().InPlay == before.InPlay && g.s().GridN == before.GridN);
        QVERIFY(g.s().Board == before.Board && g.w.vxpicfull.isNull());
        QVERIFY(QDir(g.s().LibPath).isEmpty());
        QCOMPARE(g.tp.pointers.current(), PointerShape::Default);
    }

    // The library gets BMP pictures as BMP at board size and other pictures byte for byte, under the
    // prefixed name, replacing an older copy; a failing write is skipped silently.
    void libraryStoresPicture_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QSize>("size"); // of a BMP; empty: a byte-for-byte copy
        QTest::addColumn<QString>("inTheWay"); // a "file" or "folder" of the stored name already there
        const auto bmp = [](int w, int h) { return encode(picturegen::scene({ w, h }, 11), "bmp"); };
        const QByteArray jpeg = encode(picturegen::scene({ 1200, 900 }, 11), "jpg");
        QTest::newRow("reduced") << "photo.bmp" << bmp(800, 600) << "VX_photo.bmp" << QSize(520, 390) << "";
        QTest::newRow("enlarged") << "s.bmp" << bmp(100, 75) << "VX_s.bmp" << QSize(520, 390) << "";
        QTest::newRow("wide, padded") << "w.bmp" << bmp(1001, 500) << "VX_w.bmp" << QSize(520, 260) << "";
        QTest::newRow("tall") << "t.bmp" << bmp(300, 600) << "VX_t.bmp" << QSize(195, 390) << "";
        QTest::newRow("jpeg") << "photo.jpg" << jpeg << "VX_photo.jpg" << QSize() << "";
        QTest::newRow("gif keeps its name") << "vx_old.gif" << Gif << "vx_old.gif" << QSize() << "";
        QTest::newRow("older bmp") << "p.bmp" << bmp(800, 600) << "VX_p.bmp" << QSize(520, 390) << "file";
        QTest::newRow("older jpeg") << "photo.jpg" << jpeg << "VX_photo.jpg" << QSize() << "file";
        QTest::newRow("bmp write fails") << "p.bmp" << bmp(80, 60) << "VX_p.bmp" << QSize() << "folder";
        QTest::newRow("jpeg copy fails") << "photo.jpg" << jpeg << "VX_photo.jpg" << QSize() << "folder";
    }
    void libraryStoresPicture()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, stored);
        QFETCH(QSize, size);
        QFETCH(QString, inTheWay);
        Game g;
        const QString target = g.s().LibPath + "/" + stored;
        if (inTheWay == "file")
            QVERIFY(QFile(target).open(QIODevice::WriteOnly) && QFile::resize(target, 10));
        if (inTheWay == "folder")
            QVERIFY(QDir().mkpath(target + "/inside"));
        const QImage board = g.w.vxrz->image();
        g.tp.pointers.history.clear();
        const QString source = g.file(name, bytes);
        g.store(source);
        QVERIFY(g.tp.messages.asked.isEmpty() && g.s().PicFile.isEmpty());
        QCOMPARE(g.tp.pointers.history, HourglassThenDefault);
        QCOMPARE(g.w.vxrz->image(), board);
        if (inTheWay == "folder") {
            QVERIFY(QFileInfo(target).isDir());
        } else if (size.isEmpty()) {
            QFile f(target);
            QVERIFY(f.open(QIODevice::ReadOnly));
            QCOMPARE(f.readAll(), bytes);
        } else {
            QImageReader reader(target);
            QCOMPARE(reader.format(), QByteArray("bmp"));
            const QImage img = reader.read();
            QCOMPARE(img.size(), size);
            QVERIFY(differenceFromSmoothScale(img, source) < 9);
        }
    }

    // The bars end where the board box and the border shape put them, again on a second run.
    void frameBarsEndGeometry()
    {
        Game g;
        g.w.vxrz->setBoxSize(300, 240);
        const QRect B = g.w.vxframe_border->geometry();
        const int L = B.x(), T = B.y(), W = B.width(), H = B.height();
        const QList<QRect> expected = { QRect(L, T, 312, 4), QRect(L + W - 5, T + 4, 4, 248),
            QRect(L + W - 300 - 13, T + H - 5, 309, 4), QRect(L, T + H - 240 - 12, 4, 249) };
        for (int run = 0; run < 2; ++run) {
            g.w.FrAnimate();
            QCOMPARE(bars(g.w), expected);
            QVERIFY(barsShown(g.w));
        }
    }
};

QTEST_MAIN(PictureTest)
#include "tst_picture.moc"
