// One game per machine: of fifty starts at once exactly one game stays, the others end at once and
// silently; a lock or a socket left behind by a killed game does not keep the next start out, and nothing
// sent to its socket harms it. The command line is answered on the terminal without a display.
#include "table.h"

#include <QDir>
#include <QLocalSocket>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTest>

class SingleInstanceTest : public QObject
{
    Q_OBJECT
private slots:
    // Help, the version and a mistake end at once with their exit code; none needs a display.
    void commandLineAnsweredWithoutDisplay_data()
    {
        // The first line printed on standard output, then on standard error.
        columns<QStringList, int, QString>({ "arguments", "code", "said" });
        QTest::newRow("help") << QStringList { "--help" } << 0 << "Usage: varno [options] [picture]\n|";
        QTest::newRow("version") << QStringList { "-v" } << 0 << "varno 1.0\n|";
        QTest::newRow("unknown") << QStringList { "--sound" } << 2 << "|varno: Unknown option 'sound'.\n";
        QTest::newRow("two pictures")
            << QStringList { "a.jpg", "b.jpg" } << 2 << "|varno: Only one picture can be opened.\n";
    }
    void commandLineAnsweredWithoutDisplay()
    {
        const auto [arguments, code, said] = fetch<QStringList, int, QString>("arguments", "code", "said");
        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove("DISPLAY");
        env.remove("WAYLAND_DISPLAY");
        env.insert("QT_QPA_PLATFORM", "xcb");
        env.insert("LANGUAGE", "en");
        p.setProcessEnvironment(env);
        p.start(QStringLiteral(VARNO_EXE), arguments);
        QVERIFY(p.waitForFinished(10000));
        // The first line of each is enough: the rest is Qt's.
        const auto firstLine = [](const QByteArray &text) {
            return QString::fromLocal8Bit(text).section('\n', 0, 0, QString::SectionIncludeTrailingSep);
        };
        QVERIFY(p.exitStatus() == QProcess::NormalExit && p.exitCode() == code);
        QCOMPARE(firstLine(p.readAllStandardOutput()) + '|' + firstLine(p.readAllStandardError()), said);
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
        // It listens where the killed game did, and whatever comes there leaves it running and hearing the
        // next caller: random bytes, a line far longer than any request, a half line and a hang-up, a
        // thousand callers at once, of which it holds only a few. It hangs up on a caller once it has heard
        // it.
        QByteArray noise(1 << 16, 0);
        QRandomGenerator(7).fillRange(reinterpret_cast<quint32 *>(noise.data()), noise.size() / 4);
        const QList<QByteArray> sayings { noise, QByteArray(16 << 20, 'a'), "forward picture=/tmp/a" };
        std::vector<std::unique_ptr<QLocalSocket>> callers(1000);
        const auto call = [](std::unique_ptr<QLocalSocket> &caller) {
            caller = std::make_unique<QLocalSocket>();
            caller->connectToServer(
                QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + "/varno.socket");
        };
        std::for_each(callers.begin(), callers.end(), call);
        for (int i = 0; i < sayings.size(); ++i)
            QVERIFY(callers[i]->waitForConnected(10000) && callers[i]->write(sayings[i]) > 0);
        callers[2]->disconnectFromServer();
        const auto hungUp = [&](int i) { return callers[i]->state() == QLocalSocket::UnconnectedState; };
        QTRY_VERIFY_WITH_TIMEOUT(hungUp(0) && hungUp(1), 10000);
        QCOMPARE_LT(QDir(QStringLiteral("/proc/%1/fd").arg(next.processId())).count(), 100u);
        // The silent ones too, once their time is up.
        QTRY_VERIFY_WITH_TIMEOUT(
            std::all_of(callers.begin(), callers.end(),
                [](auto &caller) { return caller->state() == QLocalSocket::UnconnectedState; }),
            20000);
        callers.resize(1);
        call(callers[0]);
        QVERIFY(callers[0]->waitForConnected(10000) && callers[0]->write("forward\n") > 0);
        QTRY_VERIFY_WITH_TIMEOUT(hungUp(0), 10000);
        QCOMPARE(next.state(), QProcess::Running);
        next.kill();
        next.waitForFinished();
    }
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "tst_singleinstance.moc"
