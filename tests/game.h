// One shown game window with its scripted platform and a program folder of its own, and the ways the
// widget tests look at what it shows.
#pragma once

#include "app/vxmain.h"
#include "doubles.h"
#include "measure.h"
#include "pictures/thumbcache.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"
#include "table.h"
#include "tools/gifwriter.h"
#include "tools/picturegen.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QTest>

// img as a file of the format (jpg, bmp or gif, which Qt cannot write) would hold it.
inline QByteArray encode(const QImage &img, const char *format, bool progressive = false)
{
    if (qstrcmp(format, "gif") == 0) {
        QTemporaryDir dir;
        return gifwriter::write(img, dir.filePath("a.gif")) ? bytesOf(dir.filePath("a.gif")) : QByteArray();
    }
    QBuffer buf;
    buf.open(QIODevice::WriteOnly);
    QImageWriter writer(&buf, format);
    writer.setQuality(95);
    writer.setProgressiveScanWrite(progressive);
    return writer.write(img) ? buf.data() : QByteArray();
}

// The pointer while a picture loads or the tiles are scrambled.
inline const QList<PointerShape> HourglassThenDefault { PointerShape::Hourglass, PointerShape::Default };

// The colour of the blank image on empty places and tray boxes.
inline const QRgb BlankColour = qRgb(255, 192, 192);

struct Game {
    QTemporaryDir dir;
    // The program folder: the game's own, or one that outlives it (a restart of the game).
    QString root;
    TestPlatform tp;
    vxmain w { tp.platform(), root };

    explicit Game(const QString &folder = QString())
        : root(folder.isEmpty() ? dir.path() : folder)
    {
        // The library's thumbnails are cached in this game's own folder, never in the user's cache.
        qputenv("XDG_CACHE_HOME", QFile::encodeName(dir.filePath("cache")));
        w.show();
    }
    ~Game()
    {
        // The cache's writes end before their folder goes.
        thumbcache::waitForWrites();
    }
    PuzzleState &s()
    {
        return w.state();
    }
    // A file of these bytes beside the program.
    QString file(const QString &name, const QByteArray &bytes)
    {
        const QString path = root + QLatin1Char('/') + name;
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }
    // A picture file beside the program, in the format its name ends with.
    QString picture(const QString &name, const QImage &img)
    {
        const QByteArray bytes = encode(img, qPrintable(QFileInfo(name).suffix()));
        if (bytes.isEmpty())
            qFatal("cannot encode %s", qPrintable(name));
        return file(name, bytes);
    }
    bool load(const QString &path)
    {
        s().PicFile = path;
        return w.LoadPic(QStringLiteral("Load"));
    }
    bool store(const QString &path)
    {
        s().OpenFile = path;
        s().OpenTitle = QFileInfo(path).fileName();
        return w.LoadPic(QStringLiteral("Lib"));
    }
    // A puzzle in play: type and size chosen, a generated picture loaded and scrambled with seed.
    bool play(const QString &type, Integer n, quint32 seed = 7)
    {
        if (s().PuzType != type)
            w.cb_type_Click();
        s().setGridSize(n);
        w.ScrResize();
        if (!load(picture(QStringLiteral("pic.bmp"), picturegen::scene(QSize(520, 390), seed))))
            return false;
        w.setRandomSeed(seed);
        w.cb_scramble_Click();
        return s().InPlay;
    }
};

// Drags the piece of place 0 into tray box k (the tables then differ from any fresh scramble).
inline void park(vxmain &w, int k)
{
    w.vxrz_MouseDown(Qt::LeftButton, {}, 5, 5);
    w.Form_MouseUp(w.vxpcs[k]->x() + 10, w.vxpcs[k]->y() + 10);
}

