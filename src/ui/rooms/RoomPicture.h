#pragma once
// The room editor's picture of the room shown (pnlRoom): four walls drawn to the widget's size,
// the room's name in the middle (lblRoom) and a doorway in each wall whose door is stored, with
// the door's destination on a label in the doorway (lblDoor0..lblDoor3: north, east, south,
// west). A door label is clicked to walk through the door; a door to a group that holds no
// messages is shown in a warning colour. Everything is painted as vectors, so the picture is
// sharp at any screen scale.

#include <QString>
#include <QWidget>
#include <array>

class QLabel;

namespace orr::ui {

class RoomPicture : public QWidget {
    Q_OBJECT
  public:
    explicit RoomPicture(QWidget* parent = nullptr);

    void setRoomName(const QString& name);
    QString roomName() const;
    // Door d (0 north .. 3 west): hidden when `destination` is null, else shown with its
    // destination; `leadsNowhere` marks a destination without messages.
    void setDoor(int d, const QString& destination, bool shown, bool leadsNowhere);
    QLabel* door(int d) const { return lblDoor[d]; }
    QLabel* nameLabel() const { return lblRoom; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return width; }

  signals:
    // A door label was clicked.
    void doorClicked(int d);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QRectF roomRect() const;  // the square inside the walls' centre lines
    qreal wallWidth() const;
    void placeLabels();

    QLabel* lblRoom;
    std::array<QLabel*, 4> lblDoor{};
    std::array<bool, 4> open_{};
};

}  // namespace orr::ui
