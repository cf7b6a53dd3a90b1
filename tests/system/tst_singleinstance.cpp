// One game per machine: a second start ends at once and leaves the first one running.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

class SingleInstanceTest : public QObject
{
    Q_OBJECT
private slots:
    void secondStartEndsSilently()
    {
        const QString lock
            = QDir(QDir::tempPath()).filePath("varno-" + qEnvironmentVariable("USER") + ".lock");
        QFile::remove(lock);
        QProcess first;
        first.start(QStringLiteral(VARNO_EXE), {});
        QVERIFY(first.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(lock), 10000);

        QProcess second;
        second.start(QStringLiteral(VARNO_EXE), {});
        QVERIFY(second.waitForFinished(10000));
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), 0);
        QVERIFY(second.readAllStandardOutput().isEmpty());
        QCOMPARE(first.state(), QProcess::Running);

        first.kill();
        first.waitForFinished();
        // A lock left behind by a killed game does not keep the next start out.
        QProcess third;
        third.start(QStringLiteral(VARNO_EXE), {});
        QVERIFY(third.waitForStarted());
        QVERIFY(!third.waitForFinished(1500));
        third.kill();
        third.waitForFinished();
    }

    // Fifty starts at once, none running before: exactly one game stays (a window is made only after the
    // check), the others end at once and silently.
    void fiftyStartsAtOnceLeaveOneGame()
    {
        std::array<QProcess, 50> starts;
        for (QProcess &p : starts)
            p.start(QStringLiteral(VARNO_EXE), {});
        const auto running = [&] {
            return std::count_if(
                starts.begin(), starts.end(), [](QProcess &p) { return p.state() != QProcess::NotRunning; });
        };
        QTRY_COMPARE_WITH_TIMEOUT(running(), 1, 60000);
        QTest::qWait(1000);
        QCOMPARE(running(), 1);
        for (QProcess &p : starts) {
            QVERIFY(p.state() != QProcess::NotRunning
                || (p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0));
            p.kill();
            p.waitForFinished();
        }
    }
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "tst_singleinstance.moc"
