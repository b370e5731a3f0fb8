// The ship-system chooser and the flag chooser on their own: what they open on, what OK and the
// close box return, and what the flag chooser writes.

#include <QtTest>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "messages/frmFlag.h"
#include "messages/frmSystem.h"
#include "support/MessageEditorFixture.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MessageEditorFixture;
using orr::test::section;

class ChoosersTest : public QObject {
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
        frmFlag chooser(f.store);
        QCOMPARE(chooser.windowTitle(), QStringLiteral("Choose a Flag"));
        chooser.setPlanet(2);
        chooser.prepare(QString());
        QCOMPARE(chooser.cboFlag->count(), 36);
        QCOMPARE(chooser.cboFlag->currentIndex(), 0);  // empty: flag "A"
        QCOMPARE(chooser.cboFlag->itemText(26), QStringLiteral("0 - Met the envoy"));
        QCOMPARE(chooser.cboFlag->itemText(35), QStringLiteral("9 - Unused"));
        chooser.prepare(QStringLiteral("7"));
        QCOMPARE(chooser.cboFlag->currentIndex(), 33);

        chooser.show();
        chooser.cboFlag->setCurrentIndex(2);
        chooser.txtDesc->setText(QStringLiteral("Found the key"));
        chooser.cmdOK->click();
        QCOMPARE(chooser.chosenFlag(), QStringLiteral("C"));
        QCOMPARE(f.key(2, "FlagC"), std::string("Found the key"));
        QCOMPARE(chooser.cboFlag->itemText(2), QStringLiteral("C - Found the key"));
        QVERIFY(!chooser.isVisible());
        QCOMPARE(f.prompts.asked().size(), std::size_t(0));
    }

    void aFlagNeedsADescription_data() {
        QTest::addColumn<QString>("description");
        QTest::newRow("Unused") << "Unused";
        QTest::newRow("empty") << "";
    }
    void aFlagNeedsADescription() {
        QFETCH(QString, description);
        MessageEditorFixture f;
        frmFlag chooser(f.store);
        chooser.setPlanet(1);
        chooser.prepare(QStringLiteral("B"));
        chooser.show();
        f.prompts.answerMessage(PromptAnswer::Ok);
        chooser.txtDesc->setText(description);
        chooser.cmdOK->click();
        QVERIFY(chooser.isVisible());
        QCOMPARE(f.prompts.messageTexts(),
                 QStringList{QStringLiteral("Please enter a short description which describes "
                                            "how this flag is used.")});
        QCOMPARE(f.key(1, "FlagB"), std::string("ERR"));
    }

    void theFlagChoosersCloseBoxReturnsTheFlagPassedIn() {
        MessageEditorFixture f;
        frmMessages& editor = f.open(1);
        f.onDialog([](QDialog& dialog) {
            auto& chooser = dynamic_cast<frmFlag&>(dialog);
            QCOMPARE(chooser.planet(), 1);
            chooser.show();
            chooser.cboFlag->setCurrentIndex(4);
            chooser.txtDesc->setText(QStringLiteral("Typed but not confirmed"));
            chooser.close();
        });
        QCOMPARE(editor.GetFlagChar(QStringLiteral("D")), QStringLiteral("D"));
        QCOMPARE(f.key(1, "FlagE"), std::string("ERR"));
    }
};

QTEST_MAIN(ChoosersTest)
#include "ChoosersTest.moc"
