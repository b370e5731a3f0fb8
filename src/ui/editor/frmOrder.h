#pragma once
// "Reorder Planets": moves planets up and down the orbit order. Each move exchanges the two
// planets at once in the working copy (names, flags, sections) and in the pictures; the orbits
// stay where they are, so a moved planet takes its neighbour's orbit.

#include <QDialog>
#include <QString>

#include "session/EditSession.h"

class QListWidget;
class QPushButton;

namespace orr::ui {

class frmOrder : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaption = QStringLiteral("Reorder Planets");

    frmOrder(EditSession& session, QWidget* parent = nullptr);

    // Set Order: fills the list and shows the dialog modally.
    void ShowSetOrder();

    // Lists the planets in order: a planet without a name of its own as "Planet " + number.
    void fillPlanets();

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

    EditSession& session_;
};

}  // namespace orr::ui
