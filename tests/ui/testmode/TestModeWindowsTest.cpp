// The test mode's windows as a user drives them: the options window's flag grid, list, upgrade
// indicator and Begin, the console's buttons, panel and timers with the options window mirroring
// it, the respond dialog's digit keys and the number dialog's scroll bar and text box.

#include <QtTest>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTimer>
#include <deque>
#include <functional>
#include <map>

#include "platform/Modal.h"
#include "platform/ScriptedPrompts.h"
#include "testmode/StandardColour.h"
#include "testmode/UpgradeShape.h"
#include "testmode/frmGetNumber.h"
#include "testmode/frmRespond.h"
#include "testmode/frmSSControl.h"
#include "testmode/frmSSOptions.h"

using namespace orr;
using namespace orr::ui;

namespace {

template <typename T = QWidget>
T* child(QWidget& window, const QString& name) {
    T* found = window.findChild<T*>(name);
    if (!found) QTest::qFail(qPrintable("no control " + name), __FILE__, __LINE__);
    return found;
}

void press(QWidget* widget) {
    QTest::mousePress(widget, Qt::LeftButton);
}

QColor background(QWidget* widget) {
    return widget->palette().color(QPalette::Window);
}

// Halcyon: class 10, Kelvari, one hail with two responses (the first never offered) and flag B
// described as "B - Shared energy".
struct Halcyon {
    std::map<std::string, std::string> keys = {{"Messages", "1"},
                                               {"Message1", "$Port$Hello*RHail"},
                                               {"ResponsesHail", "2"},
                                               {"ResponseHail1", "%00Never"},
                                               {"ResponseHail2", "Go & trade*MTrade"},
                                               {"MessagesTrade", "1"},
                                               {"MessageTrade1", "$BOX$Deal.*SFB"}};
    TestPlanet planet() {
        TestPlanet p;
        p.record.PlanetClass = 10;
        p.record.Size = 2;
        p.name = "Halcyon";
        p.keys = [this](const std::string& key) {
            const auto found = keys.find(key);
            return found == keys.end() ? std::string() : found->second;
        };
        return p;
    }
    std::vector<std::string> flagItems = {"A - Unused", "B - Shared energy", "C - Unused"};
};

}  // namespace

class TestModeWindowsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void optionsFlagGridListAndUpgradeLabels() {
        Halcyon halcyon;
        ShipState ship;
        SeededRandom random;
        frmSSOptions options(ship, random, halcyon.planet(), halcyon.flagItems);
        QCOMPARE(options.windowTitle(), QStringLiteral("Test Options"));
        QCOMPARE(child<QLabel>(options, "lblFlag7")->text(), QStringLiteral("Treaty"));
        auto* list = child<QListWidget>(options, "lstFlags");
        const QColor face = background(child(options, "lblFlag0"));
        for (int n : {1, 7, 27, 0}) press(child(options, QStringLiteral("lblFlag%1").arg(n)));
        QCOMPARE(background(child(options, "lblFlag1")), standardColour(12));
        QCOMPARE(list->count(), 4);
        QCOMPARE(list->item(0)->text(), QStringLiteral("B - Shared energy"));
        QCOMPARE(list->item(1)->text(), QStringLiteral("Have Treaty"));
        QCOMPARE(list->item(2)->text(), QStringLiteral("0 - Unused"));  // past the items given
        press(child(options, "lblFlag1"));
        QCOMPARE(background(child(options, "lblFlag1")), face);
        QCOMPARE(list->count(), 3);

        child<QCheckBox>(options, "chkList")->click();
        QCOMPARE(child<QStackedWidget>(options, "stkFlags")->currentIndex(), 1);
        emit list->itemDoubleClicked(list->item(0));  // the treaty flag
        QCOMPARE(background(child(options, "lblFlag7")), face);
        child<QPushButton>(options, "cmdClear")->click();
        QCOMPARE(list->count(), 0);
        QCOMPARE(background(child(options, "lblFlag0")), face);

        auto* last = child<QScrollBar>(options, "hsbLast");
        QCOMPARE(child<QLabel>(options, "lblLast")->text(), QStringLiteral("Never"));
        last->setValue(15);
        QCOMPARE(child<QLabel>(options, "lblLast")->text(), QStringLiteral("1.5 days ago"));

