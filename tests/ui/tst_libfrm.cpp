// The library window: browsing, adding, choosing and leaving, deleting by a drag, camera thumbnails, the
// desktop's thumbnail cache.
#include "exifwriter.h"
#include "game.h"
#include "pictures/libfrm.h"
#include "pictures/thumbnail.h"

#include <QPainter>
#include <QProcess>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QtEndian>
#include <sys/stat.h>

namespace
{
using Six = std::array<int, 6>;
const auto colour = [](int i) { return qRgb(30 + 20 * i, 220 - 20 * i, 60 + 90 * (i % 3)); };
const auto libFile = [](Game &g, int i) { return g.s().LibPath + QStringLiteral("/VX_c%1.bmp").arg(i + 1); };
const auto step = [](libfrm &d, QAbstractSlider::SliderAction a) { d.libscroll->triggerAction(a); };
const auto solid = [](QSize s, QRgb c) { return QImage((uchar *)&c, 1, 1, QImage::Format_RGB32).scaled(s); };
// Neither the group nor others may read a file or folder of the cache.
const auto own
    = [](const QString &path) { return QFileInfo::exists(path) && !(QFile::permissions(path) & 0x77); };
// A PNG chunk's check sum, bit by bit, low bits first.
const auto crc = [](const QByteArray &bytes) {
    quint32 c = ~0u;
    for (int bit = 0; bit < bytes.size() * 8; ++bit)
        c = ((c ^ (uchar(bytes[bit / 8]) >> bit % 8)) & 1 ? 0xEDB88320u : 0) ^ c >> 1;
    return ~c;
};
#ifdef __SANITIZE_THREAD__
// QProcess forks this test of many threads to start the desktop's programs; the child only executes them.
extern "C" const char *__tsan_default_options()
{
    return "die_after_fork=0";
}
#endif
// What a program of the desktop prints, its errors among it; "failed" first when it fails.
const auto ask = [](const QString &program, const QStringList &args) {
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(program, args);
    return p.waitForFinished(30000) && p.exitCode() == 0 ? p.readAll() : "failed: " + p.readAll();
};

// Library entry i is a picture of colour(i); a thumbnail shows an entry, -1 nothing, -2 the unreadable mark.
Six view(Game &g, const libfrm &d)
{
    Six out;
    for (int k = 0; k < 6; ++k) {
        const LibImage *t = d.libimg[k];
        out[k] = t->Tag.isEmpty() && t->image().pixel(56, 42) == qRgb(128, 128, 128) ? -1 : -9;
        out[k] = !t->Problem.isEmpty() && t->image() == thumbnail::unreadableMark(t->size()) ? -2 : out[k];
        for (int i = 0; i < 9; ++i)
            out[k] = t->Tag == libFile(g, i) && t->image().pixel(56, 42) == colour(i) ? i : out[k];
    }
    return out;
}

// A library of n pictures, and "Image Library" run with a script played on its window.
void withLibrary(Game &g, int n, const std::function<void(libfrm &)> &script)
{
    for (int i = 0; i < n; ++i)
        QVERIFY(solid({ 40, 30 }, colour(i)).save(libFile(g, i)));
    g.tp.modals.script = [script](QDialog &d) { script(static_cast<libfrm &>(d)); };
    g.w.cb_lib_Click();
}
} // namespace

