// Loading a picture onto the board and into the library, refusing bad pictures, and the red frame.
#include "app/vxmain.h"
#include "doubles.h"
#include "picturegen.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QRegion>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

namespace
{
const QRgb Red = qRgb(255, 0, 0), Green = qRgb(0, 255, 0), Blue = qRgb(0, 0, 255), Yellow = qRgb(255, 255, 0);

// Top left red, top right green, bottom left blue, bottom right yellow.
QImage quadrants(QSize size)
{
    QImage img(size, QImage::Format_RGB32);
    const int w = size.width(), h = size.height();
    QPainter p(&img);
    p.fillRect(0, 0, w / 2, h / 2, Red);
    p.fillRect(w / 2, 0, w - w / 2, h / 2, Green);
    p.fillRect(0, h / 2, w / 2, h - h / 2, Blue);
    p.fillRect(w / 2, h / 2, w - w / 2, h - h / 2, Yellow);
    return img;
}

QByteArray encode(const QImage &img, const char *format)
{
    QBuffer buf;
    buf.open(QIODevice::WriteOnly);
    QImageWriter writer(&buf, format);
    writer.setQuality(95);
    writer.write(img);
    return buf.data();
}

// An EXIF block holding only an orientation tag, put right after the JPEG start marker.
QByteArray withOrientation(QByteArray jpeg, quint8 orientation)
{
    QByteArray tiff = QByteArray::fromHex("4d4d002a00000008"
                                          "0001"
                                          "011200030000000100060000"
                                          "00000000");
    tiff[19] = char(orientation);
    const QByteArray body = QByteArray("Exif\0\0", 6) + tiff;
    const int len = body.size() + 2;
    jpeg.insert(2, QByteArray("\xFF\xE1", 2) + char(len >> 8) + char(len & 0xFF) + body);
    return jpeg;
}

// A BMP header alone, claiming a picture of the given size.
QByteArray bmpHeader(qint32 w, qint32 h)
{
    QByteArray out;
    QDataStream ds(&out, QIODevice::WriteOnly);
    ds.setByteOrder(QDataStream::LittleEndian);
    ds.writeRawData("BM", 2);
    ds << quint32(54 + 3 * qint64(w) * h) << quint32(0) << quint32(54);
    ds << quint32(40) << w << h << quint16(1) << quint16(24) << quint32(0) << quint32(0) << qint32(2835)
       << qint32(2835) << quint32(0) << quint32(0);
    return out;
}

// A whole uncompressed BMP of img, 24 or 32 bits per pixel, rows stored bottom-up or top-down.
QByteArray bmpFile(const QImage &img, int bits, bool topDown)
{
    const qint32 w = img.width(), h = img.height();
    const int stride = (w * bits / 8 + 3) / 4 * 4;
    QByteArray out = bmpHeader(w, topDown ? -h : h);
    out[28] = char(bits);
    for (int i = 0; i < h; ++i) {
        QByteArray row(stride, '\0');
        const int y = topDown ? i : h - 1 - i;
        for (int x = 0; x < w; ++x) {
            const QRgb c = img.pixel(x, y);
            char *px = row.data() + x * bits / 8;
            px[0] = char(qBlue(c));
            px[1] = char(qGreen(c));
            px[2] = char(qRed(c));
        }
        out += row;
    }
    qToLittleEndian<quint32>(quint32(out.size()), out.data() + 2);
    return out;
}

// The same JPEG with other sizes in its frame header.
QByteArray withSize(QByteArray jpeg, quint16 w, quint16 h)
{
    const qsizetype sof = jpeg.indexOf(QByteArrayView("\xFF\xC0", 2));
    if (sof < 0)
        qFatal("no baseline frame header");
    jpeg[sof + 5] = char(h >> 8);
    jpeg[sof + 6] = char(h & 0xFF);
    jpeg[sof + 7] = char(w >> 8);
    jpeg[sof + 8] = char(w & 0xFF);
    return jpeg;
}

bool near(QRgb a, QRgb b, int tolerance)
{
    return qAbs(qRed(a) - qRed(b)) <= tolerance && qAbs(qGreen(a) - qGreen(b)) <= tolerance
        && qAbs(qBlue(a) - qBlue(b)) <= tolerance;
}

QList<QRect> barGeometries(const vxmain &w)
{
    return { w.vxfr_t->geometry(), w.vxfr_r->geometry(), w.vxfr_b->geometry(), w.vxfr_l->geometry() };
}

bool barsShown(const vxmain &w)
{
    return w.vxfr_t->isVisible() && w.vxfr_r->isVisible() && w.vxfr_b->isVisible() && w.vxfr_l->isVisible();
}
} // namespace