        // The upgrade labels cycle only while "Upgrades" is checked.
        auto* shape = child<UpgradeShape>(options, "UpSh");
        auto* label = child(options, "lblUpgrade1");
        press(label);
        QCOMPARE(ship.UpgradeLevel[2], 1);  // "Upgrades" unchecked: nothing
        child<QCheckBox>(options, "chkUpgrades")->click();
        const QColor plain = shape->fill();
        for (const auto& [fill, border] :
             std::vector<std::pair<int, int>>{{14, 0}, {10, 0}, {11, 0}, {12, 8}}) {
            press(label);
            QCOMPARE(shape->fill(), standardColour(fill));
            QCOMPARE(shape->border(), standardColour(border));
        }
        press(shape);
        QCOMPARE(ship.UpgradeLevel[2], 1);
        QCOMPARE(shape->fill(), plain);
        press(label);
        child<QCheckBox>(options, "chkUpgrades")->click();  // unchecking resets every level
        QCOMPARE(ship.UpgradeLevel, (decltype(ship.UpgradeLevel){0, 1, 1, 1, 1, 1}));
    }

    void beginRunsTheConsoleWhichTheOptionsWindowMirrors() {
        Halcyon halcyon;
        ShipState ship;
        SeededRandom random;
        ScriptedPrompts prompts;
        std::deque<std::function<void(QDialog&)>> dialogs;  // answers the windows' dialogs in order
        const DialogRunner previous = setDialogRunner([&](QDialog& dialog) {
            QVERIFY2(!dialogs.empty(), "an unexpected dialog");
            const auto answer = std::move(dialogs.front());
            dialogs.pop_front();
            answer(dialog);
        });
        frmSSOptions options(ship, random, halcyon.planet(), halcyon.flagItems);
        press(child(options, "lblFlag0"));
        child<QScrollBar>(options, "hsbLast")->setValue(0);
        child<QCheckBox>(options, "chkBadGuy")->click();
        child<QLineEdit>(options, "txtSeed")->setText(QStringLiteral("42"));
        dialogs.push_back([&](QDialog& dialog) {
            auto& console = dynamic_cast<frmSSControl&>(dialog);
            QCOMPARE(console.windowTitle(), QStringLiteral("Solar System Control Panel"));
            QVERIFY(GetFlag(options.planet().record, 0));
            QVERIFY(ship.BadGuyOption);
            auto* message = child<QTimer>(console, "tmrMessage");
            auto* flags = child<QTimer>(console, "tmrFlags");
            QVERIFY(message->isActive() && flags->isActive());
            QCOMPARE(std::make_pair(message->interval(), flags->interval()),
                     std::make_pair(1000, 200));
            QCOMPARE(child<QLabel>(console, "pnlOrbiting")->text(),
                     QStringLiteral("Orbiting Halcyon"));
            QVERIFY(!child(console, "pnlMessage")->isVisible());
            console.messageTick();
            QVERIFY(child(console, "cmdRespond")->isVisible());
            QCOMPARE(child<QLabel>(console, "Message")->text(), QStringLiteral("Hello"));
            QCOMPARE(child<QLabel>(console, "lblMessage")->text(), QStringLiteral("Port"));
            QVERIFY(!message->isActive());
            console.flagTick();
            QCOMPARE(child<QPushButton>(console, "cmdNotes")->text(),
                     QStringLiteral("Response Level: Hail"));
            dialogs.push_back([](QDialog& respond) {
                QCOMPARE(respond.findChildren<QRadioButton*>().size(), 2);  // the template too
                QTest::keyClick(&respond, Qt::Key_1);
                child<QPushButton>(respond, "cmdSend")->click();
            });
            child<QPushButton>(console, "cmdRespond")->click();
            QVERIFY(message->isActive());
            prompts.answerMessage(PromptAnswer::Ok);
            console.messageTick();  // "Deal." in a box sets flag B and the standard title
            QCOMPARE(child<QLabel>(console, "lblMessage")->text(),
                     QStringLiteral("Message from Planet:"));
            console.flagTick();
            QCOMPARE(background(child(options, "lblFlag1")), standardColour(12));
            QVERIFY(console.transcript().contains(QStringLiteral("[Respond] Go & trade")));
            child<QCheckBox>(console, "chkShipState")->click();
            QVERIFY(child(console, "fraShipState")->isVisible());
            prompts.answerMessage(PromptAnswer::No);
            child<QPushButton>(console, "cmdPhaser")->click();
            QCOMPARE(prompts.messageTexts().back(),
                     QStringLiteral("Are you sure you wish to fire phasers this planet?"));
            child<QPushButton>(console, "cmdExit")->click();
            QVERIFY(!console.console().state().open);
        });
        child<QPushButton>(options, "cmdBegin")->click();
        setDialogRunner(previous);
        QVERIFY(dialogs.empty());
        QCOMPARE(child<QLabel>(options, "lblSeed")->text(), QStringLiteral("Seed in use: 42"));
        QCOMPARE(child<QListWidget>(options, "lstFlags")->count(), 2);  // A, and B from the play
        QCOMPARE(prompts.unexpectedCount(), 0);
    }

    void respondDigitKeysAndTheNumberDialogsScrollBar() {
        frmRespond respond;
        respond.show();
        respond.offer({{2, "Trade"}, {5, "Leave"}});
        QCOMPARE(respond.windowTitle(), QStringLiteral("Choose a Message"));
        QTest::keyClick(&respond, Qt::Key_3);
        for (QRadioButton* option : respond.options()) QVERIFY(!option->isChecked());
        QCOMPARE(respond.focusWidget(), child(respond, "cmdSend"));
        QTest::keyClick(&respond, Qt::Key_2);
        QVERIFY(respond.options()[1]->isChecked());
        child<QPushButton>(respond, "cmdSend")->click();
        QCOMPARE(respond.chosen(), 5);

        // The number dialog keeps its scroll bar and its text box in step.
        frmGetNumber number;
        number.prepare({"How long?", "", "days", 1, 0.01F, 2.5F, 0.01F});
        auto* bar = child<QScrollBar>(number, "vsbNumber");
        auto* text = child<QLineEdit>(number, "txtNumber");
        QCOMPARE(std::make_pair(bar->minimum(), bar->maximum()), std::make_pair(1, 250));
        QCOMPARE(bar->value(), 151);
        bar->setValue(1);
        QCOMPARE(text->text(), QStringLiteral("2.5"));
        QCOMPARE(child<QLabel>(number, "lblNumber")->text(), QStringLiteral("2.5"));
        text->clear();
        QTest::keyClicks(text, QStringLiteral("9"));
        QCOMPARE(text->text(), QStringLiteral("2.5"));
        text->setText(QString());
        QTest::keyClicks(text, QStringLiteral("1.2"));
        QCOMPARE(bar->value(), 131);
        number.reject();
        QCOMPARE(number.result(), -0.99F);
    }
};

QTEST_MAIN(TestModeWindowsTest)
#include "TestModeWindowsTest.moc"
