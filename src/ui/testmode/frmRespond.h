#pragma once
// "Choose a Message": the responses the console offers after a planet message. Each offered
// response is an option (Response1, Response2, ... in the order offered; Response0 is the hidden
// template); the digit keys 1..9 pick the options in that order. Sending returns the chosen
// response's own number in the console's list, so the response carried out is always the one
// whose text was picked, whichever earlier responses were not offered.

#include <QDialog>
#include <vector>

#include "testmode/TestEvents.h"

class QRadioButton;
class QPushButton;
class QVBoxLayout;

namespace orr::ui {

class frmRespond : public QDialog {
    Q_OBJECT
  public:
    explicit frmRespond(QWidget* parent = nullptr);

    // Offers the responses, runs the dialog modally and returns the number of the response sent,
    // or 0 when nothing was sent (Close, the close box, or Send with no option chosen).
    int choose(const std::vector<OfferedResponse>& offered);
    // The first part of choose: the options made, none chosen, the focus on Send.
    void offer(const std::vector<OfferedResponse>& offered);
    int chosen() const { return chosen_; }
    QList<QRadioButton*> options() const;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void send();
    void removeOptions();

    std::vector<OfferedResponse> offered_;
    std::vector<QRadioButton*> responses_;
    int chosen_ = 0;
    QRadioButton* Response0;
    QVBoxLayout* optionsLayout_;
    QPushButton* cmdSend;
    QPushButton* cmdClose;
};

}  // namespace orr::ui