class LibraryWindowTest : public QObject
{
    Q_OBJECT
private slots:
    // A step right reads two files, a step left six (spoilt files show which); "Add Image" replaces a shown
    // picture; a double-click plays a picture, not an unreadable one; "Cancel" leaves no picture.
    void browseAddChooseAndCancel()
    {
        Game g;
        QVERIFY(g.play("S", 4));
        g.tp.files.choose(g.picture("VX_c3.bmp", solid({ 80, 60 }, colour(8))));
        withLibrary(g, 9, [&](libfrm &d) {
            QCOMPARE(view(g, d), Six({ 0, 1, 2, 3, 4, 5 }));
            for (int i = 2; i < 6; ++i)
                g.file("lib/" + QFileInfo(libFile(g, i)).fileName(), "spoilt");
            step(d, QAbstractSlider::SliderSingleStepAdd);
            QCOMPARE(view(g, d), Six({ 2, 3, 4, 5, 6, 7 }));
            step(d, QAbstractSlider::SliderSingleStepSub);
            QCOMPARE(view(g, d), Six({ 0, 1, -2, -2, -2, -2 }));
            d.cb_add->click();
            QVERIFY(d.libscroll->value() == 2 && d.libimg[2]->image().pixel(56, 42) == colour(8));
            QCOMPARE(QImage(libFile(g, 2)).size(), QSize(520, 390));
            step(d, QAbstractSlider::SliderToMaximum);
            QCOMPARE(view(g, d), Six({ -2, -2, 6, 7, 8, -1 }));
            d.libimg_DblClick(0); // unreadable: refused with a message
            d.libimg_DblClick(3);
            QCOMPARE(g.tp.messages.asked.size(), 1);
        });
        QVERIFY(g.s().PicFile == libFile(g, 7) && g.w.vxrz->image().pixel(50, 50) == colour(7));
        withLibrary(g, 0, [](libfrm &d) { d.cb_cancel->click(); });
        g.w.cb_scramble_Click();
        QVERIFY(g.s().PicFile.isEmpty() && !g.s().InPlay && g.w.vxrz->image().pixel(50, 50) == BlankColour);
    }

    // A drag onto the delete symbol, with the delete cursor over it, deletes the file after Yes.
    void deleteByDrag()
    {
        for (const auto &[count, off, answer, after] :
            { std::tuple(9, 0, MsgAnswer::Yes, Six { 0, 1, 2, 4, 5, 6 }),
                { 9, 0, MsgAnswer::No, Six { 2, 3, 4, 5, 6, 7 } },
                { 9, 40, MsgAnswer::Yes, Six { 2, 3, 4, 5, 6, 7 } },
                { 1, 0, MsgAnswer::Yes, Six { -1, -1, -1, -1, -1, -1 } } }) {
            Game g;
            g.tp.messages.answers = { answer };
            withLibrary(g, count, [&](libfrm &d) {
                step(d, QAbstractSlider::SliderSingleStepAdd);
                LibImage *t = d.libimg[count > 1];
                const QString path = t->Tag;
                const QPoint target = t->mapFrom(&d, d.cb_del->geometry().center()) + QPoint(off, 0);
                QTest::mousePress(t, Qt::LeftButton, {}, QPoint(5, 5));
                QTest::mouseMove(t, target);
                QCOMPARE(t->cursor(), off ? d.libscroll_DragIcon : d.cb_del_DragIcon);
                QTest::mouseRelease(t, Qt::LeftButton, {}, target);
                const QList<AskedBox> &asked = g.tp.messages.asked;
                QVERIFY(asked.size() == !off
                    && (off || asked[0].text + asked[0].title == "Delete '" + path + "'Delete Image"));
                QCOMPARE(QFileInfo::exists(path), off || answer == MsgAnswer::No);
                QCOMPARE(view(g, d), after);
                d.libimg_DblClick(0);
                QCOMPARE(d.result(), int(count > 1));
            });
        }
    }

    // A camera's embedded thumbnail shows, turned as the picture is: the yellow corner lands top right.
    void embeddedThumbnail()
    {
        Game g;
        QImage thumb = solid({ 160, 120 }, qRgb(0, 0, 255));
        QPainter(&thumb).fillRect(0, 0, 80, 60, Qt::yellow);
        const QString path = g.file("cam.jpg",
            exifwriter::withExif(
                encode(solid({ 640, 480 }, qRgb(255, 0, 0)), "jpg"), 6, encode(thumb, "jpg")));
        const QImage shown = thumbnail::decode(path, { 112, 84 }).image;
        QVERIFY(qGray(shown.pixel(84, 21)) > 180 && qBlue(shown.pixel(28, 21)) > 200);
    }

