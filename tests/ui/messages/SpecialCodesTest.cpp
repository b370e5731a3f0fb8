// The "Actions" frame: which codes may be attached, the conflicts between them, editing their
// arguments with the system chooser, the input box and the flag chooser, the two choosers on
// their own, and an editor without any special-code list.

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

namespace {

int indexOfCode(QComboBox* combo, const QString& code) {
    for (int i = 0; i < combo->count(); ++i)
        if (combo->itemText(i).startsWith(code + QStringLiteral(" - "))) return i;
    return -1;
}

void selectAttached(MessageEditorFixture& f, int row) {
    f.find<QListWidget>("lstSpecial")->setCurrentRow(row);
}

}  // namespace

class SpecialCodesTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void systemChooserReturnsTheChoiceOrWhatItWasOpenedWith() {
        frmSystem chooser;
        QCOMPARE(chooser.windowTitle(), QStringLiteral("Choose a System"));
        QCOMPARE(chooser.findChild<QRadioButton*>("optSys0")->text(),
                 QStringLiteral("Random System"));
        QCOMPARE(chooser.findChild<QRadioButton*>("optSys8")->text(),
                 QStringLiteral("Library Computer"));
        QVERIFY(chooser.cmdOK->isDefault());
        chooser.prepare(3);
        chooser.show();
        QVERIFY(chooser.optSys[3]->isChecked());
        chooser.optSys[7]->click();
        chooser.close();  // the close box
        QCOMPARE(chooser.chosenIndex(), 3);

