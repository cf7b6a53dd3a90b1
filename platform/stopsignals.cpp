// A signal handler may do next to nothing safely, so it only writes a byte into a socket pair; the event
// loop reads the other end and the program ends from there, as it would from any handler.
#include "platform/stopsignals.h"

#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace
{
int wake[2] = { -1, -1 }; // written by the handler, read by the event loop
const int Stops[] = { SIGTERM, SIGINT };

void onStop(int)
{
    const int saved = errno;
    const char byte = 1;
    // A full pair already holds a wake-up; nothing is lost by a write that fails.
    if (::write(wake[0], &byte, 1) < 0) { }
    errno = saved;
}

void catchStops(bool on)
{
    for (const int sig : Stops) {
        struct sigaction now = {};
        if (::sigaction(sig, nullptr, &now) != 0 || now.sa_handler == SIG_IGN)
            continue; // a signal the starter chose to ignore stays ignored
        struct sigaction act = {};
        act.sa_handler = on ? onStop : SIG_DFL;
        sigemptyset(&act.sa_mask);
        act.sa_flags = SA_RESTART;
        ::sigaction(sig, &act, nullptr);
    }
}
} // namespace

StopSignals::StopSignals()
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, wake) != 0)
        return; // the signals keep their default: the run ends without its own handling
    m_notifier = new QSocketNotifier(wake[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        char bytes[16];
        while (::read(wake[1], bytes, sizeof bytes) > 0) { }
        // A second request ends a run that has not ended by then the system's own way.
        catchStops(false);
        emit stopAsked();
    });
    catchStops(true);
}

StopSignals::~StopSignals()
{
    catchStops(false);
    delete m_notifier;
    for (int &fd : wake)
        if (fd >= 0) {
            ::close(fd);
            fd = -1;
        }
}
