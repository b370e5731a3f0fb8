// Editing lines in the message editor: what Save writes (exactly as the codec composes it),
// the information text, the length and width warnings, codes the list does not know, and what
// closing does to an edit.

#include <QtTest>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>

#include "messages/MessageEditSession.h"
#include "messages/frmFlag.h"
#include "platform/QtText.h"
#include "support/MessageEditorFixture.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MessageEditorFixture;
using orr::test::section;

namespace {

void setSetting(QScrollBar* bar, int value) {
    // The bars run upside down: the top is the largest setting.
    bar->setValue(bar->maximum() - value);
}

}  // namespace

class MessageEditingTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void aNewMessageIsComposedFromEveryControl() {
        MessageEditorFixture f;
        QVERIFY(f.ok);
        f.open(1);
        QVERIFY(f.entries().isEmpty());
        f.click("cmdNew");
        QVERIFY(f.visible("txtMessage"));
        QVERIFY(!f.visible("cmdNew"));
        QVERIFY(f.enabled("fraOptions"));
        auto* text = f.find<QPlainTextEdit>("txtMessage");
        f.type("Welcome, ");
        text->moveCursor(QTextCursor::End);
        QTest::mouseClick(f.find<QLabel>("lblInsert1"), Qt::LeftButton);
        QTest::keyClicks(text, ".");
        QCOMPARE(text->toPlainText(), QStringLiteral("Welcome, %RK."));
        setSetting(f.find<QScrollBar>("vsbWait"), 2);
        setSetting(f.find<QScrollBar>("vsbPercent"), 5);
        QCOMPARE(f.find<QLabel>("lblWait")->text(), QStringLiteral("After 2 seconds"));
        QCOMPARE(f.find<QLabel>("lblPercent")->text(), QStringLiteral("50% of the time"));
        f.click("optDisplay1");
        QCOMPARE(f.find<QLineEdit>("txtDisplay")->text(), QStringLiteral("<none>"));
        f.find<QComboBox>("cboAnswerGroup")->setEditText(QStringLiteral("Trade"));
        f.attach("*SF");
        QCOMPARE(f.attached(), QStringList{QStringLiteral("*SF - Sets flag [A]")});
        f.onDialog([](QDialog& dialog) {
            auto& chooser = dynamic_cast<frmFlag&>(dialog);
            QCOMPARE(chooser.cboFlag->currentIndex(), 0);
            chooser.cboFlag->setCurrentIndex(1);
            chooser.txtDesc->setText(QStringLiteral("Met the trader"));
            chooser.cmdOK->click();
        });
        f.click("cmdSpEdit");
        QCOMPARE(f.dialogsRun(), 1);
        QCOMPARE(f.attached(), QStringList{QStringLiteral("*SF - Sets flag [B]")});

