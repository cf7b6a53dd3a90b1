// The command line: read before anything else, so that help, the version and a mistake are answered on
// the terminal without a window, and a picture named there is opened once the window is up.
#pragma once

#include <QString>
#include <QStringList>

namespace commandline
{

enum class Outcome { Play, Help, Version, Mistake };

struct Request {
    Outcome outcome = Outcome::Play;
    // The picture to open, absolute (a relative name means the starting folder); empty when none.
    QString picture;
};

// The program's arguments as the system gave them, its own name first.
QStringList arguments(int argc, char *argv[]);

// What the arguments ask for. Needs no application object.
Request read(const QStringList &arguments);

// Prints what a request other than Play asks for (the help and the version on standard output, a mistake
// on standard error) in the language installed, and returns the exit code: 0, or 2 for a mistake.
int answer(const QStringList &arguments);

} // namespace commandline
