// Opening and closing the message editor: the caption and the custom-messages switch, when the
// groups are read again (and how long the reload mark lasts), the launcher the main window uses,
// the direction animation and the tooltip for long entries.

#include <QtTest>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>

#include "messages/DirectionPicture.h"
#include "messages/LongEntryToolTip.h"
#include "messages/MessageEditSession.h"
#include "messages/MessageEditorLauncher.h"
#include "messages/frmFlag.h"
#include "session/PlanetEdits.h"
#include "session/SystemEdits.h"
#include "support/MessageEditorFixture.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MessageEditorFixture;
using orr::test::section;

namespace {

// The mouse moving over the list (sent straight to it: the offscreen platform has no pointer).
void moveOver(QListWidget* list, int row) {
    const QPoint pos = list->visualItemRect(list->item(row)).center();
    QMouseEvent move(QEvent::MouseMove, pos, list->viewport()->mapToGlobal(pos), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(list->viewport(), &move);
}

std::string twoPlanets() {
    return section(1, {"ResponsesHail=1", "ResponseHail1=Hi*MTrade"}) +
           section(2, {"Messages=1", "Message1=Two"});
}

}  // namespace

class MessageEditorLifecycleTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void openingShowsTheSwitchAndDraggableSettingBars() {
        MessageEditorFixture f;
        frmMessages& editor = f.open(2, true);
        QCOMPARE(editor.windowTitle(), QStringLiteral("Planet Messages - Nova II"));
        QVERIFY(f.find<QCheckBox>("chkCustom")->isChecked());
        QVERIFY(f.find<QTimer>("tmrAnim")->isActive());
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        for (const char* name : {"vsbWait", "vsbPercent"}) {
            auto* bar = f.find<QScrollBar>(name);
            // Two arrows take a bar's width each; the groove between them gets at least four.
            QVERIFY2(bar->height() >= 6 * bar->width(), name);
        }
        // Their windows are not part of the editor yet.
        for (const char* name : {"cmdTest", "cmdEditRoom", "cmdWizard"}) QVERIFY(!f.enabled(name));
        // Opening only shows the value it was given; a click writes it.
        QCOMPARE(f.session.store().GetGeneralFlag(kMessagesFlag, 2), 0);
        f.click("chkCustom");
        f.click("chkCustom");
        QCOMPARE(f.session.store().GetGeneralFlag(kMessagesFlag, 2), 1);

        // The direction picture follows the direction and animates.
        auto* picture = f.find<DirectionPicture>("picDirection");
        QCOMPARE(picture->direction(), Direction::Message);
        QTRY_VERIFY(picture->frame() > 0);
        f.chooseDirection(1);
        QCOMPARE(picture->direction(), Direction::Information);
        QTRY_VERIFY(!picture->questionMarkShown());
        QTRY_VERIFY(picture->questionMarkShown());
        f.chooseDirection(2);
        QCOMPARE(picture->direction(), Direction::Response);
        f.click("cmdClose");
        QVERIFY(!f.find<QTimer>("tmrAnim")->isActive());
    }

