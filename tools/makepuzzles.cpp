// Command-line tool: writes sound puzzle files of every board size and both puzzle types into a folder
// (the seeds of the puzzle file fuzzer).
#include "play/moves.h"
#include "play/scramble.h"
#include "store/puzzlefile.h"

#include <QDir>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: makepuzzles FOLDER\n");
        return 1;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "makepuzzles: cannot create %s\n", argv[1]);
        return 1;
    }
    RandomSource random(1);
    for (Integer n = Codes::MinGrid; n <= Codes::MaxGrid; ++n) {
        for (const QString &type : { Codes::Slide, Codes::Drag }) {
            PuzzleState s;
            s.PuzType = type;
            s.setGridSize(n);
            // The tiles of a 520 x 390 picture; black grid lines on odd sizes.
            s.TileW = Integer(520 / n);
            s.TileH = Integer(390 / n);
            s.GridColor = n % 2 ? Codes::BlackColor : Codes::WhiteColor;
            s.PicFile = QStringLiteral("/home/player/Pictures/Bild %1 ü.jpg").arg(n);
            scrambleTables(s, random, [] {});
            // In the drag puzzle every other tray box holds a piece.
            for (int k = 0; type == Codes::Drag && k < n; k += 2)
                exchangeHolders(s, { Holder::Board, k }, { Holder::Tray, k });
            const QString path = QStringLiteral("%1/%2%3.pzl").arg(folder, type).arg(n);
            const QString error = puzzlefile::writeWhole(path, puzzlefile::encode(s));
            if (!error.isEmpty()) {
                std::fprintf(stderr, "makepuzzles: %s: %s\n", qPrintable(path), qPrintable(error));
                return 1;
            }
        }
    }
    return 0;
}
