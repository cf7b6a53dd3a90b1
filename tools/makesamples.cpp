// Command-line tool: draws the starter picture library into a folder, creating it when missing.
#include "picturegen.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: makesamples FOLDER\n");
        return 1;
    }
    // With an application object, plugin lookup also honours the program's own folder (qt.conf).
    QCoreApplication app(argc, argv);
    const QString folder = QString::fromLocal8Bit(argv[1]);
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "makesamples: cannot create %s\n", argv[1]);
        return 1;
    }
    QString error;
    if (!picturegen::writeSamples(folder, &error)) {
        std::fprintf(stderr, "makesamples: %s\n", qPrintable(error));
        return 1;
    }
    return 0;
}
