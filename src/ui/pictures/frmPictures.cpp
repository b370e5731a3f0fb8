#include "pictures/frmPictures.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "pictures/AnimationView.h"
#include "pictures/PaintProgram.h"
#include "pictures/QtPictureCodec.h"
#include "platform/Modal.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "session/PictureStrip.h"
#include "session/PlanetEdits.h"
#include "session/SystemEdits.h"

namespace orr::ui {

namespace {

QPushButton* makeButton(QWidget* parent, const char* name, const QString& caption) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

// The picture as the display area shows it: centred, cut at the area's edges.
QPixmap displayed(const QImage& picture) {
    QImage area(kCellWidth, kCellHeight, QImage::Format_RGB32);
    area.fill(Qt::black);
    const PixelRect at = centredIn(kCellWidth, kCellHeight, picture.width(), picture.height());
    QPainter(&area).drawImage(at.x, at.y, picture);
    return QPixmap::fromImage(area);
}

}  // namespace

frmPictures::frmPictures(EditSession& session, QWidget* parent)
    : QDialog(parent), session_(session) {
    setObjectName(QStringLiteral("frmPictures"));
    setWindowTitle(kCaption + QStringLiteral("[*]"));
    buildControls();
    listener_ = session_.subscribe([this](const ChangeNotice&) { refresh(); });
    lifetime_ = session_.lifetime();
}

frmPictures::~frmPictures() {
    if (!lifetime_.expired()) session_.unsubscribe(listener_);
}

void frmPictures::buildControls() {
    hsbPlanet = new QScrollBar(Qt::Horizontal, this);
    hsbPlanet->setObjectName(QStringLiteral("hsbPlanet"));
    hsbPlanet->setRange(1, 1);
    hsbPlanet->setPageStep(1);
    lblNameText = new QLabel(QStringLiteral("Name"), this);
    lblNameText->setObjectName(QStringLiteral("lblNameText"));
    lblName = new QLabel(this);
    lblName->setObjectName(QStringLiteral("lblName"));

    display_ = new QStackedWidget(this);
    display_->setObjectName(QStringLiteral("fraDisplay"));
    display_->setFrameShape(QFrame::Panel);
    display_->setFrameShadow(QFrame::Sunken);
    const int frame = display_->frameWidth() * 2;
    display_->setFixedSize(kCellWidth + frame, kCellHeight + frame);
    picPlanet = new QLabel(display_);
    picPlanet->setObjectName(QStringLiteral("picPlanet"));
    lblNoPic = new QLabel(QStringLiteral("No Picture Assigned"), display_);
    lblNoPic->setObjectName(QStringLiteral("lblNoPic"));
    lblNoPic->setAlignment(Qt::AlignCenter);
    AVI = new AnimationView(display_);
    for (QWidget* page : {static_cast<QWidget*>(picPlanet), static_cast<QWidget*>(lblNoPic),
                          static_cast<QWidget*>(AVI)})
        display_->addWidget(page);

    chkCustom = new QCheckBox(QStringLiteral("Use Custom Picture"), this);
    chkCustom->setObjectName(QStringLiteral("chkCustom"));
    cmdNew = makeButton(this, "cmdNew", QStringLiteral("&New"));
    cmdEdit = makeButton(this, "cmdEdit", QStringLiteral("&Edit"));
    cmdRemove = makeButton(this, "cmdRemove", QStringLiteral("&Remove"));
    cmdRemAll = makeButton(this, "cmdRemAll", QStringLiteral("Remove &All"));
    cmdClose = makeButton(this, "cmdClose", QStringLiteral("&Close"));

    auto* name = new QHBoxLayout;
    name->addWidget(lblNameText);
    name->addWidget(lblName, 1);
    auto* buttons = new QVBoxLayout;
    for (QPushButton* button : {cmdNew, cmdEdit, cmdRemove, cmdRemAll}) buttons->addWidget(button);
    buttons->addStretch(1);
    buttons->addWidget(cmdClose);
    auto* grid = new QGridLayout(this);
    grid->addWidget(hsbPlanet, 0, 0, 1, 2);
    grid->addLayout(name, 1, 0);
    grid->addWidget(display_, 2, 0);
    grid->addWidget(chkCustom, 3, 0);
    grid->addLayout(buttons, 1, 1, 3, 1);
    grid->setSizeConstraint(QLayout::SetFixedSize);

    connect(hsbPlanet, &QScrollBar::valueChanged, this, &frmPictures::showPlanet);
    // While the thumb is dragged, the name says which planet it is over.
    connect(hsbPlanet, &QScrollBar::sliderMoved, this, &frmPictures::showNameOf);
    connect(chkCustom, &QCheckBox::clicked, this, &frmPictures::chkCustom_Click);
    connect(cmdNew, &QPushButton::clicked, this, &frmPictures::cmdNew_Click);
    connect(cmdEdit, &QPushButton::clicked, this, &frmPictures::cmdEdit_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmPictures::cmdRemove_Click);
    connect(cmdRemAll, &QPushButton::clicked, this, &frmPictures::cmdRemAll_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmPictures::cmdClose_Click);
}

void frmPictures::ShowPictures(int planet) {
    showPlanet(planet);
    runDialog(*this);
}

int frmPictures::planet() const {
    return hsbPlanet->value();
}

bool frmPictures::showsAnimation() const {
    return !animation_.isEmpty();
}

void frmPictures::refresh() {
    showPlanet(planet());
}

void frmPictures::showPlanet(int n) {
    const int count = std::max<int>(session_.record().PlanetCount, 1);
    {
        const QSignalBlocker quiet(hsbPlanet);
        hsbPlanet->setMaximum(count);
        hsbPlanet->setValue(std::clamp(n, 1, count));
    }
    n = planet();
    setWindowModified(session_.picturesDiffer());
    cmdRemAll->setEnabled(session_.pictures().hasAnyPlanetPicture());

    const std::optional<fs::path> animation = planetAnimation(session_, n);
    const QImage picture = imageOf(session_.pictures().planet(n));
    if (animation) {
        const QString file = QString::fromStdString(animation->string());
        if (file != animation_) AVI->play(file);
        animation_ = file;
        display_->setCurrentWidget(AVI);
    } else {
        if (showsAnimation()) AVI->stop();
        animation_.clear();
        if (!picture.isNull()) picPlanet->setPixmap(displayed(picture));
        display_->setCurrentWidget(picture.isNull() ? static_cast<QWidget*>(lblNoPic) : picPlanet);
    }
    cmdNew->setEnabled(session_.isOpen());
    cmdEdit->setEnabled(!animation && !picture.isNull());
    cmdRemove->setEnabled(animation || !picture.isNull());
    showNameOf(n);
    // Setting the box writes nothing: only a click of the user does.
    const QSignalBlocker quiet(chkCustom);
    chkCustom->setChecked(session_.isOpen() && session_.store().HasCustomPictures(n));
}

void frmPictures::showNameOf(int n) {
    lblName->setText(session_.isOpen() ? toQString(planetLabel(session_.store(), n)) : QString());
}

void frmPictures::hideEvent(QHideEvent* event) {
    AVI->stop();
    animation_.clear();
    QDialog::hideEvent(event);
}

bool frmPictures::confirm(const QString& question) {
    const MessagePrompt ask = MessagePrompt::question(
        question, QStringLiteral("Confirmation"), PromptButtons::YesNo, PromptIcon::Exclamation);
    return prompts().message(this, ask) == PromptAnswer::Yes;
}

void frmPictures::chkCustom_Click(bool checked) {
    // A planet without a picture has nothing for the game to show.
    if (checked && !session_.pictures().planet(planet())) {
        chkCustom->setChecked(false);
        return;
    }
    report(this, setPlanetFlag(session_, kPlanetPics, planet(), checked), session_.lastError());
}

void frmPictures::cmdNew_Click() {
    const int n = planet();
    if (const std::optional<QImage> picture = choosePicture(this))
        report(this, assignPlanetPicture(session_, n, pictureOf(*picture)), session_.lastError());
}

void frmPictures::cmdEdit_Click() {
    const int n = planet();
    const QImage picture = imageOf(session_.pictures().planet(n));
    if (picture.isNull()) return;
    if (const std::optional<QImage> painted =
            paintInProgram(this, picture, QStringLiteral("Planet%1.bmp").arg(n)))
        report(this, setPlanetPicture(session_, n, pictureOf(*painted)), session_.lastError());
}

void frmPictures::cmdRemove_Click() {
    const int n = planet();
    if (showsAnimation()) {
        if (confirm(QStringLiteral("Are you sure you want to remove this animation?")))
            report(this, removeAnimation(session_, n), session_.lastError());
    } else if (session_.pictures().planet(n) &&
               confirm(QStringLiteral("Are you sure you want to remove this picture?"))) {
        report(this, removePlanetPicture(session_, n), session_.lastError());
    }
}

void frmPictures::cmdRemAll_Click() {
    if (confirm(QStringLiteral("Are you sure you want to remove all pictures for this system?\n"
                               "NOTE: Animations will not be removed.")))
        report(this, removeAllPlanetPictures(session_), session_.lastError());
}

void frmPictures::cmdClose_Click() {
    hsbPlanet->setValue(hsbPlanet->minimum());
    accept();
}

}  // namespace orr::ui
