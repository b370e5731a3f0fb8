#pragma once
// The pictures window's animation player: plays a planet's animation file (an AVI clip) over and
// over in place of its picture, drawing each frame itself so the window's pictures show it too.
// A file that cannot be played, or a platform without a decoder, shows one line saying so
// instead; nothing waits for the player.

#include <QImage>
#include <QString>
#include <QWidget>

class QMediaPlayer;
class QVideoFrame;
class QVideoSink;

namespace orr::ui {

// Chooses Qt's FFmpeg media backend unless the user chose one: it plays MJPEG and plain AVI
// files without further plugins, where the GStreamer backend needs plugins and fails without
// them. Call before the first player is made (the program does so before its windows).
void chooseMediaBackend();

class AnimationView : public QWidget {
    Q_OBJECT
  public:
    explicit AnimationView(QWidget* parent = nullptr);

    void play(const QString& file);
    void stop();

    QMediaPlayer* player() const { return player_; }
    // Why the file is not playing; empty while it plays or loads.
    const QString& problem() const { return problem_; }
    // The frame drawn last (null before the first one).
    const QImage& frame() const { return frame_; }

  signals:
    void frameShown();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void showProblem(const QString& reason);
    void showFrame(const QVideoFrame& frame);

    QMediaPlayer* player_;
    QVideoSink* sink_;
    QString file_;
    QString problem_;
    QImage frame_;
};

}  // namespace orr::ui
