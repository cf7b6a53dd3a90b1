// Hostile pictures through "Open Image" during a puzzle: each one plays, showing what it holds, or is
// refused with what is wrong while the puzzle and the board stay as they were.
#include "game.h"
#include "tools/exifwriter.h"
#include "tools/gifwriter.h"

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QPainter>
#include <QTest>
#include <jpeglib.h>
#include <unistd.h>

namespace
{
const QImage Scene = picturegen::scene({ 320, 240 }, 4);

QByteArray encode(const QImage &img, const char *format, bool progressive = false)
{
    QByteArray out;
    QBuffer buf(&out);
    buf.open(QIODevice::WriteOnly);
    QImageWriter writer(&buf, format);
    writer.setQuality(95);
    writer.setProgressiveScanWrite(progressive);
    writer.write(img);
    return out;
}

QByteArray gif(const QImage &img)
{
    QTemporaryDir dir;
    QFile f(dir.filePath(QStringLiteral("a.gif")));
    return gifwriter::write(img, f.fileName()) && f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The one frame repeated after itself: two frames, of which the first is shown.
QByteArray animated(QByteArray one)
{
    const int start = 13 + 3 * (2 << (one[10] & 7)); // after the screen and its colour table
    one.chop(1); // the trailer
    return one + one.mid(start) + ';';
}

// Adobe's CMYK as cameras' software writes it (stored inverted), which Qt cannot write.
QByteArray cmyk(const QImage &img)
{
    jpeg_compress_struct c {};
    jpeg_error_mgr e {};
    c.err = jpeg_std_error(&e);
    jpeg_create_compress(&c);
    unsigned char *mem = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&c, &mem, &size);
    c.image_width = JDIMENSION(img.width());
    c.image_height = JDIMENSION(img.height());
    c.input_components = 4;
    c.in_color_space = JCS_CMYK;
    jpeg_set_defaults(&c);
    jpeg_start_compress(&c, TRUE);
    std::vector<JSAMPLE> row(4 * img.width());
    for (int y = 0; y < img.height(); ++y) {
        for (int x = 0; x < img.width(); ++x) {
            const QRgb p = img.pixel(x, y);
            row.at(4 * x) = JSAMPLE(qRed(p)), row.at(4 * x + 1) = JSAMPLE(qGreen(p));
            row.at(4 * x + 2) = JSAMPLE(qBlue(p)), row.at(4 * x + 3) = 255;
        }
        JSAMPROW r = row.data();
        jpeg_write_scanlines(&c, &r, 1);
    }
    jpeg_finish_compress(&c);
    jpeg_destroy_compress(&c);
    QByteArray out(reinterpret_cast<const char *>(mem), qsizetype(size));
    free(mem);
    return out;
}

// One bit flipped in every 97 bytes past the first 20.
QByteArray flipped(QByteArray b)
{
    for (qsizetype i = 20; i < b.size(); i += 97)
        b[i] = char(b[i] ^ (1 << (i % 8)));
    return b;
}

// A header that claims 65535 x 65535 pixels, the data left as it is.
QByteArray claimsHuge(QByteArray b, const char *format)
{
    const QByteArray ff(4, char(0xFF));
    if (qstrcmp(format, "bmp") == 0)
        return b.replace(18, 8, QByteArray::fromHex("ffff0000ffff0000"));
    if (qstrcmp(format, "gif") == 0)
        return b.replace(6, 4, ff).replace(b.indexOf(',') + 5, 4, ff);
    return b.replace(b.indexOf("\xFF\xC0") + 5, 4, ff); // the frame's height and width
}

// A 32-bit BMP with an alpha mask (the version 4 header), which Qt writes without its alpha.
QByteArray bmpWithAlpha(const QImage &img)
{
    const qint32 w = img.width(), h = img.height();
    QByteArray out;
    {
        QDataStream ds(&out, QIODevice::WriteOnly);
        ds.setByteOrder(QDataStream::LittleEndian);
        ds.writeRawData("BM", 2);
        ds << quint32(122 + 4 * w * h) << quint32(0) << quint32(122) << quint32(108) << w << h << quint16(1)
           << quint16(32) << quint32(3) << quint32(4 * w * h) << qint32(2835) << qint32(2835) << quint32(0)
           << quint32(0) << quint32(0xFF0000) << quint32(0xFF00) << quint32(0xFF) << quint32(0xFF000000)
           << quint32(0x73524742); // sRGB
    }
    out += QByteArray(48, '\0'); // no end points, no gammas
    for (int y = h - 1; y >= 0; --y) // blue, green, red, alpha in memory order
        out.append(reinterpret_cast<const char *>(img.constScanLine(y)), 4 * w);
    return out;
}

// The mean of the summed channel differences between the tile source and img smoothly scaled onto it.
double difference(const QImage &source, const QImage &img)
{
    const QImage expected = img.scaled(source.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                                .convertToFormat(QImage::Format_RGB32);
    qint64 sum = 0;
    for (int y = 0; y < source.height(); ++y)
        for (int x = 0; x < source.width(); ++x) {
            const QRgb a = source.pixel(x, y), b = expected.pixel(x, y);
            sum += qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) + qAbs(qBlue(a) - qBlue(b));
        }
    return double(sum) / source.width() / source.height();
}
} // namespace

