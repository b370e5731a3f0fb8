#pragma once
// "Choose a System": picks one of the nine ship systems for a code's "S" + digit argument.
// The option buttons optSys[0..8] have the object names "optSys0".."optSys8", in index order.
// "OK" returns the index chosen; the close box returns the index the chooser was opened with.

#include <QDialog>
#include <QString>
#include <array>

class QGroupBox;
class QPushButton;
class QRadioButton;

namespace orr::ui {

class frmSystem : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaption = QStringLiteral("Choose a System");
    static inline const QString kFrameCaption = QStringLiteral("Available Systems");

    explicit frmSystem(QWidget* parent = nullptr);

    // Shows the chooser modally on `index` (0..8) and returns the index chosen.
    int choose(int index);
    // The parts of choose, for a caller that runs the dialog its own way.
    void prepare(int index);
    int chosenIndex() const { return chosen_; }

    // Controls.
    QGroupBox* fraSystems;
    std::array<QRadioButton*, 9> optSys{};
    QPushButton* cmdOK;

  private:
    void cmdOK_Click();

    int chosen_ = 0;
};

}  // namespace orr::ui
