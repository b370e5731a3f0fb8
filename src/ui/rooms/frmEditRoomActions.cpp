// The room editor's standard action boxes, its list of further actions and the Action frame.

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QTreeWidget>

#include "platform/Modal.h"
#include "platform/QtText.h"
#include "rooms/RoomPicture.h"
#include "rooms/frmEditRoom.h"

namespace orr::ui {

namespace {

// Sets a box's text when it differs, so that the cursor stays where the designer types.
void showText(QLineEdit* box, const QString& text, int limit) {
    box->setMaxLength(std::max(limit, static_cast<int>(text.size())));
    if (box->text() == text) return;
    const QSignalBlocker blocker(box);
    box->setText(text);
}

constexpr int kNumberRole = Qt::UserRole;

}  // namespace

void frmEditRoom::boxClicked(int i) {
    if (loading_ || !view_) return;
    if (view_->standard[i].state == kNotStored)
        tick(i);
    else
        untick(i);
}

void frmEditRoom::tick(int i) {
    const ActionBinding& binding = view_->standard[i];
    std::string destination;
    if (binding.needsDestination()) {
        const std::optional<QString> answer =
            ask(QStringLiteral("Enter Room that is %1 of %2")
                    .arg(QString::fromLatin1(kStandardCaptions[i]), shownRoom()),
                kDestinationPrompt, QString());
        if (!answer || answer->trimmed().isEmpty()) return;  // the box stays unticked
        const std::optional<std::string> bytes = storable(answer->trimmed());
        if (!bytes) return;
        destination = *bytes;
    }
    run([&] { return tickStandardAction(session_, ref(), i, destination); });
}

void frmEditRoom::untick(int i) {
    const ActionBinding binding = view_->standard[i];
    if (binding.state == kChanged && !confirm(kRemoveCustomQuestion, false)) return;
    run([&] {
        const bool ok = untickStandardAction(session_, ref(), i);
        if (ok) actionRemoved(binding.number);
        return ok;
    });
}

void frmEditRoom::actionRemoved(int n) {
    if (shown_.number == n)
        shown_ = {};
    else if (shown_.number > n)
        --shown_.number;
}

void frmEditRoom::showBoxes() {
    for (int i = 0; i < kStandardActionCount; ++i) {
        const ActionBinding& binding = view_->standard[i];
        const Qt::CheckState states[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
        chkAct[i]->setCheckState(states[binding.state]);
        chkAct[i]->setToolTip(
            binding.state == kNotStored
                ? QStringLiteral("Not stored; by default: %1").arg(toQString(binding.defaultLine))
                : QStringLiteral("Action %1: %2")
                      .arg(binding.number)
                      .arg(toQString(binding.line.line())));
        if (i < kDirectionCount)
            pnlRoom->setDoor(i, toQString(binding.destination), binding.state != kNotStored,
                             view_->doorLeadsNowhere[i]);
    }
    highlight(highlighted_);
}

void frmEditRoom::showList() {
    const QSignalBlocker blocker(lvwActions);
    lvwActions->clear();
    for (const ListedAction& action : view_->listed) {
        const QString destination = toQString(action.destination);
        auto* item = new QTreeWidgetItem(lvwActions, {destination, toQString(action.line.text)});
        item->setData(0, kNumberRole, action.number);
        // Pointing at an action names where it leads.
        for (int column = 0; column < 2; ++column) item->setToolTip(column, destination);
        if (action.number == shown_.number) lvwActions->setCurrentItem(item);
    }
}

void frmEditRoom::highlight(int box) {
    highlighted_ = box;
    for (int i = 0; i < kStandardActionCount; ++i) {
        QPalette palette = chkAct[i]->palette();
        const QPalette& base = this->palette();
        palette.setColor(QPalette::Window,
                         base.color(i == box ? QPalette::Highlight : QPalette::Button));
        palette.setColor(QPalette::WindowText,
                         base.color(i == box ? QPalette::HighlightedText : QPalette::ButtonText));
        chkAct[i]->setPalette(palette);
        // A check box paints no background of its own; without this the highlight would show
        // only as highlight-coloured text on the dialog's face.
        chkAct[i]->setBackgroundRole(QPalette::Window);
        chkAct[i]->setAutoFillBackground(i == box);
    }
}

void frmEditRoom::hovered(int box) {
    if (!view_ || tmrDisableHighlight->isActive()) return;
    const ActionBinding& binding = view_->standard[box];
    const Shown shown = binding.state == kNotStored ? Shown{0, box} : Shown{binding.number, -1};
    if (shown.number != shown_.number || shown.standard != shown_.standard) showAction(shown);
    highlight(box);
    lvwActions->clearSelection();
}

void frmEditRoom::listClicked(QTreeWidgetItem* item) {
    if (!item) return;
    showAction({item->data(0, kNumberRole).toInt(), -1});
    highlight(-1);
}

void frmEditRoom::listDoubleClicked(QTreeWidgetItem* item) {
    if (!item) return;
    const QString destination = item->text(0);
    if (!destination.isEmpty() && destination != QLatin1String(kNoRoom)) LoadRoom(destination);
}

void frmEditRoom::doorClicked(int d) {
    if (view_) LoadRoom(toQString(view_->standard[d].destination));
}

const SplitLine* frmEditRoom::shownLine() const {
    if (!view_) return nullptr;
    if (shown_.number > 0) return view_->action(shown_.number);
    if (shown_.standard >= 0) return &view_->standard[shown_.standard].line;
    return nullptr;
}

QString frmEditRoom::shownDestination() const {
    const SplitLine* line = shownLine();
    return line ? toQString(destinationOf(line->tail)) : QString();
}

void frmEditRoom::showAction(Shown shown) {
    shown_ = shown;
    const bool any = shownLine() != nullptr;
    for (QWidget* control : std::initializer_list<QWidget*>{txtResponse, lblDest, txtDest, chkDir,
                                                            cmdEffect, cmdRemove})
        control->setVisible(any);
    if (any) {
        showActionFields();
        return;
    }
    const QSignalBlocker response(txtResponse);
    const QSignalBlocker destination(txtDest);
    txtResponse->clear();
    txtDest->clear();
    fraAction->setToolTip(QString());
}

void frmEditRoom::showActionFields() {
    const SplitLine* line = shownLine();
    if (!line) return;
    const QString destination = shownDestination();
    const int length = static_cast<int>(line->line().size());
    // The whole line, codes and tail included, must stay within what the game reads.
    const int room = static_cast<int>(kMaxRoomLine) - length;
    showText(txtResponse, toQString(line->text), static_cast<int>(line->text.size()) + room);
    showText(txtDest, destination, static_cast<int>(destination.size()) + room);
    const int choice = directionChoiceOf(line->codes);
    for (int c = 0; c < kDirectionChoiceCount; ++c) mnuPDir[c]->setChecked(c == choice);
    chkDir->setText(QString::fromLatin1(kDirectionChoices[choice]));
    fraAction->setToolTip(
        shown_.number > 0 ? QStringLiteral("Action %1 of %2").arg(shown_.number).arg(shownRoom())
                          : QStringLiteral("%1: not stored yet; typing stores it")
                                .arg(QString::fromLatin1(kStandardCaptions[shown_.standard])));
}

void frmEditRoom::responseEdited(const QString& text) {
    actionEdited(text, setActionText);
}

void frmEditRoom::destinationEdited(const QString& text) {
    actionEdited(text, setActionDestination);
}

// Typing in one of the action's boxes stores the action at once (a run of typing is one step);
// an action not stored yet gets its number then.
void frmEditRoom::actionEdited(const QString& text, ActionSetter setter) {
    if (loading_ || !shown_.any()) return;
    const std::optional<std::string> bytes = storable(text);
    if (!bytes) return;
    run(
        [&] {
            int n = 0;
            const bool ok = setter(session_, ref(), shown_.ref(), *bytes, &n);
            if (ok) shown_ = {n, -1};
            return ok;
        },
        true);
}

void frmEditRoom::descriptionEdited() {
    if (loading_ || room_.empty()) return;
    QString text = txtMessage->toPlainText();
    if (text.contains(QLatin1Char('\n'))) {
        // A pasted text with line breaks: the description is one line.
        text.replace(QLatin1Char('\n'), QLatin1Char(' '));
        const QSignalBlocker blocker(txtMessage);
        txtMessage->setPlainText(text);
        txtMessage->moveCursor(QTextCursor::End);
    }
    const std::optional<std::string> bytes = storable(text);
    if (!bytes) return;
    run([&] { return setRoomDescription(session_, ref(), *bytes); }, true);
}

void frmEditRoom::openDirectionMenu() {
    runMenu(*mnuPopup, chkDir->mapToGlobal(QPoint(0, chkDir->height())));
}

void frmEditRoom::directionChosen(int choice) {
    for (int c = 0; c < kDirectionChoiceCount; ++c) mnuPDir[c]->setChecked(c == choice);
    chkDir->setText(QString::fromLatin1(kDirectionChoices[choice]));
    if (!shown_.any()) return;
    run([&] {
        int n = 0;
        const bool ok = setActionDirection(session_, ref(), shown_.ref(), choice, &n);
        if (ok) shown_ = {n, -1};
        return ok;
    });
}

void frmEditRoom::addClicked() {
    if (room_.empty()) return;
    const bool added = run([&] {
        int n = 0;
        const bool ok = addRoomAction(session_, ref(), kNewActionLine, &n);
        if (ok) shown_ = {n, -1};
        return ok;
    });
    if (!added) return;
    showAction(shown_);
    highlight(-1);
    txtResponse->setFocus();
    txtResponse->selectAll();
}

void frmEditRoom::removeClicked() {
    if (!shown_.any() || !confirm(kRemoveQuestion, true)) return;
    const int n = shown_.number;
    if (n > 0) run([&] { return removeRoomAction(session_, ref(), n); });
    showAction({});
}

}  // namespace orr::ui
