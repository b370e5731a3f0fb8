#pragma once
// The main window's planet and star commands: the planet menu, the planet's context menu on the
// canvas and the star's context menu. Each change goes into the working copy at once.

#include <QPoint>
#include <optional>
#include <string>

#include "platform/Prompts.h"
#include "store/SystemOperations.h"

namespace orr::ui {

class frmSSEdit;

class PlanetCommands {
  public:
    // What the planet's context menu chose that runs only after the menu has closed.
    enum class Chosen { None, Properties, Pictures, Messages };

    explicit PlanetCommands(frmSSEdit& window);

    // Planet menu.
    void addPlanet();
    void setOrder();
    void toggleAsteroids();

    // The planet's context menu for `planet` at a screen position.
    void runPlanetMenu(int planet, const QPoint& globalPos);
    void choose(Chosen command) { chosen_ = command; }
    void insertPlanet();
    void deleteHighlighted();
    void renameHighlighted();
    void setHighlightedClass(int planetClass);
    void showProperties(int planet);

    // The star's context menu.
    void runStarMenu(const QPoint& globalPos);
    void setStarType(int starType);
    void describeStar();

    // The drag of an orbit begins: the system counts as modified from now on.
    void orbitDragStarted();

  private:
    int highlighted() const;
    // Asks for a name until it is empty (nullopt: no change) or the game can store it.
    std::optional<std::string> askStorableName(InputPrompt ask);
    void afterPlanetCountChange();
    void showAddResult(AddPlanetResult result);

    frmSSEdit& w_;
    Chosen chosen_ = Chosen::None;
};

}  // namespace orr::ui
