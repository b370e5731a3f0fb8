#pragma once
// The option controls of the message editor seen as one message line: wait and percent (the
// inverted scroll bars and their labels), the display choice and caption, the answer group and
// the attached codes. Shows a decoded line in them, reads them back as a line, and keeps the
// length indicator (lblLength, lblError) up to date.

#include <QString>
#include <string>

#include "messages/MessageKeys.h"
#include "messages/MessageLine.h"

class QWidget;

namespace orr::ui {

class frmMessages;

class MessageLineForm {
  public:
    explicit MessageLineForm(frmMessages& window);

    // The line's options, answer group and codes in the controls (the text box is the
    // session's business).
    void show(const MessageLine& line);
    // The controls as they stand after reading an empty line: wait 0, always used, standard
    // display, no answer group, no codes.
    void reset();
    // The line the controls describe, with `text` as its text. An empty answer group box means
    // the current group.
    MessageLine read(const std::string& text) const;

    int wait() const;
    int percent() const;
    void setWait(int seconds);
    void setPercent(int tenths);
    DisplayMode display() const;
    void setDisplay(DisplayMode mode);

    // The option frames take part only while a message or response is being edited.
    void setOptionsEnabled(bool enabled);

    // "Length: " + n of the line the controls describe; red with "(Length Limit Exceeded)" from
    // 255 characters, and for a response red with "(Response Text Width Limit Exceeded)" once the
    // text is too wide.
    void updateLength(Direction direction, const std::string& group, const std::string& text);
    void hideError();

    // Width of `text` in the window's font, in twips, at the screen's logical resolution.
    static int textWidthTwips(const QWidget& window, const QString& text);

    // Keep the labels beside the scroll bars and txtDisplay in step with the controls.
    void waitChanged();
    void percentChanged();
    void displayChosen(DisplayMode mode);
    void customTitleEdited(const QString& title);

  private:
    void setLengthColour(bool red);

    frmMessages& w_;
    QString customTitle_;  // the last caption typed or read, offered again when "Custom" is chosen
};

}  // namespace orr::ui
