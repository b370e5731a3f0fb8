// Starting external programs: the editor waits for the program unless told not to, and its
// windows keep painting meanwhile.

#include <QtTest>

#include "platform/ProcessLauncher.h"

using namespace orr::ui;

class ProcessLauncherTest : public QObject {
    Q_OBJECT

  private slots:
    // The program writes its mark after a while: a caller that waited finds it at once, one
    // that did not finds it only later.
    void waitsUntilTheProgramHasEndedUnlessToldNotTo() {
        QTemporaryDir dir;
        const QString command = QStringLiteral("sh -c \"sleep 0.5; echo x > '%1'\"");
        const QString waited = dir.filePath(QStringLiteral("done here"));
        // Meanwhile the windows' own events (painting, timers) go on.
        bool ranMeanwhile = false;
        QTimer::singleShot(50, [&ranMeanwhile] { ranMeanwhile = true; });
        QVERIFY(Execute(command.arg(waited)));
        QVERIFY(QFile::exists(waited) && ranMeanwhile);
        const QString late = dir.filePath(QStringLiteral("late"));
        QVERIFY(Execute(command.arg(late), WindowState::Minimised, true));
        QVERIFY(!QFile::exists(late));
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(late), 10000);

        QVERIFY(!Execute(QStringLiteral("/nonexistent/paint.exe \"C:\\Planet1.bmp\"")));
        QVERIFY(!Execute(QString()));
    }
};

QTEST_MAIN(ProcessLauncherTest)
#include "ProcessLauncherTest.moc"
