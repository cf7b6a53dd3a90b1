// A Wayland compositor of the test's own: weston on a runtime folder and socket of its own, a plain
// desktop without a panel, its debug protocol on for the screenshot and scene-graph tools; stopped by its
// process id when the test is done with it.
#pragma once

#include <QDir>
#include <QImage>
#include <QLibraryInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class Weston
{
public:
    // Its XDG_RUNTIME_DIR, made 0700 as the compositor wants it; a short name, for the sockets in it.
    QTemporaryDir run { QDir::tempPath() + QStringLiteral("/wl-XXXXXX") };
    QProcess weston;

    // Why a Wayland test cannot run here, or an empty string.
    static QString missing()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("weston")).isEmpty())
            return QStringLiteral("weston is not installed");
        const QString plugin
            = QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms/libqwayland-generic.so";
        return QFileInfo::exists(plugin) ? QString()
                                         : QStringLiteral("Qt's wayland plugin (qt6-wayland) is missing");
    }
    // The environment of a client: this compositor's runtime folder and socket, and no X server to fall
    // back on.
    QProcessEnvironment env() const
    {
        QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
        e.insert(QStringLiteral("XDG_RUNTIME_DIR"), run.path());
        e.insert(QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("varno-test"));
        e.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("wayland"));
        e.remove(QStringLiteral("DISPLAY"));
        return e;
    }
    // headless-backend.so, or x11-backend.so in the test's X server, which gives it a mouse and keyboard.
    bool start(const QString &backend)
    {
        QFile ini(run.filePath(QStringLiteral("weston.ini")));
        if (!ini.open(QIODevice::WriteOnly)
            || ini.write("[shell]\npanel-position=none\nstartup-animation=none\nclose-animation=none\n") < 0)
            return false;
        ini.close();
        QProcessEnvironment e = env();
        e.insert(QStringLiteral("DISPLAY"), qEnvironmentVariable("DISPLAY"));
        weston.setProcessEnvironment(e);
        weston.start(QStringLiteral("weston"),
            { "--backend=" + backend, "--use-pixman", "--debug", "--socket=varno-test", "--width=1280",
                "--height=1024", "--idle-time=0", "--config=" + ini.fileName() });
        for (int i = 0; i < 100 && !QFileInfo::exists(run.filePath("varno-test")); ++i)
            QTest::qWait(100);
        return weston.state() == QProcess::Running && QFileInfo::exists(run.filePath("varno-test"));
    }
    ~Weston()
    {
        weston.terminate();
        weston.waitForFinished();
    }
    // The game's windows on the compositor's screen (a minimised one is not), by title: their top-left.
    QMap<QString, QPoint> windows() const
    {
        QProcess tool;
        tool.setProcessEnvironment(env());
        tool.start(QStringLiteral("weston-debug"), { "scene-graph" });
        tool.waitForFinished(10000);
        static const QRegularExpression view(
            R"(top-level window '([^']*)' of org\.varno\.varno.*\n\s*position: \((-?\d+), (-?\d+)\))");
        QMap<QString, QPoint> found;
        for (const auto &m : view.globalMatch(QString::fromUtf8(tool.readAllStandardOutput())))
            found.insert(m.captured(1), QPoint(m.captured(2).toInt(), m.captured(3).toInt()));
        return found;
    }
    // The whole screen as the compositor shows it; saved as build/tests/realwindow-wayland-NAME.png.
    QImage shot(const QString &name) const
    {
        QTemporaryDir folder; // weston-screenshooter writes into its working folder
        QProcess tool;
        tool.setProcessEnvironment(env());
        tool.setWorkingDirectory(folder.path());
        tool.start(QStringLiteral("weston-screenshooter"));
        tool.waitForFinished(10000);
        const QStringList files = QDir(folder.path()).entryList({ "wayland-screenshot-*.png" });
        const QImage img = files.isEmpty() ? QImage() : QImage(folder.filePath(files.first()));
        img.save(QStringLiteral(SHOT_DIR "/realwindow-wayland-%1.png").arg(name));
        return img.convertToFormat(QImage::Format_RGB32);
    }
};
