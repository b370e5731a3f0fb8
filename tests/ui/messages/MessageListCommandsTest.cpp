// The message editor's list and groups: removing, clearing, moving lines, going to a line's
// answer group, typed group names, when the groups are read again, the list's context menu and
// the pop-up for long entries. Then its "Actions" frame: which codes may be attached, editing
// their arguments with the system chooser, the input box and the flag chooser, the long
// explanations of the list file, the flag chooser on its own, and an editor without any
// special-code list.

#include <QtTest>

#include "messages/LongEntryToolTip.h"
#include "messages/frmFlag.h"
#include "messages/frmSystem.h"
#include "session/SystemEdits.h"
#include "support/MessageEditorFixture.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MessageEditorFixture;
using orr::test::section;

namespace {

// The pointer moving over the list (sent straight to it: the offscreen platform has no pointer).
void moveOver(QListWidget* list, int row) {
    const QPoint pos = list->visualItemRect(list->item(row)).center();
    QMouseEvent move(QEvent::MouseMove, pos, list->viewport()->mapToGlobal(pos), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(list->viewport(), &move);
}

}  // namespace

class MessageListCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    // How the lines are renumbered is MessageList's rule; these check that each command asks
    // where it should and that the list shows what the file holds.
    void listCommandsChangeTheFileAndTheList() {
        MessageEditorFixture f(section(1, {"ResponsesHail=3", "ResponseHail1=First",
                                           "ResponseHail2=Second*MTrade", "ResponseHail3=Third"}));
        f.open(1);
        f.chooseDirection(2);
        // The first line cannot go up, the last not down.
        f.select(0);
        QVERIFY(!f.enabled("cmdSwap0"));
        f.select(2);
        QVERIFY(!f.enabled("cmdSwap1"));
        f.click("cmdSwap0");
        QCOMPARE(f.key(1, "ResponseHail2"), std::string("Third"));
        QCOMPARE(f.entries(), (QStringList{"First", "Third", "Second"}));
        QCOMPARE(f.find<QListWidget>("lstMessages")->currentRow(), 1);

        f.prompts.answerMessage(PromptAnswer::No);
        f.click("cmdRemove");
        QCOMPARE(f.prompts.messageTexts(), QStringList{frmMessages::kRemoveQuestion});
        QCOMPARE(f.key(1, "ResponsesHail"), std::string("3"));
        // The context menu acts on the line under the pointer.
        auto* list = f.find<QListWidget>("lstMessages");
        f.answerNext<QMenu>([](QMenu& menu) {
            for (QAction* action : menu.actions()) QVERIFY(action->isEnabled());
            menu.findChild<QAction*>(QStringLiteral("mnuRemove"))->trigger();
        });
        f.prompts.answerMessage(PromptAnswer::Yes);
        emit list->customContextMenuRequested(list->visualItemRect(list->item(1)).center());
        QCOMPARE(f.key(1, "ResponseHail2"), std::string("Second*MTrade"));
        QCOMPARE(f.entries(), (QStringList{"First", "Second"}));
        QVERIFY(!f.enabled("cmdRemove"));

        // Delete while editing (a double click) removes the edited line; a new line has nothing
        // to delete.
        const QPoint first = list->visualItemRect(list->item(0)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, first);
        f.prompts.answerMessage(PromptAnswer::Yes);
        f.click("cmdDelete");
        QCOMPARE(f.entries(), QStringList{"Second"});
        QCOMPARE(f.key(1, "ResponsesHail"), std::string("1"));
        f.click("cmdNew");
        QVERIFY(!f.enabled("cmdDelete"));
        f.click("cmdCancel");

        f.prompts.answerMessage(PromptAnswer::Yes);
        f.click("cmdClearAll");
        QCOMPARE(f.prompts.messageTexts().last(), frmMessages::kClearQuestion);
        QCOMPARE(f.key(1, "ResponsesHail"), std::string("0"));
        QVERIFY(f.entries().isEmpty());
        QVERIFY(!f.enabled("cmdClearAll"));
    }

