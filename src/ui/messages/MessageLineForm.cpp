#include "messages/MessageLineForm.h"

#include <QComboBox>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <algorithm>

#include "messages/MessageCodec.h"
#include "messages/MessageEditRules.h"
#include "messages/SpecialCodesPanel.h"
#include "messages/frmMessages.h"
#include "platform/QtText.h"

namespace orr::ui {

namespace {

// The scroll bars run upside down: the top of the bar is the largest value, as in the game's
// own editor, so a bar's value is its maximum minus the setting.
int barValue(const QScrollBar* bar, int setting) {
    return bar->maximum() - setting + bar->minimum();
}

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

}  // namespace

MessageLineForm::MessageLineForm(frmMessages& window) : w_(window) {}

int MessageLineForm::wait() const {
    return settingOf(w_.vsbWait);
}

int MessageLineForm::percent() const {
    return settingOf(w_.vsbPercent);
}

void MessageLineForm::setWait(int seconds) {
    w_.vsbWait->setValue(barValue(w_.vsbWait, std::clamp(seconds, 0, kMaxWait)));
    waitChanged();
}

void MessageLineForm::setPercent(int tenths) {
    w_.vsbPercent->setValue(barValue(w_.vsbPercent, std::clamp(tenths, 0, kMaxPercent)));
    percentChanged();
}

void MessageLineForm::waitChanged() {
    w_.lblWait->setText(waitText(wait()));
}

void MessageLineForm::percentChanged() {
    w_.lblPercent->setText(percentText(percent()));
}

DisplayMode MessageLineForm::display() const {
    if (w_.optDisplay[1]->isChecked()) return DisplayMode::Box;
    if (w_.optDisplay[2]->isChecked()) return DisplayMode::Custom;
    return DisplayMode::Standard;
}

void MessageLineForm::setDisplay(DisplayMode mode) {
    w_.optDisplay[static_cast<int>(mode)]->setChecked(true);
    displayChosen(mode);
}

void MessageLineForm::displayChosen(DisplayMode mode) {
    // txtDisplay shows what the game will use as the caption; only a custom one can be typed.
    switch (mode) {
        case DisplayMode::Standard:
            w_.txtDisplay->setText(QString::fromLatin1(kStandardCaption));
            break;
        case DisplayMode::Box:
            w_.txtDisplay->setText(QString::fromLatin1(kBoxCaption));
            break;
        case DisplayMode::Custom:
            w_.txtDisplay->setText(customTitle_);
            break;
    }
    w_.txtDisplay->setEnabled(mode == DisplayMode::Custom && w_.fraDisplay->isEnabled());
}

void MessageLineForm::customTitleEdited(const QString& title) {
    if (display() == DisplayMode::Custom) customTitle_ = title;
}

void MessageLineForm::show(const MessageLine& line) {
    setWait(line.wait);
    setPercent(line.percent);
    if (line.display == DisplayMode::Custom) customTitle_ = toQString(line.title);
    setDisplay(line.display);
    w_.cboAnswerGroup->setEditText(toQString(line.answerGroup));
    w_.fraActions->setEntries(line.specials);
}

void MessageLineForm::reset() {
    MessageLine empty;
    customTitle_.clear();
    show(empty);
    w_.lblLength->setText(QStringLiteral("Length: 0"));
    hideError();
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
            line.title = toBytes(w_.txtDisplay->text());
            break;
    }
    line.text = text;
    line.answerGroup = toBytes(w_.cboAnswerGroup->currentText().trimmed());
    line.specials = w_.fraActions->entries();
    return line;
}

void MessageLineForm::setOptionsEnabled(bool enabled) {
    w_.fraOptions->setEnabled(enabled);
    w_.fraActions->setEnabled(enabled);
    w_.fraDisplay->setEnabled(enabled);
    w_.txtDisplay->setEnabled(enabled && display() == DisplayMode::Custom);
}

int MessageLineForm::textWidthTwips(const QWidget& window, const QString& text) {
    const QFontMetrics metrics(window.font(), &window);
    const int dpi = std::max(1, window.logicalDpiX());
    return static_cast<int>(static_cast<long long>(metrics.horizontalAdvance(text)) *
                            kTwipsPerInch / dpi);
}

void MessageLineForm::updateLength(Direction direction, const std::string& group,
                                   const std::string& text) {
    const std::string stored = ComposeMessage(read(text), direction, group);
    w_.lblLength->setText(QStringLiteral("Length: %1").arg(stored.size()));

    QString problem;
    if (ExceedsLengthLimit(stored)) {
        problem = QString::fromLatin1(kLengthLimitExceeded);
    } else if (direction == Direction::Response &&
               textWidthTwips(w_, toQString(text)) >= kResponseWidthLimitTwips) {
        problem = QString::fromLatin1(kWidthLimitExceeded);
    }
    w_.lblError->setText(problem);
    w_.lblError->setVisible(!problem.isEmpty());
    setLengthColour(!problem.isEmpty());
}

void MessageLineForm::hideError() {
    w_.lblError->hide();
    setLengthColour(false);
}

void MessageLineForm::setLengthColour(bool red) {
    w_.lblLength->setStyleSheet(red ? QStringLiteral("color: red;") : QString());
}

}  // namespace orr::ui
