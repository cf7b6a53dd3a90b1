// libFuzzer target for the puzzle file reader: no input crashes, hangs, leaks or reaches undefined
// behaviour, and every file it accepts is written back into a file that reads as the same puzzle.
#include "store/puzzlefile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto decoded
        = puzzlefile::decode(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    const auto *saved = std::get_if<puzzlefile::SavedPuzzle>(&decoded);
    if (!saved)
        return 0;
    puzzlefile::checkSources(*saved, QSize(int(size % 3000), int(size % 2000)));
    const auto again = puzzlefile::decode(puzzlefile::encode(*saved));
    const auto *same = std::get_if<puzzlefile::SavedPuzzle>(&again);
    if (!same || !(*same == *saved))
        __builtin_trap();
    return 0;
}