    // When the groups are read again is MessageEditorState's rule; here are its inputs, then
    // the groups reached with Go to Answer or typed.
    void groupsAreReadAgainOnlyWhenNeededAndAnsweredOrTypedGroupsAreTakenUp() {
        MessageEditorFixture f(
            section(2, {"FlagB=Shared", "ResponsesHail=1", "ResponseHail1=Deal?*MTrade"}));
        const MessageEditorState& state = f.window().state();
        for (const bool anotherSystem : {false, true}) {
            f.open(2);
            f.click("cmdClose");
            if (anotherSystem) QVERIFY(setDisplayName(f.session, "Nova Prime"));
        }
        f.open(2, true);
        QCOMPARE(state.scanCount(), 2);
        // Test opens the options of this planet and changes nothing.
        const std::string before = f.game.read("ORBDescriptor/Nova.edt");
        const std::size_t steps = f.session.history().size();
        f.answerNext<QDialog>([](QDialog& options) {
            QCOMPARE(options.windowTitle(), QStringLiteral("Test Options"));
            QCOMPARE(options.findChild<QWidget*>(QStringLiteral("lblFlag1"))->toolTip(),
                     QStringLiteral("B - Shared"));
        });
        f.click("cmdTest");
        QCOMPARE(f.game.read("ORBDescriptor/Nova.edt"), before);
        QCOMPARE(f.session.history().size(), steps);
        // Coming back from the test or a chooser reads nothing, though the reload mark is set.
        f.click("cmdNew");
        f.attach("*SF");
        f.selectAttached(0);
        f.answerNext<QDialog>([](QDialog& dialog) { dialog.reject(); });
        f.click("cmdSpEdit");
        QVERIFY(f.window().isEditing());
        // Back from another window (room editor, wizard) only while marked.
        f.click("cmdCancel");
        f.window().windowActivated();
        QCOMPARE(state.scanCount(), 2);
        f.window().markForReload();
        f.window().windowActivated();
        QCOMPARE(state.scanCount(), 3);

        f.chooseDirection(2);
        QVERIFY(!f.enabled("cmdGo"));
        f.select(0);
        f.click("cmdGo");
        QVERIFY(f.find<QAbstractButton>("optDir0")->isChecked());
        QCOMPARE(f.text("fraMessages"), QStringLiteral("Message Level: Trade"));
        f.click("cmdNew");
        f.type(QStringLiteral("What do you offer?"));
        f.click("cmdSave");
        QCOMPARE(f.key(2, "MessageTrade1"), std::string("What do you offer?"));
        // The saved line answers with its own group, which the responses list from now on.
        f.chooseDirection(2);
        QCOMPARE(f.text("fraMessages"), QStringLiteral("Response Level: Trade"));

        // New takes the typed group; Edit and leaving the box show it.
        f.chooseDirection(0);
        auto* combo = f.find<QComboBox>("cboGroup");
        f.typeGroup(QStringLiteral("Docking"));
        f.click("cmdNew");
        f.type(QStringLiteral("Bay three is free."));
        f.click("cmdSave");
        QCOMPARE(f.key(2, "MessageDocking1"), std::string("Bay three is free."));
        f.typeGroup(QStringLiteral("Cargo"));
        f.click("cmdEdit");
        QCOMPARE(state.group(), std::string("Cargo"));
        const auto leave = [&] {
            QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
            QCoreApplication::sendEvent(combo, &out);
        };
        f.typeGroup(QStringLiteral("Hangar"));
        leave();
        QCOMPARE(state.group(), std::string("Hangar"));
        combo->setEditText(QString());
        leave();
        QCOMPARE(combo->currentText(), QStringLiteral("Hangar"));

        // A name that cannot be a group is refused and New does not start.
        f.typeGroup(QStringLiteral("Bad*Name"));
        f.prompts.answerMessage(PromptAnswer::Ok);
        f.click("cmdNew");
        QVERIFY(!f.window().isEditing());
        QCOMPARE(combo->currentText(), QStringLiteral("Hangar"));

        // A line being edited stays in its group; a listed name is not added again.
        f.click("cmdNew");
        f.type(QStringLiteral("Doors open."));
        f.typeGroup(QStringLiteral("Elsewhere"));
        f.click("cmdSave");
        QCOMPARE(f.key(2, "MessageHangar1"), std::string("Doors open."));
        f.typeGroup(QStringLiteral("Cave"));
        f.click("cmdAddGroup");
        QCOMPARE(f.text("fraMessages"), QStringLiteral("Message Level: Cave"));
        f.typeGroup(QStringLiteral("INIT"));
        QVERIFY(!f.enabled("cmdAddGroup"));
    }

