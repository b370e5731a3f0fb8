#include "pictures/AnimationView.h"

#include <QFileInfo>
#include <QMediaPlayer>
#include <QPainter>
#include <QUrl>
#include <QVideoFrame>
#include <QVideoSink>

namespace orr::ui {

void chooseMediaBackend() {
    if (qEnvironmentVariableIsEmpty("QT_MEDIA_BACKEND"))
        qputenv("QT_MEDIA_BACKEND", QByteArrayLiteral("ffmpeg"));
}

AnimationView::AnimationView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("AVI"));
    chooseMediaBackend();
    player_ = new QMediaPlayer(this);
    sink_ = new QVideoSink(this);
    player_->setVideoSink(sink_);
    player_->setLoops(QMediaPlayer::Infinite);
    connect(sink_, &QVideoSink::videoFrameChanged, this, &AnimationView::showFrame);
    connect(player_, &QMediaPlayer::errorOccurred, this,
            [this](QMediaPlayer::Error, const QString& reason) { showProblem(reason); });
    connect(player_, &QMediaPlayer::mediaStatusChanged, this,
            [this](QMediaPlayer::MediaStatus status) {
                if (status == QMediaPlayer::InvalidMedia)
                    showProblem(QStringLiteral("it is not a video this program can read"));
                else if (status == QMediaPlayer::LoadedMedia && !player_->hasVideo())
                    showProblem(QStringLiteral("it holds no pictures"));
            });
}

void AnimationView::play(const QString& file) {
    stop();
    file_ = file;
    problem_.clear();
    frame_ = QImage();
    if (!player_->isAvailable()) {
        showProblem(QStringLiteral("this system has no video player for Qt"));
        return;
    }
    player_->setSource(QUrl::fromLocalFile(file));
    player_->play();
    update();
}

void AnimationView::stop() {
    player_->stop();
    player_->setSource(QUrl());
}

void AnimationView::showProblem(const QString& reason) {
    if (!problem_.isEmpty() || file_.isEmpty()) return;
    problem_ = QStringLiteral("The animation %1 cannot be played here: %2.")
                   .arg(QFileInfo(file_).fileName(), reason);
    player_->stop();
    update();
}

void AnimationView::showFrame(const QVideoFrame& frame) {
    if (!frame.isValid()) return;
    frame_ = frame.toImage();
    update();
    emit frameShown();
}

void AnimationView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (!problem_.isEmpty()) {
        painter.setPen(palette().color(QPalette::BrightText));
        painter.drawText(rect().adjusted(4, 4, -4, -4), Qt::AlignCenter | Qt::TextWordWrap,
                         problem_);
        return;
    }
    if (frame_.isNull()) return;
    // Like a picture: centred at its own size, made smaller only when it does not fit.
    QSize size = frame_.size();
    if (size.width() > width() || size.height() > height())
        size = size.scaled(this->size(), Qt::KeepAspectRatio);
    painter.drawImage(
        QRect(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size), frame_);
}

}  // namespace orr::ui
