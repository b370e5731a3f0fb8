// The room editor, its lock and requirement dialogs, and how the message editor opens it: what
// only the windows do (questions, input boxes, the boxes' states, the menu, doors and Back). The
// stored forms are the core's tests'.

#include <QtTest>

#include "rooms/RoomPicture.h"
#include "rooms/frmAdvancedRoom.h"
#include "rooms/frmEditRoom.h"
#include "rooms/frmLock.h"
#include "rooms/frmWizard.h"
#include "session/RoomEdits.h"
#include "support/MessageEditorFixture.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MessageEditorFixture;

namespace {

// The room editor on planet 1 of Nova, which holds a 2 x 2 grid made by the wizard. The flag
// chooser answers "B".
struct Rooms {
    MessageEditorFixture f;
    QStringList flagsAsked;
    frmEditRoom editor{f.session, [this](QWidget*, const QString& current) {
                           flagsAsked << current;
                           return QStringLiteral("B");
                       }};

    Rooms() {
        if (!finishGridWizard(f.session, 1, {2, 2})) QTest::qFail("no grid", __FILE__, __LINE__);
        editor.setPlanet(1);
    }
    void load(const char* room) {
        if (!editor.LoadRoom(QString::fromLatin1(room)))
            QTest::qFail("not shown", __FILE__, __LINE__);
        editor.show();
    }
    template <typename T>
    T* find(const QString& name) {
        return editor.findChild<T*>(name);
    }
    QCheckBox* box(int i) { return find<QCheckBox>(QStringLiteral("chkAct%1").arg(i)); }
    QLabel* door(int d) { return find<QLabel>(QStringLiteral("lblDoor%1").arg(d)); }
    void click(const char* name) { find<QAbstractButton>(QString::fromLatin1(name))->click(); }
    // Pointing at a standard action shows it in the Action frame.
    void point(QWidget* widget) {
        QEvent enter(QEvent::Enter);
        QApplication::sendEvent(widget, &enter);
    }
    void type(const char* box, const QString& text) {
        auto* line = find<QLineEdit>(QString::fromLatin1(box));
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, text);
    }
    std::string key(const std::string& name) { return f.key(1, name); }
};

}  // namespace

class RoomEditorTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void theRoomEditorItsDialogsAndTheWizard() {
        Rooms r;
        r.load("Area11");
        QCOMPARE(r.editor.windowTitle(), QStringLiteral("Edit Room - Area11"));
        QCOMPARE(r.box(kNorth)->checkState(), Qt::Unchecked);
        QCOMPARE(r.box(kTricorder)->checkState(), Qt::Checked);
        QVERIFY(r.door(kEast)->isVisible() && !r.door(kNorth)->isVisible());
        QCOMPARE(r.door(kEast)->text(), QStringLiteral("Area21"));

        r.f.prompts.answerInput(QString());  // an empty answer ticks nothing
        r.f.prompts.answerInput(QStringLiteral("Cellar"));
        r.box(kNorth)->click();
        QCOMPARE(r.box(kNorth)->checkState(), Qt::Unchecked);
        r.box(kNorth)->click();
        QCOMPARE(r.f.prompts.asked().back().caption,
                 QStringLiteral("Enter Room that is North of Area11"));
        QCOMPARE(r.key("ResponseArea116"), std::string("%GNGo North and report back.*MCellar"));
        QCOMPARE(r.box(kNorth)->checkState(), Qt::PartiallyChecked);
        QCOMPARE(r.door(kNorth)->text(), QStringLiteral("Cellar"));
        QVERIFY2(r.door(kNorth)->toolTip().contains("no messages"), "Cellar leads nowhere yet");

        r.point(r.box(kEast));
        QCOMPARE(r.find<QLineEdit>("txtResponse")->text(),
                 QStringLiteral("Go East and report back."));
        r.type("txtResponse", QStringLiteral("Run east!"));
        QCOMPARE(r.key("ResponseArea111"), std::string("Run east!*MArea21"));
        QCOMPARE(r.box(kEast)->checkState(), Qt::PartiallyChecked);
        QCOMPARE(QString::fromStdString(r.f.session.undoName()),
                 QStringLiteral("Edit Action 1 in Area11"));

