// Benchmarks: start-up beside a bare Qt program and two peers, picture loading, play, the saved puzzle,
// the library and the frame animation. Every figure stands beside a baseline measured in the same run,
// and each ratio is taken run by run, so a burst of load on the machine moves both sides of a pair.
// Everything ends in one table with the target and whether it is met. Each section has a file of its
// own; this runs them in turn.
#include "app/vxmain.h"
#include "bench.h"
#include "picturegen.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

using namespace bench;

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // The library's thumbnail cache is kept in the build folder, never in the user's own.
    qputenv("XDG_CACHE_HOME", QFile::encodeName(QCoreApplication::applicationDirPath() + "/../bench-cache"));
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
