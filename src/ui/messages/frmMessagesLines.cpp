// The message editor's commands that change lines: editing, saving, removing, clearing, moving,
// and going to a line's answer group. Each change is a command of the edit session and reaches
// the file before the window shows it.

#include <QFontMetrics>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <algorithm>

#include "messages/MessageCodec.h"
#include "messages/MessageEditRules.h"
#include "messages/MessageLineForm.h"
#include "messages/frmMessages.h"
#include "platform/QtText.h"

namespace orr::ui {

namespace {

// Width of `text` in the window's font, in twips, at the screen's logical resolution.
int textWidthTwips(const QWidget& window, const QString& text) {
    const QFontMetrics metrics(window.font(), &window);
    const int dpi = std::max(1, window.logicalDpiX());
    return static_cast<int>(static_cast<long long>(metrics.horizontalAdvance(text)) *
                            kTwipsPerInch / dpi);
}

}  // namespace

std::string frmMessages::editedText() const {
    return toBytes(txtMessage->toPlainText());
}

bool frmMessages::storableOrRefused(const QString& typed) {
    const QString characters = unstorableCharacters(typed);
    if (characters.isEmpty()) return true;
    warn(unstorableMessage(characters));
    return false;
}

void frmMessages::showEditButtons(bool editing) {
    for (QPushButton* button : {cmdSave, cmdCancel, cmdDelete}) button->setVisible(editing);
    for (QLabel* label : lblInsert)
        label->setVisible(editing && state_.direction() != Direction::Information);
    for (QPushButton* button :
         {cmdNew, cmdEdit, cmdRemove, cmdClearAll, cmdSwap[0], cmdSwap[1], cmdTest})
        button->setVisible(!editing);
}

void frmMessages::newLine() {
    if (editing_ || state_.direction() == Direction::Information) return;
    if (!adoptTypedGroup()) return;
    lstMessages->setCurrentRow(-1);
    startEditing(-1);
}

void frmMessages::editLine() {
    editRow(lstMessages->currentRow());
}

void frmMessages::editRow(int row) {
    if (editing_ || state_.direction() == Direction::Information) return;
    // The row belongs to the list shown; once a typed group is taken up there is a new list.
    const std::string shown = state_.group();
    if (!adoptTypedGroup() || state_.group() != shown) return;
    if (row < 0 || row >= lstMessages->count()) return;
    startEditing(row);
}

void frmMessages::startEditing(int index) {
    const Direction direction = state_.direction();
    editing_ = true;
    editIndex_ = index;
    droppedCodes_.clear();
    storedTags_.clear();
    answerCondition_.clear();
    editedStored_ = index >= 0 ? list().line(index + 1) : std::string();
    {
        const Busy loading(loading_);
        std::string text;
        if (direction == Direction::Information) {
            text = editedStored_ == kMissingValue ? "" : editedStored_;
            resetForm();
            cmdDelete->setEnabled(editedStored_ != kMissingValue);
        } else {
            MessageLine line;
            if (index >= 0)
                line = DecodeMessage(editedStored_, direction, state_.group(), codes_);
            else
                line.answerGroup = state_.group();  // a new line answers with its own group
            droppedCodes_ = line.droppedCodes;
            storedTags_ = line.storedTags;
            answerCondition_ = line.answerCondition;
            form_->showLine(line);
            text = line.text;
            cmdDelete->setEnabled(index >= 0);
        }
        txtMessage->setPlainText(toQString(text));
    }
    form_->setOptionsEnabled(direction != Direction::Information);
    stkLines->setCurrentWidget(txtMessage);
    showEditButtons(true);
    updateListButtons();
    updateLength();
    txtMessage->setFocus();
    txtMessage->selectAll();
}

void frmMessages::endEditing() {
    editing_ = false;
    editIndex_ = -1;
    editedStored_.clear();
    droppedCodes_.clear();
    storedTags_.clear();
    answerCondition_.clear();
    // The line belonged to the group shown before any name typed into the box meanwhile.
    showCurrentGroupName();
    form_->setOptionsEnabled(false);
    stkLines->setCurrentWidget(lstMessages);
    hideLengthError();
    showEditButtons(false);
    updateListButtons();
}

void frmMessages::cancelEditing(bool restartInformation) {
    if (!editing_) return;
    const int row = editIndex_;
    endEditing();
    {
        const Busy loading(loading_);
        txtMessage->clear();
        resetForm();
    }
    if (state_.direction() == Direction::Information) {
        if (restartInformation) startEditing(0);
        return;
    }
    // Back on the list, the line that was being edited stays selected.
    selectRow(row >= 0 && row < lstMessages->count() ? row : -1);
}

void frmMessages::save() {
    if (!editing_) return;
    const bool information = state_.direction() == Direction::Information;
    // A character the game cannot store would be written as "?": the edit stays open instead.
    QString typed = txtMessage->toPlainText();
    if (!information) typed += form_->typed();
    if (!storableOrRefused(typed)) return;
    const std::string text = editedText();
    if (information) {
        // An empty text deletes "Info".
        {
            const Busy own(ownChange_);
            if (!report(storeMessageLine(session_, listRef(), 1, text))) return;
        }
        {
            const Busy loading(loading_);
            lstMessages->clear();
            lstMessages->addItem(toQString(text));
        }
        endEditing();
        startEditing(0);
        return;
    }
    if (saveLine(text)) showPendingChanges();
}

bool frmMessages::saveLine(const std::string& text) {
    const Direction direction = state_.direction();
    const std::string group = state_.group();
    MessageLine line = form_->read(text);
    line.droppedCodes = droppedCodes_;
    line.storedTags = storedTags_;
    line.answerCondition = answerCondition_;
    const SaveCheck check = checkLineForSave(line, direction, group, codes_);
    if (!check.refusal.empty()) {
        warn(toQString(check.refusal));
        return false;
    }
    if (!check.warnings.empty() && !confirm(toQString(saveQuestion(check.warnings)))) return false;

    const std::string stored = ComposeMessage(line, direction, group);
    const int index = editIndex_;
    {
        const Busy own(ownChange_);
        if (!report(index >= 0 ? storeMessageLine(session_, listRef(), index + 1, stored)
                               : appendMessageLine(session_, listRef(), stored)))
            return false;
    }
    // The answer group is a known group from now on, so Go to Answer and the lists find it.
    state_.lineSaved(messages(), line.answerGroup);
    endEditing();
    int row = index;
    {
        const Busy loading(loading_);
        form_->setAnswerGroups(state_.answerGroups());
        if (index >= 0 && index < lstMessages->count()) {
            lstMessages->item(index)->setText(toQString(PlainText(stored)));
        } else {
            lstMessages->addItem(toQString(PlainText(stored)));
            row = lstMessages->count() - 1;
        }
    }
    selectRow(row);
    return true;
}

void frmMessages::cancel() {
    state_.clearReloadMark();
    cancelEditing(true);
    showPendingChanges();
}

void frmMessages::deleteEdited() {
    if (!editing_) return;
    if (state_.direction() == Direction::Information) {
        {
            const Busy own(ownChange_);
            if (!report(storeMessageLine(session_, listRef(), 1, ""))) return;
        }
        {
            const Busy loading(loading_);
            lstMessages->clear();
            lstMessages->addItem(QString());
            txtMessage->clear();
        }
        editedStored_ = kMissingValue;
        cmdDelete->setEnabled(false);
        updateLength();
        return;
    }
    if (editIndex_ < 0 || !confirm(kRemoveQuestion)) return;
    const int row = editIndex_;
    endEditing();
    removeRow(row);
    showPendingChanges();
}

void frmMessages::removeLine() {
    const int row = lstMessages->currentRow();
    if (editing_ || state_.direction() == Direction::Information || row < 0) return;
    if (!confirm(kRemoveQuestion)) return;
    removeRow(row);
}

void frmMessages::removeRow(int row) {
    {
        const Busy own(ownChange_);
        if (!report(removeMessageLine(session_, listRef(), row + 1))) return;
    }
    {
        const Busy loading(loading_);
        txtMessage->clear();
        delete lstMessages->takeItem(row);
        lstMessages->setCurrentRow(-1);
        resetForm();
    }
    updateListButtons();
}

void frmMessages::clearAll() {
    if (editing_ || state_.direction() == Direction::Information || lstMessages->count() < 1)
        return;
    if (!confirm(kClearQuestion)) return;
    {
        const Busy own(ownChange_);
        if (!report(clearMessageLines(session_, listRef()))) return;
    }
    {
        const Busy loading(loading_);
        lstMessages->clear();
        txtMessage->clear();
        resetForm();
    }
    updateListButtons();
}

void frmMessages::swapLine(int which) {
    if (editing_ || state_.direction() == Direction::Information) return;
    const int row = lstMessages->currentRow();
    const int other = which == 0 ? row - 1 : row + 1;
    if (row < 0 || other < 0 || other >= lstMessages->count()) return;
    {
        const Busy own(ownChange_);
        if (!report(swapMessageLines(session_, listRef(), std::min(row, other) + 1, which == 1)))
            return;
    }
    {
        const Busy loading(loading_);
        QListWidgetItem* moved = lstMessages->item(row);
        QListWidgetItem* neighbour = lstMessages->item(other);
        const QString text = moved->text();
        moved->setText(neighbour->text());
        neighbour->setText(text);
    }
    selectRow(other);
}

void frmMessages::goToAnswer() {
    if (editing_ || state_.direction() == Direction::Information) return;
    if (lstMessages->currentRow() < 0) return;
    const QString typed = form_->answerGroup();
    if (typed.isEmpty() || !storableOrRefused(typed)) return;
    const MessageEditorState::AnswerTarget target = state_.answerTarget(toBytes(typed));
    if (!target.problem.empty()) {
        warn(toQString(target.problem));
        return;
    }
    switchDirection(target.direction, target.group, true);
}

void frmMessages::textEdited() {
    if (loading_) return;
    // The game reads one line per key: a line break pasted into the text becomes a blank.
    const QString text = txtMessage->toPlainText();
    if (text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r'))) {
        QTextCursor cursor = txtMessage->textCursor();
        const int position = cursor.position();
        QString flat = text;
        flat.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), ' ');
        {
            const Busy loading(loading_);
            txtMessage->setPlainText(flat);
        }
        cursor = txtMessage->textCursor();
        cursor.setPosition(std::min(position, static_cast<int>(flat.size())));
        txtMessage->setTextCursor(cursor);
    }
    updateLength();
}

