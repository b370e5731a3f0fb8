#pragma once
// picTooltip: the panel that shows the whole text of a list entry too long for the message list.
// It appears over the entry under the pointer, inside the list and wrapped to the list's width,
// and hides when the pointer leaves that entry. It never takes a click: clicks, double clicks
// and the context menu reach the list entries below it, and nothing outside the list is covered.

#include <QFrame>

class QLabel;
class QListWidget;

namespace orr::ui {

class LongEntryToolTip : public QFrame {
    Q_OBJECT
  public:
    // `list` is watched for the pointer; the panel lies on the list's viewport.
    explicit LongEntryToolTip(QListWidget* list);

    // Shows the panel for entry `row` when its text is wider than the list; hides it otherwise.
    // Returns whether it is shown.
    bool showFor(int row);
    int row() const { return row_; }
    void dismiss();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QListWidget* list_;
    QLabel* lblTooltip;
    int row_ = -1;
};

}  // namespace orr::ui
