#pragma once
// One shape of the options window's upgrade indicator: filled by the upgrade's level, with a
// black border that turns grey once the level can go no higher.

#include <QColor>
#include <QWidget>

namespace orr::ui {

class UpgradeShape : public QWidget {
    Q_OBJECT
  public:
    explicit UpgradeShape(QWidget* parent = nullptr);
    void setLevel(int level);
    int level() const { return level_; }
    QColor fill() const;
    QColor border() const;
    QSize sizeHint() const override { return {28, 16}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int level_ = 0;
};

}  // namespace orr::ui