// One shown game window with its scripted platform and a program folder of its own.
struct Game {
    QTemporaryDir dir;
    TestPlatform tp;
    vxmain w { tp.platform(), dir.path() };
    Game()
    {
        w.show();
        tp.pointers.history.clear();
    }
    QString file(const QString &name, const QByteArray &bytes)
    {
        const QString path = dir.filePath(name);
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }
    QString picture(const QString &name, const QImage &img)
    {
        return file(name, encode(img, QFileInfo(name).suffix().toLatin1()));
    }
    bool load(const QString &path)
    {
        w.state().PicFile = path;
        return w.LoadPic(QStringLiteral("Load"));
    }
    bool store(const QString &path)
    {
        w.state().OpenFile = path;
        w.state().OpenTitle = QFileInfo(path).fileName();
        return w.LoadPic(QStringLiteral("Lib"));
    }
};

class PictureTest : public QObject
{
    Q_OBJECT

private slots:
    // A picture is fitted into at most 520 x 390 with its proportions, then the board is rounded to
    // whole tiles; the shadow box takes the board's size and the board shows it whole, framed.
    void loadFitsPictureToBoard_data()
    {
        QTest::addColumn<QSize>("picture");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("tile");
        QTest::addColumn<QSize>("board");
        QTest::newRow("800x600 bmp") << QSize(800, 600) << "a.bmp" << QSize(86, 65) << QSize(517, 391);
        QTest::newRow("800x600 jpg") << QSize(800, 600) << "a.jpg" << QSize(86, 65) << QSize(517, 391);
        QTest::newRow("600x800 is 292 wide")
            << QSize(600, 800) << "a.jpg" << QSize(48, 65) << QSize(289, 391);
        QTest::newRow("1000x300 is 156 high")
            << QSize(1000, 300) << "a.bmp" << QSize(86, 26) << QSize(517, 157);
        QTest::newRow("exact 4:3") << QSize(520, 390) << "a.bmp" << QSize(86, 65) << QSize(517, 391);
        QTest::newRow("small grows") << QSize(100, 75) << "a.jpg" << QSize(86, 65) << QSize(517, 391);
    }
    void loadFitsPictureToBoard()
    {
        QFETCH(QSize, picture);
        QFETCH(QString, name);
        QFETCH(QSize, tile);
        QFETCH(QSize, board);
        Game g;
        g.w.state().InPlay = true; // the caller's value is kept
        QVERIFY(g.load(g.picture(name, picturegen::scene(picture, 7))));
        const PuzzleState &s = g.w.state();
        QCOMPARE(QSize(s.TileW, s.TileH), tile);
        QCOMPARE(g.w.vxrz->size(), board);
        QCOMPARE(g.w.vxrz_s->size(), board);
        QCOMPARE(g.w.vxrz->image(), g.w.vxrz_s->image());
        QImage blank(g.w.vxblank->size(), QImage::Format_RGB32);
        blank.fill(g.w.vxblank->backColor());
        QCOMPARE(g.w.vxblank->image(), blank);
        QVERIFY(s.InPlay);
        QVERIFY(barsShown(g.w));
        QVERIFY(g.tp.messages.asked.isEmpty());
        QCOMPARE(
            g.tp.pointers.history, (QList<PointerShape> { PointerShape::Hourglass, PointerShape::Default }));
    }

