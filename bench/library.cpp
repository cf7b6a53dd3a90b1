// The library section: the library window over a library of camera pictures, with and without the
// EXIF thumbnails cameras embed, beside decoding the files whole.
#include "app/vxmain.h"
#include "bench.h"
#include "cameralibrary.h"
#include "pictures/libfrm.h"
#include "pictures/librarymodel.h"

#include <QApplication>
#include <QElapsedTimer>
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

} // namespace bench
