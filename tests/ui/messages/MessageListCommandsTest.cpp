// The message editor's list commands: removing, clearing, moving lines, going to a line's answer
// group, the groups each direction lists, and the list's context menu.

#include <QtTest>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QListWidget>
#include <QMenu>

#include "messages/MessageEditSession.h"
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

}  // namespace

class MessageListCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void eachDirectionListsTheGroupsThatLeadToIt() {
        MessageEditorFixture f(section(1, {"Messages=1", "Message1=Hello*RTalk", "ResponsesHail=1",
                                           "ResponseHail1=Trade?*MTrade"}));
        f.open(1);
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(), QStringLiteral("Message Level: INIT"));
        // Reached by a response's "*M": a message group; by a message's "*R": a response group.
        QVERIFY(f.items("cboGroup").contains(QStringLiteral("Trade")));
        QVERIFY(!f.items("cboGroup").contains(QStringLiteral("Talk")));
        f.chooseDirection(2);
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(), QStringLiteral("Response Level: Hail"));
        QVERIFY(f.items("cboGroup").contains(QStringLiteral("Talk")));

        // A planet without keys: INIT, empty, nothing to clear or edit.
        f.open(3);
        QVERIFY(f.entries().isEmpty());
        QVERIFY(!f.enabled("cmdClearAll"));
        QVERIFY(!f.enabled("cmdEdit"));
    }

    void removingTheSecondOfThreeRenumbers() {
        MessageEditorFixture f(threeHailResponses());
        f.open(1);
        f.chooseDirection(2);
        f.select(1);
        f.prompts.answerMessage(PromptAnswer::No);
        f.click("cmdRemove");
        QCOMPARE(f.prompts.messageTexts(),
                 QStringList{QStringLiteral("Are you sure you want to remove this message?")});
        QCOMPARE(f.key(1, "ResponsesHail"), std::string("3"));

        f.prompts.answerMessage(PromptAnswer::Yes);
        f.click("cmdRemove");
        QCOMPARE(f.key(1, "ResponsesHail"), std::string("2"));
        QCOMPARE(f.key(1, "ResponseHail2"), std::string("Third"));
        QCOMPARE(f.entries(), (QStringList{QStringLiteral("First"), QStringLiteral("Third")}));
        QVERIFY(!f.enabled("cmdRemove"));

        // Delete while editing removes the edited line.
        f.select(0);
        f.click("cmdEdit");
        f.prompts.answerMessage(PromptAnswer::Yes);
        f.click("cmdDelete");
        QCOMPARE(f.key(1, "ResponsesHail"), std::string("1"));
        QCOMPARE(f.key(1, "ResponseHail1"), std::string("Third"));
        QVERIFY(f.visible("lstMessages"));
        // A new line has nothing stored to delete yet.
        f.click("cmdNew");
        QVERIFY(!f.enabled("cmdDelete"));
    }

    void clearAllWritesCountZeroAndKeepsTheItems() {
        MessageEditorFixture f(threeHailResponses());
        f.open(1);
        f.chooseDirection(2);
        f.prompts.answerMessage(PromptAnswer::Yes);
        f.click("cmdClearAll");
        QCOMPARE(f.prompts.messageTexts(),
                 QStringList{
                     QStringLiteral("Are you sure you want to clear all messages in this group?")});
        QCOMPARE(f.key(1, "ResponsesHail"), std::string("0"));
        QCOMPARE(f.key(1, "ResponseHail3"), std::string("Third"));
        QVERIFY(f.entries().isEmpty());
        QVERIFY(!f.enabled("cmdClearAll"));

        f.click("cmdNew");
        f.type(QStringLiteral("Anew"));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "ResponseHail1"), std::string("Anew"));
        QCOMPARE(f.entries(), QStringList{QStringLiteral("Anew")});
    }

    void movingLinesExchangesTheirKeys() {
        MessageEditorFixture f(threeHailResponses());
        f.open(1);
        f.chooseDirection(2);
        f.select(0);
        QVERIFY(!f.enabled("cmdSwap0"));
        QVERIFY(f.enabled("cmdSwap1"));
        f.select(2);
        QVERIFY(f.enabled("cmdSwap0"));
        QVERIFY(!f.enabled("cmdSwap1"));
        f.click("cmdSwap0");
        QCOMPARE(f.key(1, "ResponseHail2"), std::string("Third"));
        QCOMPARE(f.key(1, "ResponseHail3"), std::string("Second*MTrade"));
        QCOMPARE(f.find<QListWidget>("lstMessages")->currentRow(), 1);
        f.click("cmdSwap1");
        f.click("cmdSwap1");  // already last: nothing happens
        QCOMPARE(f.key(1, "ResponseHail3"), std::string("Third"));
    }

    void goToAnswerCreatesTheGroupInTheOtherDirection() {
        MessageEditorFixture f(threeHailResponses());
        f.open(1);
        f.chooseDirection(2);
        QVERIFY(!f.enabled("cmdGo"));
        f.select(1);
        QCOMPARE(f.find<QComboBox>("cboAnswerGroup")->currentText(), QStringLiteral("Trade"));
        f.click("cmdGo");
        QVERIFY(f.find<QAbstractButton>("optDir0")->isChecked());
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(), QStringLiteral("Message Level: Trade"));
        // The group is written only with its first line.
        f.click("cmdNew");
        f.type(QStringLiteral("What do you offer?"));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "MessageTrade1"), std::string("What do you offer?"));
    }

    void typedGroupsAreTakenUpAndAddGroupTakesOnlyNewUsableNames() {
        MessageEditorFixture f;
        f.open(1);
        auto* combo = f.find<QComboBox>("cboGroup");
        // New takes the typed group.
        f.typeGroup(QStringLiteral("Docking"));
        f.click("cmdNew");
        f.type(QStringLiteral("Bay three is free."));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "MessageDocking1"), std::string("Bay three is free."));

        // Edit shows the typed group (empty, so there is nothing to edit yet).
        f.typeGroup(QStringLiteral("Cargo"));
        f.click("cmdEdit");
        QVERIFY(!f.window().session().isEditing());
        QCOMPARE(f.window().session().group(), std::string("Cargo"));

        // Leaving the box takes it up too; an empty box shows the current group again.
        const auto leave = [&] {
            QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
            QCoreApplication::sendEvent(combo, &out);
        };
        f.typeGroup(QStringLiteral("Hangar"));
        leave();
        QCOMPARE(f.window().session().group(), std::string("Hangar"));
        combo->setEditText(QString());
        leave();
        QCOMPARE(combo->currentText(), QStringLiteral("Hangar"));

        // A name that cannot be a group is refused and New does not start.
        f.typeGroup(QStringLiteral("Bad*Name"));
        f.prompts.answerMessage(PromptAnswer::Ok);
        f.click("cmdNew");
        QVERIFY(!f.window().session().isEditing());
        QCOMPARE(combo->currentText(), QStringLiteral("Hangar"));

        // A line being edited stays in its group.
        f.click("cmdNew");
        f.type(QStringLiteral("Doors open."));
        f.typeGroup(QStringLiteral("Elsewhere"));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "MessageHangar1"), std::string("Doors open."));
        QCOMPARE(combo->currentText(), QStringLiteral("Hangar"));

        // Add Group takes only new, usable names, and writes nothing until a line is saved.
        f.typeGroup(QStringLiteral("INIT"));  // typing a listed name chooses it
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(), QStringLiteral("Message Level: INIT"));
        QVERIFY(!f.enabled("cmdAddGroup"));
        f.typeGroup(QStringLiteral("Cave"));
        f.click("cmdAddGroup");
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(), QStringLiteral("Message Level: Cave"));
        QVERIFY(!f.enabled("cmdAddGroup"));
        QCOMPARE(f.key(1, "MessagesCave"), std::string("ERR"));
        f.typeGroup(QStringLiteral("Bad*Name"));
        f.prompts.answerMessage(PromptAnswer::Ok);
        f.click("cmdAddGroup");
        QCOMPARE(f.prompts.messageTexts().size(), 2);
        QVERIFY(!f.items("cboGroup").contains(QStringLiteral("Bad*Name")));
        QCOMPARE(f.prompts.unexpectedCount(), 0);
    }

    void theContextMenuActsOnTheLineUnderTheMouse() {
        MessageEditorFixture f(threeHailResponses());
        f.open(1);
        f.chooseDirection(2);
        QStringList enabledAtPopup;
        f.window().setPopupRunner([&](QMenu* menu, const QPoint&) {
            for (QAction* action : menu->actions())
                if (action->isEnabled()) enabledAtPopup << action->objectName();
            f.find<QAction>("mnuRemove")->trigger();
        });
        auto* list = f.find<QListWidget>("lstMessages");
        const QPoint third = list->visualItemRect(list->item(2)).center();
        f.prompts.answerMessage(PromptAnswer::Yes);
        emit list->customContextMenuRequested(third);
        QCOMPARE(enabledAtPopup,
                 (QStringList{QStringLiteral("mnuEdit"), QStringLiteral("mnuRemove"),
                              QStringLiteral("mnuGo")}));
        QCOMPARE(f.key(1, "ResponsesHail"), std::string("2"));

        // A double click edits the line.
        const QPoint second = list->visualItemRect(list->item(1)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second);
        QVERIFY(f.visible("txtMessage"));
    }
};

QTEST_MAIN(MessageListCommandsTest)
#include "MessageListCommandsTest.moc"
