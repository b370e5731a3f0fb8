#pragma once
// The message editor's option frames seen as one message line: "Options" (wait and percent on
// inverted scroll bars with their labels, the answer group), "Display" (the display choice and
// caption) and "Actions" (the attached codes, SpecialCodesPanel). Shows a decoded line in them
// and reads them back as a line; the text box is the window's.
//
// Control arrays: optDisplay[0..2] are "optDisplay0".."optDisplay2" (Standard, Box, Custom).

#include <QString>
#include <QWidget>
#include <array>
#include <string>
#include <vector>

#include "messages/MessageKeys.h"
#include "messages/MessageLine.h"
#include "messages/SpecialCodesPanel.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QScrollBar;

namespace orr::ui {

class MessageLineForm : public QWidget {
    Q_OBJECT
  public:
    explicit MessageLineForm(QWidget* parent = nullptr);

    // The line's options, answer group and codes in the controls.
    void showLine(const MessageLine& line);
    // The controls as they stand after reading an empty line: wait 0, always used, standard
    // display, no answer group, no codes.
    void reset();
    // The line the controls describe, with `text` as its text. An empty answer group box means
    // the line's own group.
    MessageLine read(const std::string& text) const;
    // What the designer typed into the form (a custom caption, the answer group), for the check
    // that the game can store it.
    QString typed() const;
    QString answerGroup() const;  // the answer group box's text, trimmed

    // The groups the answer group box offers; its text stays.
    void setAnswerGroups(const std::vector<std::string>& groups);
    // The option frames take part only while a message or response is being edited.
    void setOptionsEnabled(bool enabled);

    // Passed on to the "Actions" frame.
    void setCodes(const SpecialCodeList& codes);
    void setDirection(Direction direction);
    void setChoosers(SpecialCodesPanel::Choosers choosers);

  signals:
    // The designer changed an option, the answer group or the codes.
    void changed();

  private:
    QWidget* buildOptions();
    QWidget* buildDisplay();
    int wait() const;
    int percent() const;
    void setWait(int seconds);
    void setPercent(int tenths);
    DisplayMode display() const;
    void setDisplay(DisplayMode mode);
    void displayChosen(DisplayMode mode);
    void edited();

    QGroupBox* fraOptions;
    QLabel* lblWaitFor;
    QLabel* lblWait;
    QScrollBar* vsbWait;
    QLabel* lblIncluded;
    QLabel* lblPercent;
    QScrollBar* vsbPercent;
    QLabel* lblAnswer;
    QComboBox* cboAnswerGroup;
    QGroupBox* fraDisplay;
    std::array<QRadioButton*, 3> optDisplay{};
    QLineEdit* txtDisplay;
    SpecialCodesPanel* fraActions;

    QString customTitle_;   // the last caption typed or read, offered again when "Custom" is chosen
    bool loading_ = false;  // the controls are being filled, not used
};

}  // namespace orr::ui
