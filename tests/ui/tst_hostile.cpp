// Hostile pictures through "Open Image" during a puzzle: each one plays, showing what it holds, or is
// refused with what is wrong while the puzzle and the board stay as they were.
#include "game.h"
#include "tools/exifwriter.h"

#include <QDir>
#include <QTest>
#include <jpeglib.h>
#include <unistd.h>

namespace
{
const QImage Scene = picturegen::scene({ 64, 48 }, 4);

// Adobe's CMYK, stored inverted, which Qt cannot write: the scene's colours with no black.
QByteArray cmyk()
{
    jpeg_compress_struct c {};
    jpeg_error_mgr e {};
    c.err = jpeg_std_error(&e);
    jpeg_create_compress(&c);
    unsigned char *mem = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&c, &mem, &size);
    c.image_width = 64, c.image_height = 48, c.input_components = 4, c.in_color_space = JCS_CMYK;
    jpeg_set_defaults(&c);
    jpeg_start_compress(&c, TRUE);
    for (QImage row = Scene.convertToFormat(QImage::Format_RGBX8888); c.next_scanline < 48;) {
        auto *r = row.scanLine(int(c.next_scanline));
        jpeg_write_scanlines(&c, &r, 1);
    }
    jpeg_finish_compress(&c);
    jpeg_destroy_compress(&c);
    const QByteArray out(reinterpret_cast<const char *>(mem), qsizetype(size));
    free(mem);
    return out;
}

// img (64 x 48, ARGB32) as a 32-bit BMP with an alpha mask in a version 4 header; Qt drops the alpha.
QByteArray bmpWithAlpha(const QImage &img)
{
    QByteArray out = QByteArray::fromHex("424d7a300000000000007a0000006c0000004000000030000000010020000300"
                                         "000000300000130b0000130b000000000000000000000000ff0000ff0000ff00"
                                         "0000000000ff42475273")
        + QByteArray(48, '\0');
    for (int y = 47; y >= 0; --y) // bottom-up rows of blue, green, red and alpha
        out.append(reinterpret_cast<const char *>(img.constScanLine(y)), 64 * 4);
    return out;
}

// One bit flipped in every 97 bytes past the first 20.
QByteArray flipped(QByteArray b)
{
    for (qsizetype i = 20; i < b.size(); i += 97)
        b[i] = char(b[i] ^ (1 << (i % 8)));
    return b;
}

} // namespace

