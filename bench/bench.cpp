// Benchmarks: picture loading, board redraws, moves, the scramble and start-up. Each figure is printed
// with a baseline measured in the same run, so the ratios hold whatever the machine's speed.
#include "app/vxmain.h"
#include "cameralibrary.h"
#include "gifwriter.h"
#include "picturegen.h"
#include "pictures/libfrm.h"
#include "pictures/librarymodel.h"
#include "platform/picturebox.h"
#include "play/fitting.h"
#include "render/picturefile.h"
#include "store/puzzlefile.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImageWriter>
#include <QPainter>
#include <QProcess>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <malloc.h>

namespace
{

// Platform services that never wait: the frame animation's pacing runs on virtual time.
struct BenchPlatform : MessageBoxes, FileDialogs, Pointers, EventPump, ModalRunner {
    int show(const QString &, const QString &, int) override
    {
        return MsgAnswer::Ok;
    }
    std::optional<FileChoice> open(const QString &, int) override
    {
        return std::nullopt;
    }
    void set(PointerShape, const QCursor &) override
    {
    }
    PointerShape current() const override
    {
        return PointerShape::Default;
    }
    void processPendingEvents(bool) override
    {
    }
    void sleepMs(int ms) override
    {
        m_now += ms * 1000;
    }
    void sleepUs(qint64 us) override
    {
        m_now += us;
    }
    qint64 nowUs() const override
    {
        return m_now;
    }
    void exec(QDialog &dialog) override
    {
        if (onModal)
            onModal(dialog);
    }
    // What the benchmark does with a modal window instead of waiting for a player.
    std::function<void(QDialog &)> onModal;
    Platform platform()
    {
        return Platform { *this, *this, *this, *this, *this };
    }
    qint64 m_now = 0;
};

double medianUs(int runs, const std::function<void()> &f)
{
    std::vector<double> t;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        f();
        t.push_back(double(timer.nsecsElapsed()) / 1000.0);
    }
    std::sort(t.begin(), t.end());
    return t[t.size() / 2];
}

long statusKb(const char *field)
{
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : f.readAll().split('\n'))
        if (line.startsWith(field))
            return line.mid(qstrlen(field)).trimmed().split(' ').first().toLong();
    return 0;
}

// The peak resident memory a call adds above the level before it, in MiB.
double peakRiseMiB(const std::function<void()> &f)
{
    malloc_trim(0);
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    if (clear.open(QIODevice::WriteOnly))
        clear.write("5"); // resets the peak to the current level
    clear.close();
    const long before = statusKb("VmRSS:");
    f();
    return double(statusKb("VmHWM:") - before) / 1024.0;
}

void row(const char *what, double value, const char *unit, const char *baseName, double base)
{
    std::printf("  %-46s %10.1f %-3s  %-28s %10.1f  ratio %5.2f\n", what, value, unit, baseName, base,
        base > 0 ? value / base : 0.0);
}

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

void benchLoading(const QString &dir, PictureBox &board, PictureBox &source)
{
    std::printf(
        "Picture loading (time to the tile source and the board; peak memory above the level before)\n");
    const QString jpg = dir + "/camera.jpg", gif = dir + "/big.gif", bmp = dir + "/big.bmp";
    {
        const QImage photo = picturegen::scene(QSize(6000, 4000), 7);
        QImageWriter w(jpg, "jpeg");
        w.setQuality(90);
        w.write(photo);
    }
    {
        const QImage scene = picturegen::scene(QSize(4000, 3000), 11);
        gifwriter::write(scene, gif);
        scene.convertToFormat(QImage::Format_RGB888).save(bmp, "BMP");
    }
    std::printf("  inputs: 6000x4000 JPEG q90 %.1f MB, 4000x3000 GIF %.1f MB, 4000x3000 BMP %.1f MB\n",
        QFile(jpg).size() / 1e6, QFile(gif).size() / 1e6, QFile(bmp).size() / 1e6);
    const int runs = 5;
    auto ours = [&](const QString &p) { return [&, p] { loadPicture(board, source, p, true); }; };
    auto naive = [&](const QString &p) { return [&, p] { loadPicture(board, source, p, false); }; };
    const double floor = medianUs(runs, [&] {
        QProcess djpeg;
        djpeg.setStandardOutputFile(QProcess::nullDevice());
        djpeg.start(QStringLiteral("djpeg"), { QStringLiteral("-scale"), QStringLiteral("1/8"), jpg });
        djpeg.waitForFinished();
    });
    const double memOurs = peakRiseMiB(ours(jpg)), memNaive = peakRiseMiB(naive(jpg));
    const double tOurs = medianUs(runs, ours(jpg)), tNaive = medianUs(runs, naive(jpg));
    row("JPEG reduced-size decode (ms)", tOurs / 1000, "ms", "djpeg -scale 1/8 floor (ms)", floor / 1000);
    row("JPEG naive full decode + scale (ms)", tNaive / 1000, "ms", "our path (ms)", tOurs / 1000);
    row("JPEG peak rise, our path (MiB)", memOurs, "MiB", "naive path (MiB)", memNaive);
    for (const QString &p : { gif, bmp }) {
        const double t = medianUs(runs, ours(p));
        const double plain = medianUs(runs, [&] { QImage(p).isNull(); });
        const QByteArray name = (QFileInfo(p).suffix().toUpper() + " load to board (ms)").toLatin1();
        row(name.constData(), t / 1000, "ms", "plain decode (ms)", plain / 1000);
    }
}

