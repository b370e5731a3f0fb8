#pragma once
// The "Actions" frame of the message editor: the special-code list to choose from (cboSpecial),
// the codes attached to the line being edited (lstSpecial) and the commands that attach, edit
// and remove them. The rules (what may be attached, conflicts, placeholders) are the core's;
// this frame shows them and asks the designer for arguments.

#include <QGroupBox>
#include <functional>
#include <string>
#include <vector>

#include "messages/MessageKeys.h"
#include "messages/SpecialCodeList.h"
#include "messages/SpecialEntry.h"

class QComboBox;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace orr::ui {

class SpecialCodesPanel : public QGroupBox {
    Q_OBJECT
  public:
    static inline const QString kCaption = QStringLiteral("Actions");
    static inline const QString kEditCaption = QStringLiteral("Edit Action");
    static inline const QString kEditQuestion = QStringLiteral("Enter new value:");

    explicit SpecialCodesPanel(QWidget* parent = nullptr);

    // The list to offer. Without a list file nothing can be chosen: cboSpecial stays empty and
    // disabled.
    void setCodes(const SpecialCodeList& codes);
    // Responses carry only restriction codes; the "Add" rule follows the direction.
    void setDirection(Direction direction);

    // The ship-system and flag choosers the argument editor opens. chooseSystem gets and returns
    // an index 0..8; chooseFlag gets and returns a flag character (empty: none chosen).
    struct Choosers {
        std::function<int(int index)> chooseSystem;
        std::function<std::string(const std::string& flag)> chooseFlag;
    };
    void setChoosers(Choosers choosers);

    const std::vector<SpecialEntry>& entries() const { return attached_; }
    void setEntries(std::vector<SpecialEntry> entries);

  signals:
    // The attached codes changed (the line's length changes with them).
    void changed();

  private:
    // The commands, as the controls run them.
    void chooseEntry(int index);  // a choice in cboSpecial
    void addChosen();             // cmdSpAdd
    void editSelected();          // cmdSpEdit, double click on lstSpecial
    void deleteSelected();        // cmdSpDelete
    void attachedSelected(int row);

    // Controls.
    QComboBox* cboSpecial;
    QListWidget* lstSpecial;
    QPushButton* cmdSpAdd;
    QPushButton* cmdSpDelete;
    QPushButton* cmdSpEdit;
    QPlainTextEdit* txtExplanation;

    void showAttached(int selectRow);
    void updateAddButton();
    // The longer explanation the list file gives for an entry, below the attached codes.
    void showExplanation(const std::string& explanation);
    // The new argument for `entry` from the matching chooser or the input box; empty when the
    // designer cancelled or gave nothing.
    std::string askArgument(const SpecialEntry& entry);

    SpecialCodeList codes_;
    std::vector<SpecialEntry> attached_;
    Direction direction_ = Direction::Message;
    Choosers choosers_;
    bool settling_ = false;  // while the choice moves off a heading
};

}  // namespace orr::ui
