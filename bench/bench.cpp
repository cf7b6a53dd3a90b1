// Benchmarks: start-up beside a bare Qt program and two peers, picture loading, play, the saved puzzle,
// the library and the frame animation. Every figure stands beside a baseline measured in the same run,
// and each ratio is taken run by run, so a burst of load on the machine moves both sides of a pair.
// Everything ends in one table with the target and whether it is met.
#include "app/vxmain.h"
#include "cameralibrary.h"
#include "gifwriter.h"
#include "picturegen.h"
#include "pictures/libfrm.h"
#include "pictures/librarymodel.h"
#include "platform/picturebox.h"
#include "play/fitting.h"
#include "render/picturefile.h"
#include "startup.h"
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
#include <sched.h>

namespace
{

// Platform services that never wait for a player. The frame animation's pacing runs on virtual time,
// except where the animation itself is measured, on the real clock.
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
        sleepUs(qint64(ms) * 1000);
    }
    void sleepUs(qint64 us) override
    {
        if (realClock)
            QThread::usleep(std::max<qint64>(us, 0));
        else
            m_now += us;
    }
    qint64 nowUs() const override
    {
        return realClock ? m_clock.nsecsElapsed() / 1000 : m_now;
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
    bool realClock = false;
    qint64 m_now = 0;
    QElapsedTimer m_clock;
};

// ---- The table ----

struct Stats {
    double median = 0, min = 0, max = 0;
    bool valid = false;
};

Stats summary(std::vector<double> v)
{
    if (v.empty())
        return {};
    std::sort(v.begin(), v.end());
    return { v[v.size() / 2], v.front(), v.back(), true };
}

// What a row must show: its ratio at most or at least a limit, or its own figure below one.
struct Target {
    enum Kind { None, RatioAtMost, RatioAtLeast, ValueBelow } kind = None;
    double limit = 0;
    const char *text = "";
};

struct Row {
    QString what, unit;
    Stats ours;
    QString baseName;
    Stats base, ratio;
    Target target;
};

std::vector<Row> table;
std::vector<QString> notes;

QString number(double v)
{
    const double a = std::abs(v);
    return QString::number(v, 'f', a >= 100 ? 0 : a >= 10 ? 1 : a >= 1 ? 2 : 3);
}

QString cell(const Stats &s, const QString &unit = {})
{
    if (!s.valid)
        return QStringLiteral("-");
    const QString u = unit.isEmpty() ? QString() : QLatin1Char(' ') + unit;
    return QStringLiteral("%1%2 [%3-%4]").arg(number(s.median), u, number(s.min), number(s.max));
}

// Met, missed, or nothing to meet, judged on the medians.
QString verdict(const Row &r)
{
    switch (r.target.kind) {
    case Target::RatioAtMost:
        return r.ratio.median <= r.target.limit ? QStringLiteral("met") : QStringLiteral("MISSED");
    case Target::RatioAtLeast:
        return r.ratio.median >= r.target.limit ? QStringLiteral("met") : QStringLiteral("MISSED");
    case Target::ValueBelow:
        return r.ours.median < r.target.limit ? QStringLiteral("met") : QStringLiteral("MISSED");
    case Target::None:
        break;
    }
    return {};
}

void add(const QString &what,
    const QString &unit,
    const std::vector<double> &ours,
    const QString &baseName,
    const std::vector<double> &base,
    Target target = {})
{
    std::vector<double> ratios;
    for (size_t i = 0; i < std::min(ours.size(), base.size()); ++i)
        if (base[i] > 0)
            ratios.push_back(ours[i] / base[i]);
    table.push_back({ what, unit, summary(ours), baseName, summary(base), summary(ratios), target });
}

