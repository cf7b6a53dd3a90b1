// One running game per user: a lock in the user's runtime folder, held for the whole run, and beside it a
// local socket on which a later start asks the running game to come forward and open a picture.
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
    // A later start: asks the running game to come forward and, when one is named (an absolute path), to
    // open the picture, giving up after timeoutMs. True when the request was handed over.
    bool callFirst(int timeoutMs, const QString &picture = QString()) const;

signals:
    // A later start asked the running game to come forward.
    void comeForward();
    // ... and to open this picture (an absolute path), after comeForward.
    void pictureHandedOver(const QString &picture);

private:
    void takeCalls();
    void answerCallers();

    // The user's own runtime folder; empty where there is none to be had.
    QString m_folder;
    int m_fd = -1;
    bool m_first = false;
    QLocalServer *m_server = nullptr;
    // Callers being heard now.
    int m_callers = 0;
};
