#pragma once
// "Adventure Grid Wizard": a step dialog of three steps (the grid's size, the actions of every
// area, Finish). It knows only its steps: its owner validates a step before the next one is shown
// and does the work on "&Finish" (see AdventureWizard.h). "&Cancel" and the close box ask
// "Exit Wizard" first. Controls: fraStep0..2 (each with lblStep and its picture imgStep0..2),
// SizeX and SizeY (spin boxes: the box and its up-down arrows in one), chkAct0..chkAct6,
// cmdAdvanced, cmdBack, cmdNext, cmdCancel.

#include <QDialog>
#include <QString>
#include <array>
#include <functional>

#include "rooms/GridWizard.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QStackedWidget;

namespace orr::ui {

class frmWizard;

// What the wizard asks of its owner: whether the shown step may be left forwards, and the work
// on the last step (false keeps the wizard open, the owner having said why).
struct WizardOwner {
    std::function<bool(frmWizard&)> Validate;
    std::function<bool(frmWizard&)> Finish;
};

class frmWizard : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaption = QStringLiteral("Adventure Grid Wizard");
    static inline const QString kExitQuestion =
        QStringLiteral("Are you sure you want to exit the wizard?");
    static constexpr int kSteps = 3;

    explicit frmWizard(QWidget* parent = nullptr);

    // Shows the wizard modally for `owner`; true when it ended with Finish.
    bool Go(const WizardOwner& owner);
    // An advanced dialog: "&Advanced" on the actions step shows it.
    void SetAdvanced(QDialog* dialog);
    void SetStep(int n);
    int step() const { return step_; }

    // The sizes as typed and the actions ticked.
    GridWizardChoices choices() const;
    QSpinBox* sizeBox(int axis) const { return axis == 0 ? SizeX : SizeY; }

  public slots:
    void reject() override;

  private:
    QGroupBox* buildStep(int n, const QString& caption, const QString& text, QWidget* content);
    void backClicked();
    void nextClicked();

    WizardOwner owner_;
    QDialog* advanced_ = nullptr;
    int step_ = 0;
    bool finished_ = false;

    QStackedWidget* steps_;
    std::array<QGroupBox*, kSteps> fraStep{};
    QSpinBox* SizeX;
    QSpinBox* SizeY;
    std::array<QCheckBox*, kStandardActionCount> chkAct{};
    QPushButton* cmdAdvanced;
    QPushButton* cmdBack;
    QPushButton* cmdNext;
    QPushButton* cmdCancel;
};

}  // namespace orr::ui
