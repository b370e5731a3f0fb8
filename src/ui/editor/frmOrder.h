#pragma once
// "Reorder Planets": moves planets up and down the orbit order. Each move exchanges the two
// planets at once in the working copy (names, flags, sections) and in the pictures; the orbits
// stay where they are, so a moved planet takes its neighbour's orbit.

#include <QDialog>
#include <QString>

#include "store/SystemStore.h"

class QListWidget;
class QPushButton;

namespace orr::ui {

class PictureStrip;

class frmOrder : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaption = QStringLiteral("Reorder Planets");

    // `pictures` may be null (no pictures held in memory).
    frmOrder(SystemStore& store, PictureStrip* pictures, QWidget* parent = nullptr);

    // Set Order: fills the list, shows the dialog modally, then saves the system block.
    // Returns whether the block could be saved (the user was told otherwise).
    bool ShowSetOrder();

    // Lists the planets in order: a planet without a name of its own as "Planet " + number.
    void fillPlanets();
    // What closing does after the dialog is hidden: the block save.
    bool finish();

    // Controls.
    QListWidget* lstPlanets;
    QPushButton* cmdUp;
    QPushButton* cmdDown;
    QPushButton* cmdClose;

  private:
    void cmdUp_Click();
    void cmdDown_Click();
    // Exchanges list entries `from` and `to` (0-based) and their planets; selects `to`.
    void moveEntry(int from, int to);
    bool report(bool ok);

    SystemStore& store_;
    PictureStrip* pictures_;
};

}  // namespace orr::ui
