#pragma once
// The strip of star pictures: one 16 x 16 cell per star type, cell index = star type. The star
// shows its cell unless it has a picture of its own.

#include <QImage>
#include <QObject>
#include <array>

namespace orr::ui {

class StarStrip : public QObject {
    Q_OBJECT
  public:
    static constexpr int kCellCount = 8;
    static constexpr int kCellSize = 16;

    explicit StarStrip(QObject* parent = nullptr);

    // The cell of a star type; a type outside 0..7 (read from a hand-edited file) shows the
    // nearest one.
    QImage cell(int starType) const;

  private:
    std::array<QImage, kCellCount> cells_;
};

}  // namespace orr::ui