        // A changed action is removed only after a question.
        r.f.prompts.answerMessage(PromptAnswer::No);
        r.f.prompts.answerMessage(PromptAnswer::Yes);
        r.box(kEast)->click();
        QCOMPARE(r.box(kEast)->checkState(), Qt::PartiallyChecked);
        r.box(kEast)->click();
        QCOMPARE(r.f.prompts.asked().back().text, frmEditRoom::kRemoveCustomQuestion);
        QCOMPARE(r.box(kEast)->checkState(), Qt::Unchecked);
        QCOMPARE(r.key("ResponsesArea11"), std::string("5"));

        // An undo made elsewhere shows at once.
        QVERIFY(r.f.session.undo());
        QCOMPARE(r.box(kEast)->checkState(), Qt::PartiallyChecked);
        QVERIFY(r.door(kEast)->isVisible());

        // The direction menu, adding, and the list.
        r.load("Area22");
        const std::size_t steps = r.f.session.history().index();
        r.point(r.box(kNorth));
        r.f.answerNext<QMenu>([](QMenu& menu) { menu.findChild<QAction*>("mnuPDir5")->trigger(); });
        r.click("chkDir");
        QCOMPARE(r.key("ResponseArea221"), std::string("%G-Go North and report back.*MArea21"));
        QCOMPARE(r.box(kNorth)->checkState(), Qt::Unchecked);
        auto* list = r.find<QTreeWidget>("lvwActions");
        QCOMPARE(list->topLevelItemCount(), 1);
        QCOMPARE(r.find<QPushButton>("chkDir")->text(), QStringLiteral("Other"));

        r.click("cmdAdd");
        QCOMPARE(list->topLevelItemCount(), 2);
        QCOMPARE(r.find<QLineEdit>("txtResponse")->selectedText(), QStringLiteral("New Action"));
        r.type("txtDest", QStringLiteral("Vault"));
        QCOMPARE(list->topLevelItem(1)->text(0), QStringLiteral("Vault"));
        // The direction, the new action, and the destination's typing as one step.
        QCOMPARE(r.f.session.history().index(), steps + 3);

        // Remove asks; the frame is empty afterwards.
        r.f.prompts.answerMessage(PromptAnswer::Yes);
        r.click("cmdRemove");
        QCOMPARE(list->topLevelItemCount(), 1);
        QVERIFY(!r.find<QLineEdit>("txtResponse")->isVisible());

