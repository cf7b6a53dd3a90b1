// The benchmark's shared parts: platform services that never wait for a player, the one table every
// section adds its rows to, the ways of measuring, and the sections main runs in turn.
#pragma once

#include "platform/services.h"

#include <QElapsedTimer>
#include <QString>
#include <QThread>
#include <algorithm>
#include <functional>
#include <sched.h>
#include <vector>

class PictureBox;
class vxmain;

namespace bench
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

// What a row must show: its ratio at most or at least a limit, or its own figure below one.
struct Target {
    enum Kind { None, RatioAtMost, RatioAtLeast, ValueBelow } kind = None;
    double limit = 0;
    const char *text = "";
};

// Notes printed under the table.
extern std::vector<QString> notes;

// A row: our figures beside the baseline's, run by run, and the target they are judged by.
void add(const QString &what,
    const QString &unit,
    const std::vector<double> &ours,
    const QString &baseName,
    const std::vector<double> &base,
    Target target = {});
void printTable();

// ---- Measuring ----

double elapsedUs(const std::function<void()> &f);

struct Pair {
    std::vector<double> ours, base;
};

// Our figure and its baseline in turns, after one unmeasured call of each, in the given unit (1 = µs).
Pair paired(int runs, const std::function<void()> &ours, const std::function<void()> &base, double unit = 1);

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

// The peak resident memory a call adds above the level before it, in MiB.
double peakRiseMiB(const std::function<void()> &f);
// The machine's load average over the last minute, to tell a busy run.
QString loadAverage();

// ---- The sections, in the order main runs them ----

void benchStartup();
// The three test pictures, written into dir.
void makePictures(const QString &dir);
void benchLoading(const QString &dir, PictureBox &board, PictureBox &source, int runs);
void benchPlay(vxmain &w, const QString &picture);
void benchStore(vxmain &w);
void benchLibrary(const QString &programFolder, int runs);
void benchFrame(const QString &picture, int runs);

} // namespace bench