    void thumbnailCache_data()
    {
        // The picture's name, what the cache holds for it, the screen's pixel ratio.
        columns<QString, QString, int>({ "name", "before", "ratio" });
        const auto row = [](const char *what, const char *before, const char *name = "a.bmp", int ratio = 1) {
            QTest::newRow(what) << QString(name) << QString(before) << ratio;
        };
        row("spaces, letters beyond ASCII, dense screen", "nothing", "Café au lait [2].bmp", 2);
        row("marks GLib leaves as they are", "nothing", "Holiday (1) & more! 'a'+b,c=@$:.bmp");
        row("picture smaller than the box", "nothing", "small.bmp");
        row("another program's entry", "theirs");
        row("another program's entry in the next larger folder", "theirs larger");
        row("the thumbnailer service's entry", "tumbler");
        row("the thumbnailer service's entry too small for a dense screen", "tumbler", "a.bmp", 2);
        row("entry for another picture", "other picture");
        row("stale entry", "stale");
        row("entry for another file size", "other size");
        row("entry of another shape", "other shape");
        row("damaged entry", "cut short");
        row("pipe in the entry's place", "pipe");
        row("entry too large", "too large");
        row("cache that cannot be written", "unwritable");
        row("fail entry", "undecodable", "a.jpg");
    }