        // Double-clicking a listed action goes there; Back comes back; "None" goes nowhere.
        emit list->itemDoubleClicked(list->topLevelItem(0), 0);
        QCOMPARE(r.editor.windowTitle(), QStringLiteral("Edit Room - Area21"));
        QVERIFY(!r.editor.LoadRoom(QStringLiteral("None")));
        r.click("cmdBack");
        QCOMPARE(r.editor.windowTitle(), QStringLiteral("Edit Room - Area22"));
        QTest::mouseClick(r.door(kWest), Qt::LeftButton);
        QCOMPARE(r.editor.windowTitle(), QStringLiteral("Edit Room - Area12"));
    }

    // Effects, locks and requirements of a room; then the message editor opens the room of its
    // group, and the wizard.
    void effectsLocksRequirementsAndTheMessageEditorsRoomWindows() {
        Rooms r;
        QVERIFY(putPlanetKeys(r.f.session, 1, "Prefix", {{"SearchFlag", "%fC"}}));
        r.load("Area11");
        // An effect is added only after a warning.
        r.point(r.box(kEast));
        r.f.prompts.answerMessage(PromptAnswer::No);
        r.click("cmdEffect");
        QCOMPARE(r.f.prompts.asked().back().text, frmEditRoom::kEffectWarning);
        r.point(r.box(kSearch));
        r.f.prompts.answerInput(QStringLiteral("A coin glints."));
        r.f.prompts.answerInput(QStringLiteral("Area12"));
        r.click("cmdEffect");
        QCOMPARE(r.f.prompts.asked().back().defaultText, QStringLiteral("Area11"));
        QCOMPARE(r.key("MessageArea11Search1"), std::string("A coin glints.*RArea12"));

        // The lock dialog refuses twice before it locks.
        r.f.answerNext<frmLock>([&](frmLock& lock) {
            auto* ok = lock.findChild<QPushButton*>("cmdOK");
            ok->click();
            lock.findChild<QComboBox*>("cboAction")->setCurrentIndex(0);
            ok->click();
            lock.findChild<QLineEdit*>("txtDesc")->setText(QStringLiteral("The hatch is jammed."));
            ok->click();
        });
        const qsizetype asked = r.f.prompts.messageTexts().size();
        r.f.prompts.answerMessage(PromptAnswer::Ok);
        r.f.prompts.answerMessage(PromptAnswer::Ok);
        r.click("cmdLock");
        QCOMPARE(r.f.prompts.messageTexts().mid(asked),
                 QStringList({frmLock::kNoAction, frmLock::kNoMessage}));
        QCOMPARE(r.flagsAsked, QStringList({QString()}));
        QCOMPARE(r.key("MessageArea21Locked1"), std::string("The hatch is jammed.*RArea11"));
        QCOMPARE(r.key("ResponseArea111"), std::string("%FBGo East and report back.*MArea21"));

        // The advanced dialog's rows.
        r.f.answerNext<frmAdvancedRoom>([&](frmAdvancedRoom& advanced) {
            const auto option = [&](int n) {
                return advanced.findChild<QRadioButton*>(QStringLiteral("optNeed%1").arg(n));
            };
            QVERIFY(option(4)->isChecked() && option(2)->isChecked());
            QCOMPARE(advanced.findChild<QLabel*>("lblFlag1")->text(), QStringLiteral("Not C"));
            option(0)->click();  // Set without a flag: the chooser first
            QCOMPARE(advanced.findChild<QLabel*>("lblFlag0")->text(), QStringLiteral("B"));
            option(5)->click();
            advanced.findChild<QPushButton*>("cmdOK")->click();
        });
        r.click("cmdAdvanced");
        QCOMPARE(r.key("BeamFlag") + r.key("SearchFlag"), std::string("%FBERR"));
        // The default line carries the new requirement: the stored beam-up now differs from it.
        QCOMPARE(r.box(kBeamUp)->checkState(), Qt::PartiallyChecked);

        // The message editor opens the room of its group and selects the last shown; the
        // wizard's steps clamp the sizes, and its Cancel asks first.
        r.f.open(1);
        QVERIFY2(!r.f.enabled("cmdEditRoom"), "INIT is no room");
        r.f.typeGroup(QStringLiteral("Area11Search"));
        QVERIFY(r.f.enabled("cmdEditRoom"));
        r.f.answerNext<frmEditRoom>([](frmEditRoom& editor) {
            QCOMPARE(editor.shownRoom(), QStringLiteral("Area11"));
            QTest::mouseClick(editor.findChild<QLabel*>("lblDoor2"), Qt::LeftButton);
            editor.reject();
        });
        r.f.click("cmdEditRoom");
        QCOMPARE(r.f.text("cboGroup"), QStringLiteral("Area12"));

        r.f.answerNext<frmWizard>([&](frmWizard& wizard) {
            const auto find = [&](const char* name) {
                return wizard.findChild<QWidget*>(QString::fromLatin1(name));
            };
            static_cast<QSpinBox*>(find("SizeX"))->setValue(1);
            static_cast<QSpinBox*>(find("SizeY"))->setValue(15);
            auto* next = static_cast<QPushButton*>(find("cmdNext"));
            next->click();
            QCOMPARE(wizard.windowTitle(),
                     QStringLiteral("Adventure Grid Wizard - Choose Actions"));
            QCOMPARE(wizard.choices().width * 100 + wizard.choices().height, 210);
            static_cast<QCheckBox*>(find("chkAct4"))->click();
            next->click();
            QCOMPARE(next->text(), QStringLiteral("&Finish"));
            r.f.prompts.answerMessage(PromptAnswer::No);
            static_cast<QPushButton*>(find("cmdCancel"))->click();
            QCOMPARE(r.f.prompts.asked().back().caption, QStringLiteral("Exit Wizard"));
            next->click();
        });
        r.f.click("cmdWizard");
        QCOMPARE(r.key("ResponsesArea101"), std::string("4"));  // no beam up
        QVERIFY(r.f.items("cboGroup").contains(QStringLiteral("Area210")));
    }
};

QTEST_MAIN(RoomEditorTest)
#include "RoomEditorTest.moc"