void benchPlay(vxmain &w, const QString &picture)
{
    std::printf("Play on an 11 x 11 board (offscreen repaint included where the board is shown)\n");
    PuzzleState &s = w.state();
    s.setGridSize(11);
    s.PicFile = picture;
    w.LoadPic(QStringLiteral("Load"));
    w.setRandomSeed(5);
    const double scramble = medianUs(21, [&] { w.Scramble(); });
    // Baseline: one naive QPainter redraw of the same board (121 drawImage calls and 250 drawLine calls).
    const double painterRedraw = medianUs(101, [&] {
        QPainter p(&w.vxrz->image());
        for (Integer i = 0; i < s.TileTotal; ++i) {
            s.Find_XY(i);
            p.drawImage(QPoint(s.PosX, s.PosY), w.vxrz_s->image(),
                QRect(s.Board[i].SrcX, s.Board[i].SrcY, s.TileW, s.TileH));
        }
        p.setPen(Qt::white);
        for (int k = 0; k <= 11; ++k)
            for (int j = 0; j < 11; ++j) {
                p.drawLine(k * s.TileW, j * s.TileH, k * s.TileW, (j + 1) * s.TileH - 1);
                p.drawLine(j * s.TileW, k * s.TileH, (j + 1) * s.TileW - 1, k * s.TileH);
            }
    });
    const double redraw = medianUs(101, [&] {
        for (Integer i = 0; i < s.TileTotal; ++i) {
            s.Find_XY(i);
            bitBlt(*w.vxrz, s.PosX, s.PosY, s.TileW, s.TileH, *w.vxrz_s, s.Board[i].SrcX, s.Board[i].SrcY);
        }
        w.DrawLines();
    });
    // A press beside the blank and back again, each followed by the board's repaint.
    w.Scramble();
    s.GetCRfromPos(s.BlankPos);
    const Integer col = s.PosCol > 0 ? Integer(s.PosCol - 1) : Integer(s.PosCol + 1);
    const Integer row0 = s.PosRow;
    const double press = medianUs(201, [&] {
        s.Find_XY(Integer(row0 * 11 + col));
        const int x = s.PosX + 3, y = s.PosY + 3;
        const Integer blank = s.BlankPos;
        w.vxrz_MouseDown(Qt::LeftButton, {}, float(x), float(y));
        w.vxrz->repaint();
        s.Find_XY(blank);
        w.vxrz_MouseDown(Qt::LeftButton, {}, float(s.PosX + 3), float(s.PosY + 3));
        w.vxrz->repaint();
    });
    const double fullRepaint = medianUs(101, [&] { w.vxrz->repaint(); });
    row("full redraw, 121 tiles + grid (us)", redraw, "us", "QPainter redraw (us)", painterRedraw);
    row("slide press to pixels, 2 presses (us)", press, "us", "board repaint alone (us)", fullRepaint);
    row("scramble 11x11 type S (us)", scramble, "us", "full redraw (us)", redraw);

    // Type "D": a lift and a drop on another place, with their repaints.
    w.cb_type_Click();
    w.Scramble();
    const QPoint origin = w.vxrz->pos();
    const double drop = medianUs(201, [&] {
        w.vxrz_MouseDown(Qt::LeftButton, {}, 5, 5);
        w.Form_MouseUp(float(origin.x() + s.TileW * 3 + 9), float(origin.y() + 9));
        w.vxrz->repaint();
    });
    const double move = medianUs(201, [&] {
        w.vxrz_MouseDown(Qt::LeftButton, {}, 5, 5);
        for (int i = 0; i < 10; ++i)
            w.Form_MouseMove(float(origin.x() + 20 + i), float(origin.y() + 20));
        w.Form_MouseUp(float(origin.x() + 9), float(origin.y() + 9));
    });
    row("lift + drop on the board (us)", drop, "us", "board repaint alone (us)", fullRepaint);
    row("lift, 10 follows, drop back (us)", move, "us", "lift + drop (us)", drop);
}

