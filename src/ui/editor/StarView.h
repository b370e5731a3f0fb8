#pragma once
// The star in the middle of the canvas: its type's 16 x 16 strip cell or its own picture. The
// canvas paints it under the planets; this widget is where the star takes its tool tip (the
// star's description), its right click and the pointer's hover. Its size follows the canvas, so
// that it never covers the innermost orbits.

#include <QImage>
#include <QWidget>

namespace orr::ui {

class StarView : public QWidget {
    Q_OBJECT
  public:
    explicit StarView(QWidget* parent = nullptr);

    // ownPicture: the star has a picture of its own rather than its strip cell.
    void setPicture(const QImage& picture, bool ownPicture);
    void clearPicture();
    const QImage& picture() const { return picture_; }
    bool hasPicture() const { return !picture_.isNull(); }
    bool showsOwnPicture() const { return ownPicture_; }

  signals:
    void rightClicked(const QPoint& globalPos);
    void hovered();
    void pictureChanged();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;

  private:
    QImage picture_;
    bool ownPicture_ = false;
};

}  // namespace orr::ui