    void groupsAreReadAgainOnlyWhenNeeded() {
        MessageEditorFixture f(twoPlanets());
        f.open(1);
        MessageEditSession& session = f.window().session();
        QCOMPARE(session.scanCount(), 1);
        f.click("cmdClose");
        // A group made behind the editor's back is not seen on the same planet and system...
        QVERIFY(writeKey(f.session, "1", "ResponsesHail", "2"));
        QVERIFY(writeKey(f.session, "1", "ResponseHail2", "Bye*MFarewell"));
        f.open(1);
        QCOMPARE(session.scanCount(), 1);
        QVERIFY(!f.items("cboGroup").contains(QStringLiteral("Farewell")));
        f.click("cmdClose");
        // ... but another planet is read, and so is the first again afterwards.
        f.open(2);
        QCOMPARE(session.scanCount(), 2);
        f.click("cmdClose");
        f.open(1);
        QCOMPARE(session.scanCount(), 3);
        QVERIFY(f.items("cboGroup").contains(QStringLiteral("Farewell")));
        f.click("cmdClose");

        // Another system (told by the main window, or by its display name) is read again.
        f.window().markForReload();
        f.open(1);
        QCOMPARE(session.scanCount(), 4);
        f.click("cmdClose");
        QVERIFY(setDisplayName(f.session, "Nova Prime"));
        f.open(1);
        QCOMPARE(session.scanCount(), 5);

        // The reload mark lasts until Cancel or Close: coming back from a chooser reads nothing.
        QVERIFY(session.reloadMarked());
        f.click("cmdNew");
        f.attach("*SF");
        f.find<QListWidget>("lstSpecial")->setCurrentRow(0);
        f.onDialog([](QDialog& dialog) { dialog.reject(); });
        f.click("cmdSpEdit");
        QCOMPARE(session.scanCount(), 5);
        QVERIFY(session.isEditing());
        // Coming back from another window (room editor, wizard) reads the groups again.
        f.click("cmdCancel");
        QVERIFY(!session.reloadMarked());
        f.window().windowActivated();
        QCOMPARE(session.scanCount(), 5);
        f.window().markForReload();
        f.window().windowActivated();
        QCOMPARE(session.scanCount(), 6);
    }

    void theLauncherReusesOneEditorPerWindow() {
        MessageEditorFixture f(twoPlanets());
        QVERIFY(setPlanetFlag(f.session, kMessagesFlag, 2, true));
        QWidget mainWindow;
        frmMessages& editor = messageEditorFor(&mainWindow, f.session);
        QCOMPARE(&messageEditorFor(&mainWindow, f.session), &editor);
        editor.setProgramSpecialList(f.root() / "program" / "SPECIAL.LST");
        int runs = 0;
        editor.setDialogRunner([&](QDialog& dialog) {
            ++runs;
            QCOMPARE(&dialog, static_cast<QDialog*>(&editor));
            auto* box = dialog.findChild<QCheckBox*>("chkCustom");
            QVERIFY(box->isChecked());
            box->click();
            dialog.findChild<QPushButton*>("cmdClose")->click();
        });
        QVERIFY(!openMessageEditor(&mainWindow, f.session, 2));
        QCOMPARE(runs, 1);
        QCOMPARE(f.session.store().GetGeneralFlag(kMessagesFlag, 2), 0);
        // The planet dialog hands over its own box's value.
        editor.setDialogRunner([](QDialog& dialog) { dialog.reject(); });
        QVERIFY(openMessageEditor(&mainWindow, f.session, 1, true));
        QCOMPARE(editor.windowTitle(), QStringLiteral("Planet Messages - Nova I"));
    }

    void longEntriesShowATooltip() {
        std::string longText;
        while (longText.size() < 200) longText += "far away ";
        longText.resize(200);
        MessageEditorFixture f(
            section(1, {"Messages=2", "Message1=Short", ("Message2=" + longText).c_str()}));
        frmMessages& editor = f.open(1);
        editor.resize(700, 500);
        QCoreApplication::processEvents();
        auto* list = f.find<QListWidget>("lstMessages");
        auto* tip = f.find<LongEntryToolTip>("picTooltip");
        moveOver(list, 0);
        QVERIFY(!tip->isVisible());
        moveOver(list, 1);
        QVERIFY(tip->isVisible());
        QCOMPARE(f.find<QLabel>("lblTooltip")->text().size(), 200);
        QVERIFY(tip->geometry().right() <= editor.width());  // wrapped inside the window
        // A click on the tooltip selects the entry it covers.
        QTest::mouseClick(tip, Qt::LeftButton);
        QCOMPARE(list->currentRow(), 1);
        f.click("cmdEdit");
        QVERIFY(!tip->isVisible());
    }
};

QTEST_MAIN(MessageEditorLifecycleTest)
#include "MessageEditorLifecycleTest.moc"