    // The tile source holds the picture itself, scaled without shifting its content.
    void tileSourceResemblesPicture_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("tolerance");
        QTest::addColumn<int>("margin"); // distance from the quadrant borders that is still pure colour
        QTest::newRow("bmp") << "q.bmp" << 2 << 3;
        QTest::newRow("jpg") << "q.jpg" << 24 << 12;
    }
    void tileSourceResemblesPicture()
    {
        QFETCH(QString, name);
        QFETCH(int, tolerance);
        QFETCH(int, margin);
        Game g;
        QVERIFY(g.load(g.picture(name, quadrants({ 800, 600 }))));
        const QImage &src = g.w.vxrz_s->image();
        const int midX = 517 / 2, midY = 391 / 2; // the picture's halves end at 258.5 and 195.5
        const struct {
            QPoint at;
            QRgb colour;
        } probes[] = { { { 129, 98 }, Red }, { { 388, 98 }, Green }, { { 129, 293 }, Blue },
            { { 388, 293 }, Yellow }, { { midX - margin, midY - margin }, Red },
            { { midX + 1 + margin, midY - margin }, Green }, { { midX - margin, midY + 1 + margin }, Blue },
            { { midX + 1 + margin, midY + 1 + margin }, Yellow }, { { 0, 0 }, Red },
            { { 516, 390 }, Yellow } };
        for (const auto &p : probes)
            QVERIFY2(near(src.pixel(p.at), p.colour, tolerance),
                qPrintable(QStringLiteral("pixel (%1, %2) is %3")
                               .arg(p.at.x())
                               .arg(p.at.y())
                               .arg(src.pixel(p.at), 8, 16, QLatin1Char('0'))));
    }

    // A BMP far larger than the board is averaged into the board while it is read; the result must match
    // a smooth scale of the decoded picture, whatever the row order and pixel width.
    void largeBmpLooksLikeSmoothScale_data()
    {
        QTest::addColumn<int>("bits");
        QTest::addColumn<bool>("topDown");
        QTest::newRow("24 bits, bottom-up") << 24 << false;
        QTest::newRow("24 bits, top-down") << 24 << true;
        QTest::newRow("32 bits, bottom-up") << 32 << false;
    }
    void largeBmpLooksLikeSmoothScale()
    {
        QFETCH(int, bits);
        QFETCH(bool, topDown);
        Game g;
        const QImage picture = picturegen::scene({ 1601, 1203 }, 5);
        const QString path = g.file("big.bmp", bmpFile(picture, bits, topDown));
        QVERIFY2(g.load(path), qPrintable(g.tp.messages.asked.value(0).text));
        const QImage &src = g.w.vxrz_s->image();
        const QImage smooth
            = QImage(path).scaled(src.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        qint64 difference = 0;
        for (int y = 0; y < src.height(); ++y)
            for (int x = 0; x < src.width(); ++x) {
                const QRgb a = src.pixel(x, y), b = smooth.pixel(x, y);
                difference
                    += qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) + qAbs(qBlue(a) - qBlue(b));
            }
        QVERIFY2(difference < 3 * 3 * qint64(src.width()) * src.height(),
            qPrintable(
                QStringLiteral("mean difference %1").arg(double(difference) / src.width() / src.height())));
    }

    // A JPEG turned by its EXIF orientation is fitted and shown upright.
    void exifOrientationTurnsPicture()
    {
        Game g;
        // Orientation 6: the stored picture is shown turned a quarter clockwise.
        const QString path = g.file("turned.jpg", withOrientation(encode(quadrants({ 800, 600 }), "jpg"), 6));
        QCOMPARE(QImageReader(path).transformation(), QImageIOHandler::TransformationRotate90);
        QVERIFY(g.load(path));
        QCOMPARE(g.w.vxrz->size(), QSize(289, 391));
        const QImage &src = g.w.vxrz_s->image();
        QVERIFY(near(src.pixel(72, 98), Blue, 24));
        QVERIFY(near(src.pixel(216, 98), Red, 24));
        QVERIFY(near(src.pixel(72, 293), Yellow, 24));
        QVERIFY(near(src.pixel(216, 293), Green, 24));
    }

    // A picture that cannot be used is reported, and the board and the state stay as they were.
    void badPictureLeavesBoardAsItWas_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("exists");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");
        const QByteArray jpeg = encode(picturegen::scene({ 640, 480 }, 3), "jpg");
        const QByteArray bmp = encode(picturegen::scene({ 64, 48 }, 3), "bmp");
        QTest::newRow("missing") << "gone.jpg" << false << QByteArray() << "cannot be found";
        QTest::newRow("empty") << "empty.jpg" << true << QByteArray("") << "empty";
        QTest::newRow("truncated jpeg") << "cut.jpg" << true << jpeg.left(jpeg.size() / 2) << "incomplete";
        QTest::newRow("bmp without its pixels") << "cut.bmp" << true << bmp.left(200) << "incomplete";
        QTest::newRow("jpeg with a garbled header")
            << "garbled.jpg" << true << QByteArray("\xFF\xD8\xFF\xC0\x00\x05", 6) + "garbage and more garbage"
            << "cannot be read";
        QTest::newRow("text named bmp")
            << "notes.bmp" << true << QByteArray("just some words\n") << "not a picture";
        QTest::newRow("too flat for the tiles")
            << "strip.bmp" << true << encode(quadrants({ 1000, 5 }), "bmp") << "too narrow or too flat";
        QTest::newRow("bmp header claims 60000x60000") << "huge.bmp" << true << bmpHeader(60000, 60000) << "";
        QTest::newRow("jpeg header claims 60000x60000")
            << "huge.jpg" << true << withSize(jpeg, 60000, 60000) << "too large";
    }
    void badPictureLeavesBoardAsItWas()
    {
        QFETCH(QString, name);
        QFETCH(bool, exists);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        Game g;
        QVERIFY(g.load(g.picture("good.jpg", picturegen::scene({ 640, 480 }, 5))));
        const QString path = exists ? g.file(name, bytes) : g.dir.filePath(name);
        g.w.state().PicFile = path;
        const PuzzleState before = g.w.state();
        const QImage board = g.w.vxrz->image(), source = g.w.vxrz_s->image();
        const QList<QRect> bars = barGeometries(g.w);
        g.tp.pointers.history.clear();

        QVERIFY(!g.w.LoadPic(QStringLiteral("Load")));
        QCOMPARE(g.tp.messages.asked.size(), 1);
        const AskedBox box = g.tp.messages.asked.first();
        QCOMPARE(box.title, QStringLiteral("Open - ERROR"));
        QCOMPARE(box.style, 16);
        QVERIFY2(box.text.contains(name) && box.text.contains(reason), qPrintable(box.text));
        QCOMPARE(g.w.vxrz->image(), board);
        QCOMPARE(g.w.vxrz_s->image(), source);
        QCOMPARE(barGeometries(g.w), bars);
        QVERIFY(barsShown(g.w));
        const PuzzleState &s = g.w.state();
        QCOMPARE(QSize(s.TileW, s.TileH), QSize(before.TileW, before.TileH));
        QCOMPARE(s.PicFile, before.PicFile);
        QCOMPARE(s.InPlay, before.InPlay);
        QCOMPARE(s.GridN, before.GridN);
        QVERIFY(s.Board == before.Board);
        QVERIFY(g.w.vxpicfull.isNull());
        QCOMPARE(g.tp.pointers.current(), PointerShape::Default);
    }

    // BMP pictures go into the library reduced or enlarged to board size, as BMP, named with the prefix.
    void libraryStoresBmpAtBoardSize_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("picture");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("existing");
        QTest::newRow("photo reduced")
            << "photo.bmp" << QSize(800, 600) << "VX_photo.bmp" << QSize(520, 390) << false;
        QTest::newRow("small enlarged")
            << "small.bmp" << QSize(100, 75) << "VX_small.bmp" << QSize(520, 390) << false;
        QTest::newRow("wide, rows padded")
            << "wide.bmp" << QSize(1001, 500) << "VX_wide.bmp" << QSize(520, 260) << false;
        QTest::newRow("tall") << "tall.bmp" << QSize(300, 600) << "VX_tall.bmp" << QSize(195, 390) << false;
        QTest::newRow("prefix in lower case kept")
            << "vx_own.bmp" << QSize(800, 600) << "vx_own.bmp" << QSize(520, 390) << false;
        QTest::newRow("older copy replaced")
            << "photo.bmp" << QSize(800, 600) << "VX_photo.bmp" << QSize(520, 390) << true;
    }
    void libraryStoresBmpAtBoardSize()
    {
        QFETCH(QString, name);
        QFETCH(QSize, picture);
        QFETCH(QString, stored);
        QFETCH(QSize, size);
        QFETCH(bool, existing);
        Game g;
        const QString target = g.w.state().LibPath + "/" + stored;
        if (existing)
            QVERIFY(QFile(target).open(QIODevice::WriteOnly) && QFile::resize(target, 10));
        const QImage boardBefore = g.w.vxrz->image();
        QVERIFY(g.store(g.picture(name, quadrants(picture))));
        QImageReader reader(target);
        QCOMPARE(reader.format(), QByteArray("bmp"));
        const QImage img = reader.read();
        QCOMPARE(img.size(), size);
        QVERIFY(near(img.pixel(size.width() / 4, size.height() / 4), Red, 2));
        QVERIFY(near(img.pixel(size.width() * 3 / 4, size.height() * 3 / 4), Yellow, 2));
        QVERIFY(g.w.state().PicFile.isEmpty());
        QCOMPARE(g.w.vxrz->image(), boardBefore);
        QCOMPARE(
            g.tp.pointers.history, (QList<PointerShape> { PointerShape::Hourglass, PointerShape::Default }));
    }

    // Other pictures are copied into the library byte for byte.
    void libraryCopiesOtherPicturesUnchanged_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<bool>("existing");
        const QByteArray jpeg = encode(picturegen::scene({ 1200, 900 }, 11), "jpg");
        // A 1 x 1 GIF, written by hand because Qt has no GIF writer.
        const QByteArray gif = QByteArray::fromBase64("R0lGODlhAQABAIAAAP///wAAACwAAAAAAQABAAACAkQBADs=");
        QTest::newRow("jpeg") << "photo.jpg" << jpeg << "VX_photo.jpg" << false;
        QTest::newRow("jpeg over an older copy") << "photo.jpg" << jpeg << "VX_photo.jpg" << true;
        QTest::newRow("gif keeps its prefixed name") << "vx_old.gif" << gif << "vx_old.gif" << false;
    }
    void libraryCopiesOtherPicturesUnchanged()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, stored);
        QFETCH(bool, existing);
        Game g;
        const QString target = g.w.state().LibPath + "/" + stored;
        if (existing)
            QVERIFY(QFile(target).open(QIODevice::WriteOnly) && QFile::resize(target, 10));
        QVERIFY(g.store(g.file(name, bytes)));
        QFile f(target);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), bytes);
    }

    // A file that is no picture is reported and stored nowhere.
    void libraryRefusesFileThatIsNoPicture()
    {
        Game g;
        QVERIFY(!g.store(g.file("notes.jpg", "plain text, no picture")));
        QCOMPARE(g.tp.messages.asked.size(), 1);
        QCOMPARE(g.tp.messages.asked.first().title, QStringLiteral("Open - ERROR"));
        QCOMPARE(g.tp.messages.asked.first().style, 16);
        QVERIFY(QDir(g.w.state().LibPath).isEmpty());
        QCOMPARE(g.tp.pointers.current(), PointerShape::Default);
    }

    // The four bars end where the board box and the border shape put them, the same on every run.
    void frameBarsEndGeometry()
    {
        Game g;
        g.w.ScrResize();
        g.w.vxrz->setBoxSize(300, 240);
        const QRect B = g.w.vxframe_border->geometry();
        const int L = B.x(), T = B.y(), W = B.width(), H = B.height();
        const QList<QRect> expected = { QRect(L, T, 312, 4), QRect(L + W - 5, T + 4, 4, 248),
            QRect(L + W - 300 - 13, T + H - 5, 309, 4), QRect(L, T + H - 240 - 12, 4, 249) };
        g.w.FrAnimate();
        QCOMPARE(barGeometries(g.w), expected);
        QVERIFY(barsShown(g.w));
        g.w.FrAnimate();
        QCOMPARE(barGeometries(g.w), expected);
        QVERIFY(barsShown(g.w));
    }

    // Round a laid-out board the bars close into a ring 4 pixels wide over the border shape.
    void frameClosesRingRoundLoadedBoard()
    {
        Game g;
        QVERIFY(g.load(g.picture("a.jpg", picturegen::scene({ 600, 800 }, 2))));
        const QRect B = g.w.vxframe_border->geometry();
        const QRect outer(B.topLeft(), B.size() - QSize(1, 1));
        QRegion ring;
        for (const QRect &r : barGeometries(g.w))
            ring += r;
        QCOMPARE(ring, QRegion(outer) - QRegion(outer.adjusted(4, 4, -4, -4)));
    }
};

QTEST_MAIN(PictureTest)
#include "tst_picture.moc"
