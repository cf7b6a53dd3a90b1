// Where the puzzle file and the picture library live: beside the program, or in the per-user data
// folder when the program's own folder cannot be written (an installed copy).
#pragma once

#include <QString>

// True when a file can be created in the folder (probed, since permission bits do not tell for root).
bool folderIsWritable(const QString &folder);
// The program folder if it can be written, otherwise the per-user folder (created when missing).
QString chooseProgramFolder(const QString &exeFolder, const QString &userFolder);
