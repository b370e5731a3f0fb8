// Access keys: in every window of the program, no two controls or menu titles shown at the same
// time share a key (the letter after "&", in any case), and no two entries of one menu do;
// otherwise Alt and that letter would not say which one is meant.

#include <QtTest>

#include "editor/frmAbout.h"
#include "editor/frmNewSS.h"
#include "editor/frmOrder.h"
#include "editor/frmPlanet.h"
#include "messages/frmFlag.h"
#include "messages/frmMessages.h"
#include "messages/frmSystem.h"
#include "pictures/frmPictures.h"
#include "rooms/frmAdvancedRoom.h"
#include "rooms/frmEditRoom.h"
#include "rooms/frmLock.h"
#include "rooms/frmWizard.h"
#include "session/RoomEdits.h"
#include "support/MainWindowHarness.h"
#include "testmode/PlanetUnderTest.h"
#include "testmode/TestLauncher.h"
#include "testmode/TestShip.h"
#include "testmode/frmGetNumber.h"
#include "testmode/frmRespond.h"
#include "testmode/frmSSControl.h"
#include "testmode/frmSSOptions.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;

namespace {

// "where: Alt+K in 'first', 'second'" for every access key that two of the captions share.
QStringList clashes(const QString& where, const QStringList& captions) {
    QMap<QString, QStringList> byKey;
    for (const QString& caption : captions)
        if (const QKeySequence key = QKeySequence::mnemonic(caption); !key.isEmpty())
            byKey[key.toString()] << caption;
    QStringList found;
    for (auto it = byKey.cbegin(); it != byKey.cend(); ++it)
        if (it->size() > 1)
            found << where + QStringLiteral(": ") + it.key() + QStringLiteral(" in '") +
                         it->join(QStringLiteral("', '")) + QLatin1Char('\'');
    return found;
}

// The window's controls and menu titles shown now, then each of its menus on its own.
QStringList clashesIn(const QString& where, QWidget& window) {
    QStringList shown;
    for (QWidget* w : window.findChildren<QWidget*>()) {
        if (w->window() != &window || !w->isVisibleTo(&window)) continue;
        if (auto* button = qobject_cast<QAbstractButton*>(w))
            shown << button->text();
        else if (auto* group = qobject_cast<QGroupBox*>(w))
            shown << group->title();
        else if (auto* label = qobject_cast<QLabel*>(w); label && label->buddy())
            shown << label->text();
        else if (auto* bar = qobject_cast<QMenuBar*>(w))
            for (QAction* title : bar->actions())
                if (title->isVisible()) shown << title->text();
    }
    QStringList found = clashes(where, shown);
    for (QMenu* menu : window.findChildren<QMenu*>()) {
        QStringList entries;
        for (QAction* entry : menu->actions())
            if (entry->isVisible() && !entry->isSeparator()) entries << entry->text();
        found << clashes(where + QLatin1Char(' ') + menu->objectName(), entries);
    }
    return found;
}

}  // namespace

class AccessKeysTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void noWindowHasTwoControlsOrEntriesWithOneKey() {
        MainWindowHarness h;
        std::filesystem::copy_file(
            std::filesystem::path(ORRERION_SOURCE_DIR) / "data" / "SPECIAL.LST",
            h.game.path("SPECIAL.LST"));
        QVERIFY(h.open(MainWindowHarness::spacedSystem("Nova", 3)));

        frmNewSS add(h.session().folder());
        frmPlanet planet(h.session());
        planet.loadPlanet(1);
        frmOrder order(h.session());
        frmAbout about;
        frmFlag flag(h.session());
        frmSystem system;
        frmMessages messages(h.session());
        messages.prepareForPlanet(1, QStringLiteral("Nova I"), false);
        const FlagChooser noFlag = [](QWidget*, const QString&) { return QStringLiteral("A"); };
        QVERIFY(finishGridWizard(h.session(), 1, {2, 2}));
        frmEditRoom room(h.session(), noFlag);
        room.setPlanet(1);
        QVERIFY(room.LoadRoom(QStringLiteral("Area11")));
        room.findChild<QPushButton*>(QStringLiteral("cmdAdd"))->click();  // the Action frame
        frmLock lock;
        frmAdvancedRoom advanced(h.session(), 1, noFlag);
        frmWizard wizard;
        wizard.SetAdvanced(&advanced);
        frmPictures pictures(h.session());
        pictures.showPlanet(1);
        std::unique_ptr<frmSSOptions> options(makeTestOptions(nullptr, h.session(), 1));
        TestPlanet tested = PlanetUnderTest(h.session().store(), 1);
        frmSSControl console(testShip(), tested, testRandom());
        for (const char* extra : {"chkShipState", "chkTranscript"})
            console.findChild<QCheckBox*>(QString::fromLatin1(extra))->setChecked(true);
        frmRespond respond;
        respond.offer({{1, "Yes"}, {2, "No"}});
        frmGetNumber number;

        QStringList found =
            clashesIn("frmSSEdit", h.window()) + clashesIn("frmNewSS", add) +
            clashesIn("frmPlanet", planet) + clashesIn("frmOrder", order) +
            clashesIn("frmAbout", about) + clashesIn("frmFlag", flag) +
            clashesIn("frmSystem", system) + clashesIn("frmMessages browsing", messages) +
            clashesIn("frmPictures", pictures) + clashesIn("frmEditRoom", room) +
            clashesIn("frmLock", lock) + clashesIn("frmAdvancedRoom", advanced) +
            clashesIn("frmSSOptions", *options) + clashesIn("frmSSControl", console) +
            clashesIn("frmRespond", respond) + clashesIn("frmGetNumber", number);
        for (int step = 0; step < frmWizard::kSteps; ++step) {
            wizard.SetStep(step);
            found << clashesIn(QStringLiteral("frmWizard %1").arg(step), wizard);
        }
        messages.findChild<QPushButton*>(QStringLiteral("cmdNew"))->click();
        found << clashesIn(QStringLiteral("frmMessages editing"), messages);
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QStringLiteral("; "))));
    }
};

QTEST_MAIN(AccessKeysTest)
#include "AccessKeysTest.moc"
