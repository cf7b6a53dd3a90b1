// Single instance through QLockFile: a lock left by a crashed run is stale and taken over.
#include "platform/singleinstance.h"

#include <QDir>

QString SingleInstance::lockPath()
{
    return QDir(QDir::tempPath())
        .filePath(QStringLiteral("varno-%1.lock").arg(QString::fromLocal8Bit(qgetenv("USER"))));
}

SingleInstance::SingleInstance()
    : m_lock(std::make_unique<QLockFile>(lockPath()))
{
    m_lock->setStaleLockTime(0);
    m_first = m_lock->tryLock(0);
}
