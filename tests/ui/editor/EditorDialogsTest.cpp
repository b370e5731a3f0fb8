// The main window's two dialogs of their own. "Add System": which of the game's systems are
// offered, its custom-name state and the answers it gives back. "Planet Properties": what it
// shows, the option clicks stored at once, what OK and Cancel store, when its two switches can
// be changed, and its Edit buttons. The rules they apply are the session's and checked there.

#include <QtTest>

#include "editor/frmNewSS.h"
#include "editor/frmPlanet.h"
#include "pictures/QtPictureCodec.h"
#include "session/PlanetEdits.h"
#include "session/SystemEdits.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;
using orr::test::TempGameFolder;

namespace {

template <typename T = QAbstractButton>
T* control(QWidget& dialog, const char* name) {
    auto* found = dialog.findChild<T*>(QString::fromLatin1(name));
    if (!found) qFatal("no control %s", name);
    return found;
}

QStringList entries(QWidget& dialog, const char* name) {
    return MainWindowHarness::texts(control<QComboBox>(dialog, name));
}

// "Nova" open in a session: planet 1 plain, 2 inhabited by animals (alien 1, four moons, a
// message section), 3 an asteroid belt; with a picture file when asked.
struct Nova {
    TempGameFolder game;
    EditSession session{game.folder()};
    ScriptedPrompts prompts;
    frmPlanet dialog{session};

    explicit Nova(bool withStripFile = false) {
        SystemRecord record = TempGameFolder::systemRecord("Nova", 3);
        record.planet(2).Attributes = PlanetAttributes{2, 3, 2, 1, 1}.pack();
        record.planet(2).Moons = 4;
        record.planet(3).Size = 0;
        record.planet(3).PlanetClass = 0;
        game.writeDescriptor(record, "[2]\r\nMessages=1\r\n");
        if (withStripFile) game.write("PICTURES/Nova.jpg", "not read here");
        session.InitTables();
        if (!session.open("Nova", [] { return false; })) qFatal("Nova cannot be opened");
    }
    ~Nova() { QCOMPARE(prompts.unexpectedCount(), 0); }

    void click(const char* name, int times = 1) {
        for (int i = 0; i < times; ++i) control(dialog, name)->click();
    }
    bool on(const char* name) { return control(dialog, name)->isChecked(); }
    bool enabled(const char* name) { return control<QWidget>(dialog, name)->isEnabled(); }
    QString text(const char* label) { return control<QLabel>(dialog, label)->text(); }
    int flag(const char* key, int n) const { return session.store().GetGeneralFlag(key, n); }
};

}  // namespace

class EditorDialogsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    // The game's list has 9Sol, 0Vega, a hidden system and 3Sol.
    void addSystemOffersTheGameSystemsWithoutDescriptorAndAnswersTheChoice() {
        TempGameFolder game;
        game.writeDescriptor(TempGameFolder::systemRecord("9Sol", 2));
        game.writeDescriptor(TempGameFolder::systemRecord("Kestrel", 1));
        ScriptedPrompts prompts;
        frmNewSS dialog(game.folder());
        dialog.show();
        QCOMPARE(entries(dialog, "cboSystems"), QStringList({"0Vega", "3Sol"}));
        QVERIFY(!control<QLineEdit>(dialog, "txtName")->isEnabled());
        control(dialog, "cmdOK")->click();
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.answer()->name, std::string("0Vega"));
        QCOMPARE(dialog.answer()->kind, NewSystemAnswer::ListedKey);
        // The list is read again each time the dialog is shown.
        game.writeDescriptor(TempGameFolder::systemRecord("0Vega", 0));
        dialog.show();
        QCOMPARE(entries(dialog, "cboSystems"), QStringList({"3Sol"}));

        // Custom switches the input in use, and the label of the other one is greyed.
        const QColor normal = dialog.palette().color(QPalette::Active, QPalette::ButtonText);
        const QColor grey = dialog.palette().color(QPalette::Disabled, QPalette::WindowText);
        QVERIFY(normal != grey);
        for (const bool custom : {true, false}) {
            control(dialog, "chkCustom")->click();
            QCOMPARE(control<QComboBox>(dialog, "cboSystems")->isEnabled(), !custom);
            QCOMPARE(control<QLineEdit>(dialog, "txtName")->isEnabled(), custom);
            QCOMPARE(control<QLabel>(dialog, "lblSystems")->palette().color(QPalette::WindowText),
                     custom ? grey : normal);
            QCOMPARE(control<QLabel>(dialog, "lblName")->palette().color(QPalette::WindowText),
                     custom ? normal : grey);
        }

        // A typed name is refused with the reason, the dialog staying open, until it is usable.
        control(dialog, "chkCustom")->click();
        const QString refused[][2] = {
            {"", "Please enter a name for the new system."},
            {"KESTREL", "A system named \"Kestrel\" already exists. Please choose another name."},
        };
        for (const auto& [name, message] : refused) {
            prompts.answerMessage(PromptAnswer::Ok);
            control<QLineEdit>(dialog, "txtName")->setText(name);
            control(dialog, "cmdOK")->click();
            QCOMPARE(prompts.messageTexts().last(), message);
            QVERIFY(dialog.isVisible() && !dialog.answer());
        }
        control<QLineEdit>(dialog, "txtName")->setText(QString::fromUtf8("Caf\u00e9 Nova"));
        control(dialog, "cmdOK")->click();
        QCOMPARE(dialog.answer()->name, std::string("Caf\xe9 Nova"));  // the game's bytes
        QCOMPARE(dialog.answer()->kind, NewSystemAnswer::CustomName);

        dialog.show();
        control(dialog, "cmdCancel")->click();
        QVERIFY(!dialog.answer());
        QCOMPARE(prompts.unexpectedCount(), 0);

        // Nothing to offer: only custom systems.
        TempGameFolder bare(TempGameFolder::Contents::Bare);
        frmNewSS custom(bare.folder());
        custom.show();
        QVERIFY(control(custom, "chkCustom")->isChecked());
        QVERIFY(!control(custom, "chkCustom")->isEnabled());
    }

    void propertiesShowThePlanetsValuesAndWhatMayBeChanged() {
        Nova nova;
        nova.dialog.loadPlanet(2);
        const QStringList aliens = entries(nova.dialog, "cboAlienName");
        QCOMPARE(aliens.size(), 256);
        // aliens.txt names three races; the others are there by number.
        QCOMPARE(aliens.mid(0, 5), QStringList({"", "Klaxi", "Ormu", "Vessari", "Alien #4"}));
        QCOMPARE(control<QComboBox>(nova.dialog, "cboAlienName")->currentIndex(), 1);
        for (const char* option : {"gpInh2", "gpAtt3", "gpAdv2", "gpEnr1"})
            QVERIFY(nova.on(option));
        QCOMPARE(nova.text("lblMoons"), QStringLiteral("4"));

        nova.dialog.loadPlanet(3);  // an asteroid belt has no size or moons to change
        QCOMPARE(nova.text("lblSize"), QStringLiteral("0"));
        QVERIFY(!nova.enabled("spnSize") && !nova.enabled("spnMoons"));
        nova.click("cmdCancel");
        QVERIFY(!nova.session.isModified());  // opened and cancelled: nothing written

        QVERIFY(setPlanetFlag(nova.session, kPlanetPics, 1, true));
        nova.dialog.loadPlanet(1);  // no picture file, no pictures held, no section [1]
        QVERIFY(!nova.enabled("chkPicture") && !nova.on("chkPicture"));
        QVERIFY(!nova.enabled("chkMessage"));
        for (const auto& [button, times, label, value] :
             {std::tuple{"spnSizeUp", 5, "lblSize", "5"},
              std::tuple{"spnSizeDown", 9, "lblSize", "1"},
              std::tuple{"spnMoonsDown", 1, "lblMoons", "0"},
              std::tuple{"spnMoonsUp", 30, "lblMoons", "25"}}) {
            nova.click(button, times);
            QCOMPARE(nova.text(label), QString::fromLatin1(value));
        }
        nova.click("cmdOK");
        QCOMPARE(nova.flag(kPlanetPics, 1), 1);  // a disabled box stores nothing

        // The Edit buttons run their windows and take what they leave.
        QVERIFY(!nova.enabled("cmdMsg") && !nova.enabled("cmdPic"));
        QList<std::pair<int, bool>> messageCalls;
        nova.dialog.setMessageEditorOpener([&](int planet, bool custom) {
            messageCalls.append({planet, custom});
            writeKey(nova.session, "1", "Messages", "1");  // the editor made the section
            return true;
        });
        nova.dialog.setPictureEditorOpener([&](int planet) {
            setPlanetPicture(nova.session, planet, pictureOf(QImage(4, 4, QImage::Format_RGB32)));
        });
        nova.dialog.loadPlanet(1);
        nova.click("cmdMsg");
        QCOMPARE(messageCalls, (QList<std::pair<int, bool>>{{1, false}}));
        QVERIFY(nova.enabled("chkMessage") && nova.on("chkMessage"));
        nova.click("cmdPic");  // a picture held for any planet enables the box
        QVERIFY(nova.enabled("chkPicture") && nova.on("chkPicture"));
    }

    // Option clicks are stored at once and stay on Cancel; the rest is stored on OK. Whatever
    // one opening changes is one step.
    void propertiesStoreOptionClicksAtOnceTheRestOnOk() {
        for (const bool ok : {false, true}) {
            Nova nova(true);
            nova.dialog.loadPlanet(2);
            nova.click("gpInh1");  // the core's rule: plants have no attitude, no technology
            QVERIFY(nova.on("gpAtt0") && nova.on("gpAdv0"));
            nova.click("gpEnr3");
            nova.click("spnSizeUp", 2);
            nova.click("spnMoonsUp");
            control<QComboBox>(nova.dialog, "cboAlienName")->setCurrentIndex(2);
            nova.click("chkPicture");
            nova.click("chkMessage");
            nova.click(ok ? "cmdOK" : "cmdCancel");
            const PlanetRecord& planet = nova.session.record().planet(2);
            QCOMPARE(PlanetAttributes::unpack(planet.Attributes),
                     (PlanetAttributes{1, 0, 0, 3, ok ? 2 : 1}));
            QCOMPARE(int(planet.Size), ok ? 4 : 2);
            QCOMPARE(int(planet.Moons), ok ? 5 : 4);
            QCOMPARE(nova.flag(kPlanetPics, 2), ok ? 1 : 0);
            QCOMPARE(nova.flag(kMessagesFlag, 2), ok ? 1 : 0);
            QCOMPARE(nova.session.history().size(), std::size_t(1));
        }
    }
};

QTEST_MAIN(EditorDialogsTest)
#include "EditorDialogsTest.moc"
