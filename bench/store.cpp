// The saved puzzle section: saving and loading the 11 x 11 game in play, beside plain file calls.
#include "app/vxmain.h"
#include "bench.h"
#include "store/puzzlefile.h"

#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

namespace bench
{

// The 11 x 11 game in play: the file work alone against plain file calls on the same bytes, in a memory
// folder (the work itself) and on the disk (where the flush of a durable replace is the disk's time);
// then the whole load command against the picture's own loading.
void benchStore(vxmain &w)
{
    PuzzleState &s = w.state();
    const QByteArray bytes = puzzlefile::encode(s);
    QTemporaryDir ram(QStringLiteral("/dev/shm/varno-bench-XXXXXX"));
    const QString memory = ram.isValid() ? ram.filePath(QStringLiteral("varno.pzl")) : s.PzlFile;
    const auto save = [&](const QString &path) {
        return [&, path] { puzzlefile::writeWhole(path, puzzlefile::encode(s)); };
    };
    const auto plainWrite = [&](const QString &path) {
        return [&, path] {
            QFile f(path + QStringLiteral(".plain"));
            f.open(QIODevice::WriteOnly);
            f.write(bytes);
        };
    };
    const Pair saveMemory = paired(201, save(memory), plainWrite(memory));
    const Pair saveDisk = paired(201, save(s.PzlFile), plainWrite(s.PzlFile));
    const Pair load = paired(
        201,
        [&] {
            const auto decoded = puzzlefile::decode(std::get<QByteArray>(puzzlefile::readFile(memory)));
            if (!std::holds_alternative<puzzlefile::SavedPuzzle>(decoded))
                std::fprintf(stderr, "the saved puzzle was refused\n");
        },
        [&] {
            QFile f(memory);
            f.open(QIODevice::ReadOnly);
            f.readAll();
        });
    const Pair command = paired(
        51, [&] { w.cb_load_Click(); }, [&] { w.LoadPic(QStringLiteral("Load")); }, 1000);
    notes.push_back(
        QStringLiteral("saved puzzle: %1 bytes; memory folder %2")
            .arg(bytes.size())
            .arg(ram.isValid() ? QStringLiteral("/dev/shm") : QStringLiteral("missing, disk used")));
    add(QStringLiteral("save 11 x 11: encode + replace whole, memory folder"), QStringLiteral("us"),
        saveMemory.ours, QStringLiteral("plain QFile write"), saveMemory.base,
        { Target::ValueBelow, 1000, "< 1000 us" });
    add(QStringLiteral("the same save on the disk, flushed"), QStringLiteral("us"), saveDisk.ours,
        QStringLiteral("plain QFile write"), saveDisk.base);
    add(QStringLiteral("load: read + decode + every check"), QStringLiteral("us"), load.ours,
        QStringLiteral("plain QFile read"), load.base, { Target::ValueBelow, 1000, "< 1000 us" });
    add(QStringLiteral("load command with its 1024 x 768 JPEG"), QStringLiteral("ms"), command.ours,
        QStringLiteral("LoadPic alone"), command.base, { Target::RatioAtMost, 2, "picture dominates: < 2" });
}

} // namespace bench
