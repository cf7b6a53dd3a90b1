// One running game per user: a lock on a file in the temporary folder, held for the whole run.
#pragma once

#include <QString>

class SingleInstance
{
public:
    // Tries to become the one running instance; isFirst() tells whether it did.
    SingleInstance();
    ~SingleInstance();
    SingleInstance(const SingleInstance &) = delete;
    SingleInstance &operator=(const SingleInstance &) = delete;
    bool isFirst() const
    {
        return m_first;
    }
    static QString lockPath();

private:
    int m_fd = -1;
    bool m_first = false;
};
