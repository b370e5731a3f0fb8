#pragma once
// The open system's display name above the canvas (lblName), edited in place: a click shows the
// text box (txtName) over it with the name selected, Enter offers the typed name, Escape or
// leaving the box ends without a change. A name the game cannot store is refused with the box
// kept open for a correction. While the box has the focus, the undo and redo keys are its own.

#include <QStackedWidget>

class QLabel;
class QLineEdit;

namespace orr::ui {

class DisplayNameBox : public QStackedWidget {
    Q_OBJECT
  public:
    explicit DisplayNameBox(QWidget* parent = nullptr);

    void setName(const QString& name);
    // Only an open system's name can be edited.
    void setEditable(bool editable) { editable_ = editable; }

  signals:
    // Enter in the box with a name the game can store; the box is closed already.
    void nameEntered(const QString& name);
    // Enter or Escape closed the box: the focus should go where the user works next. (When the
    // box closed because the user clicked elsewhere, the focus is there already.)
    void editingFinished();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void beginEdit();
    void finishEdit(bool keep);

    QLabel* lblName;
    QLineEdit* txtName;
    bool editable_ = false;
    bool refusing_ = false;  // the box shows why it cannot take a text
};

}  // namespace orr::ui
