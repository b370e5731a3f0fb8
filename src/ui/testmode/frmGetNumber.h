#pragma once
// The number dialog: one number within a range, chosen with a vertical scroll bar (its top is
// the largest number) or typed into a text box, the two kept in step. The Energy command asks
// with it how many days to stay.

#include <QDialog>
#include <optional>

#include "testmode/NumberEntry.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;

namespace orr::ui {

class frmGetNumber : public QDialog {
    Q_OBJECT
  public:
    explicit frmGetNumber(QWidget* parent = nullptr);

    // Shows the question modally; returns the number chosen, or request.min - 1 on Cancel or
    // the close box.
    float GetNumber(const NumberRequest& request);
    // The first part of GetNumber: the question shown, without running the dialog.
    void prepare(const NumberRequest& request);
    float result() const;

  private:
    void scrolled(int position);
    void typed(const QString& text);
    void showNumber();

    std::optional<NumberEntry> entry_;
    QLabel* lblMessage;
    QLineEdit* txtNumber;
    QScrollBar* vsbNumber;
    QLabel* lblNumber;
    QLabel* lblUnit;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
};

}  // namespace orr::ui
