// Single instance through the system's file lock: it goes with the process however the process ends, so
// a game that crashed or was killed leaves nothing stale behind, and taking it needs no write to disk.
#include "platform/singleinstance.h"

#include <QDir>
#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

QString SingleInstance::lockPath()
{
    return QDir(QDir::tempPath())
        .filePath(QStringLiteral("varno-%1.lock").arg(QString::fromLocal8Bit(qgetenv("USER"))));
}

SingleInstance::SingleInstance()
{
    m_fd = ::open(QFile::encodeName(lockPath()).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    // Where no lock file can be made (a full or read-only temporary folder) the game still starts: a
    // second copy is a smaller harm than a game that never opens.
    m_first = m_fd < 0 || ::flock(m_fd, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

SingleInstance::~SingleInstance()
{
    // The file stays: removing it could let a start that opened it just before lock another file.
    if (m_fd >= 0)
        ::close(m_fd);
}
