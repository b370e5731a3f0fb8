#pragma once
// Builds the main window's menu bar and its two context menus, naming every menu and entry so
// that the rest of the program (and the tests) can find them.

namespace orr::ui {

class frmSSEdit;

class MainMenuBuilder {
  public:
    static void build(frmSSEdit& window);

  private:
    static void buildSystemMenu(frmSSEdit& window);
    static void buildPlanetMenu(frmSSEdit& window);
    static void buildHelpMenu(frmSSEdit& window);
    static void buildPlanetPopup(frmSSEdit& window);
    static void buildStarPopup(frmSSEdit& window);
};

}  // namespace orr::ui
