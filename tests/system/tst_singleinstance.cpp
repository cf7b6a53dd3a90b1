// One game per machine: of fifty starts at once exactly one game stays, the others end at once and
// silently; a lock left behind by a killed game does not keep the next start out.
#include <QProcess>
#include <QTest>

class SingleInstanceTest : public QObject
{
    Q_OBJECT
private slots:
    void oneGameOfManyStarts()
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
                || (p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0 && p.readAll().isEmpty()));
            p.kill();
            p.waitForFinished();
        }
        QProcess next;
        next.start(QStringLiteral(VARNO_EXE), {});
        QVERIFY(next.waitForStarted() && !next.waitForFinished(1500));
        next.kill();
        next.waitForFinished();
    }
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "tst_singleinstance.moc"
