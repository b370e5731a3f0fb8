#include "messages/MessageLineForm.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/Named.h"
#include "platform/QtText.h"

namespace orr::ui {

namespace {

QLabel* label(const QString& caption, const QString& name, QWidget* parent) {
    return named(new QLabel(caption, parent), name);
}

// A scroll bar standing for a small number; its top is the largest value, as in the game's own
// editor. Long enough that the groove, not the two arrows, makes up most of it and the handle
// can be dragged.
QScrollBar* settingBar(int maximum, const QString& name, QWidget* parent) {
    auto* bar = named(new QScrollBar(Qt::Vertical, parent), name);
    bar->setRange(0, maximum);
    bar->setPageStep(1);
    bar->setMinimumHeight(bar->sizeHint().width() * 7);
    return bar;
}

// The two labels beside a bar stand together at its middle: the caption above, the value below.
void pairLabels(QLabel* caption, QLabel* value) {
    caption->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    value->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

// The bars run upside down, so a bar's value is its maximum minus the setting.
int settingOf(const QScrollBar* bar) {
    return bar->maximum() - bar->value() + bar->minimum();
}

QString waitText(int seconds) {
    if (seconds <= 0) return QStringLiteral("Immediately");
    if (seconds == 1) return QStringLiteral("After 1 second");
    return QStringLiteral("After %1 seconds").arg(seconds);
}

QString percentText(int tenths) {
    if (tenths >= kMaxPercent) return QStringLiteral("Always");
    if (tenths <= 0) return QStringLiteral("Never");
    return QStringLiteral("%1% of the time").arg(tenths * 10);
}

// Marks the controls as being filled, so that their change signals are not taken for the
// designer's.
class Loading {
  public:
    explicit Loading(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~Loading() { flag_ = before_; }
    Loading(const Loading&) = delete;
    Loading& operator=(const Loading&) = delete;

  private:
    bool& flag_;
    bool before_;
};

}  // namespace

MessageLineForm::MessageLineForm(QWidget* parent) : QWidget(parent) {
    fraActions = new SpecialCodesPanel(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(buildOptions());
    layout->addWidget(buildDisplay());
    layout->addWidget(fraActions, 1);

    connect(vsbWait, &QScrollBar::valueChanged, this, [this] {
        lblWait->setText(waitText(wait()));
        edited();
    });
    connect(vsbPercent, &QScrollBar::valueChanged, this, [this] {
        lblPercent->setText(percentText(percent()));
        edited();
    });
    connect(cboAnswerGroup, &QComboBox::editTextChanged, this, &MessageLineForm::edited);
    connect(fraActions, &SpecialCodesPanel::changed, this, &MessageLineForm::edited);
    for (std::size_t i = 0; i < optDisplay.size(); ++i) {
        connect(optDisplay[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (!on) return;
            displayChosen(static_cast<DisplayMode>(i));
            edited();
        });
    }
    connect(txtDisplay, &QLineEdit::textEdited, this, [this](const QString& title) {
        if (display() == DisplayMode::Custom) customTitle_ = title;
    });
    connect(txtDisplay, &QLineEdit::textChanged, this, &MessageLineForm::edited);
    reset();
    setOptionsEnabled(false);
}

QWidget* MessageLineForm::buildOptions() {
    fraOptions =
        named(new QGroupBox(QStringLiteral("Options"), this), QStringLiteral("fraOptions"));
    lblWaitFor =
        label(QStringLiteral("Message displays"), QStringLiteral("lblWaitFor"), fraOptions);
    lblWait = label(QString(), QStringLiteral("lblWait"), fraOptions);
    vsbWait = settingBar(kMaxWait, QStringLiteral("vsbWait"), fraOptions);
    lblIncluded =
        label(QStringLiteral("Message included"), QStringLiteral("lblIncluded"), fraOptions);
    lblPercent = label(QString(), QStringLiteral("lblPercent"), fraOptions);
    vsbPercent = settingBar(kMaxPercent, QStringLiteral("vsbPercent"), fraOptions);
    lblAnswer = label(QStringLiteral("Answer Group:"), QStringLiteral("lblAnswer"), fraOptions);
    cboAnswerGroup = named(new QComboBox(fraOptions), QStringLiteral("cboAnswerGroup"));
    cboAnswerGroup->setEditable(true);
    cboAnswerGroup->setInsertPolicy(QComboBox::NoInsert);
    cboAnswerGroup->setCompleter(nullptr);
    lblAnswer->setBuddy(cboAnswerGroup);
    pairLabels(lblWaitFor, lblWait);
    pairLabels(lblIncluded, lblPercent);
    auto* options = new QGridLayout(fraOptions);
    // Each bar stands left of the two labels that describe it.
    options->addWidget(vsbWait, 0, 0, 2, 1);
    options->addWidget(lblWaitFor, 0, 1);
    options->addWidget(lblWait, 1, 1);
    options->addWidget(vsbPercent, 0, 2, 2, 1);
    options->addWidget(lblIncluded, 0, 3);
    options->addWidget(lblPercent, 1, 3);
    options->addWidget(lblAnswer, 2, 0, 1, 4);
    options->addWidget(cboAnswerGroup, 3, 0, 1, 4);
    options->setColumnStretch(1, 1);
    options->setColumnStretch(3, 1);
    return fraOptions;
}

QWidget* MessageLineForm::buildDisplay() {
    fraDisplay =
        named(new QGroupBox(QStringLiteral("Display"), this), QStringLiteral("fraDisplay"));
    const std::array<QString, 3> displays = {QStringLiteral("Standard"), QStringLiteral("Box"),
                                             QStringLiteral("Custom")};
    auto* display = new QGridLayout(fraDisplay);
    for (std::size_t i = 0; i < optDisplay.size(); ++i) {
        optDisplay[i] =
            named(new QRadioButton(displays[i], fraDisplay), QStringLiteral("optDisplay%1").arg(i));
        display->addWidget(optDisplay[i], 0, static_cast<int>(i));
    }
    optDisplay[0]->setChecked(true);
    txtDisplay = named(new QLineEdit(fraDisplay), QStringLiteral("txtDisplay"));
    display->addWidget(txtDisplay, 1, 0, 1, 3);
    return fraDisplay;
}

void MessageLineForm::edited() {
    if (!loading_) emit changed();
}

int MessageLineForm::wait() const {
    return settingOf(vsbWait);
}

int MessageLineForm::percent() const {
    return settingOf(vsbPercent);
}

void MessageLineForm::setWait(int seconds) {
    vsbWait->setValue(vsbWait->maximum() - std::clamp(seconds, 0, kMaxWait));
    lblWait->setText(waitText(wait()));
}

void MessageLineForm::setPercent(int tenths) {
    vsbPercent->setValue(vsbPercent->maximum() - std::clamp(tenths, 0, kMaxPercent));
    lblPercent->setText(percentText(percent()));
}

DisplayMode MessageLineForm::display() const {
    if (optDisplay[1]->isChecked()) return DisplayMode::Box;
    if (optDisplay[2]->isChecked()) return DisplayMode::Custom;
    return DisplayMode::Standard;
}

void MessageLineForm::setDisplay(DisplayMode mode) {
    optDisplay[static_cast<int>(mode)]->setChecked(true);
    displayChosen(mode);
}

void MessageLineForm::displayChosen(DisplayMode mode) {
    // txtDisplay shows what the game will use as the caption; only a custom one can be typed.
    switch (mode) {
        case DisplayMode::Standard:
            txtDisplay->setText(QString::fromLatin1(kStandardCaption));
            break;
        case DisplayMode::Box:
            txtDisplay->setText(QString::fromLatin1(kBoxCaption));
            break;
        case DisplayMode::Custom:
            txtDisplay->setText(customTitle_);
            break;
    }
    txtDisplay->setEnabled(mode == DisplayMode::Custom && fraDisplay->isEnabled());
}

void MessageLineForm::showLine(const MessageLine& line) {
    const Loading loading(loading_);
    setWait(line.wait);
    setPercent(line.percent);
    if (line.display == DisplayMode::Custom) customTitle_ = toQString(line.title);
    setDisplay(line.display);
    cboAnswerGroup->setEditText(toQString(line.answerGroup));
    fraActions->setEntries(line.specials);
}

void MessageLineForm::reset() {
    customTitle_.clear();
    showLine(MessageLine{});
}

MessageLine MessageLineForm::read(const std::string& text) const {
    MessageLine line;
    line.wait = wait();
    line.percent = percent();
    line.display = display();
    switch (line.display) {
        case DisplayMode::Standard:
            line.title = kStandardCaption;
            break;
        case DisplayMode::Box:
            line.title = kBoxCaption;
            break;
        case DisplayMode::Custom:
            line.title = toBytes(txtDisplay->text());
            break;
    }
    line.text = text;
    line.answerGroup = toBytes(answerGroup());
    line.specials = fraActions->entries();
    return line;
}

QString MessageLineForm::typed() const {
    const QString caption = display() == DisplayMode::Custom ? txtDisplay->text() : QString();
    return caption + cboAnswerGroup->currentText();
}

QString MessageLineForm::answerGroup() const {
    return cboAnswerGroup->currentText().trimmed();
}

void MessageLineForm::setAnswerGroups(const std::vector<std::string>& groups) {
    const Loading loading(loading_);
    const QString text = cboAnswerGroup->currentText();
    cboAnswerGroup->clear();
    for (const std::string& group : groups) cboAnswerGroup->addItem(toQString(group));
    cboAnswerGroup->setCurrentIndex(-1);
    cboAnswerGroup->setEditText(text);
}

void MessageLineForm::setOptionsEnabled(bool enabled) {
    fraOptions->setEnabled(enabled);
    fraActions->setEnabled(enabled);
    fraDisplay->setEnabled(enabled);
    txtDisplay->setEnabled(enabled && display() == DisplayMode::Custom);
}

void MessageLineForm::setCodes(const SpecialCodeList& codes) {
    fraActions->setCodes(codes);
}

void MessageLineForm::setDirection(Direction direction) {
    fraActions->setDirection(direction);
}

void MessageLineForm::setChoosers(SpecialCodesPanel::Choosers choosers) {
    fraActions->setChoosers(std::move(choosers));
}

}  // namespace orr::ui
