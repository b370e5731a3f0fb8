// The message editor's list and groups: removing, clearing, moving lines, going to a line's
// answer group, typed group names, when the groups are read again, the list's context menu and
// the pop-up for long entries.

#include <QtTest>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QFocusEvent>
#include <QListWidget>
#include <QMenu>

#include "messages/LongEntryToolTip.h"
#include "session/SystemEdits.h"
#include "support/MessageEditorFixture.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MessageEditorFixture;
using orr::test::section;

namespace {

std::string threeHailResponses() {
    return section(1, {"ResponsesHail=3", "ResponseHail1=First", "ResponseHail2=Second*MTrade",
                       "ResponseHail3=Third"});
}

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
        MessageEditorFixture f(threeHailResponses());
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

    void goToAnswerOpensTheGroupInTheOtherDirection() {
        MessageEditorFixture f(section(1, {"ResponsesHail=1", "ResponseHail1=Deal?*MTrade"}));
        f.open(1);
        f.chooseDirection(2);
        QVERIFY(!f.enabled("cmdGo"));
        f.select(0);
        f.click("cmdGo");
        QVERIFY(f.find<QAbstractButton>("optDir0")->isChecked());
        QCOMPARE(f.text("fraMessages"), QStringLiteral("Message Level: Trade"));
        f.click("cmdNew");
        f.type(QStringLiteral("What do you offer?"));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "MessageTrade1"), std::string("What do you offer?"));
        // The saved line answers with its own group, which the responses list from now on.
        f.chooseDirection(2);
        QCOMPARE(f.text("fraMessages"), QStringLiteral("Response Level: Trade"));
    }

    void testOpensTheOptionsOfThisPlanetAndChangesNothing() {
        MessageEditorFixture f(section(2, {"Messages=1", "Message1=Hi*SFA", "FlagB=Shared"}));
        f.open(2, true);
        const std::string before = f.game.read("ORBDescriptor/Nova.edt");
        f.answerNext<QDialog>([](QDialog& options) {
            QCOMPARE(options.windowTitle(), QStringLiteral("Test Options"));
            QCOMPARE(options.findChild<QWidget*>(QStringLiteral("lblFlag1"))->toolTip(),
                     QStringLiteral("B - Shared"));
        });
        f.click("cmdTest");
        QCOMPARE(f.game.read("ORBDescriptor/Nova.edt"), before);
        QVERIFY(!f.session.canUndo());
    }

    void typedGroupsAreTakenUp() {
        MessageEditorFixture f;
        f.open(1);
        auto* combo = f.find<QComboBox>("cboGroup");
        // New takes the typed group; Edit and leaving the box show it.
        f.typeGroup(QStringLiteral("Docking"));
        f.click("cmdNew");
        f.type(QStringLiteral("Bay three is free."));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "MessageDocking1"), std::string("Bay three is free."));
        f.typeGroup(QStringLiteral("Cargo"));
        f.click("cmdEdit");
        QCOMPARE(f.window().state().group(), std::string("Cargo"));
        const auto leave = [&] {
            QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
            QCoreApplication::sendEvent(combo, &out);
        };
        f.typeGroup(QStringLiteral("Hangar"));
        leave();
        QCOMPARE(f.window().state().group(), std::string("Hangar"));
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
        QCOMPARE(f.key(1, "MessageHangar1"), std::string("Doors open."));
        f.typeGroup(QStringLiteral("Cave"));
        f.click("cmdAddGroup");
        QCOMPARE(f.text("fraMessages"), QStringLiteral("Message Level: Cave"));
        f.typeGroup(QStringLiteral("INIT"));
        QVERIFY(!f.enabled("cmdAddGroup"));
    }

    // When the groups are read again is MessageEditorState's rule; these are its inputs.
    void groupsAreReadAgainOnlyWhenNeeded() {
        MessageEditorFixture f;
        const MessageEditorState& state = f.window().state();
        for (const bool anotherSystem : {false, true}) {
            f.open(1);
            f.click("cmdClose");
            if (anotherSystem) QVERIFY(setDisplayName(f.session, "Nova Prime"));
        }
        f.open(1);
        QCOMPARE(state.scanCount(), 2);
        // Coming back from a chooser reads nothing, though the reload mark is still set.
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
    }
};

QTEST_MAIN(MessageListCommandsTest)
#include "MessageListCommandsTest.moc"
