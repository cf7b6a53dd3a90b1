// The library section: the library window over a library of camera pictures, with and without the
// EXIF thumbnails cameras embed, beside decoding the files whole; then the desktop's thumbnail cache:
// the first opening that fills it beside one without it, the openings it serves, on two cores and on
// one, and an opening served by thumbnails another program wrote.
#include "app/vxmain.h"
#include "bench.h"
#include "cameralibrary.h"
#include "pictures/libfrm.h"
#include "pictures/librarymodel.h"
#include "pictures/thumbcache.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImageReader>
#include <QImageWriter>
#include <QScrollBar>
#include <QThread>
#include <ctime>

namespace
{

// The processor time of the whole process (all threads) so far.
double cpuUs()
{
    timespec t {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e6 + double(t.tv_nsec) / 1e3;
}

// The figures of one opening: "Image Library" until six thumbnails show, then one step right.
struct Opening {
    std::vector<double> open, openCpu, step, stepCpu;
    bool whole = true;
};

// The cache empty, as at the first opening; writes still under way end first.
void emptyCache()
{
    thumbcache::waitForWrites();
    QDir(thumbcache::folder()).removeRecursively();
}

// The thumbnails a file manager would have left for the first count pictures of folder: its own
// Software key, the normal size, the picture's own shape.
void writeOthers(const QString &folder, const QStringList &names, int count)
{
    const QString normal = thumbcache::folder() + QStringLiteral("/normal");
    QDir().mkpath(normal);
    for (int i = 0; i < count; ++i) {
        const thumbcache::Original o = thumbcache::original(folder + "/" + names[i]);
        QImageReader reader(o.path);
        reader.setScaledSize(thumbcache::fitted(reader.size(), 128));
        QImage img = reader.read().convertToFormat(QImage::Format_ARGB32);
        img.setText(QStringLiteral("Thumb::URI"), QString::fromLatin1(o.uri));
        img.setText(QStringLiteral("Thumb::MTime"), QString::number(o.mtime));
        img.setText(QStringLiteral("Thumb::Size"), QString::number(o.size));
        img.setText(QStringLiteral("Software"), QStringLiteral("another program"));
        QImageWriter(normal + "/" + o.name, "png").write(img);
    }
}

} // namespace

namespace bench
{

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
                                   "EXIF thumbnails) ready in %2 s; %3 cores; thumbnail cache in %4")
                        .arg(cameralibrary::Count)
                        .arg(making.elapsed() / 1000.0, 0, 'f', 1)
                        .arg(QThread::idealThreadCount())
                        .arg(QDir::cleanPath(thumbcache::folder())));
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
    QElapsedTimer clock;
    double cpuStart = 0;
    Opening *into = nullptr;
    services.onModal = [&](QDialog &dialog) {
        auto &d = static_cast<libfrm &>(dialog);
        d.show();
        QApplication::processEvents();
        into->open.push_back(double(clock.nsecsElapsed()) / 1e6);
        into->openCpu.push_back((cpuUs() - cpuStart) / 1000);
        clock.start();
        const double stepStart = cpuUs();
        d.libscroll->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        d.repaint();
        into->step.push_back(double(clock.nsecsElapsed()) / 1e6);
        into->stepCpu.push_back((cpuUs() - stepStart) / 1000);
        for (const LibImage *img : d.libimg)
            into->whole = into->whole && !img->Tag.isEmpty() && img->Problem.isEmpty();
    };
    const auto openAndStep = [&](Opening &o) {
        into = &o;
        cpuStart = cpuUs();
        clock.start();
        w.cb_lib_Click();
    };
    bool whole = true;
    for (const char *variant : { "exif", "plain" }) {
        const bool exif = variant[0] == 'e';
        w.state().LibPath = base + "/" + variant;
        Opening first, uncached, warm, warmOne, uncachedOne, others, unmeasured;
        Pair plainOpen, plainStep;
        std::vector<double> memory;
        // A first open reads the files from the disk into the page cache; the runs measure the work.
        openAndStep(unmeasured);
        for (int run = 0; run < runs; ++run) {
            // The first opening, which fills the cache.
            emptyCache();
            memory.push_back(peakRiseMiB([&] { openAndStep(first); }));
            plainOpen.base.push_back(elapsedUs(plain(0, 6)) / 1000);
            plainStep.base.push_back(elapsedUs(plain(6, 2)) / 1000);
            // The cache's own cost: the same opening without it, measured the same way.
            thumbcache::setEnabled(false);
            peakRiseMiB([&] { openAndStep(uncached); });
            thumbcache::setEnabled(true);
            if (exif)
                continue;
            // Again, from what the first opening wrote.
            thumbcache::waitForWrites();
            openAndStep(warm);
            {
                const OneProcessor pinned;
                openAndStep(warmOne);
                thumbcache::setEnabled(false);
                openAndStep(uncachedOne);
                thumbcache::setEnabled(true);
            }
            emptyCache();
            writeOthers(w.state().LibPath, names, 8);
            openAndStep(others);
        }
        const QString kind = exif ? QStringLiteral("EXIF thumbnails") : QStringLiteral("no EXIF thumbnail");
        add(QStringLiteral("library open to six thumbnails, %1").arg(kind), QStringLiteral("ms"), first.open,
            QStringLiteral("plain decode + scale of the 6 files"), plainOpen.base,
            { Target::ValueBelow, exif ? 150.0 : 250.0, exif ? "< 150 ms" : "< 250 ms" });
        add(QStringLiteral("  processor time of the open, all threads"), QStringLiteral("ms"), first.openCpu,
            QStringLiteral("wall time of the open"), first.open);
        add(QStringLiteral("library step right (2 new files), %1").arg(kind), QStringLiteral("ms"),
            first.step, QStringLiteral("plain decode + scale of the 2 files"), plainStep.base,
            { Target::ValueBelow, 100, "< 100 ms" });
        add(QStringLiteral("  processor time of the step, all threads"), QStringLiteral("ms"), first.stepCpu,
            QStringLiteral("wall time of the step"), first.step);
        add(QStringLiteral("library peak rise, open + step, %1").arg(kind), QStringLiteral("MiB"), memory,
            QStringLiteral("plain decode of the 6 files"), plainMemory,
            { Target::ValueBelow, 40, "< 40 MiB" });
        whole = whole && first.whole && uncached.whole && warm.whole && warmOne.whole && uncachedOne.whole
            && others.whole;
        add(QStringLiteral("library first opening, cache written, %1").arg(kind), QStringLiteral("ms"),
            first.open, QStringLiteral("the same without the cache"), uncached.open,
            { Target::RatioAtMost, 1.1, "ratio <= 1.10" });
        add(QStringLiteral("  processor time, all threads, writes included"), QStringLiteral("ms"),
            first.openCpu, QStringLiteral("the same without the cache"), uncached.openCpu);
        if (exif)
            continue;
        add(QStringLiteral("library second opening, cache warm, %1").arg(kind), QStringLiteral("ms"),
            warm.open, QStringLiteral("first opening without the cache"), uncached.open,
            { Target::ValueBelow, 30, "< 30 ms" });
        add(QStringLiteral("  step right, cache warm"), QStringLiteral("ms"), warm.step,
            QStringLiteral("step without the cache"), uncached.step, { Target::ValueBelow, 10, "< 10 ms" });
        add(QStringLiteral("library second opening, cache warm, one core"), QStringLiteral("ms"),
            warmOne.open, QStringLiteral("first opening without the cache, one core"), uncachedOne.open,
            { Target::ValueBelow, 30, "< 30 ms" });
        add(QStringLiteral("  step right, cache warm, one core"), QStringLiteral("ms"), warmOne.step,
            QStringLiteral("step without the cache, one core"), uncachedOne.step,
            { Target::ValueBelow, 10, "< 10 ms" });
        add(QStringLiteral("library opening, another program's thumbnails"), QStringLiteral("ms"),
            others.open, QStringLiteral("second opening, our own thumbnails"), warm.open,
            { Target::ValueBelow, 30, "< 30 ms" });
        add(QStringLiteral("  step right, another program's thumbnails"), QStringLiteral("ms"), others.step,
            QStringLiteral("step right, our own thumbnails"), warm.step,
            { Target::ValueBelow, 10, "< 10 ms" });
    }
    emptyCache();
    if (!whole)
        notes.push_back(QStringLiteral("library: some thumbnails did not show"));
}

} // namespace bench
