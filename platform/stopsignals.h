// The system's requests to stop (SIGTERM from a session's end or `kill`, SIGINT from Ctrl+C in a
// terminal), turned into a Qt signal the event loop delivers like any other event.
#pragma once

#include <QObject>

class QSocketNotifier;

class StopSignals : public QObject
{
    Q_OBJECT
public:
    StopSignals();
    ~StopSignals() override;
    StopSignals(const StopSignals &) = delete;
    StopSignals &operator=(const StopSignals &) = delete;

signals:
    void stopAsked();

private:
    QSocketNotifier *m_notifier = nullptr;
};
