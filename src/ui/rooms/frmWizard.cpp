#include "rooms/frmWizard.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "platform/Modal.h"
#include "platform/Prompts.h"
#include "rooms/WizardPicture.h"

namespace orr::ui {

namespace {

QPushButton* button(const QString& caption, const char* name, QWidget* parent) {
    auto* result = new QPushButton(caption, parent);
    result->setObjectName(QString::fromLatin1(name));
    return result;
}

// The box of one size. Any number up to 99 may be typed; Validate then brings it into 2..10, as
// the game's grids run.
QSpinBox* makeSizeBox(const char* name, QWidget* parent) {
    auto* box = new QSpinBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->setRange(0, 99);
    box->setSingleStep(1);
    box->setValue(kDefaultGridSize);
    return box;
}

}  // namespace

frmWizard::frmWizard(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmWizard"));
    setWindowTitle(kCaption);
    setModal(true);

    auto* sizes = new QWidget(this);
    SizeX = makeSizeBox("SizeX", sizes);
    SizeY = makeSizeBox("SizeY", sizes);
    auto* sizeGrid = new QGridLayout(sizes);
    const std::array<QString, 2> axes = {QStringLiteral("&Width (columns, west to east):"),
                                         QStringLiteral("&Height (rows, north to south):")};
    for (int axis = 0; axis < 2; ++axis) {
        auto* label = new QLabel(axes[axis], sizes);
        label->setBuddy(sizeBox(axis));
        sizeGrid->addWidget(label, axis, 0);
        sizeGrid->addWidget(sizeBox(axis), axis, 1);
    }
    sizeGrid->setColumnStretch(2, 1);
    sizeGrid->setRowStretch(2, 1);

    auto* actions = new QWidget(this);
    auto* actionList = new QVBoxLayout(actions);
    for (int i = 0; i < kStandardActionCount; ++i) {
        chkAct[i] = new QCheckBox(QString::fromLatin1(kStandardCaptions[i]), actions);
        chkAct[i]->setObjectName(QStringLiteral("chkAct%1").arg(i));
        chkAct[i]->setChecked(true);
        actionList->addWidget(chkAct[i]);
    }
    cmdAdvanced = button(QStringLiteral("&Advanced"), "cmdAdvanced", actions);
    cmdAdvanced->hide();
    auto* advancedRow = new QHBoxLayout;
    advancedRow->addStretch(1);
    advancedRow->addWidget(cmdAdvanced);
    actionList->addLayout(advancedRow);

    steps_ = new QStackedWidget(this);
    buildStep(0, QStringLiteral("Select a Grid Size"),
              QStringLiteral("Choose the size of your adventure grid:"), sizes);
    buildStep(1, QStringLiteral("Choose Actions"),
              QStringLiteral("Choose the actions that will be used at each location:"), actions);
    buildStep(2, QStringLiteral("Finish!"),
              QStringLiteral("Press Finish to add the adventure grid to the messages for this "
                             "planet."),
              new QWidget(this));

    cmdBack = button(QStringLiteral("< &Back"), "cmdBack", this);
    cmdNext = button(QStringLiteral("&Next >"), "cmdNext", this);
    cmdNext->setDefault(true);
    cmdCancel = button(QStringLiteral("&Cancel"), "cmdCancel", this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* b : {cmdBack, cmdNext, cmdCancel}) buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(steps_, 1);
    layout->addLayout(buttons);
    setMinimumSize(540, 340);

    connect(cmdBack, &QPushButton::clicked, this, &frmWizard::backClicked);
    connect(cmdNext, &QPushButton::clicked, this, &frmWizard::nextClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &frmWizard::reject);
    connect(cmdAdvanced, &QPushButton::clicked, this, [this] {
        if (advanced_) runDialog(*advanced_);
    });
    SetStep(0);
}

QGroupBox* frmWizard::buildStep(int n, const QString& caption, const QString& text,
                                QWidget* content) {
    QGroupBox* frame = new QGroupBox(caption, steps_);
    frame->setObjectName(QStringLiteral("fraStep%1").arg(n));
    auto* lblStep = new QLabel(text, frame);
    lblStep->setObjectName(QStringLiteral("lblStep"));
    lblStep->setWordWrap(true);
    auto* column = new QVBoxLayout;
    column->addWidget(lblStep);
    column->addWidget(content, 1);
    auto* row = new QHBoxLayout(frame);
    row->addWidget(new WizardPicture(n, frame));
    row->addSpacing(8);
    row->addLayout(column, 1);
    steps_->addWidget(frame);
    fraStep[n] = frame;
    return frame;
}

bool frmWizard::Go(const WizardOwner& owner) {
    owner_ = owner;
    finished_ = false;
    runDialog(*this);
    return finished_;
}

void frmWizard::SetAdvanced(QDialog* dialog) {
    advanced_ = dialog;
    cmdAdvanced->setVisible(dialog != nullptr);
}

void frmWizard::SetStep(int n) {
    if (n < 0 || n >= kSteps) return;
    for (int i = 0; i < kSteps; ++i) fraStep[i]->setEnabled(i == n);
    steps_->setCurrentIndex(n);
    step_ = n;
    cmdBack->setEnabled(n > 0);
    cmdNext->setText(n == kSteps - 1 ? QStringLiteral("&Finish") : QStringLiteral("&Next >"));
    setWindowTitle(kCaption + QStringLiteral(" - ") + fraStep[n]->title());
}

GridWizardChoices frmWizard::choices() const {
    GridWizardChoices choices;
    choices.width = SizeX->value();
    choices.height = SizeY->value();
    for (int i = 0; i < kStandardActionCount; ++i) choices.actions[i] = chkAct[i]->isChecked();
    return choices;
}

void frmWizard::backClicked() {
    SetStep(step_ - 1);
}

void frmWizard::nextClicked() {
    if (step_ == kSteps - 1) {
        if (!owner_.Finish || owner_.Finish(*this)) {
            finished_ = true;
            accept();
        }
        return;
    }
    if (!owner_.Validate || owner_.Validate(*this)) SetStep(step_ + 1);
}

void frmWizard::reject() {
    const MessagePrompt question = MessagePrompt::question(
        kExitQuestion, QStringLiteral("Exit Wizard"), PromptButtons::YesNo, PromptIcon::Question);
    if (prompts().message(this, question) == PromptAnswer::Yes) QDialog::reject();
}

}  // namespace orr::ui
