// The frame animation section: the red frame's whole time beside the pace it keeps.
#include "app/vxmain.h"
#include "bench.h"

#include <QApplication>
#include <QTemporaryDir>

namespace bench
{

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

} // namespace bench
