// One running game per machine: a lock file that the first instance holds for its whole run.
#pragma once

#include <QLockFile>
#include <memory>

class SingleInstance
{
public:
    // Tries to become the one running instance; isFirst() tells whether it did.
    SingleInstance();
    bool isFirst() const
    {
        return m_first;
    }
    static QString lockPath();

private:
    std::unique_ptr<QLockFile> m_lock;
    bool m_first = false;
};
