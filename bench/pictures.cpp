// The pictures section: a camera JPEG, a big GIF and a big BMP to the board, our path beside djpeg, the
// naive full decode and a plain decode, with the JPEG's peak memory.
#include "bench.h"
#include "gifwriter.h"
#include "picturegen.h"
#include "platform/picturebox.h"
#include "play/fitting.h"
#include "render/picturefile.h"

#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QProcess>

namespace
{

// Our path and the naive path from a file to the tile source and the board holding the picture.
void loadPicture(PictureBox &board, PictureBox &source, const QString &path, bool reduced)
{
    const picturefile::Header h = picturefile::probe(path);
    const QSize box = fitting::boxPixels(fitting::fitToBoard(h.size));
    const QSize target = fitting::boardFor(box, 6);
    QString error;
    const QImage img = reduced ? picturefile::decodeScaled(path, target, &error)
                               : picturefile::decodeFullThenScale(path, target, &error);
    source.setBoxSize(target.width(), target.height());
    source.setPicture(img);
    board.setBoxSize(target.width(), target.height());
    board.setPicture(source.image());
}

} // namespace

namespace bench
{

void makePictures(const QString &dir)
{
    const QImage photo = picturegen::scene(QSize(6000, 4000), 7);
    QImageWriter w(dir + "/camera.jpg", "jpeg");
    w.setQuality(90);
    w.write(photo);
    const QImage scene = picturegen::scene(QSize(4000, 3000), 11);
    gifwriter::write(scene, dir + "/big.gif");
    scene.convertToFormat(QImage::Format_RGB888).save(dir + "/big.bmp", "BMP");
}

void benchLoading(const QString &dir, PictureBox &board, PictureBox &source, int runs)
{
    // Our decode and the baselines all run on one thread, so they can share one processor.
    const OneProcessor pinned;
    const QString jpg = dir + "/camera.jpg", gif = dir + "/big.gif", bmp = dir + "/big.bmp";
    notes.push_back(QStringLiteral("pictures: 6000 x 4000 JPEG q90 %1 MB, 4000 x 3000 GIF %2 MB, 4000 x 3000 "
                                   "BMP %3 MB; times to the tile source and the board holding the picture")
                        .arg(QFile(jpg).size() / 1e6, 0, 'f', 1)
                        .arg(QFile(gif).size() / 1e6, 0, 'f', 1)
                        .arg(QFile(bmp).size() / 1e6, 0, 'f', 1));
    const auto ours = [&](const QString &p) { return [&, p] { loadPicture(board, source, p, true); }; };
    const auto naive = [&](const QString &p) { return [&, p] { loadPicture(board, source, p, false); }; };
    const auto djpeg = [&] {
        QProcess djpeg;
        djpeg.setStandardOutputFile(QProcess::nullDevice());
        djpeg.start(QStringLiteral("djpeg"), { QStringLiteral("-scale"), QStringLiteral("1/8"), jpg });
        djpeg.waitForFinished();
    };
    const Pair floor = paired(runs, ours(jpg), djpeg, 1000);
    add(QStringLiteral("6000 x 4000 JPEG to the board"), QStringLiteral("ms"), floor.ours,
        QStringLiteral("djpeg -scale 1/8 of the file"), floor.base,
        { Target::RatioAtMost, 1.1, "ratio <= 1.10" });
    const Pair naivePair = paired(runs, naive(jpg), ours(jpg), 1000);
    add(QStringLiteral("the same JPEG, naive: full decode + smooth scale"), QStringLiteral("ms"),
        naivePair.ours, QStringLiteral("our path"), naivePair.base,
        { Target::RatioAtLeast, 1.8, "ratio >= 1.8" });
    Pair memory;
    for (int i = 0; i < runs; ++i) {
        memory.ours.push_back(peakRiseMiB(ours(jpg)));
        memory.base.push_back(peakRiseMiB(naive(jpg)));
    }
    add(QStringLiteral("JPEG peak resident rise"), QStringLiteral("MiB"), memory.ours,
        QStringLiteral("naive path"), memory.base, { Target::ValueBelow, 16, "< 16 MiB" });
    for (const QString &p : { gif, bmp }) {
        const Pair pair = paired(
            runs, ours(p), [p] { QImage(p).isNull(); }, 1000);
        add(QStringLiteral("4000 x 3000 %1 to the board").arg(QFileInfo(p).suffix().toUpper()),
            QStringLiteral("ms"), pair.ours, QStringLiteral("plain decode (QImage)"), pair.base,
            { Target::RatioAtMost, 1.1, "ratio <= 1.10" });
    }
}

} // namespace bench
