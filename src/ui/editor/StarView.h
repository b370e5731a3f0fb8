#pragma once
// The star in the middle of the canvas: a 16 x 16 picture shown enlarged with hard pixel edges,
// either the star type's strip cell or the star's own picture.

#include <QImage>
#include <QWidget>

namespace orr::ui {

class StarView : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kZoom = 3;  // screen pixels per picture pixel

    explicit StarView(QWidget* parent = nullptr);

    // ownPicture: the star has a picture of its own rather than its strip cell.
    void setPicture(const QImage& picture, bool ownPicture);
    void clearPicture();
    const QImage& picture() const { return picture_; }
    bool hasPicture() const { return !picture_.isNull(); }
    bool showsOwnPicture() const { return ownPicture_; }

    QSize sizeHint() const override;

  signals:
    void rightClicked(const QPoint& globalPos);
    void hovered();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;

  private:
    QImage picture_;
    bool ownPicture_ = false;
};

}  // namespace orr::ui
