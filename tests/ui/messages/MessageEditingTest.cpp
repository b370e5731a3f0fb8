// Editing lines in the message editor: that Save writes what the controls say, the information
// text, the length and width warnings, the questions before a save would change a stored line,
// and what closing does to an edit.

#include <QtTest>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>

#include "messages/MessageEditRules.h"
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
        f.click("cmdNew");
        QVERIFY(f.enabled("fraOptions"));
        auto* text = f.find<QPlainTextEdit>("txtMessage");
        f.type("Welcome, ");
        text->moveCursor(QTextCursor::End);
        QTest::mouseClick(f.find<QLabel>("lblInsert1"), Qt::LeftButton);
        QTest::keyClicks(text, ".");
        setSetting(f.find<QScrollBar>("vsbWait"), 2);
        setSetting(f.find<QScrollBar>("vsbPercent"), 5);
        QCOMPARE(f.find<QLabel>("lblWait")->text(), QStringLiteral("After 2 seconds"));
        QCOMPARE(f.find<QLabel>("lblPercent")->text(), QStringLiteral("50% of the time"));
        f.click("optDisplay1");
        QCOMPARE(f.find<QLineEdit>("txtDisplay")->text(), QStringLiteral("<none>"));
        f.find<QComboBox>("cboAnswerGroup")->setEditText(QStringLiteral("Trade"));
        f.attach("*SF");
        f.onDialog([](QDialog& dialog) {
            auto& chooser = dynamic_cast<frmFlag&>(dialog);
            chooser.cboFlag->setCurrentIndex(1);
            chooser.txtDesc->setText(QStringLiteral("Met the trader"));
            chooser.cmdOK->click();
        });
        f.click("cmdSpEdit");
        QCOMPARE(f.attached(), QStringList{QStringLiteral("*SF - Sets flag [B]")});

        const std::string expected = "%W2%05$BOX$Welcome, %RK.*RTrade*SFB";
        QCOMPARE(f.find<QLabel>("lblLength")->text(),
                 QStringLiteral("Length: %1").arg(expected.size()));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "Message1"), expected);
        QCOMPARE(f.entries(), QStringList{QStringLiteral("Welcome, %RK.")});
        QVERIFY(!f.enabled("fraOptions"));
        QCOMPARE(f.prompts.unexpectedCount(), 0);
    }

    void editingAResponseKeepsItsCodesAndClosingCancelsTheEdit() {
        MessageEditorFixture f(
            section(1, {"ResponsesHail=1", "ResponseHail1=%FAWe accept.*MTreaty*TREATY"}));
        f.open(1);
        f.chooseDirection(2);
        QCOMPARE(f.find<QComboBox>("cboGroup")->currentText(), QStringLiteral("Hail"));
        f.select(0);
        QCOMPARE(f.find<QComboBox>("cboAnswerGroup")->currentText(), QStringLiteral("Treaty"));
        f.click("cmdEdit");
        f.type("We accept gladly.");
        f.click("cmdSave");
        QCOMPARE(f.key(1, "ResponseHail1"), std::string("%FAWe accept gladly.*MTreaty*TREATY"));

        // Closing cancels a further edit but keeps what was saved.
        f.click("cmdEdit");
        f.type(QStringLiteral("Never saved"));
        f.click("cmdClose");
        QVERIFY(!f.window().session().isEditing());
        QCOMPARE(f.key(1, "ResponseHail1"), std::string("%FAWe accept gladly.*MTreaty*TREATY"));
        // Opened again, the window shows the list, not the abandoned edit.
        f.open(1);
        QVERIFY(f.visible("lstMessages"));
        f.chooseDirection(2);
        QCOMPARE(f.entries(), QStringList{QStringLiteral("We accept gladly.")});
    }

    void informationIsEditedInPlace() {
        MessageEditorFixture f(section(1, {"Info=A cold world."}));
        f.open(1);
        f.chooseDirection(1);
        QVERIFY(f.visible("pnlInfo"));
        QVERIFY(!f.enabled("cboGroup"));
        QVERIFY(!f.enabled("fraOptions"));
        QCOMPARE(f.find<QPlainTextEdit>("txtMessage")->toPlainText(),
                 QStringLiteral("A cold world."));
        f.type("A frozen world.");
        QCOMPARE(f.find<QLabel>("lblM1Text")->text(), QStringLiteral("A frozen world."));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "Info"), std::string("A frozen world."));
        QVERIFY(f.visible("txtMessage"));  // still editing

        f.click("cmdDelete");
        QCOMPARE(f.key(1, "Info"), std::string("ERR"));
        QVERIFY(!f.enabled("cmdDelete"));  // nothing left to delete
    }

    void theTextIsOneLineAndLengthAndWidthLimitsWarn() {
        MessageEditorFixture f;
        f.open(1);
        f.click("cmdNew");
        // The text box holds one line.
        auto* text = f.find<QPlainTextEdit>("txtMessage");
        QTest::keyClicks(text, "ab");
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClicks(text, "c");
        QCOMPARE(text->toPlainText(), QStringLiteral("abc"));
        f.type(QStringLiteral("one\ntwo"));
        QCOMPARE(text->toPlainText(), QStringLiteral("one two"));
        QVERIFY(f.window().isVisible());

        auto* error = f.find<QLabel>("lblError");
        f.type(QString(254, QLatin1Char('a')));
        QVERIFY(!error->isVisible());
        f.type(QString(255, QLatin1Char('a')));
        QCOMPARE(f.find<QLabel>("lblLength")->text(), QStringLiteral("Length: 255"));
        QCOMPARE(error->text(), QStringLiteral("(Length Limit Exceeded)"));
        QVERIFY(error->isVisible());
        // A line over the limit can still be saved (the game will read only 254 characters).
        f.click("cmdSave");
        QVERIFY(f.descriptor().find("Message1=" + std::string(255, 'a') + "\r\n") !=
                std::string::npos);

        // Only a response's text has a width limit.
        const QString wide(150, QLatin1Char('W'));
        f.click("cmdNew");
        f.type(wide);
        QVERIFY(!error->isVisible());
        f.click("cmdCancel");
        f.chooseDirection(2);
        f.click("cmdNew");
        f.type(wide);
        QCOMPARE(error->text(), QStringLiteral("(Response Text Width Limit Exceeded)"));
        QVERIFY(error->isVisible());
    }

    // Lines a save would change beyond the edited text: No keeps the stored line and the edit,
    // Yes writes the line as the editor composes it.
    void aSaveThatWouldChangeALineAsksFirst_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("named");
        QTest::addColumn<QString>("afterYes");
        QTest::newRow("unknown codes") << "Message1"
                                       << "%ZZHello.*QQ5"
                                       << "*QQ5"
                                       << "Hello.";
        QTest::newRow("other direction's tag") << "ResponseHail1"
                                               << "Deal*RDeal"
                                               << "\"*RDeal\""
                                               << "Deal*MDeal";
        QTest::newRow("condition chose the answer") << "Message1"
                                                    << "Hm*RTrade*RS3"
                                                    << "\"*RS3\""
                                                    << "Hm*RS3*RTrade";
    }
    void aSaveThatWouldChangeALineAsksFirst() {
        QFETCH(QString, key);
        QFETCH(QString, stored);
        QFETCH(QString, named);
        QFETCH(QString, afterYes);
        const bool response = key.startsWith(QStringLiteral("Response"));
        const std::string count = response ? "ResponsesHail=1" : "Messages=1";
        const std::string line = (key + QLatin1Char('=') + stored).toStdString();
        MessageEditorFixture f(section(1, {count, line}));
        f.open(1);
        if (response) f.chooseDirection(2);
        f.select(0);
        f.click("cmdEdit");
        f.prompts.answerMessage(PromptAnswer::No);
        f.click("cmdSave");
        QCOMPARE(f.prompts.asked().size(), std::size_t(1));
        QVERIFY(f.prompts.asked().front().text.contains(named));
        QCOMPARE(f.prompts.asked().front().buttons, PromptButtons::YesNo);
        QCOMPARE(f.key(1, key.toStdString()), stored.toStdString());
        QVERIFY(f.visible("txtMessage"));  // back to editing

        f.prompts.answerMessage(PromptAnswer::Yes);
        f.click("cmdSave");
        QCOMPARE(QString::fromStdString(f.key(1, key.toStdString())), afterYes);
        QCOMPARE(f.prompts.unexpectedCount(), 0);
    }

    void whatCannotBeStoredIsRefusedAndCodeLikeTextQuestioned() {
        MessageEditorFixture f(section(1, {"Messages=1", "Message1=Old text"}));
        f.open(1);
        f.select(0);
        f.click("cmdEdit");
        f.prompts.answerMessage(PromptAnswer::Ok);
        const QString snowy = QStringLiteral("Snow \u2603 and caf\u00e9");
        f.type(snowy);
        f.click("cmdSave");
        QCOMPARE(f.prompts.messageTexts(),
                 QStringList{unstorableMessage(QStringLiteral("\u2603"))});
        QCOMPARE(f.key(1, "Message1"), std::string("Old text"));
        QCOMPARE(f.find<QPlainTextEdit>("txtMessage")->toPlainText(), snowy);  // nothing lost

        // A message's tag to "S1" would be a ship-system condition.
        f.type(QStringLiteral("Hello"));
        f.find<QComboBox>("cboAnswerGroup")->setEditText(QStringLiteral("S1"));
        f.prompts.answerMessage(PromptAnswer::Ok);
        f.click("cmdSave");
        QCOMPARE(f.prompts.messageTexts().last(),
                 toQString(answerGroupProblem("S1", Direction::Message)));
        QCOMPARE(f.key(1, "Message1"), std::string("Old text"));
        f.find<QComboBox>("cboAnswerGroup")->setEditText(QString());

        // A text that would read back as codes is questioned, unless it stands behind a caption.
        f.type(QStringLiteral("%NM, welcome."));
        f.prompts.answerMessage(PromptAnswer::No);
        f.click("cmdSave");
        QCOMPARE(f.prompts.messageTexts().size(), 3);
        QCOMPARE(f.key(1, "Message1"), std::string("Old text"));
        f.click("optDisplay1");
        f.click("cmdSave");
        QCOMPARE(f.prompts.messageTexts().size(), 3);
        QCOMPARE(f.key(1, "Message1"), std::string("$BOX$%NM, welcome."));
    }
};

QTEST_MAIN(MessageEditingTest)
#include "MessageEditingTest.moc"
