// "Add System": which of the game's systems are offered, the custom-name state of the dialog,
// and which answers it gives back.

#include <QtTest>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "editor/frmNewSS.h"
#include "platform/ScriptedPrompts.h"
#include "support/TempGameFolder.h"

using namespace orr;
using namespace orr::ui;
using orr::test::TempGameFolder;

namespace {

// Vega (no planets), Sol (two), a system the game keeps to itself, and Altair (one planet).
void writeFourSystems(const TempGameFolder& game) {
    game.writeSystemList({"\"Vega\",1,0", "\"Sol\",0,2", "400,2,0,0,1,0", "430,3,1,0,13,0",
                          "\"Secret #1\",2,0", "\"Altair\",7,1", "500,1,0,0,4,0"});
}

QStringList entries(const QComboBox* box) {
    QStringList texts;
    for (int i = 0; i < box->count(); ++i) texts << box->itemText(i);
    return texts;
}

QColor textColour(const QLabel* label) {
    return label->palette().color(QPalette::WindowText);
}

}  // namespace

class frmNewSSTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void offersTheGameSystemsWithoutDescriptorInFileOrder() {
        TempGameFolder game;
        writeFourSystems(game);
        game.writeDescriptor(TempGameFolder::systemRecord("2Sol", 2));
        frmNewSS dialog(game.folder());
        dialog.show();
        auto* cboSystems = dialog.findChild<QComboBox*>("cboSystems");
        QCOMPARE(entries(cboSystems), QStringList({"0Vega", "1Altair"}));
        QCOMPARE(cboSystems->currentIndex(), 0);
        QVERIFY(cboSystems->isEnabled());
        QVERIFY(dialog.findChild<QCheckBox*>("chkCustom")->isEnabled());
        QVERIFY(!dialog.chkCustom->isChecked());
        QVERIFY(!dialog.findChild<QLineEdit*>("txtName")->isEnabled());

        // The list is read again each time the dialog is shown.
        dialog.hide();
        game.writeDescriptor(TempGameFolder::systemRecord("0Vega", 0));
        dialog.show();
        QCOMPARE(entries(dialog.cboSystems), QStringList({"1Altair"}));
    }

    void withoutSystemListOnlyCustomSystemsCanBeAdded() {
        TempGameFolder game;
        frmNewSS dialog(game.folder());
        dialog.show();
        QCOMPARE(dialog.cboSystems->count(), 0);
        QVERIFY(dialog.chkCustom->isChecked());
        QVERIFY(!dialog.chkCustom->isEnabled());
        QVERIFY(dialog.txtName->isEnabled());
    }

    void customSwitchesInputAndLabelColours() {
        TempGameFolder game;
        writeFourSystems(game);
        frmNewSS dialog(game.folder());
        dialog.show();
        const QColor normal = dialog.palette().color(QPalette::Active, QPalette::ButtonText);
        const QColor grey = dialog.palette().color(QPalette::Disabled, QPalette::WindowText);
        QVERIFY(normal != grey);
        for (const bool custom : {false, true, false}) {
            if (dialog.chkCustom->isChecked() != custom) dialog.chkCustom->click();
            QCOMPARE(dialog.cboSystems->isEnabled(), !custom);
            QCOMPARE(dialog.txtName->isEnabled(), custom);
            QCOMPARE(textColour(dialog.lblSystems), custom ? grey : normal);
            QCOMPARE(textColour(dialog.lblName), custom ? normal : grey);
        }
    }

    void okGivesTheChosenEntryOrTypedNameAndCancelNothing() {
        TempGameFolder game;
        writeFourSystems(game);
        ScriptedPrompts prompts;
        frmNewSS dialog(game.folder());
        dialog.show();
        dialog.cboSystems->setCurrentIndex(1);
        dialog.cmdOK->click();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.tag(), QStringLiteral("2Sol"));

        dialog.show();
        QVERIFY(dialog.tag().isEmpty());
        dialog.chkCustom->click();
        dialog.txtName->setText(QStringLiteral("Nova"));
        dialog.cmdCancel->click();
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QVERIFY(dialog.tag().isEmpty());
        dialog.show();
        if (!dialog.chkCustom->isChecked()) dialog.chkCustom->click();
        dialog.txtName->setText(QString::fromUtf8("Caf\u00e9 Nova"));
        dialog.cmdOK->click();
        QCOMPARE(dialog.tag(), QString::fromUtf8("Caf\u00e9 Nova"));
        QCOMPARE(dialog.tagBytes(), std::string("Caf\xe9 Nova"));
        QCOMPARE(prompts.unexpectedCount(), 0);
    }

    void unusableNamesAreRefusedAndTheDialogStaysOpen_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("message");
        QTest::newRow("empty") << ""
                               << "Please enter a name for the new system.";
        QTest::newRow("existing, other case")
            << "KESTREL"
            << "A system named 'KESTREL' already exists. Please choose another name.";
    }
    void unusableNamesAreRefusedAndTheDialogStaysOpen() {
        QFETCH(QString, name);
        QFETCH(QString, message);
        TempGameFolder game;
        game.writeDescriptor(TempGameFolder::systemRecord("Kestrel", 1));
        ScriptedPrompts prompts;
        prompts.answerMessage(PromptAnswer::Ok);
        frmNewSS dialog(game.folder());
        dialog.show();
        dialog.txtName->setText(name);
        dialog.cmdOK->click();
        QCOMPARE(prompts.messageTexts(), QStringList({message}));
        QCOMPARE(prompts.asked().front().caption, QStringLiteral("Orrerion"));
        QVERIFY(dialog.isVisible());
        QVERIFY(dialog.tag().isEmpty());
        QCOMPARE(prompts.unexpectedCount(), 0);

        dialog.txtName->setText(QStringLiteral("Nova"));
        dialog.cmdOK->click();
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.tag(), QStringLiteral("Nova"));
    }
};

QTEST_MAIN(frmNewSSTest)
#include "frmNewSSTest.moc"
