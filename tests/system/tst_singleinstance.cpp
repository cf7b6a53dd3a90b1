// One game per machine: of fifty starts at once exactly one game stays, the others end at once and
// silently; a lock left behind by a killed game does not keep the next start out. The command line is
// answered on the terminal without a display.
#include <QProcess>
#include <QTest>

class SingleInstanceTest : public QObject
{
    Q_OBJECT
private slots:
    // Help, the version and a mistake end at once with their exit code; none needs a display.
    void commandLineAnsweredWithoutDisplay_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("out");
        QTest::addColumn<QString>("err");
        QTest::newRow("help") << QStringList { "--help" } << 0 << "Usage: varno [options] [picture]\n"
                              << "";
        QTest::newRow("version") << QStringList { "-v" } << 0 << "varno 1.0\n"
                                 << "";
        QTest::newRow("unknown") << QStringList { "--sound" } << 2 << ""
                                 << "varno: Unknown option 'sound'.\n";
        QTest::newRow("two pictures") << QStringList { "a.jpg", "b.jpg" } << 2 << ""
                                      << "varno: Only one picture can be opened.\n";
    }
    void commandLineAnsweredWithoutDisplay()
    {
        QFETCH(QStringList, arguments);
        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove("DISPLAY");
        env.remove("WAYLAND_DISPLAY");
        env.insert("QT_QPA_PLATFORM", "xcb");
        env.insert("LANGUAGE", "en");
        p.setProcessEnvironment(env);
        p.start(QStringLiteral(VARNO_EXE), arguments);
        QVERIFY(p.waitForFinished(10000));
        QCOMPARE(p.exitStatus(), QProcess::NormalExit);
        QTEST(p.exitCode(), "code");
        // The first line of each is enough: the rest is Qt's.
        const auto firstLine = [](const QByteArray &text) {
            return QString::fromLocal8Bit(text).section(
                QLatin1Char('\n'), 0, 0, QString::SectionIncludeTrailingSep);
        };
        QTEST(firstLine(p.readAllStandardOutput()), "out");
        QTEST(firstLine(p.readAllStandardError()), "err");
    }

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