        chooser.prepare(3);
        chooser.show();
        chooser.optSys[7]->click();
        chooser.cmdOK->click();
        QCOMPARE(chooser.chosenIndex(), 7);
        QVERIFY(!chooser.isVisible());
    }

    void flagChooserListsDescriptionsAndOkWritesOne() {
        MessageEditorFixture f(section(2, {"Flag0=Met the envoy"}));
        frmFlag chooser(f.session);
        QCOMPARE(chooser.windowTitle(), QStringLiteral("Choose a Flag"));
        chooser.setPlanet(2);
        chooser.prepare(QString());
        QCOMPARE(chooser.cboFlag->count(), 36);
        QCOMPARE(chooser.cboFlag->currentIndex(), 0);  // empty: flag "A"
        QCOMPARE(chooser.cboFlag->itemText(26), QStringLiteral("0 - Met the envoy"));
        QCOMPARE(chooser.cboFlag->itemText(35), QStringLiteral("9 - Unused"));
        chooser.prepare(QStringLiteral("7"));
        QCOMPARE(chooser.cboFlag->currentIndex(), 33);

        // A flag needs a description: "Unused" and nothing are refused and nothing is written.
        chooser.prepare(QStringLiteral("B"));
        chooser.show();
        for (const QString& refused : {QStringLiteral("Unused"), QString()}) {
            f.prompts.answerMessage(PromptAnswer::Ok);
            chooser.txtDesc->setText(refused);
            chooser.cmdOK->click();
            QVERIFY(chooser.isVisible());
            QCOMPARE(f.prompts.messageTexts().last(),
                     QStringLiteral("Please enter a short description which describes how "
                                    "this flag is used."));
        }
        QCOMPARE(f.key(2, "FlagB"), std::string("ERR"));

        chooser.cboFlag->setCurrentIndex(2);
        chooser.txtDesc->setText(QStringLiteral("Found the key"));
        chooser.cmdOK->click();
        QCOMPARE(chooser.chosenFlag(), QStringLiteral("C"));
        QCOMPARE(f.key(2, "FlagC"), std::string("Found the key"));
        QCOMPARE(chooser.cboFlag->itemText(2), QStringLiteral("C - Found the key"));
        QVERIFY(!chooser.isVisible());
        QCOMPARE(f.prompts.messageTexts().size(), 2);
    }

    void headingsPassTheChoiceOnAndConflictingRestrictionsAreRefused() {
        MessageEditorFixture f;
        f.open(1);
        f.click("cmdNew");
        auto* combo = f.find<QComboBox>("cboSpecial");
        QCOMPARE(combo->itemText(0), QStringLiteral("Restrictions"));
        QVERIFY(!f.enabled("cmdSpAdd"));  // nothing chosen yet
        combo->setCurrentIndex(0);
        QCOMPARE(combo->currentIndex(), 1);
        QVERIFY(f.enabled("cmdSpAdd"));

        f.attach("%GN");
        f.attach("%GE");
        QCOMPARE(f.prompts.messageTexts(),
                 QStringList{QStringLiteral("You cannot have more than one direction marker.")});
        QCOMPARE(f.prompts.asked().front().icon, PromptIcon::Exclamation);
        f.attach("%45");
        f.attach("%45");
        QCOMPARE(f.prompts.messageTexts().last(),
                 QStringLiteral("You cannot have more than one of the same restriction."));
        f.attach("%F");
        f.attach("%F");  // several flag restrictions may stand together
        f.attach("*SF");
        f.attach("*SF");  // actions are never in conflict
        QCOMPARE(f.prompts.messageTexts().size(), 2);
        QCOMPARE(f.attached().size(), 6);
        f.click("cmdCancel");

        // Responses take only restrictions.
        f.chooseDirection(2);
        f.click("cmdNew");
        for (const char* code : {"*SF", "^EN"}) {
            combo->setCurrentIndex(indexOfCode(combo, QString::fromLatin1(code)));
            QVERIFY2(!f.enabled("cmdSpAdd"), code);
        }
        combo->setCurrentIndex(indexOfCode(combo, QStringLiteral("%F")));
        QVERIFY(f.enabled("cmdSpAdd"));
    }

    void attachedCodesAreEditedAndRemoved() {
        MessageEditorFixture f(section(1, {"Messages=1", "Message1=Hit!*DS3*H12"}));
        f.open(1);
        f.select(0);
        f.click("cmdEdit");
        QVERIFY(!f.enabled("cmdSpEdit"));

        // "(S3)" opens the system chooser on Long Range Scanners.
        selectAttached(f, 0);
        f.onDialog([](QDialog& dialog) {
            auto& chooser = dynamic_cast<frmSystem&>(dialog);
            QVERIFY(chooser.optSys[3]->isChecked());
            chooser.optSys[6]->click();
            chooser.cmdOK->click();
        });
        f.click("cmdSpEdit");
        QCOMPARE(f.dialogsRun(), 1);

        // "(12)" asks in an input box; Cancel keeps the old argument.
        selectAttached(f, 1);
        f.prompts.answerInput(std::nullopt);
        f.click("cmdSpEdit");
        QCOMPARE(f.prompts.asked().back().caption, QStringLiteral("Edit Action"));
        QCOMPARE(f.prompts.asked().back().text, QStringLiteral("Enter new value:"));
        QCOMPARE(f.prompts.asked().back().defaultText, QStringLiteral("12"));
        QVERIFY(f.attached().at(1).contains(QStringLiteral("(12)")));
        f.prompts.answerInput(QStringLiteral("40"));
        f.click("cmdSpEdit");
        // An argument that would end the code early is refused.
        f.prompts.answerInput(QStringLiteral("4*0"));
        f.prompts.answerMessage(PromptAnswer::Ok);
        f.click("cmdSpEdit");
        QCOMPARE(f.prompts.messageTexts().size(), 1);
        f.click("cmdSave");
        QCOMPARE(f.key(1, "Message1"), std::string("Hit!*DS6*H40"));

        // Removing moves the selection to the entry that took its place.
        f.click("cmdEdit");
        selectAttached(f, 0);
        f.click("cmdSpDelete");
        QCOMPARE(f.find<QListWidget>("lstSpecial")->currentRow(), 0);
        f.click("cmdSpDelete");
        QVERIFY(!f.enabled("cmdSpDelete"));
        f.click("cmdSave");
        QCOMPARE(f.key(1, "Message1"), std::string("Hit!"));
        QCOMPARE(f.prompts.unexpectedCount(), 0);
    }

    void aFlagArgumentUsesTheFlagChooser() {
        MessageEditorFixture f(
            section(1, {"Messages=1", "Message1=%F7Go on.", "Flag7=Met the envoy"}));
        f.open(1);
        f.select(0);
        f.click("cmdEdit");
        selectAttached(f, 0);
        f.onDialog([](QDialog& dialog) {
            auto& chooser = dynamic_cast<frmFlag&>(dialog);
            QCOMPARE(chooser.planet(), 1);
            QCOMPARE(chooser.cboFlag->currentText(), QStringLiteral("7 - Met the envoy"));
            chooser.cboFlag->setCurrentIndex(4);
            chooser.txtDesc->setText(QStringLiteral("Typed but not confirmed"));
            chooser.close();  // the close box: the flag passed in comes back
        });
        f.click("cmdSpEdit");
        QVERIFY(f.attached().at(0).contains(QStringLiteral("[7]")));
        QCOMPARE(f.key(1, "FlagE"), std::string("ERR"));
    }

    void withoutAListTheEditorStillOpens() {
        MessageEditorFixture f(section(1, {"Messages=1", "Message1=%FAHello*SFB"}),
                               MessageEditorFixture::SpecialList::Missing);
        f.open(1);
        QCOMPARE(f.prompts.messageTexts().size(), 1);
        QVERIFY(f.prompts.messageTexts().front().contains(QStringLiteral("SPECIAL.LST")));
        QVERIFY(f.prompts.messageTexts().front().contains(QStringLiteral("cannot be attached")));
        f.click("cmdNew");
        QVERIFY(!f.find<QComboBox>("cboSpecial")->isEnabled());
        QVERIFY(!f.enabled("cmdSpAdd"));
        f.click("cmdCancel");

        // Said once only; a stored line keeps its codes unless the designer agrees to lose them.
        f.click("cmdClose");
        f.open(1);
        QCOMPARE(f.prompts.messageTexts().size(), 1);
        f.select(0);
        f.click("cmdEdit");
        f.prompts.answerMessage(PromptAnswer::No);
        f.click("cmdSave");
        QVERIFY(f.prompts.messageTexts().last().contains(QStringLiteral("*SFB")));
        QCOMPARE(f.key(1, "Message1"), std::string("%FAHello*SFB"));
    }

    void theProgramsOwnListIsUsedWhenTheGameHasNone() {
        MessageEditorFixture f({}, MessageEditorFixture::SpecialList::Missing);
        const auto copy = f.root() / "program" / "SPECIAL.LST";
        std::filesystem::create_directories(copy.parent_path());
        std::filesystem::copy_file(
            std::filesystem::path(ORRERION_SOURCE_DIR) / "data" / "SPECIAL.LST", copy);
        f.open(1);
        QCOMPARE(f.prompts.messageTexts().size(), 0);
        QCOMPARE(f.window().specialCodes().source(), copy);
    }
};

QTEST_MAIN(SpecialCodesTest)
#include "SpecialCodesTest.moc"
