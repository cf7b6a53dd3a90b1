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
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "tst_singleinstance.moc"
