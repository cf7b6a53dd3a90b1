// Where the puzzle file and the picture library live: beside the program, or in the per-user data
// folder when the program's own folder cannot be written (an installed copy).
#pragma once

#include <QString>

// True when a file can be created in the folder (probed, since permission bits do not tell for root).
bool folderIsWritable(const QString &folder);
// The program folder if it can be written and the copy is not installed, otherwise the per-user folder
// (created when missing).
QString chooseProgramFolder(const QString &exeFolder, const QString &userFolder);
// Where an installed copy keeps its starter pictures: the shared data folder beside its program folder.
QString starterFolder(const QString &exeFolder);
// A library folder that does not exist yet is created with copies of the starter pictures.
void seedLibrary(const QString &programFolder, const QString &starter);
