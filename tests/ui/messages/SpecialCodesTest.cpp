// The "Actions" frame: which codes may be attached, editing their arguments with the system
// chooser, the input box and the flag chooser, the long explanations of the list file, the two
// choosers on their own, and an editor without any special-code list.

#include <QtTest>

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "messages/frmFlag.h"
#include "messages/frmSystem.h"
#include "support/MessageEditorFixture.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MessageEditorFixture;
using orr::test::section;

class SpecialCodesTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void systemChooserReturnsTheChoiceOrWhatItWasOpenedWith() {
        frmSystem chooser;
        QCOMPARE(chooser.optSys[8]->text(), QStringLiteral("Library Computer"));
        for (const bool ok : {false, true}) {
            chooser.prepare(3);
            chooser.show();
            QVERIFY(chooser.optSys[3]->isChecked());
            chooser.optSys[7]->click();
            if (ok)
                chooser.cmdOK->click();
            else
                chooser.close();  // the close box
            QCOMPARE(chooser.chosenIndex(), ok ? 7 : 3);
        }
    }

    void flagChooserDescribesAFlagAsAStepOfTheHistory() {
        MessageEditorFixture f(section(2, {"Flag0=Met the envoy"}));
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
        QCOMPARE(f.session.undoName(), std::string("Describe Flag C"));
    }

    void whatMayBeAttachedFollowsTheListAndTheDirection() {
        MessageEditorFixture f;
        f.open(1);
        f.click("cmdNew");
        auto* combo = f.find<QComboBox>("cboSpecial");
        QCOMPARE(combo->itemText(0), QStringLiteral("Restrictions"));
        QVERIFY(!f.enabled("cmdSpAdd"));  // nothing chosen yet
        combo->setCurrentIndex(0);        // a heading passes the choice on
        QCOMPARE(combo->currentIndex(), 1);
        f.attach("%GN");
        f.prompts.answerMessage(PromptAnswer::Ok);
        f.attach("%GE");
        QCOMPARE(f.prompts.messageTexts(),
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
    }

    void argumentsAreEditedCheckedAndRemoved() {
        MessageEditorFixture f(section(1, {"Messages=1", "Message1=Hit!*DS3*H12"}));
        f.open(1);
        f.edit(0);
        QVERIFY(!f.enabled("cmdSpEdit"));
        // "(S3)" opens the system chooser on Long Range Scanners.
        f.selectAttached(0);
        f.answerNext<frmSystem>([](frmSystem& chooser) {
            QVERIFY(chooser.optSys[3]->isChecked());
            chooser.optSys[6]->click();
            chooser.cmdOK->click();
        });
        f.click("cmdSpEdit");

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

    void aFlagArgumentUsesTheFlagChooser() {
        MessageEditorFixture f(
            section(1, {"Messages=1", "Message1=%F7Go on.", "Flag7=Met the envoy"}));
        f.open(1);
        f.edit(0);
        f.selectAttached(0);
        f.answerNext<frmFlag>([](frmFlag& chooser) {
            QCOMPARE(chooser.planet(), 1);
            QCOMPARE(chooser.cboFlag->currentText(), QStringLiteral("7 - Met the envoy"));
            chooser.cboFlag->setCurrentIndex(4);
            chooser.close();  // the close box: the flag passed in comes back
        });
        f.click("cmdSpEdit");
        QVERIFY(f.items("lstSpecial").at(0).contains(QStringLiteral("[7]")));
    }

    // Two entries of an older list were about 400 characters long and made the window as wide as
    // the screen. Their explanations now stand apart, and no entry widens the window.
    void longEntriesNeverWidenTheWindow() {
        MessageEditorFixture shipped;
        const int width = shipped.open(1).sizeHint().width();
        MessageEditorFixture f;
        const std::string explanation = std::string(60, 'x') + " " + std::string(300, 'y');
        f.game.write("SPECIAL.LST", std::string(400, 'z') + " - long\r\n" +
                                        "*H - Hits the shields with (100) units -- " + explanation +
                                        "\r\n");
        frmMessages& editor = f.open(1);
        f.click("cmdNew");
        auto* combo = f.find<QComboBox>("cboSpecial");
        combo->setCurrentIndex(1);
        QCOMPARE(combo->itemText(1), QStringLiteral("*H - Hits the shields with (100) units"));
        QCOMPARE(f.text("txtExplanation"), QString::fromStdString(explanation));
        QCOMPARE(combo->itemData(1, Qt::ToolTipRole).toString(), f.text("txtExplanation"));
        QCOMPARE(editor.sizeHint().width(), width);
    }

    // (A stored line keeps codes it cannot show unless the designer agrees to lose them: see
    // MessageEditingTest's "unknown codes".)
    void withoutAListTheEditorSaysSoOnce() {
        MessageEditorFixture f({}, MessageEditorFixture::SpecialList::Missing);
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

QTEST_MAIN(SpecialCodesTest)
#include "SpecialCodesTest.moc"
