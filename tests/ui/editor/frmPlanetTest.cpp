// "Planet Properties": what it shows for a planet, the option rules that apply at once, and
// what OK and Cancel write.

#include <QtTest>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include "editor/frmPlanet.h"
#include "pictures/PictureStrip.h"
#include "platform/ScriptedPrompts.h"
#include "support/TempGameFolder.h"

using namespace orr;
using namespace orr::ui;
using orr::test::TempGameFolder;

namespace {

// "Nova" with three planets: 1 plain, 2 inhabited by animals (alien 1, four moons, a message
// section), 3 an asteroid belt.
struct Nova {
    TempGameFolder game;
    SystemStore store;

    explicit Nova(bool withSection = true, bool withStripFile = false) {
        game.writeAliens({"Klingar", "Vossk"});
        SystemRecord record = TempGameFolder::systemRecord("Nova", 3);
        record.planet(2).Attributes = PlanetAttributes{2, 3, 2, 1, 1}.pack();
        record.planet(2).Moons = 4;
        record.planet(3).Size = 0;
        record.planet(3).PlanetClass = 0;
        game.writeDescriptor(record, withSection ? "[2]\r\nMessages=1\r\n" : "");
        if (withStripFile) game.write("PICTURES/Nova.jpg", "not read here");
        ok = game.open(store, "Nova");
    }
    bool ok = false;

    PlanetAttributes attributes(int n) {
        return PlanetAttributes::unpack(store.record().planet(n).Attributes);
    }
};

void click(QWidget* dialog, const char* name, int times = 1) {
    auto* button = dialog->findChild<QAbstractButton*>(name);
    QVERIFY2(button, name);
    for (int i = 0; i < times; ++i) button->click();
}

bool checked(QWidget* dialog, const char* name) {
    return dialog->findChild<QAbstractButton*>(name)->isChecked();
}

}  // namespace

class frmPlanetTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void showsThePlanetsValues() {
        Nova nova;
        QVERIFY(nova.ok);
        frmPlanet dialog(nova.store, nullptr);
        dialog.loadPlanet(2);
        auto* aliens = dialog.findChild<QComboBox*>("cboAlienName");
        QCOMPARE(aliens->itemText(2), QStringLiteral("Vossk"));
        QCOMPARE(aliens->currentIndex(), 1);
        for (const char* option : {"gpInh2", "gpAtt3", "gpAdv2", "gpEnr1"})
            QVERIFY(checked(&dialog, option));
        QCOMPARE(dialog.findChild<QLabel*>("lblMoons")->text(), QStringLiteral("4"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Planet Properties - Nova II"));

        dialog.loadPlanet(3);  // an asteroid belt has no size or moons to change
        QCOMPARE(dialog.lblSize->text(), QStringLiteral("0"));
        QVERIFY(!dialog.findChild<QWidget*>("spnSize")->isEnabled());
        QVERIFY(!dialog.findChild<QWidget*>("spnMoons")->isEnabled());
    }

    void optionClicksAreStoredAtOnceAndCancelKeepsOnlyThem() {
        Nova nova(true, true);
        frmPlanet dialog(nova.store, nullptr);
        dialog.loadPlanet(2);
        QVERIFY(dialog.chkMessage->isEnabled());
        QVERIFY(dialog.chkPicture->isEnabled());
        QVERIFY(!dialog.chkMessage->isChecked());

        // Option clicks are normalised and stored at once.
        click(&dialog, "gpInh1");  // plants: neither
        QCOMPARE(nova.attributes(2), (PlanetAttributes{1, 0, 0, 1, 1}));
        QVERIFY(checked(&dialog, "gpAdv0"));
        click(&dialog, "gpAtt2");  // refused while there is no animal life
        QVERIFY(checked(&dialog, "gpAtt0"));
        click(&dialog, "gpEnr3");
        QCOMPARE(nova.attributes(2), (PlanetAttributes{1, 0, 0, 3, 1}));

        click(&dialog, "spnSizeUp");
        click(&dialog, "spnMoonsDown");
        dialog.cboAlienName->setCurrentIndex(2);
        dialog.chkMessage->click();
        dialog.chkPicture->click();
        QVERIFY(dialog.finish(false));

        const PlanetRecord& planet = nova.store.record().planet(2);
        QCOMPARE(nova.attributes(2), (PlanetAttributes{1, 0, 0, 3, 1}));
        QCOMPARE(planet.Size, 2);
        QCOMPARE(planet.Moons, 4);
        QCOMPARE(nova.store.GetGeneralFlag(kMessagesFlag, 2), 0);
        QCOMPARE(nova.store.GetGeneralFlag(kPlanetPics, 2), 0);
        QVERIFY(dialog.tag().isEmpty());
    }

    void okWritesEverythingBack() {
        Nova nova(true, true);
        ScriptedPrompts prompts;
        frmPlanet dialog(nova.store, nullptr);
        QTimer::singleShot(0, &dialog, [&dialog] {
            click(&dialog, "spnSizeUp", 2);
            click(&dialog, "spnMoonsUp");
            dialog.cboAlienName->setCurrentIndex(2);
            dialog.chkPicture->click();
            dialog.chkMessage->click();
            dialog.cmdOK->click();
        });
        QVERIFY(dialog.ShowPlanetProperties(2));
        QCOMPARE(dialog.tag(), QStringLiteral("OK"));

        const PlanetRecord& planet = nova.store.record().planet(2);
        QCOMPARE(planet.Size, 4);
        QCOMPARE(planet.Moons, 5);
        QCOMPARE(nova.attributes(2), (PlanetAttributes{2, 3, 2, 1, 2}));
        QCOMPARE(nova.store.GetGeneralFlag(kPlanetPics, 2), 1);
        QCOMPARE(nova.store.GetGeneralFlag(kMessagesFlag, 2), 1);
        QCOMPARE(nova.store.GetGeneralFlag(kPlanetPics, 1), 0);
        QCOMPARE(prompts.unexpectedCount(), 0);
    }

    void flagBoxesNeedPicturesAndASectionAndSpinnersStayInRange() {
        Nova nova;
        QVERIFY(nova.store.SetGeneralFlag(kPlanetPics, 1, 3, true));
        frmPlanet bare(nova.store, nullptr);
        bare.loadPlanet(1);  // no picture file, no pictures held, no section [1]
        QVERIFY(!bare.chkPicture->isEnabled());
        QVERIFY(!bare.chkPicture->isChecked());
        QVERIFY(!bare.chkMessage->isEnabled());
        QVERIFY(bare.finish(true));
        QCOMPARE(nova.store.GetGeneralFlag(kPlanetPics, 1), 1);  // a disabled box writes nothing

        // The spinners stay within their ranges; the close box is Cancel.
        click(&bare, "spnSizeUp", 5);
        QCOMPARE(bare.lblSize->text(), QStringLiteral("5"));
        click(&bare, "spnSizeDown", 9);
        QCOMPARE(bare.lblSize->text(), QStringLiteral("1"));
        click(&bare, "spnMoonsDown");
        QCOMPARE(bare.lblMoons->text(), QStringLiteral("0"));
        click(&bare, "spnMoonsUp", 30);
        QCOMPARE(bare.lblMoons->text(), QStringLiteral("25"));
        bare.show();
        bare.cmdOK->click();
        QCOMPARE(bare.tag(), QStringLiteral("OK"));
        bare.show();
        bare.close();
        QVERIFY(bare.tag().isEmpty());

        PictureStrip strip;
        strip.SetupPics(3);
        strip.setPicture(3, QImage(4, 4, QImage::Format_RGB32));
        frmPlanet withPictures(nova.store, &strip);
        withPictures.loadPlanet(1);
        QVERIFY(withPictures.chkPicture->isEnabled());
        QVERIFY(withPictures.chkPicture->isChecked());
    }

    void editButtonsRunTheOpenersAndTakeTheirResult() {
        Nova nova;
        PictureStrip strip;
        strip.SetupPics(3);
        frmPlanet dialog(nova.store, &strip);
        QVERIFY(!dialog.cmdMsg->isEnabled());
        QVERIFY(!dialog.cmdPic->isEnabled());

        QList<std::pair<int, bool>> messageCalls;
        dialog.setMessageEditorOpener([&](int planet, bool custom) {
            messageCalls.append({planet, custom});
            nova.store.WriteKey("1", "Messages", "1");  // the editor made the section
            return true;
        });
        int picturePlanet = 0;
        dialog.setPictureEditorOpener([&](int planet) {
            picturePlanet = planet;
            strip.setPicture(planet, QImage(4, 4, QImage::Format_RGB32));
            nova.store.SetGeneralFlag(kPlanetPics, planet, 3, true);
        });
        QVERIFY(dialog.cmdMsg->isEnabled());
        QVERIFY(dialog.cmdPic->isEnabled());

        dialog.loadPlanet(1);
        QVERIFY(!dialog.chkMessage->isEnabled());
        dialog.cmdMsg->click();
        QCOMPARE(messageCalls, (QList<std::pair<int, bool>>{{1, false}}));
        QVERIFY(dialog.chkMessage->isEnabled());
        QVERIFY(dialog.chkMessage->isChecked());

        QVERIFY(!dialog.chkPicture->isEnabled());
        dialog.cmdPic->click();
        QCOMPARE(picturePlanet, 1);
        QVERIFY(dialog.chkPicture->isEnabled());
        QVERIFY(dialog.chkPicture->isChecked());
    }
};

QTEST_MAIN(frmPlanetTest)
#include "frmPlanetTest.moc"
