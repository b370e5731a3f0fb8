// Starting external programs: the editor waits for the program unless told not to, and its
// windows keep painting meanwhile.

#include <QtTest>

#include "platform/ProcessLauncher.h"

using namespace orr::ui;

class ProcessLauncherTest : public QObject {
    Q_OBJECT

  private slots:
    void waitsUntilTheProgramHasEnded() {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString marker = dir.filePath(QStringLiteral("done here"));
        const QString command = QStringLiteral("sh -c \"sleep 0.3; echo x > '%1'\"").arg(marker);
        // Meanwhile the windows' own events (painting, timers) go on.
        bool ranMeanwhile = false;
        QTimer::singleShot(50, [&ranMeanwhile] { ranMeanwhile = true; });
        QVERIFY(Execute(command));
        QVERIFY(QFile::exists(marker) && ranMeanwhile);
    }

    void returnsAtOnceWithoutWaiting() {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString marker = dir.filePath(QStringLiteral("late"));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(Execute(QStringLiteral("sh -c \"sleep 1.5; echo x > '%1'\"").arg(marker),
                        WindowState::Minimised, true));
        QVERIFY(timer.elapsed() < 1200);
        QVERIFY(!QFile::exists(marker));
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(marker), 10000);
    }

    void aMissingProgramIsNotStarted() {
        QVERIFY(!Execute(QStringLiteral("/nonexistent/paint.exe \"C:\\Planet1.bmp\"")));
        QVERIFY(!Execute(QString()));
    }
};

QTEST_MAIN(ProcessLauncherTest)
#include "ProcessLauncherTest.moc"
