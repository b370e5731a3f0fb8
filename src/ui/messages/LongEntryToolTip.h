#pragma once
// picTooltip: the panel that shows the whole text of a list entry too long for the message
// list. It appears over the entry under the mouse, wrapped when the text would not fit the
// window, and passes clicks on to the entry it covers.

#include <QFrame>

class QLabel;
class QListWidget;

namespace orr::ui {

class LongEntryToolTip : public QFrame {
    Q_OBJECT
  public:
    // `list` is watched for the mouse; the panel is a child of `window`, over everything else.
    LongEntryToolTip(QListWidget* list, QWidget* window);

    // Shows the panel for entry `row` when its text is wider than the list; hides it otherwise.
    // Returns whether it is shown.
    bool showFor(int row);
    int row() const { return row_; }
    void dismiss();

    QLabel* lblTooltip;

  signals:
    void entryClicked(int row);
    void entryDoubleClicked(int row);
    void entryMenuRequested(int row, const QPoint& globalPos);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    // The entry under a point of the list's viewport: the top entry plus the height in lines.
    int rowAt(const QPoint& viewportPos) const;

    QListWidget* list_;
    int row_ = -1;
};

}  // namespace orr::ui
