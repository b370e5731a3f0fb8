#pragma once
// "Advanced Options": for the whole planet, which flag the standard beam-up, search and
// tricorder actions require set or clear. Each row shows its condition ("A", "Not A", nothing);
// "&OK" stores the three in one step ("BeamFlag", "SearchFlag", "TriFlag"; none deletes its
// key); the close box leaves them as they were. Controls: optNeed0..optNeed8 (row r: Set 3r,
// Clear 3r + 1, None 3r + 2), cmdChoose0..2, lblFlag0..2, lblMessageType0..2.

#include <QDialog>
#include <QString>
#include <array>

#include "rooms/FlagChooser.h"
#include "rooms/StandardActions.h"
#include "session/EditSession.h"

class QButtonGroup;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace orr::ui {

class frmAdvancedRoom : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaption = QStringLiteral("Advanced Options");
    static constexpr int kRows = 3;

    frmAdvancedRoom(EditSession& session, int planet, FlagChooser chooseFlag,
                    QWidget* parent = nullptr);

    // Fills the rows from the stored requirements.
    void Load();
    // The requirements the rows show now.
    Requirements shown() const { return {codes_}; }

  private:
    void optionClicked(int row, int option);  // 0 Set, 1 Clear, 2 None
    void chooseClicked(int row);
    void showRow(int row);
    void okClicked();

    EditSession& session_;
    int planet_;
    FlagChooser chooseFlag_;
    std::array<std::string, kRows> codes_;  // each row's code: "", "%F" + c or "%f" + c
    std::array<QChar, kRows> flags_{};      // each row's flag; null while it has none

    QGroupBox* fraReqFlags;
    std::array<QLabel*, kRows> lblMessageType{};
    std::array<QRadioButton*, kRows * 3> optNeed{};
    std::array<QButtonGroup*, kRows> needs_{};
    std::array<QPushButton*, kRows> cmdChoose{};
    std::array<QLabel*, kRows> lblFlag{};
    QPushButton* cmdOK;
};

}  // namespace orr::ui
