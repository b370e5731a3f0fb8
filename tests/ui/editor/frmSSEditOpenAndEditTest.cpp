// The main window opening damaged systems and systems with a backup, and the edits that must
// not lose or invent anything: names the game cannot store, an unchanged display name, and one
// picture slot per planet.

#include <QtTest>

#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QStandardPaths>

#include "platform/Settings.h"
#include "store/SystemOperations.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;
using orr::test::TempGameFolder;

class frmSSEditOpenAndEditTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        QStandardPaths::setTestModeEnabled(true);
        Settings::setDisplayAsteroids(true);
    }

    void theBackupQuestionIsAskedWithTheNormalCursor() {
        MainWindowHarness h;
        h.addSystem(TempGameFolder::systemRecord("Nova", 2));
        h.game.write("ORBDescriptor/Nova.edt",
                     newDescriptorText(TempGameFolder::systemRecord("Nova", 3)));
        QVERIFY(h.start());
        bool hourglassAtQuestion = true;
        h.prompts.answerMessageWith([&](const MessagePrompt& asked) {
            const QCursor* cursor = QGuiApplication::overrideCursor();
            hourglassAtQuestion = cursor && cursor->shape() == Qt::WaitCursor;
            return asked.caption == QStringLiteral("Backup Exists") ? PromptAnswer::Yes
                                                                    : PromptAnswer::Cancel;
        });
        h.choose("Nova");
        QCOMPARE(h.prompts.asked().size(), std::size_t(1));
        QVERIFY(!hourglassAtQuestion);
        QCOMPARE(h.record().PlanetCount, 3);
        QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
    }

    void enterOnTheUnchangedDisplayNameWritesNothing() {
        MainWindowHarness h;
        h.addSystem(TempGameFolder::systemRecord("Nova", 1));
        QVERIFY(h.start());
        h.choose("Nova");
        const std::string before = h.descriptor("Nova");
        QTest::mouseClick(h.window().lblName, Qt::LeftButton);
        QTest::keyClick(h.window().txtName, Qt::Key_Return);
        QVERIFY(!h.window().txtName->isVisible());
        QCOMPARE(h.descriptor("Nova"), before);
        QVERIFY(!h.store().IsModified());
    }
};

QTEST_MAIN(frmSSEditOpenAndEditTest)
#include "frmSSEditOpenAndEditTest.moc"
