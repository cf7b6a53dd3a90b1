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

QString starterFolder(const QString &exeFolder)
{
    return QDir::cleanPath(exeFolder + QStringLiteral("/../share/varno/lib"));
}

QString chooseProgramFolder(const QString &exeFolder, const QString &userFolder)
{
    // An installed copy writes nothing beside the program, even for a user who could (root).
    const bool installed = QFileInfo(starterFolder(exeFolder)).isDir();
    if ((!installed && folderIsWritable(exeFolder)) || userFolder.isEmpty())
        return exeFolder;
    QDir().mkpath(userFolder);
    return folderIsWritable(userFolder) ? userFolder : exeFolder;
}

void seedLibrary(const QString &programFolder, const QString &starter)
{
    // Only a library made now is seeded: pictures the player deleted stay deleted.
    const QString lib = programFolder + QStringLiteral("/lib");
    if (QFileInfo::exists(lib) || !QFileInfo(starter).isDir() || !QDir().mkpath(lib))
        return;
    for (const QFileInfo &f : QDir(starter).entryInfoList(QDir::Files))
        QFile::copy(f.filePath(), lib + QLatin1Char('/') + f.fileName());
}