    // The pop-up stays inside the list, so it covers no other control, and it lets every click
    // through to the entry below it.
    void longEntriesShowAPopUpThatTakesNoClick() {
        const std::string longText(200, 'w');
        MessageEditorFixture f(section(1, {"Messages=3", "Message1=Short",
                                           ("Message2=" + longText).c_str(), "Message3=Last"}));
        frmMessages& editor = f.open(1);
        editor.resize(700, 500);
        QCoreApplication::processEvents();
        auto* list = f.find<QListWidget>("lstMessages");
        auto* tip = f.find<LongEntryToolTip>("picTooltip");
        moveOver(list, 0);
        QVERIFY(!tip->isVisible());
        moveOver(list, 1);
        QVERIFY(tip->isVisible());
        QCOMPARE(f.text("lblTooltip").size(), 200);
        const QRect shown(tip->mapTo(&editor, QPoint(0, 0)), tip->size());
        const QRect inside(list->viewport()->mapTo(&editor, QPoint(0, 0)),
                           list->viewport()->size());
        QVERIFY(inside.contains(shown));
        for (const QPoint& point : {shown.topLeft(), shown.center(), shown.bottomRight()})
            QCOMPARE(editor.childAt(point), list->viewport());
        // Leaving the entry hides it.
        moveOver(list, 2);
        QVERIFY(!tip->isVisible());
        moveOver(list, 1);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(list->viewport(), &leave);
        QVERIFY(!tip->isVisible());

        // Two entries of an older list were about 400 characters long and made the window as
        // wide as the screen. Their explanations now stand apart, and no entry widens the window.
        const int width = editor.sizeHint().width();
        MessageEditorFixture wide;
        const std::string explanation = std::string(60, 'x') + " " + std::string(300, 'y');
        wide.game.write("SPECIAL.LST", std::string(400, 'z') + " - long\r\n" +
                                           "*H - Hits the shields with (100) units -- " +
                                           explanation + "\r\n");
        frmMessages& other = wide.open(1);
        wide.click("cmdNew");
        auto* combo = wide.find<QComboBox>("cboSpecial");
        combo->setCurrentIndex(1);
        QCOMPARE(combo->itemText(1), QStringLiteral("*H - Hits the shields with (100) units"));
        QCOMPARE(wide.text("txtExplanation"), QString::fromStdString(explanation));
        QCOMPARE(combo->itemData(1, Qt::ToolTipRole).toString(), wide.text("txtExplanation"));
        QCOMPARE(other.sizeHint().width(), width);
    }