void printTable()
{
    const auto w = [](const QString &s, int width) { return s.leftJustified(width).toUtf8(); };
    std::printf("\n%s %s %s %s %s %s\n", w("measured", 52).constData(),
        w("ours: median [min-max]", 30).constData(), w("baseline", 36).constData(),
        w("baseline: median [min-max]", 30).constData(), w("ratio: median [min-max]", 24).constData(),
        "target");
    for (const Row &r : table) {
        const QString target = r.target.kind == Target::None
            ? QString()
            : QStringLiteral("%1  %2").arg(QString::fromUtf8(r.target.text), verdict(r));
        std::printf("%s %s %s %s %s %s\n", w(r.what, 52).constData(), w(cell(r.ours, r.unit), 30).constData(),
            w(r.baseName, 36).constData(), w(cell(r.base, r.unit), 30).constData(),
            w(cell(r.ratio), 24).constData(), target.toUtf8().constData());
    }
    for (const QString &n : notes)
        std::printf("%s\n", n.toUtf8().constData());
}

// ---- Measuring ----

double elapsedUs(const std::function<void()> &f)
{
    QElapsedTimer timer;
    timer.start();
    f();
    return double(timer.nsecsElapsed()) / 1000.0;
}

struct Pair {
    std::vector<double> ours, base;
};

