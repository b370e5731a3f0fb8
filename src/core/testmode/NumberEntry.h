#pragma once
// The number dialog's arithmetic: a vertical scroll bar over min / scale .. max / scale in whole
// steps, whose top end stands for max, kept in step with a text box. The dialog shows the
// texts; this says what they are.

#include <string>

#include "testmode/TestEvents.h"

namespace orr {

class NumberEntry {
  public:
    explicit NumberEntry(const NumberRequest& request);

    // The scroll bar's ends (minimum() <= maximum()); minimum() is the top, which stands for max.
    int minimum() const { return low_; }
    int maximum() const { return high_; }
    int position() const { return position_; }
    // The number position p stands for: (maximum + minimum - p) x scale.
    float numberAt(int position) const;

    // The chosen number (the dialog's number label) and its text.
    float number() const { return number_; }
    std::string numberText() const;

    // The scroll bar moved.
    void scrollTo(int position);
    // The user typed `text`: the scroll bar follows its leading number. Returns the text the box
    // must show instead when that number lies outside the range (the nearer end), else empty.
    std::string typed(const std::string& text);

    // What GetNumber returns: the number after OK, min - 1 after Cancel.
    float result(bool ok) const;

  private:
    int positionOf(float number) const;

    float min_;
    float max_;
    float scale_;
    int low_;
    int high_;
    int position_;
    float number_;
};

}  // namespace orr
