// A private Xvfb server for the tests that drive the real program in a real X window.
#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>

class XServer
{
public:
    // Starts Xvfb on the first free display from :90 and waits until it accepts clients.
    bool start(const QString &screen = QStringLiteral("1280x1024x24"))
    {
        for (int n = 90; n < 140; ++n) {
            if (QFile::exists(QStringLiteral("/tmp/.X%1-lock").arg(n))
                || QFile::exists(QStringLiteral("/tmp/.X11-unix/X%1").arg(n)))
                continue;
            m_display = QStringLiteral(":%1").arg(n);
            m_proc.start(QStringLiteral("Xvfb"),
                { m_display, QStringLiteral("-screen"), QStringLiteral("0"), screen,
                    QStringLiteral("-nolisten"), QStringLiteral("tcp") });
            if (!m_proc.waitForStarted(5000))
                return false;
            for (int i = 0; i < 100; ++i) {
                if (QFile::exists(QStringLiteral("/tmp/.X11-unix/X%1").arg(n)))
                    return true;
                if (m_proc.state() != QProcess::Running)
                    break;
                QThread::msleep(50);
            }
            m_proc.kill();
            m_proc.waitForFinished();
        }
        return false;
    }
    QString display() const
    {
        return m_display;
    }
    ~XServer()
    {
        m_proc.terminate();
        m_proc.waitForFinished(3000);
    }

private:
    QProcess m_proc;
    QString m_display;
};
