// Choice of the folder that holds the game's files.
#include "app/programfolder.h"

#include <QDir>
#include <QTemporaryFile>

bool folderIsWritable(const QString &folder)
{
    if (!QFileInfo(folder).isDir())
        return false;
    QTemporaryFile probe(QDir(folder).filePath(QStringLiteral(".varno-probe-XXXXXX")));
    return probe.open();
}

QString chooseProgramFolder(const QString &exeFolder, const QString &userFolder)
{
    if (folderIsWritable(exeFolder) || userFolder.isEmpty())
        return exeFolder;
    QDir().mkpath(userFolder);
    return folderIsWritable(userFolder) ? userFolder : exeFolder;
}
