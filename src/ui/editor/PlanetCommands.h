#pragma once
// The main window's planet and star commands, with their questions: the planet menu, the
// planet's context menu on the canvas and the star's context menu. Each change is a command of
// the edit session; the window redraws when the session reports it.

#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "platform/Prompts.h"
#include "session/PlanetEdits.h"

namespace orr::ui {

class PlanetCommands {
  public:
    // Opens the message editor for a planet with its "Use Custom Messages" box set as given and
    // returns the box's value when the editor closes.
    using MessageEditorOpener = std::function<bool(int planet, bool customMessages)>;

    PlanetCommands(QWidget& window, EditSession& session);
    void setMessageEditorOpener(MessageEditorOpener opener) { messageEditor_ = std::move(opener); }
    // Opens the pictures window at a planet (the properties dialog's picture "Edit").
    void setPictureEditorOpener(std::function<void(int planet)> opener) {
        pictureEditor_ = std::move(opener);
    }
    bool canEditMessages() const { return static_cast<bool>(messageEditor_); }

    void addPlanet();
    void insertPlanet(int planet);
    void deletePlanet(int planet);
    void renamePlanet(int planet);
    void setPlanetClass(int planet, int planetClass);
    void showProperties(int planet);
    void editMessages(int planet);
    void setOrder();
    void setStarType(int starType);
    void describeStar();

  private:
    // Asks until the answer is empty (nullopt: no change) or the game can store it.
    std::optional<std::string> askStorableName(InputPrompt ask);
    void showAddResult(AddPlanetResult result);

    QWidget& window_;
    EditSession& session_;
    MessageEditorOpener messageEditor_;
    std::function<void(int planet)> pictureEditor_;
};

}  // namespace orr::ui
