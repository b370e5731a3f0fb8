#pragma once
// The picture beside each step of the adventure grid wizard (imgStep): a grid of areas for the
// size, a compass for the actions, the grid with its way in for Finish. Painted as vectors, so
// it is sharp at any screen scale.

#include <QWidget>

namespace orr::ui {

class WizardPicture : public QWidget {
    Q_OBJECT
  public:
    WizardPicture(int step, QWidget* parent = nullptr);
    QSize sizeHint() const override { return {120, 150}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int step_;
};

}  // namespace orr::ui