// The saved puzzle of the 11 x 11 game in play: the file work alone against plain file calls on the same
// bytes, in a memory folder (the work itself) and on the disk (where the flush of a durable replace is
// the disk's time); then the whole load command against the picture's own loading.
void benchStore(vxmain &w)
{
    std::printf("Saved puzzle, 11 x 11 (the file work alone; then the load command with its picture)\n");
    PuzzleState &s = w.state();
    const QByteArray bytes = puzzlefile::encode(s);
    QTemporaryDir ram(QStringLiteral("/dev/shm/varno-bench-XXXXXX"));
    const QString memory = ram.isValid() ? ram.filePath(QStringLiteral("varno.pzl")) : s.PzlFile;
    const auto save = [&](const QString &path) {
        return medianUs(201, [&] { puzzlefile::writeWhole(path, puzzlefile::encode(s)); });
    };
    const auto plainWrite = [&](const QString &path) {
        return medianUs(201, [&] {
            QFile f(path + QStringLiteral(".plain"));
            f.open(QIODevice::WriteOnly);
            f.write(bytes);
        });
    };
    const double saveMemory = save(memory), plainMemory = plainWrite(memory);
    const double saveDisk = save(s.PzlFile), plainDisk = plainWrite(s.PzlFile);
    const double load = medianUs(201, [&] {
        const auto decoded = puzzlefile::decode(std::get<QByteArray>(puzzlefile::readFile(memory)));
        if (!std::holds_alternative<puzzlefile::SavedPuzzle>(decoded))
            std::printf("  the saved puzzle was refused\n");
    });
    const double plainRead = medianUs(201, [&] {
        QFile f(memory);
        f.open(QIODevice::ReadOnly);
        f.readAll();
    });
    std::printf("  file of %lld bytes; memory folder %s\n", static_cast<long long>(bytes.size()),
        ram.isValid() ? "/dev/shm" : "missing, disk used");
    row("save: encode + write whole, memory (us)", saveMemory, "us", "plain QFile write (us)", plainMemory);
    row("save: the same on the disk, synced (us)", saveDisk, "us", "plain QFile write (us)", plainDisk);
    row("load: read + decode + every check (us)", load, "us", "plain QFile read (us)", plainRead);
    const double command = medianUs(51, [&] { w.cb_load_Click(); });
    const double picture = medianUs(51, [&] { w.LoadPic(QStringLiteral("Load")); });
    row("load command with its picture (ms)", command / 1000, "ms", "LoadPic alone (ms)", picture / 1000);
}

