#include "editor/PlanetCommands.h"

#include <QAction>
#include <QMenu>

#include "editor/InfoPanel.h"
#include "editor/StarStrip.h"
#include "editor/StarView.h"
#include "editor/SystemCanvas.h"
#include "editor/frmOrder.h"
#include "editor/frmPlanet.h"
#include "editor/frmSSEdit.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "platform/Settings.h"
#include "store/SystemOperations.h"
#include "text/Text.h"

namespace orr::ui {
namespace {

const QString kDefaultHint =
    QStringLiteral(".  Enter \"default\" or \"none\" to use the default name.");

}  // namespace

PlanetCommands::PlanetCommands(frmSSEdit& window) : w_(window) {}

int PlanetCommands::highlighted() const {
    return w_.picSolarSystem->highlightedPlanet();
}

void PlanetCommands::afterPlanetCountChange() {
    w_.DrawSystem(true);
    w_.applyEnablingRules();
}

void PlanetCommands::showAddResult(AddPlanetResult result) {
    if (result == AddPlanetResult::Full)
        prompts().inform(&w_, QString::fromLatin1(kMaxPlanetsMessage));
    else if (result != AddPlanetResult::Added)
        w_.report(false);  // no room for another orbit, or the file could not be written
    afterPlanetCountChange();
}

void PlanetCommands::addPlanet() {
    if (!w_.hasOpenSystem()) return;
    showAddResult(orr::addPlanet(w_.store(), &w_.pictures()));
}

void PlanetCommands::insertPlanet() {
    const int planet = highlighted();
    if (planet < 1) return;
    showAddResult(orr::insertPlanet(w_.store(), planet, &w_.pictures()));
}

void PlanetCommands::deleteHighlighted() {
    const int planet = highlighted();
    if (planet < 1) return;
    w_.report(orr::deletePlanet(w_.store(), planet, &w_.pictures()));
    // The highlighted number now belongs to the next planet, or to none.
    w_.picSolarSystem->setHighlightedPlanet(0);
    afterPlanetCountChange();
}

void PlanetCommands::renameHighlighted() {
    const int planet = highlighted();
    if (planet < 1) return;
    SystemStore& store = w_.store();
    InputPrompt ask;
    ask.text = QStringLiteral("Please enter the name for ") +
               toQString(store.record().trimmedDisplayName()) + QStringLiteral(" ") +
               toQString(Tables::RomanNumerals[static_cast<std::size_t>(planet)]) + kDefaultHint;
    ask.caption = frmSSEdit::kCaption;
    ask.defaultText = toQString(planetName(store, planet));
    const std::optional<std::string> answer = askStorableName(ask);
    if (!answer) return;
    w_.report(setPlanetName(store, planet, *answer));
    w_.DrawSystem(true);
}

std::optional<std::string> PlanetCommands::askStorableName(InputPrompt ask) {
    for (;;) {
        const std::optional<QString> answer = prompts().input(&w_, ask);
        if (!answer || answer->isEmpty()) return std::nullopt;
        if (std::optional<std::string> bytes = toStorableBytes(*answer)) return bytes;
        // The game would show '?' for what it cannot store: ask again with the text as typed.
        prompts().inform(&w_, unstorableMessage(unstorableCharacters(*answer)));
        ask.defaultText = *answer;
    }
}

void PlanetCommands::setHighlightedClass(int planetClass) {
    const int planet = highlighted();
    if (planet < 1) return;
    w_.report(setPlanetClass(w_.store(), planet, planetClass));
    w_.DrawSystem(true);
}

void PlanetCommands::showProperties(int planet) {
    if (planet < 1 || planet > w_.store().record().PlanetCount) return;
    w_.picInfo->hide();
    frmPlanet dialog(w_.store(), &w_.pictures(), &w_);
    if (w_.messageEditorOpener()) dialog.setMessageEditorOpener(w_.messageEditorOpener());
    dialog.loadPlanet(planet);
    w_.runDialog(dialog);
    // The dialog reports its own write failures.
    dialog.finish(dialog.tag() == QStringLiteral("OK"));
    w_.DrawSystem(true);
}

void PlanetCommands::setOrder() {
    if (w_.store().record().PlanetCount < 2) return;
    frmOrder dialog(w_.store(), &w_.pictures(), &w_);
    dialog.fillPlanets();
    w_.runDialog(dialog);
    dialog.finish();  // tells the user itself when the save fails
    w_.picSolarSystem->setHighlightedPlanet(0);
    w_.DrawSystem(true);
}

void PlanetCommands::toggleAsteroids() {
    const bool on = w_.mnuPDetail->isChecked();
    w_.picSolarSystem->setDisplayAsteroids(on);
    Settings::setDisplayAsteroids(on);
    w_.DrawSystem(true);
}

void PlanetCommands::orbitDragStarted() {
    w_.report(w_.store().MarkModified());
}

void PlanetCommands::runPlanetMenu(int planet, const QPoint& globalPos) {
    SystemCanvas* canvas = w_.picSolarSystem;
    const SystemRecord& record = w_.store().record();
    if (planet < 1 || planet > record.PlanetCount) return;
    canvas->setHighlightedPlanet(planet);
    canvas->setHighlightLocked(true);
    w_.DrawSystem();
    w_.mnuInsert->setEnabled(record.PlanetCount < kMaxPlanets);
    const int planetClass = record.planet(planet).PlanetClass;
    for (QAction* entry : w_.mnuPClass) entry->setChecked(entry->data().toInt() == planetClass);
    chosen_ = Chosen::None;

    w_.runPopup(w_.mnuPopup, globalPos);

    // These open windows of their own, so they wait until the menu is gone.
    const Chosen chosen = chosen_;
    chosen_ = Chosen::None;
    if (chosen == Chosen::Properties) {
        showProperties(planet);
    } else if (chosen == Chosen::Messages && w_.messageEditorOpener()) {
        w_.messageEditorOpener()(planet, w_.store().GetGeneralFlag(kMessagesFlag, planet) == 1);
    }
    canvas->setHighlightLocked(false);
    w_.DrawSystem();
}

void PlanetCommands::runStarMenu(const QPoint& globalPos) {
    if (!w_.hasOpenSystem() || !w_.picStar->hasPicture()) return;
    const int starType = w_.store().record().StarType;
    for (QAction* entry : w_.mnuStarType) entry->setChecked(entry->data().toInt() == starType);
    const bool own = w_.starHasOwnPicture();
    w_.mnuType->setEnabled(!own);
    w_.mnuStarPic->setChecked(own);
    w_.runPopup(w_.mnuPopupStar, globalPos);
}

void PlanetCommands::setStarType(int starType) {
    if (!w_.hasOpenSystem()) return;
    w_.report(orr::setStarType(w_.store(), starType));
    w_.picStar->setPicture(w_.clpStars->cell(w_.store().record().StarType), false);
    w_.picSolarSystem->setHighlightedPlanet(0);
    w_.DrawSystem(true);
}

void PlanetCommands::describeStar() {
    if (!w_.hasOpenSystem()) return;
    SystemStore& store = w_.store();
    InputPrompt ask;
    ask.text = QStringLiteral("Please enter the description for ") +
               toQString(store.record().trimmedDisplayName()) + kDefaultHint;
    ask.caption = frmSSEdit::kCaption;
    ask.defaultText = toQString(planetName(store, 0));
    const std::optional<std::string> answer = askStorableName(ask);
    if (!answer) return;
    w_.report(setPlanetName(store, 0, *answer));
    w_.DrawSystem(true);
}

}  // namespace orr::ui
