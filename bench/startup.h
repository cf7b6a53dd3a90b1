// Start-up of whole programs on their own X server: exec until the main window is mapped, and the
// resident memory and processor time one second later.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace startup
{

struct Program {
    QString name;
    QStringList command; // the executable and its arguments
};

struct Sample {
    double ms = 0; // exec to the map event of the first top-level window
    double cpuMs = 0; // processor time of all its threads up to that event: steadier on a busy machine
    double rssMiB = 0; // resident memory one second after that
    double settledCpuMs = 0; // processor time by then: the first paint and whatever was left for later
};

// Starts an Xvfb and a session bus of its own, runs `rounds` rounds of every program in turn (round r
// starts with program r, so that none always goes first) and stops both by their process ids. Returns
// the samples by program, in round order; on failure, an empty result and the reason in *error.
std::vector<std::vector<Sample>> measure(const std::vector<Program> &programs, int rounds, QString *error);

} // namespace startup
