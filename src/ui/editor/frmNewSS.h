#pragma once
// "Add System": chooses a system of the game's own list to replace, or a name for a new custom
// system. The answer is left in tag(): the chosen key or typed name, or empty when the user
// cancelled.
//
//     frmNewSS dialog(store.folder(), this);
//     dialog.exec();
//     if (!dialog.tag().isEmpty())
//         createSystem(store, dialog.tagBytes(), dialog.customChosen()
//                                                    ? NewSystemAnswer::CustomName
//                                                    : NewSystemAnswer::ListedKey);

#include <QDialog>
#include <QString>
#include <string>

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

    QString tag() const { return tag_; }
    // The answer as the game folder's bytes: the list entry exactly as the game's list has it.
    std::string tagBytes() const { return tagBytes_; }
    // Whether the answer is a name typed under "Custom": such a system is custom even when its
    // name equals a key of the game's list.
    bool customChosen() const { return customChosen_; }

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
    QString tag_;
    std::string tagBytes_;
    bool customChosen_ = false;
};

}  // namespace orr::ui
