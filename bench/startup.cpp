// Start-up of whole programs: each is started with exec on an X server of our own, and the benchmark
// waits for the map event of its first top-level window (the root window's substructure events), so the
// time is the server's own account of the window appearing, not a polling interval. The start-up section
// measures the game this way beside a bare Qt program and two peer puzzles.
#include "startup.h"
#include "bench.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace startup
{
namespace
{

    double nowMs()
    {
        timespec t {};
        clock_gettime(CLOCK_MONOTONIC, &t);
        return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
    }

    // The C strings of a list, kept alive with it, ready for exec before the fork.
    struct CStrings {
        explicit CStrings(const std::vector<QByteArray> &items)
            : m_items(items)
        {
            for (QByteArray &s : m_items)
                m_ptrs.push_back(s.data());
            m_ptrs.push_back(nullptr);
        }
        char **data()
        {
            return m_ptrs.data();
        }
        std::vector<QByteArray> m_items;
        std::vector<char *> m_ptrs;
    };

    std::vector<QByteArray> encoded(const QStringList &list)
    {
        std::vector<QByteArray> out;
        for (const QString &s : list)
            out.push_back(QFile::encodeName(s));
        return out;
    }

    // Starts a program; returns its process id once exec has succeeded, or -1 when it could not start.
    pid_t spawn(const QStringList &command, const std::vector<QByteArray> &env)
    {
        CStrings argv(encoded(command)), envp(env);
        int report[2];
        if (pipe2(report, O_CLOEXEC) != 0)
            return -1;
        const pid_t pid = fork();
        if (pid == 0) {
            // The programs' own messages would fill the table's screen.
            const int quiet = open("/dev/null", O_WRONLY);
            dup2(quiet, STDOUT_FILENO);
            dup2(quiet, STDERR_FILENO);
            execvpe(argv.data()[0], argv.data(), envp.data());
            const int e = errno;
            (void)!write(report[1], &e, sizeof e);
            _exit(127);
        }
        close(report[1]);
        int e = 0;
        // The pipe closes on a successful exec; an errno arrives when exec failed.
        const bool failed = pid < 0 || read(report[0], &e, sizeof e) == sizeof e;
        close(report[0]);
        if (failed && pid > 0)
            waitpid(pid, nullptr, 0);
        return failed ? -1 : pid;
    }

    // Ends a child by its process id: a polite request, then a firm one if it lingers.
    void stop(pid_t pid)
    {
        if (pid <= 0)
            return;
        kill(pid, SIGTERM);
        for (int i = 0; i < 300; ++i) {
            if (waitpid(pid, nullptr, WNOHANG) == pid)
                return;
            usleep(10'000);
        }
        kill(pid, SIGKILL);
        waitpid(pid, nullptr, 0);
    }

    // A server started with an extra argument naming a descriptor where it writes its address, e.g.
    // Xvfb's display number or the bus address; the line it writes, or an empty one after 20 s.
    QByteArray startServer(
        QStringList command, const QString &fdOption, const std::vector<QByteArray> &env, pid_t *pid)
    {
        int line[2];
        if (pipe(line) != 0)
            return {};
        command << fdOption.arg(line[1]);
        *pid = spawn(command, env);
        close(line[1]);
        QByteArray out;
        const double deadline = nowMs() + 20'000;
        char c = 0;
        while (*pid > 0 && !out.endsWith('\n') && nowMs() < deadline) {
            pollfd p { line[0], POLLIN, 0 };
            if (poll(&p, 1, 1000) > 0) {
                if (read(line[0], &c, 1) != 1)
                    break;
                out.append(c);
            }
        }
        close(line[0]);
        return out.trimmed();
    }

    // Waits for the map event of a top-level window that a window manager would manage (no menus or
    // tooltips, nothing smaller than a main window) and returns the time it was read, or -1.
    double waitForMap(xcb_connection_t *c, double deadline)
    {
        const int fd = xcb_get_file_descriptor(c);
        for (;;) {
            while (xcb_generic_event_t *e = xcb_poll_for_event(c)) {
                const double t = nowMs();
                xcb_window_t window = XCB_NONE;
                if ((e->response_type & 0x7f) == XCB_MAP_NOTIFY) {
                    const auto *m = reinterpret_cast<xcb_map_notify_event_t *>(e);
                    if (!m->override_redirect)
                        window = m->window;
                }
                std::free(e);
                if (window == XCB_NONE)
                    continue;
                xcb_get_geometry_reply_t *g = xcb_get_geometry_reply(c, xcb_get_geometry(c, window), nullptr);
                const bool main = g && g->width >= 200 && g->height >= 150;
                std::free(g);
                if (main)
                    return t;
            }
            const double left = deadline - nowMs();
            if (xcb_connection_has_error(c) || left <= 0)
                return -1;
            pollfd p { fd, POLLIN, 0 };
            poll(&p, 1, int(left) + 1);
        }
    }

    // Reads every event the server has sent so far, after a round trip.
    void drain(xcb_connection_t *c)
    {
        std::free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
        while (xcb_generic_event_t *e = xcb_poll_for_event(c))
            std::free(e);
    }

    // The time on a processor of every thread of a process so far, from the scheduler's own account.
    double processorMs(pid_t pid)
    {
        double ns = 0;
        const QString tasks = QStringLiteral("/proc/%1/task").arg(pid);
        for (const QString &task : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            QFile f(tasks + QLatin1Char('/') + task + QStringLiteral("/schedstat"));
            if (f.open(QIODevice::ReadOnly))
                ns += f.readAll().split(' ').first().toDouble();
        }
        return ns / 1e6;
    }

    double residentMiB(pid_t pid)
    {
        QFile f(QStringLiteral("/proc/%1/status").arg(pid));
        if (!f.open(QIODevice::ReadOnly))
            return 0;
        for (const QByteArray &line : f.readAll().split('\n'))
            if (line.startsWith("VmRSS:"))
                return line.mid(6).trimmed().split(' ').first().toDouble() / 1024.0;
        return 0;
    }

    // Both servers, stopped by their process ids whatever happens. The helpers the bus starts (the
    // accessibility bus) end with it; they are our orphans to collect, not the system's.
    struct Servers {
        pid_t x = -1, bus = -1;
        xcb_connection_t *connection = nullptr;
        Servers()
        {
            prctl(PR_SET_CHILD_SUBREAPER, 1);
        }
        ~Servers()
        {
            if (connection)
                xcb_disconnect(connection);
            stop(bus);
            stop(x);
            for (int i = 0; i < 100 && waitpid(-1, nullptr, WNOHANG) >= 0; ++i)
                usleep(10'000);
            prctl(PR_SET_CHILD_SUBREAPER, 0);
        }
    };

} // namespace

std::vector<std::vector<Sample>> measure(const std::vector<Program> &programs, int rounds, QString *error)
{
    QTemporaryDir home;
    if (!home.isValid() || !QDir(home.path()).mkdir(QStringLiteral("run"))) {
        *error = QStringLiteral("no temporary folder");
        return {};
    }
    QFile::setPermissions(
        home.filePath(QStringLiteral("run")), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // Every program sees the same plain desktop session: a fresh home, temporary and runtime folder (where
    // the game's single-instance lock lives, away from any other copy running), its own bus, no window
    // manager.
    std::vector<QByteArray> env { "PATH=" + qgetenv("PATH"), "LANG=C.UTF-8",
        "HOME=" + QFile::encodeName(home.path()),
        "XDG_RUNTIME_DIR=" + QFile::encodeName(home.filePath(QStringLiteral("run"))),
        "TMPDIR=" + QFile::encodeName(home.path()) };
    Servers servers;
    const QByteArray display
        = startServer({ QStringLiteral("Xvfb"), QStringLiteral("-screen"), QStringLiteral("0"),
                          QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"), QStringLiteral("tcp"),
                          QStringLiteral("-displayfd") },
            QStringLiteral("%1"), env, &servers.x);
    if (display.isEmpty()) {
        *error = QStringLiteral("Xvfb did not start");
        return {};
    }
    env.push_back("DISPLAY=:" + display);
    const QByteArray bus = startServer(
        { QStringLiteral("dbus-daemon"), QStringLiteral("--session"), QStringLiteral("--nofork") },
        QStringLiteral("--print-address=%1"), env, &servers.bus);
    if (bus.isEmpty()) {
        *error = QStringLiteral("the session bus did not start");
        return {};
    }
    env.push_back("DBUS_SESSION_BUS_ADDRESS=" + bus);

    servers.connection = xcb_connect((":" + display).constData(), nullptr);
    if (xcb_connection_has_error(servers.connection)) {
        *error = QStringLiteral("cannot connect to the X server :%1").arg(QString::fromLatin1(display));
        return {};
    }
    xcb_connection_t *c = servers.connection;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    if (xcb_generic_error_t *e
        = xcb_request_check(c, xcb_change_window_attributes_checked(c, root, XCB_CW_EVENT_MASK, &mask))) {
        std::free(e);
        *error = QStringLiteral("cannot watch the root window");
        return {};
    }

    std::vector<std::vector<Sample>> samples(programs.size());
    const int n = int(programs.size());
    for (int round = 0; round < rounds; ++round)
        for (int k = 0; k < n; ++k) {
            const Program &p = programs[size_t((round + k) % n)];
            drain(c);
            const double start = nowMs();
            const pid_t pid = spawn(p.command, env);
            if (pid < 0) {
                *error = QStringLiteral("%1 cannot be started").arg(p.command.first());
                return {};
            }
            const double mapped = waitForMap(c, start + 30'000);
            if (mapped < 0) {
                stop(pid);
                *error = QStringLiteral("%1 showed no window within 30 s").arg(p.name);
                return {};
            }
            const double cpu = processorMs(pid);
            const timespec second { 1, 0 };
            nanosleep(&second, nullptr);
            samples[size_t((round + k) % n)].push_back(
                { mapped - start, cpu, residentMiB(pid), processorMs(pid) });
            stop(pid);
        }
    return samples;
}

} // namespace startup

namespace bench
{

void benchStartup()
{
    const QString bin = QCoreApplication::applicationDirPath();
    const std::vector<startup::Program> programs { { QStringLiteral("the game"), { bin + "/varno" } },
        { QStringLiteral("bare Qt program"), { bin + "/varno_bare" } },
        { QStringLiteral("bare Qt program without text"),
            { bin + "/varno_bare", QStringLiteral("--no-text") } },
        { QStringLiteral("sgt-fifteen"), { QStringLiteral("/usr/games/sgt-fifteen") } },
        { QStringLiteral("gnome-taquin"), { QStringLiteral("/usr/games/gnome-taquin") } } };
    const int rounds = 9;
    std::fprintf(
        stderr, "start-up: %d rounds of %zu programs on a private X server\n", rounds, programs.size());
    QString error;
    const auto samples = startup::measure(programs, rounds, &error);
    if (samples.empty()) {
        notes.push_back(QStringLiteral("start-up not measured: %1").arg(error));
        return;
    }
    enum Figure { Wall, Processor, Settled, Memory };
    const auto series = [&](size_t program, Figure f) {
        std::vector<double> v;
        for (const startup::Sample &s : samples[program])
            v.push_back(f == Memory  ? s.rssMiB
                    : f == Processor ? s.cpuMs
                    : f == Settled   ? s.settledCpuMs
                                     : s.ms);
        return v;
    };
    add(QStringLiteral("start-up: exec to main window mapped"), QStringLiteral("ms"), series(0, Wall),
        QStringLiteral("bare Qt program of the same shape"), series(1, Wall),
        { Target::RatioAtMost, 1.1, "ratio <= 1.10" });
    add(QStringLiteral("  processor time to the map, all threads"), QStringLiteral("ms"),
        series(0, Processor), QStringLiteral("bare Qt program of the same shape"), series(1, Processor));
    // What waits until after the map is still done before the window shows anything: this is all of it.
    add(QStringLiteral("  processor time 1 s later, first paint done"), QStringLiteral("ms"),
        series(0, Settled), QStringLiteral("bare Qt program of the same shape"), series(1, Settled));
    add(QStringLiteral("start-up, against a bare program without text"), QStringLiteral("ms"),
        series(0, Wall), QStringLiteral("the same without text (no fonts)"), series(2, Wall));
    add(QStringLiteral("start-up, against sgt-fifteen"), QStringLiteral("ms"), series(0, Wall),
        QStringLiteral("sgt-fifteen"), series(3, Wall), { Target::RatioAtMost, 1.0, "ahead: < 1" });
    add(QStringLiteral("start-up, against gnome-taquin"), QStringLiteral("ms"), series(0, Wall),
        QStringLiteral("gnome-taquin"), series(4, Wall), { Target::RatioAtMost, 1.0, "ahead: < 1" });
    add(QStringLiteral("resident memory 1 s after the map"), QStringLiteral("MiB"), series(0, Memory),
        QStringLiteral("bare Qt program of the same shape"), series(1, Memory),
        { Target::RatioAtMost, 1.1, "ratio <= 1.10" });
    add(QStringLiteral("resident memory, against a bare program without text"), QStringLiteral("MiB"),
        series(0, Memory), QStringLiteral("the same without text (no fonts)"), series(2, Memory));
    add(QStringLiteral("resident memory, against sgt-fifteen"), QStringLiteral("MiB"), series(0, Memory),
        QStringLiteral("sgt-fifteen"), series(3, Memory));
    add(QStringLiteral("resident memory, against gnome-taquin"), QStringLiteral("MiB"), series(0, Memory),
        QStringLiteral("gnome-taquin"), series(4, Memory));
}

} // namespace bench