// The processor time of the whole process (all threads) so far.
double cpuUs()
{
    timespec t {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e6 + double(t.tv_nsec) / 1e3;
}

// The library window over 100 camera pictures: "Image Library" until six thumbnails show, then one step
// right (two new files), against the plain way: each file decoded whole and scaled smoothly.
void benchLibrary(const QString &programFolder)
{
    std::printf(
        "Picture library of %d camera pictures, 6000 x 4000 JPEG q90, thumbnails 112 x 84, %d cores\n",
        cameralibrary::Count, QThread::idealThreadCount());
    const QString base = QCoreApplication::applicationDirPath() + "/../bench-library";
    if (!cameralibrary::ensure(base)) {
        std::printf("  cannot make the camera pictures in %s\n", qPrintable(base));
        return;
    }
    const QStringList names = library::listFiles(base + "/plain");
    const auto plain = [&](int from, int count) {
        return [&, from, count] {
            for (int i = from; i < from + count; ++i)
                QImage(base + "/plain/" + names[i])
                    .scaled(112, 84, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                    .isNull();
        };
    };
    QFile load(QStringLiteral("/proc/loadavg"));
    if (load.open(QIODevice::ReadOnly))
        std::printf("  load average while measuring: %s\n", load.readAll().split(' ').first().constData());
    const int runs = 7;
    const double plainSix = medianUs(3, plain(0, 6)), plainTwo = medianUs(3, plain(6, 2));
    const double plainMem = peakRiseMiB(plain(0, 6));
    BenchPlatform services;
    vxmain w(services.platform(), programFolder);
    for (const char *variant : { "exif", "plain" }) {
        w.state().LibPath = base + "/" + variant;
        QElapsedTimer clock;
        double cpuStart = 0;
        std::vector<double> opens, steps, cpus, stepCpus;
        bool whole = true;
        services.onModal = [&](QDialog &dialog) {
            auto &d = static_cast<libfrm &>(dialog);
            d.show();
            QApplication::processEvents();
            opens.push_back(double(clock.nsecsElapsed()) / 1000.0);
            cpus.push_back(cpuUs() - cpuStart);
            clock.start();
            const double stepStart = cpuUs();
            d.libscroll->triggerAction(QAbstractSlider::SliderSingleStepAdd);
            d.repaint();
            steps.push_back(double(clock.nsecsElapsed()) / 1000.0);
            stepCpus.push_back(cpuUs() - stepStart);
            for (const LibImage *img : d.libimg)
                whole = whole && !img->Tag.isEmpty() && img->Problem.isEmpty();
        };
        const double mem = peakRiseMiB([&] {
            clock.start();
            w.cb_lib_Click();
        });
        for (int run = 0; run < runs; ++run) {
            cpuStart = cpuUs();
            clock.start();
            w.cb_lib_Click();
        }
        for (std::vector<double> *v : { &opens, &steps, &cpus, &stepCpus })
            std::sort(v->begin() + 1, v->end());
        const bool exif = variant[0] == 'e';
        row(exif ? "open to six thumbnails, EXIF thumbnails (ms)"
                 : "open to six thumbnails, no EXIF thumbnail (ms)",
            opens[1 + runs / 2] / 1000, "ms", "plain decode of the 6 files (ms)", plainSix / 1000);
        // Under other load the wall time grows; the processor time of all threads does not.
        row("  processor time of the open, all threads (ms)", cpus[1 + runs / 2] / 1000, "ms",
            "wall time of the open (ms)", opens[1 + runs / 2] / 1000);
        row(exif ? "one step right, EXIF thumbnails (ms)" : "one step right, no EXIF thumbnail (ms)",
            steps[1 + runs / 2] / 1000, "ms", "plain decode of the 2 new (ms)", plainTwo / 1000);
        row("  processor time of the step, all threads (ms)", stepCpus[1 + runs / 2] / 1000, "ms",
            "wall time of the step (ms)", steps[1 + runs / 2] / 1000);
        row(exif ? "peak rise, open + step, EXIF (MiB)" : "peak rise, open + step, no EXIF (MiB)", mem, "MiB",
            "plain decode of 6 (MiB)", plainMem);
        if (!whole)
            std::printf("  some thumbnails did not show\n");
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir dir;
    BenchPlatform services;
    QElapsedTimer startTimer;
    startTimer.start();
    vxmain w(services.platform(), dir.path());
    w.show();
    QApplication::processEvents();
    const double startup = startTimer.nsecsElapsed() / 1e6;
    std::printf("Start-up to a shown window: %.1f ms\n", startup);
    benchLoading(dir.path(), *w.vxrz, *w.vxrz_s);
    const QString picture = dir.path() + "/board.jpg";
    picturegen::scene(QSize(1024, 768), 3).save(picture, "JPEG", 90);
    benchPlay(w, picture);
    benchStore(w);
    benchLibrary(dir.path());
    return 0;
}