        const std::string expected = "%W2%05$BOX$Welcome, %RK.*RTrade*SFB";
        QCOMPARE(f.find<QLabel>("lblLength")->text(),
                 QStringLiteral("Length: %1").arg(expected.size()));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "Message1"), expected);
        QCOMPARE(f.key(1, "Messages"), std::string("1"));
        QCOMPARE(f.key(1, "FlagB"), std::string("Met the trader"));
        QCOMPARE(f.entries(), QStringList{QStringLiteral("Welcome, %RK.")});
        QVERIFY(f.visible("lstMessages"));
        QVERIFY(!f.enabled("fraOptions"));
        QVERIFY(f.descriptor().find("Message1=" + expected + "\r\n") != std::string::npos);
        QCOMPARE(f.prompts.unexpectedCount(), 0);
    }

    void editingAResponseKeepsItsCodesAndWritesItsTag() {
        MessageEditorFixture f(
            section(1, {"ResponsesHail=1", "ResponseHail1=%FAWe accept.*MTreaty*TREATY"}));
        f.open(1);
        f.chooseDirection(2);
        QCOMPARE(f.find<QComboBox>("cboGroup")->currentText(), QStringLiteral("Hail"));
        QCOMPARE(f.entries(), QStringList{QStringLiteral("We accept.")});
        f.select(0);
        QCOMPARE(f.find<QComboBox>("cboAnswerGroup")->currentText(), QStringLiteral("Treaty"));
        f.click("cmdEdit");
        f.type("We accept gladly.");
        f.click("cmdSave");
        QCOMPARE(f.key(1, "ResponseHail1"), std::string("%FAWe accept gladly.*MTreaty*TREATY"));

        // INIT as the answer is written as the bare tag; the own group as no tag at all.
        f.click("cmdEdit");
        f.find<QComboBox>("cboAnswerGroup")->setEditText(QStringLiteral("INIT"));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "ResponseHail1"), std::string("%FAWe accept gladly.*M*TREATY"));
        f.click("cmdEdit");
        f.find<QComboBox>("cboAnswerGroup")->setEditText(QStringLiteral("Hail"));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "ResponseHail1"), std::string("%FAWe accept gladly.*TREATY"));
    }

    void informationIsEditedInPlace() {
        MessageEditorFixture f(section(1, {"Info=A cold world."}));
        f.open(1);
        f.chooseDirection(1);
        QVERIFY(f.visible("txtMessage"));
        QVERIFY(f.visible("pnlInfo"));
        QVERIFY(!f.enabled("cboGroup"));
        QVERIFY(!f.enabled("fraOptions"));
        QVERIFY(!f.visible("lblInsert0"));
        QCOMPARE(f.find<QPlainTextEdit>("txtMessage")->toPlainText(),
                 QStringLiteral("A cold world."));
        QVERIFY(f.enabled("cmdDelete"));
        f.type("A frozen world.");
        QCOMPARE(f.find<QLabel>("lblM1Text")->text(), QStringLiteral("A frozen world."));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "Info"), std::string("A frozen world."));
        QVERIFY(f.visible("txtMessage"));  // still editing

        f.click("cmdDelete");
        QCOMPARE(f.key(1, "Info"), std::string("ERR"));
        QVERIFY(!f.enabled("cmdDelete"));
        QVERIFY(f.descriptor().find("Info=") == std::string::npos);

        // Without an information text there is nothing to delete.
        f.chooseDirection(0);
        f.open(2);
        f.chooseDirection(1);
        QVERIFY(!f.enabled("cmdDelete"));
        QCOMPARE(f.find<QPlainTextEdit>("txtMessage")->toPlainText(), QString());
    }

    void lengthAndWidthLimitsWarn() {
        MessageEditorFixture f;
        f.open(1);
        f.click("cmdNew");
        auto* length = f.find<QLabel>("lblLength");
        auto* error = f.find<QLabel>("lblError");
        f.type(QString(254, QLatin1Char('a')));
        QCOMPARE(length->text(), QStringLiteral("Length: 254"));
        QVERIFY(!error->isVisible());
        f.type(QString(255, QLatin1Char('a')));
        QCOMPARE(length->text(), QStringLiteral("Length: 255"));
        QVERIFY(error->isVisible());
        QCOMPARE(error->text(), QStringLiteral("(Length Limit Exceeded)"));
        // A line over the limit can still be saved (the game will read only 254 characters).
        f.click("cmdSave");
        QVERIFY(f.descriptor().find("Message1=" + std::string(255, 'a') + "\r\n") !=
                std::string::npos);
        QVERIFY(!error->isVisible());

        // Only a response's text has a width limit.
        const QString wide(150, QLatin1Char('W'));
        f.click("cmdNew");
        f.type(wide);
        QVERIFY(!error->isVisible());
        f.click("cmdCancel");
        f.chooseDirection(2);
        f.click("cmdNew");
        f.type(QStringLiteral("Hello"));
        QVERIFY(!error->isVisible());
        f.type(wide);
        QVERIFY(error->isVisible());
        QCOMPARE(error->text(), QStringLiteral("(Response Text Width Limit Exceeded)"));
    }

    void unknownCodesAreDroppedOnlyWhenTheDesignerAgrees() {
        MessageEditorFixture f(section(1, {"Messages=1", "Message1=%ZZHello.*QQ5"}));
        f.open(1);
        f.select(0);
        f.click("cmdEdit");
        f.prompts.answerMessage(PromptAnswer::No);
        f.click("cmdSave");
        QCOMPARE(f.prompts.asked().size(), std::size_t(1));
        const QString question = f.prompts.asked().front().text;
        QVERIFY(question.contains(QStringLiteral("%ZZ")));
        QVERIFY(question.contains(QStringLiteral("*QQ5")));
        QCOMPARE(f.prompts.asked().front().buttons, PromptButtons::YesNo);
        QCOMPARE(f.key(1, "Message1"), std::string("%ZZHello.*QQ5"));
        QVERIFY(f.visible("txtMessage"));  // back to editing

        f.prompts.answerMessage(PromptAnswer::Yes);
        f.click("cmdSave");
        QCOMPARE(f.key(1, "Message1"), std::string("Hello."));
    }

    void tagsTheEditorWouldRewriteAreQuestioned() {
        MessageEditorFixture f(section(1, {"Messages=1", "Message1=Start over*RINIT",
                                           "ResponsesHail=1", "ResponseHail1=Deal*RDeal"}));
        f.open(1);
        f.select(0);
        f.click("cmdEdit");
        f.prompts.answerMessage(PromptAnswer::No);
        f.click("cmdSave");
        QCOMPARE(f.prompts.asked().size(), std::size_t(1));
        QVERIFY(f.prompts.asked().back().text.contains(QStringLiteral("\"*RINIT\"")));
        QCOMPARE(f.prompts.asked().back().buttons, PromptButtons::YesNo);
        QCOMPARE(f.key(1, "Message1"), std::string("Start over*RINIT"));
        QVERIFY(f.visible("txtMessage"));  // back to editing

        f.click("cmdCancel");
        f.chooseDirection(2);
        f.chooseGroup(QStringLiteral("Hail"));
        f.select(0);
        f.click("cmdEdit");
        f.prompts.answerMessage(PromptAnswer::Yes);
        f.click("cmdSave");
        QCOMPARE(f.prompts.asked().size(), std::size_t(2));
        QVERIFY(f.prompts.asked().back().text.contains(QStringLiteral("\"*RDeal\"")));
        QCOMPARE(f.key(1, "ResponseHail1"), std::string("Deal*MDeal"));
        QCOMPARE(f.prompts.unexpectedCount(), 0);
    }

    void aTextThatWouldReadBackAsCodesIsQuestioned() {
        MessageEditorFixture f;
        f.open(1);
        f.click("cmdNew");
        f.type(QStringLiteral("%NM, welcome."));
        f.prompts.answerMessage(PromptAnswer::No);
        f.click("cmdSave");
        QCOMPARE(f.prompts.messageTexts().size(), 1);
        QCOMPARE(f.key(1, "Messages"), std::string("ERR"));
        // Behind a caption the same text is fine.
        f.click("optDisplay1");
        f.click("cmdSave");
        QCOMPARE(f.prompts.messageTexts().size(), 1);
        QCOMPARE(f.key(1, "Message1"), std::string("$BOX$%NM, welcome."));
    }

    void charactersTheGameCannotStoreAreRefused() {
        MessageEditorFixture f(section(1, {"Messages=1", "Message1=Old text"}));
        f.open(1);
        f.select(0);
        f.click("cmdEdit");
        for (int i = 0; i < 3; ++i) f.prompts.answerMessage(PromptAnswer::Ok);
        const QString snowy = QStringLiteral("Snow \u2603 and caf\u00e9");
        f.type(snowy);
        f.click("cmdSave");
        QCOMPARE(f.prompts.messageTexts(),
                 QStringList{unstorableMessage(QStringLiteral("\u2603"))});
        QCOMPARE(f.key(1, "Message1"), std::string("Old text"));
        QVERIFY(f.visible("txtMessage"));  // still editing, nothing lost
        QCOMPARE(f.find<QPlainTextEdit>("txtMessage")->toPlainText(), snowy);

        // A custom caption is checked the same way.
        f.type(QStringLiteral("Caf\u00e9"));
        f.click("optDisplay2");
        f.find<QLineEdit>("txtDisplay")->setText(QStringLiteral("Log \U0001F680"));
        f.click("cmdSave");
        QCOMPARE(f.prompts.messageTexts().size(), 2);
        QVERIFY(f.prompts.messageTexts().last().contains(QStringLiteral("\U0001F680")));
        QCOMPARE(f.key(1, "Message1"), std::string("Old text"));
        f.find<QLineEdit>("txtDisplay")->setText(QStringLiteral("Log"));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "Message1"), std::string("$Log$Caf\xE9"));

        // So is the name of a new group.
        f.find<QComboBox>("cboGroup")->setEditText(QStringLiteral("Snow\u2603"));
        f.click("cmdAddGroup");
        QCOMPARE(f.prompts.messageTexts().size(), 3);
        QCOMPARE(f.prompts.messageTexts().last(), unstorableMessage(QStringLiteral("\u2603")));
        QVERIFY(!f.items("cboGroup").contains(QStringLiteral("Snow?")));
        QCOMPARE(f.prompts.unexpectedCount(), 0);
    }

    void theTextBoxHoldsOneLine() {
        MessageEditorFixture f;
        f.open(1);
        f.click("cmdNew");
        auto* text = f.find<QPlainTextEdit>("txtMessage");
        QTest::keyClicks(text, "ab");
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClicks(text, "c");
        QCOMPARE(text->toPlainText(), QStringLiteral("abc"));
        f.type(QStringLiteral("one\ntwo"));
        QCOMPARE(text->toPlainText(), QStringLiteral("one two"));
        QVERIFY(f.window().isVisible());
    }

    void closingCancelsTheEditButKeepsWhatWasSaved() {
        MessageEditorFixture f(section(1, {"Messages=1", "Message1=Old text"}));
        f.open(1);
        f.select(0);
        f.click("cmdEdit");
        f.type(QStringLiteral("Saved text"));
        f.click("cmdSave");
        f.click("cmdEdit");
        f.type(QStringLiteral("Never saved"));
        f.click("cmdClose");
        QVERIFY(!f.window().isVisible());
        QVERIFY(!f.window().session().isEditing());
        QCOMPARE(f.key(1, "Message1"), std::string("Saved text"));
        QVERIFY(f.descriptor().find("Message1=Saved text\r\n") != std::string::npos);

        // Opened again, the window shows the list, not the abandoned edit.
        f.open(1);
        QVERIFY(f.visible("lstMessages"));
        QCOMPARE(f.entries(), QStringList{QStringLiteral("Saved text")});
        QCOMPARE(f.prompts.unexpectedCount(), 0);
    }
};

QTEST_MAIN(MessageEditingTest)
#include "MessageEditingTest.moc"