class HostileTest : public QObject
{
    Q_OBJECT

private slots:
    void hostilePicturePlaysOrIsRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes"); // null: made by the test itself
        QTest::addColumn<int>("n");
        QTest::addColumn<QString>("says"); // the refusal's reason; empty: it plays
        QTest::addColumn<QImage>("shows"); // what a picture that plays shows; null: not compared
        const QByteArray jpeg = encode(Scene, "jpg"), bmp = encode(Scene, "bmp"), gif1 = gif(Scene);
        QImage white(1, 1, QImage::Format_RGB32), alpha(Scene.size(), QImage::Format_ARGB32),
            composed = alpha;
        white.fill(Qt::white);
        alpha.fill(Qt::transparent);
        QPainter(&alpha).fillRect(0, 0, 160, 240, QColor(200, 30, 30));
        composed.fill(Qt::white);
        QPainter(&composed).drawImage(0, 0, alpha);
        const QImage grey = Scene.convertToFormat(QImage::Format_Grayscale8);
        const QImage palette = Scene.convertToFormat(QImage::Format_Indexed8);
        const auto row
            = [](const char *tag, const char *name, const QByteArray &b, int n, const char *says,
                  const QImage &shows = QImage()) { QTest::newRow(tag) << name << b << n << says << shows; };
        row("zero bytes", "a.gif", "", 6, "is empty");
        row("truncated jpeg", "a.jpg", jpeg.left(jpeg.size() / 2), 6, "incomplete");
        row("truncated gif", "a.gif", gif1.left(gif1.size() / 2), 6, "incomplete");
        row("truncated bmp", "a.bmp", bmp.left(bmp.size() / 2), 6, "incomplete");
        row("bit-flipped jpeg", "a.jpg", flipped(jpeg), 6, "damaged");
        row("bit-flipped gif", "a.gif", flipped(gif1), 6, "damaged");
        row("bit-flipped bmp", "a.bmp", flipped(bmp), 6, "too large");
        row("text named .jpg", "a.jpg", "just some words", 6, "not a picture");
        row("1 x 1", "a.bmp", encode(white, "bmp"), 11, "", white);
        row("1 x 4000", "a.bmp", encode(QImage(1, 4000, QImage::Format_RGB32), "bmp"), 2, "too narrow");
        row("4000 x 1", "a.bmp", encode(QImage(4000, 1, QImage::Format_RGB32), "bmp"), 2, "too flat");
        row("40 x 4000 at 2", "a.bmp", encode(QImage(40, 4000, QImage::Format_RGB32), "bmp"), 2, "");
        row("40 x 4000 at 6", "a.bmp", encode(QImage(40, 4000, QImage::Format_RGB32), "bmp"), 6,
            "too narrow");
        row("jpeg claims 65535", "a.jpg", claimsHuge(jpeg, "jpg"), 6, "damaged");
        row("gif claims 65535", "a.gif", claimsHuge(gif1, "gif"), 6, "too large");
        row("bmp claims 65535", "a.bmp", claimsHuge(bmp, "bmp"), 6, "damaged");
        row("animated gif", "a.gif", animated(gif1), 6, "", QImage::fromData(gif1));
        row("greyscale jpeg", "a.jpg", encode(grey, "jpg"), 6, "", grey);
        row("cmyk jpeg", "a.jpg", cmyk(Scene), 6, "", Scene);
        row("progressive jpeg", "a.jpg", encode(Scene, "jpg", true), 6, "", Scene);
        row("palette bmp", "a.bmp", encode(palette, "bmp"), 6, "", palette);
        row("32-bit bmp with alpha", "a.bmp", bmpWithAlpha(alpha), 6, "", composed);
        for (int o = 1; o <= 8; ++o) { // stored turned or mirrored the way the orientation undoes
            const QImage turned = Scene.transformed(QTransform().rotate(o >= 5 ? (o == 6 ? -90 : 90) : 0))
                                      .mirrored(o == 2 || o == 5, o == 4 || o == 7)
                                      .transformed(QTransform().rotate(o == 3 ? 180 : 0));
            row(qPrintable(QStringLiteral("exif orientation %1").arg(o)), "a.jpg",
                exifwriter::withExif(encode(turned, "jpg"), o, {}), 6, "", Scene);
        }
        row("no read permission", "a.jpg", QByteArray(), 6, geteuid() == 0 ? "" : "cannot be read");
        row("folder named x.jpg", "x.jpg", QByteArray(), 6, "is a folder");
    }
    void hostilePicturePlaysOrIsRefused()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(int, n);
        QFETCH(QString, says);
        QFETCH(QImage, shows);
        Game g;
        QVERIFY(g.play(Codes::Drag, Integer(n)));
        QString path = g.dir.filePath(name);
        if (name == "x.jpg")
            QVERIFY(QDir().mkpath(path + "/inside"));
        else if (bytes.isNull())
            QFile::setPermissions(g.picture(name, Scene), {});
        else
            g.file(name, bytes);
        const PuzzleState before = g.s();
        const QImage board = g.w.vxrz->image();
        g.tp.files.choose(path);
        g.w.cb_new_Click();

        if (!says.isEmpty()) {
            QCOMPARE(g.tp.messages.asked.size(), 1);
            const AskedBox m = g.tp.messages.asked.first();
            QVERIFY2(m.title == "Open - ERROR" && m.text.contains(says), qPrintable(m.text));
            QVERIFY(g.s().InPlay && g.s().PicFile == before.PicFile && g.s().Board == before.Board);
            QCOMPARE(g.w.vxrz->image(), board);
            return;
        }
        QVERIFY2(g.tp.messages.asked.isEmpty(), qPrintable(g.tp.messages.asked.value(0).text));
        QCOMPARE(g.s().PicFile, path);
        if (!shows.isNull()) {
            const double d = difference(g.w.vxrz_s->image(), shows);
            QVERIFY2(d < 12, qPrintable(QString::number(d)));
        }
        g.w.cb_scramble_Click();
        QVERIFY(g.s().InPlay);
        for (int p = 0; p < g.s().TileTotal; ++p)
            QVERIFY(placeShowsRecord(g.w, p));
    }
};

QTEST_MAIN(HostileTest)
#include "tst_hostile.moc"