    // The flag chooser on its own describes a flag as a step of the history; then the Actions
    // frame.
    void theFlagChooserWhatMayBeAttachedAndHowArgumentsAreEdited() {
        MessageEditorFixture f(section(1, {"Messages=2", "Message1=Hit!*DS3*H12",
                                           "Message2=%F7Go on.", "Flag7=Met the envoy"}) +
                               section(2, {"Flag0=Met the envoy"}));
        frmFlag chooser(f.session);
        chooser.setPlanet(2);
        chooser.prepare(QStringLiteral("7"));
        QCOMPARE(chooser.cboFlag->currentIndex(), 33);
        QCOMPARE(chooser.cboFlag->itemText(26), QStringLiteral("0 - Met the envoy"));
        chooser.show();
        chooser.cboFlag->setCurrentIndex(2);
        chooser.txtDesc->setText(QStringLiteral("Unused"));
        f.prompts.answerMessage(PromptAnswer::Ok);
        chooser.cmdOK->click();  // a flag needs a description
        QVERIFY(chooser.isVisible());
        chooser.txtDesc->setText(QStringLiteral("Found the key"));
        chooser.cmdOK->click();
        QCOMPARE(chooser.chosenFlag(), QStringLiteral("C"));
        QCOMPARE(chooser.cboFlag->itemText(2), QStringLiteral("C - Found the key"));
        QCOMPARE(f.key(2, "FlagC"), std::string("Found the key"));

        f.open(1);
        f.click("cmdNew");
        auto* combo = f.find<QComboBox>("cboSpecial");
        QVERIFY(!f.enabled("cmdSpAdd"));  // nothing chosen yet
        combo->setCurrentIndex(0);        // a heading ("Restrictions") passes the choice on
        QCOMPARE(combo->currentIndex(), 1);
        f.attach("%GN");
        f.prompts.answerMessage(PromptAnswer::Ok);
        f.attach("%GE");
        QCOMPARE(f.prompts.messageTexts().mid(1),  // after the flag chooser's
                 QStringList{QStringLiteral("You cannot have more than one direction marker.")});
        f.attach("*SF");
        QCOMPARE(f.items("lstSpecial").size(), 2);
        f.click("cmdCancel");

        // Responses take only restrictions.
        f.chooseDirection(2);
        f.click("cmdNew");
        for (const auto& [code, allowed] : {std::pair{"*SF", false}, std::pair{"%F", true}}) {
            combo->setCurrentIndex(f.specialIndex(QString::fromLatin1(code)));
            QVERIFY2(f.enabled("cmdSpAdd") == allowed, code);
        }
        f.click("cmdCancel");
        f.chooseDirection(0);

        // A flag argument uses the flag chooser; its close box gives back the flag passed in.
        f.edit(1);
        f.selectAttached(0);
        f.answerNext<frmFlag>([](frmFlag& chooser) {
            QCOMPARE(chooser.planet(), 1);
            QCOMPARE(chooser.cboFlag->currentText(), QStringLiteral("7 - Met the envoy"));
            chooser.cboFlag->setCurrentIndex(4);
            chooser.close();
        });
        f.click("cmdSpEdit");
        QVERIFY(f.items("lstSpecial").at(0).contains(QStringLiteral("[7]")));
        f.click("cmdCancel");

        f.edit(0);
        QVERIFY(!f.enabled("cmdSpEdit"));
        // "(S3)" opens the system chooser on Long Range Scanners; its close box gives back what
        // it was opened with, OK the choice.
        f.selectAttached(0);
        for (const bool ok : {false, true}) {
            f.answerNext<frmSystem>([ok](frmSystem& chooser) {
                QCOMPARE(chooser.optSys[8]->text(), QStringLiteral("Library Computer"));
                QVERIFY(chooser.optSys[3]->isChecked());
                chooser.optSys[6]->click();
                ok ? chooser.cmdOK->click() : void(chooser.close());
            });
            f.click("cmdSpEdit");
        }

        // "(12)" asks in an input box; Cancel keeps the old argument, and so does a value the
        // game cannot read as a number.
        f.selectAttached(1);
        f.prompts.answerInput(std::nullopt);
        f.click("cmdSpEdit");
        QCOMPARE(f.prompts.asked().back().caption, QStringLiteral("Edit Action"));
        QCOMPARE(f.prompts.asked().back().text, QStringLiteral("Enter new value:"));
        QCOMPARE(f.prompts.asked().back().defaultText, QStringLiteral("12"));
        f.prompts.answerInput(QStringLiteral("lots"));
        f.prompts.answerMessage(PromptAnswer::Ok);
        f.click("cmdSpEdit");
        QVERIFY(f.prompts.messageTexts().last().contains(QStringLiteral("whole number")));
        QVERIFY(f.items("lstSpecial").at(1).contains(QStringLiteral("(12)")));
        f.prompts.answerInput(QStringLiteral("40"));
        f.click("cmdSpEdit");
        f.click("cmdSave");
        QCOMPARE(f.key(1, "Message1"), std::string("Hit!*DS6*H40"));

        // Removing moves the selection to the entry that took its place.
        f.click("cmdEdit");
        f.selectAttached(0);
        f.click("cmdSpDelete");
        QCOMPARE(f.find<QListWidget>("lstSpecial")->currentRow(), 0);
        f.click("cmdSpDelete");
        QVERIFY(!f.enabled("cmdSpDelete"));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "Message1"), std::string("Hit!"));
    }

    // (A stored line keeps codes it cannot show unless the designer agrees to lose them: see
    // MessageEditingTest's "unknown codes".)
    void withoutAListTheEditorSaysSoOnce() {
        MessageEditorFixture f;
        std::filesystem::remove(f.game.path("SPECIAL.LST"));
        f.prompts.answerMessage(PromptAnswer::Ok);
        f.open(1);
        QVERIFY(f.prompts.messageTexts().front().contains(QStringLiteral("SPECIAL.LST")));
        f.click("cmdNew");
        QVERIFY(!f.enabled("cboSpecial"));
        QVERIFY(!f.enabled("cmdSpAdd"));
        f.click("cmdClose");
        f.open(1);  // nothing is asked again
    }
};

QTEST_MAIN(MessageListCommandsTest)
#include "MessageListCommandsTest.moc"