// Our figure and its baseline in turns, after one unmeasured call of each, in the given unit (1 = µs).
Pair paired(int runs, const std::function<void()> &ours, const std::function<void()> &base, double unit = 1)
{
    ours();
    base();
    Pair p;
    for (int i = 0; i < runs; ++i) {
        p.ours.push_back(elapsedUs(ours) / unit);
        p.base.push_back(elapsedUs(base) / unit);
    }
    return p;
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

QString loadAverage()
{
    QFile load(QStringLiteral("/proc/loadavg"));
    if (!load.open(QIODevice::ReadOnly))
        return QStringLiteral("unknown");
    return QString::fromLatin1(load.readAll().split(' ').first());
}

// ---- Start-up ----

void benchStartup()
{
    const QString bin = QCoreApplication::applicationDirPath();
    const std::vector<startup::Program> programs { { QStringLiteral("the game"), { bin + "/varno" } },
        { QStringLiteral("bare Qt program"), { bin + "/varno_bare" } },
        { QStringLiteral("bare Qt program without text"),
            { bin + "/varno_bare", QStringLiteral("--no-text") } },
        { QStringLiteral("sgt-fifteen"), { QStringLiteral("/usr/games/sgt-fifteen") } },
        { QStringLiteral("gnome-taquin"), { QStringLiteral("/usr/games/gnome-taquin") } } };
    const int rounds = 9;
    std::fprintf(
        stderr, "start-up: %d rounds of %zu programs on a private X server\n", rounds, programs.size());
    QString error;
    const auto samples = startup::measure(programs, rounds, &error);
    if (samples.empty()) {
        notes.push_back(QStringLiteral("start-up not measured: %1").arg(error));
        return;
    }
    enum Figure { Wall, Processor, Settled, Memory };
    const auto series = [&](size_t program, Figure f) {
        std::vector<double> v;
        for (const startup::Sample &s : samples[program])
            v.push_back(f == Memory  ? s.rssMiB
                    : f == Processor ? s.cpuMs
                    : f == Settled   ? s.settledCpuMs
                                     : s.ms);
        return v;
    };
    add(QStringLiteral("start-up: exec to main window mapped"), QStringLiteral("ms"), series(0, Wall),
        QStringLiteral("bare Qt program of the same shape"), series(1, Wall),
        { Target::RatioAtMost, 1.1, "ratio <= 1.10" });
    add(QStringLiteral("  processor time to the map, all threads"), QStringLiteral("ms"),
        series(0, Processor), QStringLiteral("bare Qt program of the same shape"), series(1, Processor));
    // What waits until after the map is still done before the window shows anything: this is all of it.
    add(QStringLiteral("  processor time 1 s later, first paint done"), QStringLiteral("ms"),
        series(0, Settled), QStringLiteral("bare Qt program of the same shape"), series(1, Settled));
    add(QStringLiteral("start-up, against a bare program without text"), QStringLiteral("ms"),
        series(0, Wall), QStringLiteral("the same without text (no fonts)"), series(2, Wall));
    add(QStringLiteral("start-up, against sgt-fifteen"), QStringLiteral("ms"), series(0, Wall),
        QStringLiteral("sgt-fifteen"), series(3, Wall), { Target::RatioAtMost, 1.0, "ahead: < 1" });
    add(QStringLiteral("start-up, against gnome-taquin"), QStringLiteral("ms"), series(0, Wall),
        QStringLiteral("gnome-taquin"), series(4, Wall), { Target::RatioAtMost, 1.0, "ahead: < 1" });
    add(QStringLiteral("resident memory 1 s after the map"), QStringLiteral("MiB"), series(0, Memory),
        QStringLiteral("bare Qt program of the same shape"), series(1, Memory),
        { Target::RatioAtMost, 1.1, "ratio <= 1.10" });
    add(QStringLiteral("resident memory, against a bare program without text"), QStringLiteral("MiB"),
        series(0, Memory), QStringLiteral("the same without text (no fonts)"), series(2, Memory));
    add(QStringLiteral("resident memory, against sgt-fifteen"), QStringLiteral("MiB"), series(0, Memory),
        QStringLiteral("sgt-fifteen"), series(3, Memory));
    add(QStringLiteral("resident memory, against gnome-taquin"), QStringLiteral("MiB"), series(0, Memory),
        QStringLiteral("gnome-taquin"), series(4, Memory));
}

// ---- Pictures ----

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

// The three test pictures, written into dir.
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

// Keeps this thread, and the programs it starts, on the processor it is on now. The two processors of a
// shared virtual machine can run at different speeds for minutes: a pair measured across both compares
// the processors as much as the programs (one run gave djpeg's side 73 ms, the next 91 ms).
struct OneProcessor {
    cpu_set_t before {};
    OneProcessor()
    {
        sched_getaffinity(0, sizeof before, &before);
        cpu_set_t one {};
        CPU_ZERO(&one);
        CPU_SET(sched_getcpu(), &one);
        sched_setaffinity(0, sizeof one, &one);
    }
    ~OneProcessor()
    {
        sched_setaffinity(0, sizeof before, &before);
    }
    OneProcessor(const OneProcessor &) = delete;
    OneProcessor &operator=(const OneProcessor &) = delete;
};

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

// ---- Play ----

void benchPlay(vxmain &w, const QString &picture)
{
    PuzzleState &s = w.state();
    s.setGridSize(11);
    s.PicFile = picture;
    w.LoadPic(QStringLiteral("Load"));
    w.setRandomSeed(5);
    const auto redraw = [&] {
        for (Integer i = 0; i < s.TileTotal; ++i) {
            s.Find_XY(i);
            bitBlt(*w.vxrz, s.PosX, s.PosY, s.TileW, s.TileH, *w.vxrz_s, s.Board[i].SrcX, s.Board[i].SrcY);
        }
        w.DrawLines();
    };
    // Baseline: one naive QPainter redraw of the same board (121 drawImage calls and 250 drawLine calls).
    const auto painterRedraw = [&] {
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
    };
    // The board's tables are filled by the first scramble.
    const Pair scramble = paired(
        21, [&] { w.Scramble(); }, redraw);
    const Pair redraws = paired(101, redraw, painterRedraw);
    const auto repaint = [&] { w.vxrz->repaint(); };
    // A press beside the blank and back again, each followed by the board's repaint.
    w.Scramble();
    s.GetCRfromPos(s.BlankPos);
    const Integer col = s.PosCol > 0 ? Integer(s.PosCol - 1) : Integer(s.PosCol + 1);
    const Integer row0 = s.PosRow;
    const Pair press = paired(
        201,
        [&] {
            s.Find_XY(Integer(row0 * 11 + col));
            const int x = s.PosX + 3, y = s.PosY + 3;
            const Integer blank = s.BlankPos;
            w.vxrz_MouseDown(Qt::LeftButton, {}, float(x), float(y));
            w.vxrz->repaint();
            s.Find_XY(blank);
            w.vxrz_MouseDown(Qt::LeftButton, {}, float(s.PosX + 3), float(s.PosY + 3));
            w.vxrz->repaint();
        },
        repaint);
    add(QStringLiteral("full redraw of 11 x 11: 121 tiles + grid"), QStringLiteral("us"), redraws.ours,
        QStringLiteral("the same with QPainter"), redraws.base, { Target::ValueBelow, 250, "< 250 us" });
    add(QStringLiteral("slide press to board pixels, 2 presses"), QStringLiteral("us"), press.ours,
        QStringLiteral("board repaint alone"), press.base,
        { Target::ValueBelow, 1000, "< 1000 us (2 x 0.5 ms)" });
    add(QStringLiteral("scramble 11 x 11, without event processing"), QStringLiteral("us"), scramble.ours,
        QStringLiteral("full redraw"), scramble.base, { Target::ValueBelow, 20000, "< 20000 us" });

    // Type "D": a lift and a drop on another place, with their repaints.
    w.cb_type_Click();
    w.Scramble();
    const QPoint origin = w.vxrz->pos();
    const auto drop = [&] {
        w.vxrz_MouseDown(Qt::LeftButton, {}, 5, 5);
        w.Form_MouseUp(float(origin.x() + s.TileW * 3 + 9), float(origin.y() + 9));
        w.vxrz->repaint();
    };
    const Pair drops = paired(201, drop, repaint);
    const Pair moves = paired(
        201,
        [&] {
            w.vxrz_MouseDown(Qt::LeftButton, {}, 5, 5);
            for (int i = 0; i < 10; ++i)
                w.Form_MouseMove(float(origin.x() + 20 + i), float(origin.y() + 20));
            w.Form_MouseUp(float(origin.x() + 9), float(origin.y() + 9));
        },
        drop);
    add(QStringLiteral("lift + drop on the 11 x 11 board"), QStringLiteral("us"), drops.ours,
        QStringLiteral("board repaint alone"), drops.base, { Target::ValueBelow, 1000, "< 1000 us" });
    add(QStringLiteral("lift, 10 follows, drop back"), QStringLiteral("us"), moves.ours,
        QStringLiteral("lift + drop"), moves.base);
}

// ---- The saved puzzle ----

// The 11 x 11 game in play: the file work alone against plain file calls on the same bytes, in a memory
// folder (the work itself) and on the disk (where the flush of a durable replace is the disk's time);
// then the whole load command against the picture's own loading.
void benchStore(vxmain &w)
{
    PuzzleState &s = w.state();
    const QByteArray bytes = puzzlefile::encode(s);
    QTemporaryDir ram(QStringLiteral("/dev/shm/varno-bench-XXXXXX"));
    const QString memory = ram.isValid() ? ram.filePath(QStringLiteral("varno.pzl")) : s.PzlFile;
    const auto save = [&](const QString &path) {
        return [&, path] { puzzlefile::writeWhole(path, puzzlefile::encode(s)); };
    };
    const auto plainWrite = [&](const QString &path) {
        return [&, path] {
            QFile f(path + QStringLiteral(".plain"));
            f.open(QIODevice::WriteOnly);
            f.write(bytes);
        };
    };
    const Pair saveMemory = paired(201, save(memory), plainWrite(memory));
    const Pair saveDisk = paired(201, save(s.PzlFile), plainWrite(s.PzlFile));
    const Pair load = paired(
        201,
        [&] {
            const auto decoded = puzzlefile::decode(std::get<QByteArray>(puzzlefile::readFile(memory)));
            if (!std::holds_alternative<puzzlefile::SavedPuzzle>(decoded))
                std::fprintf(stderr, "the saved puzzle was refused\n");
        },
        [&] {
            QFile f(memory);
            f.open(QIODevice::ReadOnly);
            f.readAll();
        });
    const Pair command = paired(
        51, [&] { w.cb_load_Click(); }, [&] { w.LoadPic(QStringLiteral("Load")); }, 1000);
    notes.push_back(
        QStringLiteral("saved puzzle: %1 bytes; memory folder %2")
            .arg(bytes.size())
            .arg(ram.isValid() ? QStringLiteral("/dev/shm") : QStringLiteral("missing, disk used")));
    add(QStringLiteral("save 11 x 11: encode + replace whole, memory folder"), QStringLiteral("us"),
        saveMemory.ours, QStringLiteral("plain QFile write"), saveMemory.base,
        { Target::ValueBelow, 1000, "< 1000 us" });
    add(QStringLiteral("the same save on the disk, flushed"), QStringLiteral("us"), saveDisk.ours,
        QStringLiteral("plain QFile write"), saveDisk.base);
    add(QStringLiteral("load: read + decode + every check"), QStringLiteral("us"), load.ours,
        QStringLiteral("plain QFile read"), load.base, { Target::ValueBelow, 1000, "< 1000 us" });
    add(QStringLiteral("load command with its 1024 x 768 JPEG"), QStringLiteral("ms"), command.ours,
        QStringLiteral("LoadPic alone"), command.base, { Target::RatioAtMost, 2, "picture dominates: < 2" });
}

// ---- The library ----

// The processor time of the whole process (all threads) so far.
double cpuUs()
{
    timespec t {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e6 + double(t.tv_nsec) / 1e3;
}

// The library window over 100 camera pictures: "Image Library" until six thumbnails show, then one step
// right (two new files), against the plain way: each file decoded whole and scaled smoothly.
void benchLibrary(const QString &programFolder, int runs)
{
    const QString base = QCoreApplication::applicationDirPath() + "/../bench-library";
    QElapsedTimer making;
    making.start();
    if (!cameralibrary::ensure(base)) {
        notes.push_back(
            QStringLiteral("library not measured: cannot make the camera pictures in %1").arg(base));
        return;
    }
    notes.push_back(QStringLiteral("library: %1 camera pictures of 6000 x 4000 (two copies, with and without "
                                   "EXIF thumbnails) ready in %2 s; %3 cores")
                        .arg(cameralibrary::Count)
                        .arg(making.elapsed() / 1000.0, 0, 'f', 1)
                        .arg(QThread::idealThreadCount()));
    const QStringList names = library::listFiles(base + "/plain");
    const auto plain = [&](int from, int count) {
        return [&, from, count] {
            for (int i = from; i < from + count; ++i)
                QImage(base + "/plain/" + names[i])
                    .scaled(112, 84, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                    .isNull();
        };
    };
    // The plain decode's memory is the same at every run and for both folders: three runs tell it.
    std::vector<double> plainMemory;
    for (int run = 0; run < 3; ++run)
        plainMemory.push_back(peakRiseMiB(plain(0, 6)));
    BenchPlatform services;
    vxmain w(services.platform(), programFolder);
    for (const char *variant : { "exif", "plain" }) {
        const bool exif = variant[0] == 'e';
        w.state().LibPath = base + "/" + variant;
        QElapsedTimer clock;
        double cpuStart = 0;
        Pair open, step;
        std::vector<double> openCpu, stepCpu, memory;
        bool whole = true;
        services.onModal = [&](QDialog &dialog) {
            auto &d = static_cast<libfrm &>(dialog);
            d.show();
            QApplication::processEvents();
            open.ours.push_back(double(clock.nsecsElapsed()) / 1e6);
            openCpu.push_back((cpuUs() - cpuStart) / 1000);
            clock.start();
            const double stepStart = cpuUs();
            d.libscroll->triggerAction(QAbstractSlider::SliderSingleStepAdd);
            d.repaint();
            step.ours.push_back(double(clock.nsecsElapsed()) / 1e6);
            stepCpu.push_back((cpuUs() - stepStart) / 1000);
            for (const LibImage *img : d.libimg)
                whole = whole && !img->Tag.isEmpty() && img->Problem.isEmpty();
        };
        const auto openAndStep = [&] {
            cpuStart = cpuUs();
            clock.start();
            w.cb_lib_Click();
        };
        // A first open reads the files from the disk into the page cache; the runs measure the work.
        openAndStep();
        open = step = {};
        openCpu.clear();
        stepCpu.clear();
        for (int run = 0; run < runs; ++run) {
            memory.push_back(peakRiseMiB(openAndStep));
            open.base.push_back(elapsedUs(plain(0, 6)) / 1000);
            step.base.push_back(elapsedUs(plain(6, 2)) / 1000);
        }
        const QString kind = exif ? QStringLiteral("EXIF thumbnails") : QStringLiteral("no EXIF thumbnail");
        add(QStringLiteral("library open to six thumbnails, %1").arg(kind), QStringLiteral("ms"), open.ours,
            QStringLiteral("plain decode + scale of the 6 files"), open.base,
            { Target::ValueBelow, exif ? 150.0 : 250.0, exif ? "< 150 ms" : "< 250 ms" });
        add(QStringLiteral("  processor time of the open, all threads"), QStringLiteral("ms"), openCpu,
            QStringLiteral("wall time of the open"), open.ours);
        add(QStringLiteral("library step right (2 new files), %1").arg(kind), QStringLiteral("ms"), step.ours,
            QStringLiteral("plain decode + scale of the 2 files"), step.base,
            { Target::ValueBelow, 100, "< 100 ms" });
        add(QStringLiteral("  processor time of the step, all threads"), QStringLiteral("ms"), stepCpu,
            QStringLiteral("wall time of the step"), step.ours);
        add(QStringLiteral("library peak rise, open + step, %1").arg(kind), QStringLiteral("MiB"), memory,
            QStringLiteral("plain decode of the 6 files"), plainMemory,
            { Target::ValueBelow, 40, "< 40 MiB" });
        if (!whole)
            notes.push_back(QStringLiteral("library: some thumbnails did not show (%1)").arg(kind));
    }
}

// ---- The frame animation ----

// The red frame round a picture, on the real clock: its whole time beside the pace it keeps.
void benchFrame(const QString &picture, int runs)
{
    QTemporaryDir folder;
    BenchPlatform services;
    vxmain w(services.platform(), folder.path());
    w.show();
    QApplication::processEvents();
    w.state().PicFile = picture;
    w.LoadPic(QStringLiteral("Load"));
    services.realClock = true;
    services.m_clock.start();
    std::vector<double> total, pace;
    for (int i = 0; i < runs; ++i) {
        total.push_back(elapsedUs([&] { w.FrAnimate(); }) / 1000);
        pace.push_back(500);
    }
    add(QStringLiteral("frame animation round the board, total"), QStringLiteral("ms"), total,
        QStringLiteral("its pace"), pace, { Target::RatioAtMost, 1.1, "ratio <= 1.10" });
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // Named sections only (start-up, pictures, play, store, library, frame); all of them by default.
    QStringList only = QApplication::arguments().mid(1);
    const auto wanted
        = [&](const char *section) { return only.isEmpty() || only.contains(QLatin1String(section)); };
    QElapsedTimer total;
    total.start();
    const QString loadBefore = loadAverage();
    const int runs = 7;
    if (wanted("start-up"))
        benchStartup();
    QTemporaryDir dir;
    BenchPlatform services;
    vxmain w(services.platform(), dir.path());
    w.show();
    QApplication::processEvents();
    const QString picture = dir.path() + "/board.jpg";
    picturegen::scene(QSize(1024, 768), 3).save(picture, "JPEG", 90);
    if (wanted("pictures")) {
        std::fprintf(stderr, "pictures\n");
        makePictures(dir.path());
        benchLoading(dir.path(), *w.vxrz, *w.vxrz_s, runs);
    }
    if (wanted("play")) {
        std::fprintf(stderr, "play\n");
        benchPlay(w, picture);
    }
    if (wanted("store")) {
        std::fprintf(stderr, "store\n");
        benchStore(w);
    }
    if (wanted("library")) {
        std::fprintf(stderr, "library\n");
        benchLibrary(dir.path(), runs);
    }
    if (wanted("frame")) {
        std::fprintf(stderr, "frame\n");
        benchFrame(picture, runs);
    }
    notes.push_back(QStringLiteral("medians of %1 or more runs; ratios taken run by run; load average %2 "
                                   "before and %3 after; %4 s in all")
                        .arg(runs)
                        .arg(loadBefore, loadAverage())
                        .arg(total.elapsed() / 1000.0, 0, 'f', 0));
    printTable();
    return 0;
}
