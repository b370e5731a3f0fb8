#include "editor/PlanetCommands.h"

#include "editor/frmOrder.h"
#include "editor/frmPlanet.h"
#include "platform/Modal.h"
#include "platform/QtText.h"
#include "session/SystemEdits.h"
#include "store/Tables.h"

namespace orr::ui {
namespace {

const QString kCaption = QStringLiteral("Orrerion");
const QString kDefaultHint =
    QStringLiteral(".  Enter \"default\" or \"none\" to use the default name.");

}  // namespace

PlanetCommands::PlanetCommands(QWidget& window, EditSession& session)
    : window_(window), session_(session) {}

void PlanetCommands::showAddResult(AddPlanetResult result) {
    if (result == AddPlanetResult::Full)
        prompts().inform(&window_, QString::fromLatin1(kMaxPlanetsMessage));
    else
        report(&window_, result == AddPlanetResult::Added, session_.lastError());
}

void PlanetCommands::addPlanet() {
    if (session_.isOpen()) showAddResult(orr::addPlanet(session_));
}

void PlanetCommands::insertPlanet(int planet) {
    if (planet >= 1) showAddResult(orr::insertPlanet(session_, planet));
}

void PlanetCommands::deletePlanet(int planet) {
    if (planet >= 1) report(&window_, orr::deletePlanet(session_, planet), session_.lastError());
}

std::optional<std::string> PlanetCommands::askStorableName(InputPrompt ask) {
    for (;;) {
        const std::optional<QString> answer = prompts().input(&window_, ask);
        if (!answer || answer->isEmpty()) return std::nullopt;
        if (std::optional<std::string> bytes = toStorableBytes(*answer)) return bytes;
        // The game would show '?' for what it cannot store: ask again with the text as typed.
        prompts().inform(&window_, unstorableMessage(unstorableCharacters(*answer)));
        ask.defaultText = *answer;
    }
}

void PlanetCommands::renamePlanet(int planet) {
    if (planet < 1) return;
    InputPrompt ask;
    ask.text = QStringLiteral("Please enter the name for ") +
               toQString(session_.record().trimmedDisplayName()) + QStringLiteral(" ") +
               toQString(Tables::RomanNumerals[static_cast<std::size_t>(planet)]) + kDefaultHint;
    ask.caption = kCaption;
    ask.defaultText = toQString(planetName(session_.store(), planet));
    if (const std::optional<std::string> answer = askStorableName(ask))
        report(&window_, setPlanetName(session_, planet, *answer), session_.lastError());
}

void PlanetCommands::setPlanetClass(int planet, int planetClass) {
    if (planet >= 1)
        report(&window_, orr::setPlanetClass(session_, planet, planetClass), session_.lastError());
}

void PlanetCommands::showProperties(int planet) {
    if (planet < 1 || planet > session_.record().PlanetCount) return;
    frmPlanet dialog(session_, &window_);
    if (messageEditor_) dialog.setMessageEditorOpener(messageEditor_);
    if (pictureEditor_) dialog.setPictureEditorOpener(pictureEditor_);
    dialog.ShowPlanetProperties(planet);
}

void PlanetCommands::editMessages(int planet) {
    if (!messageEditor_ || planet < 1) return;
    messageEditor_(planet, session_.store().GetGeneralFlag(kMessagesFlag, planet) == 1);
}

void PlanetCommands::setOrder() {
    if (session_.record().PlanetCount < 2) return;
    frmOrder dialog(session_, &window_);
    dialog.ShowSetOrder();
}

void PlanetCommands::setStarType(int starType) {
    if (session_.isOpen())
        report(&window_, orr::setStarType(session_, starType), session_.lastError());
}

void PlanetCommands::describeStar() {
    if (!session_.isOpen()) return;
    InputPrompt ask;
    ask.text = QStringLiteral("Please enter the description for ") +
               toQString(session_.record().trimmedDisplayName()) + kDefaultHint;
    ask.caption = kCaption;
    ask.defaultText = toQString(planetName(session_.store(), 0));
    if (const std::optional<std::string> answer = askStorableName(ask))
        report(&window_, setPlanetName(session_, 0, *answer), session_.lastError());
}

}  // namespace orr::ui
