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

    void aPlanetWithoutKeysShowsInitAndHailEmpty() {
        MessageEditorFixture f;
        f.open(3);
        QCOMPARE(f.find<QComboBox>("cboGroup")->currentText(), QStringLiteral("INIT"));
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(), QStringLiteral("Message Level: INIT"));
        QVERIFY(f.entries().isEmpty());
        QVERIFY(!f.enabled("cmdClearAll"));
        QVERIFY(!f.enabled("cmdEdit"));
        f.chooseDirection(2);
        QCOMPARE(f.find<QComboBox>("cboGroup")->currentText(), QStringLiteral("Hail"));
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(), QStringLiteral("Response Level: Hail"));
        QVERIFY(f.entries().isEmpty());
        QCOMPARE(f.prompts.unexpectedCount(), 0);
    }

    void groupsAreListedForTheListsThatLeadToThem() {
        MessageEditorFixture f(section(1, {"Messages=1", "Message1=Hello*RTalk", "ResponsesHail=1",
                                           "ResponseHail1=Trade?*MTrade", "MessagesIgnoreHail=1",
                                           "MessageIgnoreHail1=Rude."}));
        f.open(1);
        // Reached by a response's "*M": a message group; by a message's "*R": a response group.
        const QStringList messageGroups = f.items("cboGroup");
        QVERIFY(messageGroups.contains(QStringLiteral("Trade")));
        QVERIFY(messageGroups.contains(QStringLiteral("IgnoreHail")));
        QVERIFY(!messageGroups.contains(QStringLiteral("Talk")));
        QVERIFY(f.items("cboAnswerGroup").contains(QStringLiteral("Talk")));
        f.chooseDirection(2);
        QVERIFY(f.items("cboGroup").contains(QStringLiteral("Talk")));
        QVERIFY(!f.items("cboGroup").contains(QStringLiteral("Trade")));
        f.chooseGroup(QStringLiteral("Talk"));
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(), QStringLiteral("Response Level: Talk"));
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
        QCOMPARE(f.key(1, "ResponseHail1"), std::string("First"));
        QCOMPARE(f.key(1, "ResponseHail2"), std::string("Third"));
        QCOMPARE(f.key(1, "ResponseHail3"), std::string("ERR"));
        QCOMPARE(f.entries(), (QStringList{QStringLiteral("First"), QStringLiteral("Third")}));
        QVERIFY(!f.enabled("cmdRemove"));
        QVERIFY(!f.enabled("cmdSwap0"));
        QVERIFY(!f.enabled("cmdSwap1"));
    }

    void deleteWhileEditingRemovesTheEditedLine() {
        MessageEditorFixture f(threeHailResponses());
        f.open(1);
        f.chooseDirection(2);
        f.select(0);
        f.click("cmdEdit");
        f.prompts.answerMessage(PromptAnswer::Yes);
        f.click("cmdDelete");
        QCOMPARE(f.key(1, "ResponsesHail"), std::string("2"));
        QCOMPARE(f.key(1, "ResponseHail1"), std::string("Second*MTrade"));
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
        QCOMPARE(f.key(1, "ResponsesHail"), std::string("1"));
        QCOMPARE(f.key(1, "ResponseHail1"), std::string("Anew"));
        QCOMPARE(f.entries(), QStringList{QStringLiteral("Anew")});
        QCOMPARE(f.find<QListWidget>("lstMessages")->currentRow(), 0);
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
        QCOMPARE(f.entries(), (QStringList{QStringLiteral("First"), QStringLiteral("Second"),
                                           QStringLiteral("Third")}));
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
        QCOMPARE(f.find<QComboBox>("cboGroup")->currentText(), QStringLiteral("Trade"));
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(), QStringLiteral("Message Level: Trade"));
        QVERIFY(f.entries().isEmpty());
        // The group is written only with its first line.
        f.click("cmdNew");
        f.type(QStringLiteral("What do you offer?"));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "MessagesTrade"), std::string("1"));
        QCOMPARE(f.key(1, "MessageTrade1"), std::string("What do you offer?"));
    }

    void addGroupTakesOnlyNewUsableNames() {
        MessageEditorFixture f;
        f.open(1);
        QVERIFY(!f.enabled("cmdAddGroup"));
        f.typeGroup(QStringLiteral("Cave"));
        QVERIFY(f.enabled("cmdAddGroup"));
        f.click("cmdAddGroup");
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(), QStringLiteral("Message Level: Cave"));
        QVERIFY(f.items("cboGroup").contains(QStringLiteral("Cave")));
        QVERIFY(!f.enabled("cmdAddGroup"));
        QCOMPARE(f.key(1, "MessagesCave"), std::string("ERR"));  // nothing written yet

        // Typing a listed name chooses it.
        f.typeGroup(QStringLiteral("INIT"));
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(), QStringLiteral("Message Level: INIT"));
        QVERIFY(!f.enabled("cmdAddGroup"));

        f.typeGroup(QStringLiteral("Bad*Name"));
        f.click("cmdAddGroup");
        QCOMPARE(f.prompts.messageTexts().size(), 1);
        QVERIFY(!f.items("cboGroup").contains(QStringLiteral("Bad*Name")));
    }

    void aTypedGroupIsAddedBeforeLinesAreWritten() {
        MessageEditorFixture f(section(1, {"ResponsesHail=1", "ResponseHail1=Trade?*MTrade",
                                           "MessagesTrade=1", "MessageTrade1=We sell ore."}));
        f.open(1);
        f.chooseGroup(QStringLiteral("Trade"));
        f.typeGroup(QStringLiteral("Docking"));
        f.click("cmdNew");
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(),
                 QStringLiteral("Message Level: Docking"));
        f.type(QStringLiteral("Bay three is free."));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "MessagesDocking"), std::string("1"));
        QCOMPARE(f.key(1, "MessageDocking1"), std::string("Bay three is free."));
        QCOMPARE(f.key(1, "MessagesTrade"), std::string("1"));
        QCOMPARE(f.key(1, "MessageTrade1"), std::string("We sell ore."));
        QVERIFY(f.items("cboGroup").contains(QStringLiteral("Docking")));

        // Edit shows the typed group (empty, so there is nothing to edit yet).
        f.chooseGroup(QStringLiteral("Trade"));
        f.select(0);
        f.typeGroup(QStringLiteral("Cargo"));
        f.click("cmdEdit");
        QVERIFY(!f.window().session().isEditing());
        QCOMPARE(f.window().session().group(), std::string("Cargo"));
        QVERIFY(f.entries().isEmpty());

        // Leaving the box adds the group as well; an empty box shows the current group again.
        auto* combo = f.find<QComboBox>("cboGroup");
        const auto leave = [&] {
            QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
            QCoreApplication::sendEvent(combo, &out);
        };
        f.typeGroup(QStringLiteral("Hangar"));
        leave();
        QCOMPARE(f.window().session().group(), std::string("Hangar"));
        QCOMPARE(f.find<QGroupBox>("fraMessages")->title(),
                 QStringLiteral("Message Level: Hangar"));
        combo->setEditText(QString());
        leave();
        QCOMPARE(combo->currentText(), QStringLiteral("Hangar"));

        // A name that cannot be a group is refused and the box shows the current group again;
        // New then does not start.
        f.typeGroup(QStringLiteral("Bad*Name"));
        f.prompts.answerMessage(PromptAnswer::Ok);
        f.click("cmdNew");
        QVERIFY(!f.window().session().isEditing());
        QCOMPARE(f.prompts.messageTexts().size(), 1);
        QCOMPARE(combo->currentText(), QStringLiteral("Hangar"));

        // A line being edited stays in its group: after Save the box names that group again.
        f.click("cmdNew");
        f.type(QStringLiteral("Doors open."));
        f.typeGroup(QStringLiteral("Elsewhere"));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "MessageHangar1"), std::string("Doors open."));
        QCOMPARE(combo->currentText(), QStringLiteral("Hangar"));
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
        QCOMPARE(f.key(1, "ResponseHail2"), std::string("Second*MTrade"));
    }

    void doubleClickStartsEditing() {
        MessageEditorFixture f(threeHailResponses());
        f.open(1);
        f.chooseDirection(2);
        auto* list = f.find<QListWidget>("lstMessages");
        const QPoint second = list->visualItemRect(list->item(1)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second);
        QVERIFY(f.window().findChild<QWidget*>("txtMessage")->isVisible());
        QVERIFY(f.enabled("cmdDelete"));
    }
};

QTEST_MAIN(MessageListCommandsTest)
#include "MessageListCommandsTest.moc"