    // Another program's entry is used as it is, from the box's folder or the next larger one, or left alone;
    // ours replaces a missing, stale or bad one (in large/ too on a dense screen), serves the next opening
    // and is what GLib names and calls valid. An unwritable cache changes nothing that shows; an undecodable
    // picture is noted until it changes. Every URI here is over 40 characters.
    void thumbnailCache()
    {
        const auto [name, before, ratio] = fetch<QString, QString, int>("name", "before", "ratio");
        // Qt warns of an image it will not decode for its size: the cache must not ask it to.
        QTest::failOnWarning(QRegularExpression("allocation limit"));
        // A relative cache home is no cache home.
        qputenv("XDG_CACHE_HOME", "cache");
        QCOMPARE(thumbcache::folder(), QDir::homePath() + "/.cache/thumbnails");
        QTemporaryDir dir;
        const QString path = QDir(dir.path()).filePath(name);
        qputenv("XDG_CACHE_HOME", QFile::encodeName(dir.filePath("cache")));
        const QRgb red = qRgb(200, 0, 0), blue = qRgb(0, 0, 200);
        QByteArray bytes = encode(solid(name == "small.bmp" ? QSize(40, 30) : QSize(160, 120), red),
            before == "undecodable" ? "jpg" : "bmp", true);
        // A progressive JPEG whose last scan runs past a block's 64 coefficients: whole, but not decodable.
        const qsizetype sos = bytes.lastIndexOf("\xFF\xDA"), se = sos + 6 + 2 * bytes[std::max(sos + 4, 0LL)];
        const char good = before == "undecodable" ? bytes[se] : 0;
        const auto save = [&](char last, qint64 mtime) {
            if (before == "undecodable")
                bytes[se] = last;
            QFile f(path);
            QVERIFY(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size() && f.flush()
                && f.setFileTime(QDateTime::fromSecsSinceEpoch(mtime), QFileDevice::FileModificationTime));
        };
        save(char(0xFF), 1700000000);
        const thumbcache::Original o = thumbcache::original(path);
        const QString folder = thumbcache::folder(), normal = folder + "/normal",
                      entry = folder + (before == "theirs larger" ? "/large/" : "/normal/") + o.name;
        QImage theirs = solid(QSize(128, before == "other shape" ? 128 : 96), blue);
        theirs.setText(
            "Thumb::URI", thumbcache::fileUri(dir.filePath(before == "other picture" ? "b" : name)));
        theirs.setText("Thumb::MTime", QString::number(o.mtime - (before == "stale")));
        theirs.setText("Thumb::Size", QString::number(o.size + (before == "other size")));
        if (!QStringList { "nothing", "unwritable", "undecodable", "tumbler", "pipe" }.contains(before))
            QVERIFY(QDir().mkpath(QFileInfo(entry).path()) && theirs.save(entry));
        // Too large for any folder: its header says 20000 x 20000, which must keep it from being decoded.
        if (before == "too large") {
            QByteArray png = bytesOf(entry);
            qToBigEndian(quint64(20000) << 32 | 20000, png.data() + 16);
            qToBigEndian(crc(png.mid(12, 17)), png.data() + 29);
            QFile f(entry);
            QVERIFY(f.open(QIODevice::WriteOnly) && f.write(png) == png.size());
        }
        // Made by the desktop's thumbnailer service on a bus of its own, through its D-Bus call.
        const char *queue
            = "gdbus call --session -d org.freedesktop.thumbnails.Thumbnailer1 -o /org/freedesktop/"
              "thumbnails/Thumbnailer1 -m org.freedesktop.thumbnails.Thumbnailer1.Queue \"['$0']\" "
              "\"['image/bmp']\" normal default 0 && for i in $(seq 100); do [ -s \"$1\" ] && exit; "
              "sleep 0.1; done; exit 1";
        const QByteArray said
            = before == "tumbler" ? ask("dbus-run-session", { "--", "sh", "-c", queue, o.uri, entry }) : "";
        // Opened for reading, a pipe would wait for a writer for ever.
        if (before == "pipe")
            QVERIFY(QDir().mkpath(normal) && ::mkfifo(QFile::encodeName(entry), 0600) == 0);
        const QByteArray was = before == "pipe" ? QByteArray() : bytesOf(entry);
        if (before == "cut short")
            QVERIFY(QFile(entry).resize(QFileInfo(entry).size() / 2));
        // Running as root passes any permission: a file where the size folder would be stops it.
        if (before == "unwritable")
            QVERIFY(QDir().mkpath(folder) && QFile(normal).open(QIODevice::WriteOnly));
        const auto open = [&] {
            const std::vector<thumbnail::Thumb> t = thumbnail::decodeAll({ path }, { 112, 84 }, ratio);
            thumbnail::keep(t);
            thumbcache::waitForWrites();
            return t[0];
        };
        const thumbnail::Thumb first = open();
        QCOMPARE(first.image.size(), QSize(112, 84) * ratio);
        if (before == "undecodable") {
            // Noted: mended without a change of time or size, it stays unreadable; changed, it is read again.
            save(good, o.mtime);
            QVERIFY(!open().error.isEmpty());
            save(good, o.mtime + 10);
            QVERIFY(open().error.isEmpty());
            return;
        }
        // Only a sound, current entry that covers the box spares the decode, and no such entry is replaced.
        const bool spared = before.startsWith("theirs") || (before == "tumbler" && ratio == 1);
        QVERIFY2(first.made.isNull() == spared
                && first.image.pixel(50, 40) == (before.startsWith("theirs") ? blue : red),
            said);
        if (spared || before == "tumbler" || before == "other shape")
            QCOMPARE(bytesOf(entry), was);
        const QString ours = folder + (ratio == 1 ? "/normal/" : "/large/") + o.name;
        const QImage kept(ours);
        if (before == "unwritable")
            QVERIFY(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot) == QStringList("normal"));
        else if (!spared && !(before == "other shape" && ratio == 1)) {
            const QByteArray glib = ask("gio", { "info", "-a", "thumbnail::path,thumbnail::is-valid", path });
            QVERIFY2(kept.text("Software").startsWith("Varno ") && kept.pixel(9, 9) == red && own(ours)
                    && kept.text("Thumb::MTime") == QString::number(o.mtime)
                    && (ratio == 1 || kept.size() == QSize(160, 120))
                    && glib.contains("path: " + QFile::encodeName(ours) + "\n  thumbnail::is-valid: TRUE"),
                glib);
        }
        if (before == "nothing")
            QVERIFY(own(folder) && own(normal));
        const thumbnail::Thumb second = open();
        QVERIFY(second.made.isNull() != (before == "unwritable" || before == "other shape")
            && second.image.pixel(50, 40) == first.image.pixel(50, 40));
    }
};

QTEST_MAIN(LibraryWindowTest)
#include "tst_libfrm.moc"
