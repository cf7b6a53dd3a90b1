// One running game per user: a lock in the user's runtime folder, held for the whole run, and beside it a
// local socket on which a later start asks the running game to come forward.
#pragma once

#include <QObject>
#include <QString>

class QLocalServer;

class SingleInstance : public QObject
{
    Q_OBJECT
public:
    // Tries to become the one running game; the one that does listens for later starts.
    SingleInstance();
    ~SingleInstance() override;
    SingleInstance(const SingleInstance &) = delete;
    SingleInstance &operator=(const SingleInstance &) = delete;
    bool isFirst() const
    {
        return m_first;
    }
    // A later start: asks the running game to come forward, giving up after timeoutMs. True when the
    // request was handed over.
    bool callFirst(int timeoutMs) const;

signals:
    // A later start asked the running game to come forward.
    void comeForward();

private:
    void takeCalls();

    // The user's own runtime folder; empty where there is none to be had.
    QString m_folder;
    int m_fd = -1;
    bool m_first = false;
    QLocalServer *m_server = nullptr;
};
