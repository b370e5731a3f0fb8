#pragma once
// picDirection: a small animation of which way the lines shown go. For "Message" small circles
// travel from the planet to the ship, for "Response" from the ship to the planet, and for
// "Information" a question mark blinks between them. The timer tmrAnim drives it while the
// editor is open.

#include <QWidget>

#include "messages/MessageKeys.h"

class QTimer;

namespace orr::ui {

class DirectionPicture : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kIntervalMs = 120;
    static constexpr int kSteps = 9;  // positions of a travelling circle between the two ends

    explicit DirectionPicture(QWidget* parent = nullptr);

    QTimer* timer() const { return tmrAnim_; }
    void setDirection(Direction direction);
    Direction direction() const { return direction_; }
    void start();
    void stop();
    int frame() const { return frame_; }
    // Whether the blinking question mark is drawn in the current frame.
    bool questionMarkShown() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void advance();

    QTimer* tmrAnim_;
    Direction direction_ = Direction::Message;
    int frame_ = 0;
};

}  // namespace orr::ui