class HostileTest : public QObject
{
    Q_OBJECT

private slots:
    void hostilePicturePlaysOrIsRefused_data()
    {
        // The file's name (x.jpg: a folder) and bytes (null: the scene without read permission), the size,
        // the refusal's reason (empty: it plays) and what a picture that plays shows (null: not compared).
        columns<QString, QByteArray, int, QString, QImage>({ "name", "bytes", "n", "says", "shows" });
        const QByteArray jpeg = encode(Scene, "jpg"), bmp = encode(Scene, "bmp"), gif1 = encode(Scene, "gif");
        QImage alpha = Scene.convertToFormat(QImage::Format_ARGB32), overWhite = Scene; // right half clear
        for (int i = 0; i < 32 * 48; ++i)
            alpha.setPixel(32 + i % 32, i / 32, 0), overWhite.setPixel(32 + i % 32, i / 32, 0xFFFFFFFF);
        const QImage grey = Scene.convertToFormat(QImage::Format_Grayscale8), dot = Scene.copy(0, 0, 1, 1);
        const auto tall = [](int w, int h) { return encode(QImage(w, h, QImage::Format_RGB32), "bmp"); };
        const auto row
            = [](const char *tag, const char *name, const QByteArray &b, int n, const char *says,
                  const QImage &shows = QImage()) { QTest::newRow(tag) << name << b << n << says << shows; };
        row("missing", "gone.jpg", QByteArray(), 6, "cannot be found");
        row("zero bytes", "a.gif", "", 6, "is empty");
        row("text named .jpg", "a.jpg", "just some words", 6, "not a picture");
        row("truncated jpeg", "a.jpg", jpeg.left(jpeg.size() / 2), 6, "incomplete");
        row("truncated bmp", "a.bmp", bmp.left(bmp.size() / 2), 6, "incomplete");
        row("truncated gif", "a.gif", gif1.left(gif1.size() / 2), 6, "incomplete");
        row("bit-flipped jpeg", "a.jpg", flipped(jpeg), 6, "damaged");
        row("bit-flipped gif", "a.gif", flipped(gif1), 6, "");
        row("1 x 1", "a.bmp", encode(dot, "bmp"), 11, "", dot);
        row("4000 x 1", "a.bmp", tall(4000, 1), 2, "too flat");
        row("40 x 4000 at 2", "a.bmp", tall(40, 4000), 2, "");
        row("40 x 4000 at 6", "a.bmp", tall(40, 4000), 6, "too narrow");
        row("jpeg claims 65535", "a.jpg",
            QByteArray(jpeg).replace(jpeg.indexOf("\xFF\xC0") + 5, 4, "\xFF\xFF\xFF\xFF"), 6, "damaged");
        row("bmp claims 65535", "a.bmp",
            QByteArray(bmp).replace(18, 8, QByteArray::fromHex("ffff0000ffff0000")), 6, "damaged");
        // Found by the fuzzer: rows so wide and many that their product passes any integer.
        row("bmp rows past any integer", "a.bmp",
            QByteArray::fromBase64("Qk02kAAAAAAAZTYAAAApAAAAgAAAvwEAGAAOAAD+AwAAAABEgQAAcGAAAA=="), 6,
            "incomplete");
        row("animated gif", "a.gif", gif1.chopped(1) + gif1.mid(13 + 3 * 256), 6, "", QImage::fromData(gif1));
        row("greyscale jpeg", "a.jpg", encode(grey, "jpg"), 6, "", grey);
        row("cmyk jpeg", "a.jpg", cmyk(), 6, "", Scene);
        row("progressive jpeg", "a.jpg", encode(Scene, "jpg", true), 6, "", Scene);
        const QImage palette = Scene.convertToFormat(QImage::Format_Indexed8);
        row("palette bmp", "a.bmp", encode(palette, "bmp"), 6, "", palette);
        row("32-bit bmp with alpha", "a.bmp", bmpWithAlpha(alpha), 6, "", overWhite);
        for (int o = 1; o <= 8; ++o) { // stored turned or mirrored the way the orientation undoes
            const QImage turned = Scene.transformed(QTransform().rotate(o >= 5 ? (o == 6 ? -90 : 90) : 0))
                                      .mirrored(o == 2 || o == 5, o == 4 || o == 7)
                                      .transformed(QTransform().rotate(o == 3 ? 180 : 0));
            row(qPrintable(QStringLiteral("exif orientation %1").arg(o)), "a.jpg",
                exifwriter::withExif(encode(turned, "jpg"), o, {}), 6, "", Scene);
        }
        row("no read permission", "a.jpg", QByteArray(), 6, geteuid() == 0 ? "" : "cannot be read");
        row("folder named x.jpg", "x.jpg", "", 6, "is a folder");
    }
    void hostilePicturePlaysOrIsRefused()
    {
        const auto [name, bytes, n, says, shows]
            = fetch<QString, QByteArray, int, QString, QImage>("name", "bytes", "n", "says", "shows");
        Game g;
        QVERIFY(g.play(Codes::Drag, Integer(n)));
        const QString path = g.dir.filePath(name);
        QVERIFY(name == "gone.jpg" || name == "x.jpg" ? QDir().mkpath(name == "x.jpg" ? path : g.dir.path())
                : bytes.isNull()                      ? QFile::setPermissions(g.picture(name, Scene), {})
                                                      : !g.file(name, bytes).isEmpty());
        const PuzzleState before = g.s();
        const QImage board = g.w.vxrz->image(), source = g.w.vxrz_s->image();
        g.tp.files.choose(path);
        g.w.cb_new_Click();
        if (!says.isEmpty()) {
            // The library refuses it in the same words and stays empty, unless only the tiles' size is
            // at fault (the library has no board).
            const bool tilesOnly = says.startsWith("too narrow") || says.startsWith("too flat");
            QVERIFY(tilesOnly || (!g.store(path) && QDir(g.s().LibPath).isEmpty()));
            const QList<AskedBox> &asked = g.tp.messages.asked;
            const AskedBox m = asked.value(0);
            QVERIFY2(asked.size() == 2 - tilesOnly && asked.last().text == m.text && m.title == "Open - ERROR"
                    && m.style == MsgStyle::Critical && m.text.contains(name) && m.text.contains(says),
                qPrintable(m.text));
            QVERIFY(g.s().InPlay && g.s().PicFile == before.PicFile && g.s().Board == before.Board);
            QVERIFY(g.w.vxrz->image() == board && g.w.vxrz_s->image() == source);
            return;
        }
        QVERIFY2(g.tp.messages.asked.isEmpty() && g.s().PicFile == path,
            qPrintable(g.tp.messages.asked.value(0).text));
        const QImage now = g.w.vxrz_s->image().copy(0, 0, g.s().TileW * n, g.s().TileH * n);
        const double d = shows.isNull() ? 0 : difference(now, shows);
        QVERIFY2(d < 20, qPrintable(QString::number(d)));
        g.w.cb_scramble_Click();
        QVERIFY(g.s().InPlay && holdersShowTables(g.w));
    }
};

QTEST_MAIN(HostileTest)
#include "tst_hostile.moc"
