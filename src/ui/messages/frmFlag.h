#pragma once
// "Choose a Flag": picks one of the planet's 36 flags and lets the designer describe it. A flag
// can be chosen only with a description, which is written to the planet's "Flag" + character
// key on "OK". The close box returns the flag the chooser was opened with.

#include <QDialog>
#include <QString>

#include "session/EditSession.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace orr::ui {

class frmFlag : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaption = QStringLiteral("Choose a Flag");

    explicit frmFlag(EditSession& session, QWidget* parent = nullptr);

    // The planet whose flags are listed and described (1..10).
    void setPlanet(int planet) { planet_ = planet; }
    int planet() const { return planet_; }
    // The chosen flag's index 0..35 ("A".."Z", "0".."9"); the caller's value until "OK".
    void setChosenIndex(int index);
    int chosenIndex() const { return chosen_; }
    QString chosenFlag() const;

    // Fills cboFlag with the planet's flags and selects the chosen one.
    void LoadFlags();
    // Everything GetFlagChar does before showing the dialog: opens on `current` (empty: "A").
    void prepare(const QString& current);
    // Shows the chooser modally on `current` and returns the flag chosen.
    QString GetFlagChar(const QString& current);

    // Controls.
    QLabel* lblAvail;
    QComboBox* cboFlag;
    QLabel* Label1;
    QLineEdit* txtDesc;
    QPushButton* cmdOK;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void flagChosen(int index);
    void cmdOK_Click();

    EditSession& session_;
    int planet_ = 1;
    int chosen_ = 0;
};

}  // namespace orr::ui
