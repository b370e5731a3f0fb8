#pragma once
// "Add System": chooses a system of the game's own list to replace, or a name for a new custom
// system. The answer is the chosen key or typed name, or nothing when the user cancelled.
//
//     frmNewSS dialog(folder, this);
//     runDialog(dialog);
//     if (const auto answer = dialog.answer())
//         createSystem(folder, answer->name, answer->kind, &error);

#include <QDialog>
#include <QString>
#include <string>

#include <optional>

#include "session/SystemFiles.h"
#include "store/GameFolder.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace orr::ui {

class frmNewSS : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaption = QStringLiteral("Add System");
    static inline const QString kNoNameMessage =
        QStringLiteral("Please enter a name for the new system.");

    explicit frmNewSS(GameFolder folder, QWidget* parent = nullptr);

    void setGameFolder(GameFolder folder) { folder_ = std::move(folder); }

    // Offers the game's systems that have no descriptor yet, in the list's order. Runs each
    // time the dialog is shown; when nothing can be offered only a custom system can be added.
    void refresh();

    // The system to add: its name as the game folder's bytes (a list entry exactly as the
    // game's list has it), and whether it was typed under "Custom" (such a system is custom
    // even when its name equals a key of the game's list). Nothing when cancelled.
    struct Answer {
        std::string name;
        NewSystemAnswer kind = NewSystemAnswer::ListedKey;
    };
    const std::optional<Answer>& answer() const { return answer_; }

    // Controls.
    QLabel* lblSystems;
    QComboBox* cboSystems;
    QCheckBox* chkCustom;
    QLabel* lblName;
    QLineEdit* txtName;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

  public slots:
    void reject() override;  // the close box and Escape are Cancel

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void chkCustom_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void applyCustomState(bool moveFocus);
    // Why the typed name cannot become a new system, or empty when it can.
    QString refusalFor(const QString& name) const;

    GameFolder folder_;
    std::optional<Answer> answer_;
};

}  // namespace orr::ui