void frmMessages::optionsEdited() {
    if (loading_ || !editing_) return;
    updateLength();
}

void frmMessages::insertCode(int label) {
    if (!editing_ || state_.direction() == Direction::Information) return;
    if (label < 0 || label >= static_cast<int>(kInsertCodes.size())) return;
    txtMessage->insertPlainText(kInsertCodes[label]);
    txtMessage->setFocus();
}

void frmMessages::updateLength() {
    if (editing_) showLength(editedText());
}

void frmMessages::showLength(const std::string& text) {
    const Direction direction = state_.direction();
    const bool information = direction == Direction::Information;
    const std::string stored =
        information ? text : ComposeMessage(form_->read(text), direction, state_.group());
    lblLength->setText(QStringLiteral("Length: %1").arg(stored.size()));
    QString problem;
    if (ExceedsLengthLimit(stored)) {
        problem = QString::fromLatin1(kLengthLimitExceeded);
    } else if (direction == Direction::Response &&
               textWidthTwips(*this, toQString(text)) >= kResponseWidthLimitTwips) {
        problem = QString::fromLatin1(kWidthLimitExceeded);
    }
    lblError->setText(problem);
    lblError->setVisible(!problem.isEmpty());
    lblLength->setStyleSheet(problem.isEmpty() ? QString() : QStringLiteral("color: red;"));
    if (information) lblM1Text->setText(txtMessage->toPlainText());
}

void frmMessages::resetForm() {
    form_->reset();
    lblLength->setText(QStringLiteral("Length: 0"));
    hideLengthError();
}

void frmMessages::hideLengthError() {
    lblError->hide();
    lblLength->setStyleSheet(QString());
}

}  // namespace orr::ui