// Arrows from the keyboard's cursor to holder `to`: along the row, then up or down (the tray: the last row).
inline void cursorTo(vxmain &w, int to)
{
    const int n = w.state().GridN;
    for (int c = w.cursorHolder(); c != to; c = w.cursorHolder())
        QTest::keyClick(w.vxrz,
            c % n != to % n ? (c % n < to % n ? Qt::Key_Right : Qt::Key_Left)
                            : (c / n < to / n ? Qt::Key_Down : Qt::Key_Up));
}

// The keys alone carry every piece home in turn, from the board or the tray.
inline void solveByKeys(vxmain &w)
{
    const PuzzleState &s = w.state();
    for (int p = 0; s.InPlay && p < s.TileTotal; ++p) {
        int from = 0;
        while ((from < s.TileTotal ? s.Board[from] : s.Pcs[from - s.TileTotal]).Home != p)
            ++from;
        cursorTo(w, from);
        QTest::keyClick(w.vxrz, Qt::Key_Space);
        cursorTo(w, p);
        QTest::keyClick(w.vxrz, Qt::Key_Enter);
    }
}

// The four bars of the frame round the board are shown.
inline bool framed(const vxmain &w)
{
    return w.vxfr_t->isVisible() && w.vxfr_r->isVisible() && w.vxfr_b->isVisible() && w.vxfr_l->isVisible();
}

// The tray boxes 0 .. count - 1 are shown, the others hidden.
inline bool trayShown(const vxmain &w, int count)
{
    int i = 0;
    return std::all_of(
        w.vxpcs.begin(), w.vxpcs.end(), [&](const QWidget *b) { return b->isVisible() == (i++ < count); });
}

// What a holder shows inside its lines (a tile's unless told): the piece's part of the whole picture, or
// the blank image; in the device-resolution drawing when fine (a dense screen's), at its ratio.
inline QImage expectedInside(const vxmain &w, const TileRec &t, QSize inner = {}, bool fine = false)
{
    if (inner.isEmpty())
        inner = QSize(w.state().TileW - 2, w.state().TileH - 2);
    const int r = fine ? int(w.vxrz_s->fine()->devicePixelRatio()) : 1;
    if (t.Home >= 0)
        return (fine ? *w.vxrz_s->fine() : w.vxrz_s->image())
            .copy(QRect(QPoint(t.SrcX + 1, t.SrcY + 1) * r, inner * r));
    QImage blank(inner * r, QImage::Format_RGB32);
    blank.fill(BlankColour);
    return blank;
}

// What holder h shows inside its lines: board places 0 .. TileTotal - 1, then the tray boxes.
inline QImage insideHolder(const vxmain &w, int h, bool fine = false)
{
    const PuzzleState &s = w.state();
    const PictureBox *box = h >= s.TileTotal ? w.vxpcs[h - s.TileTotal] : w.vxrz;
    const QPoint at
        = h >= s.TileTotal ? QPoint(1, 1) : QPoint(h % s.GridN * s.TileW + 1, h / s.GridN * s.TileH + 1);
    const int r = fine ? int(box->fine()->devicePixelRatio()) : 1;
    return (fine ? *box->fine() : box->image()).copy(QRect(at * r, QSize(s.TileW - 2, s.TileH - 2) * r));
}

// Every board place, and every tray box in use in a drag puzzle, shows its record: its piece, or the
// blank image where no piece is and where the slide puzzle's blank stands; on a dense screen in both
// drawings.
inline bool holdersShowTables(const vxmain &w)
{
    const PuzzleState &s = w.state();
    const bool tray = s.PuzType == Codes::Drag;
    for (int h = 0; h < s.TileTotal + (tray ? s.GridN : 0); ++h) {
        TileRec t = h < s.TileTotal ? s.Board[h] : s.Pcs[h - s.TileTotal];
        if (!tray && h == s.BlankPos)
            t.Home = -1;
        for (bool fine : { false, w.vxrz->fine() != nullptr })
            if (insideHolder(w, h, fine) != expectedInside(w, t, {}, fine))
                return false;
    }
    return true;
}
