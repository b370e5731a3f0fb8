// The message editor's commands that change lines: editing, saving, removing, clearing, moving,
// and going to a line's answer group. Each change reaches the file before the window shows it.

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <algorithm>

#include "messages/MessageCodec.h"
#include "messages/MessageEditRules.h"
#include "messages/MessageEditSession.h"
#include "messages/MessageLineForm.h"
#include "session/PlanetEdits.h"
#include "messages/frmMessages.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"

namespace orr::ui {

namespace {

Direction otherDirection(Direction direction) {
    return direction == Direction::Response ? Direction::Message : Direction::Response;
}

}  // namespace

std::string MessageEditSession::editedText() const {
    return toBytes(w_.txtMessage->toPlainText());
}

QString MessageEditSession::typedForLine() const {
    QString typed = w_.txtMessage->toPlainText();
    if (direction_ == Direction::Information) return typed;
    if (form_.display() == DisplayMode::Custom) typed += w_.txtDisplay->text();
    return typed + w_.cboAnswerGroup->currentText();
}

bool MessageEditSession::storableOrRefused(const QString& typed) {
    const QString characters = unstorableCharacters(typed);
    if (characters.isEmpty()) return true;
    MessagePrompt prompt;
    prompt.text = unstorableMessage(characters);
    prompt.icon = PromptIcon::Exclamation;
    prompts().message(&w_, prompt);
    return false;
}

void MessageEditSession::showEditButtons(bool editing) {
    for (QPushButton* button : {w_.cmdSave, w_.cmdCancel, w_.cmdDelete})
        button->setVisible(editing);
    for (QLabel* label : w_.lblInsert)
        label->setVisible(editing && direction_ != Direction::Information);
    for (QPushButton* button : {w_.cmdNew, w_.cmdEdit, w_.cmdRemove, w_.cmdClearAll, w_.cmdSwap[0],
                                w_.cmdSwap[1], w_.cmdTest})
        button->setVisible(!editing);
}

void MessageEditSession::newLine() {
    if (editing_ || direction_ == Direction::Information) return;
    if (!adoptTypedGroup()) return;
    w_.lstMessages->setCurrentRow(-1);
    startEditing(-1);
}

void MessageEditSession::editLine() {
    editRow(w_.lstMessages->currentRow());
}

void MessageEditSession::editRow(int row) {
    if (editing_ || direction_ == Direction::Information) return;
    // The row belongs to the list shown; once a typed group is taken up there is a new list.
    const std::string shown = group_;
    if (!adoptTypedGroup() || group_ != shown) return;
    if (row < 0 || row >= w_.lstMessages->count()) return;
    startEditing(row);
}

void MessageEditSession::startEditing(int index) {
    editing_ = true;
    editIndex_ = index;
    droppedCodes_.clear();
    storedTags_.clear();
    answerCondition_.clear();
    {
        const Loading loading(loading_);
        std::string text;
        if (direction_ == Direction::Information) {
            const std::string stored = list().line(1);
            text = stored == kMissingValue ? "" : stored;
            form_.reset();
            w_.cmdDelete->setEnabled(stored != kMissingValue);
        } else {
            MessageLine line;
            if (index >= 0)
                line = DecodeMessage(list().line(index + 1), direction_, group_, codes_);
            else
                line.answerGroup = group_;  // a new line answers with its own group
            droppedCodes_ = line.droppedCodes;
            storedTags_ = line.storedTags;
            answerCondition_ = line.answerCondition;
            form_.show(line);
            text = line.text;
            w_.cmdDelete->setEnabled(index >= 0);
        }
        w_.txtMessage->setPlainText(toQString(text));
    }
    form_.setOptionsEnabled(direction_ != Direction::Information);
    w_.stkLines->setCurrentWidget(w_.txtMessage);
    showEditButtons(true);
    updateListButtons();
    updateLength();
    w_.txtMessage->setFocus();
    w_.txtMessage->selectAll();
}

void MessageEditSession::endEditing() {
    editing_ = false;
    editIndex_ = -1;
    droppedCodes_.clear();
    storedTags_.clear();
    answerCondition_.clear();
    // The line belonged to the group shown before any name typed into the box meanwhile.
    showCurrentGroupName();
    form_.setOptionsEnabled(false);
    w_.stkLines->setCurrentWidget(w_.lstMessages);
    form_.hideError();
    showEditButtons(false);
    updateListButtons();
}

void MessageEditSession::cancelEditing(bool restartInformation) {
    if (!editing_) return;
    const int row = editIndex_;
    endEditing();
    {
        const Loading loading(loading_);
        w_.txtMessage->clear();
        form_.reset();
    }
    if (direction_ == Direction::Information) {
        if (restartInformation) startEditing(0);
        return;
    }
    // Back on the list, the line that was being edited stays selected.
    if (row >= 0 && row < w_.lstMessages->count())
        selectRow(row);
    else
        selectRow(-1);
}

void MessageEditSession::save() {
    if (!editing_) return;
    // A character the game cannot store would be written as "?": the edit stays open instead.
    if (!storableOrRefused(typedForLine())) return;
    const std::string text = editedText();
    if (direction_ == Direction::Information) {
        // An empty text deletes "Info".
        if (!report(storeMessageLine(session_, listRef(), 1, text))) return;
        {
            const Loading loading(loading_);
            w_.lstMessages->clear();
            w_.lstMessages->addItem(toQString(text));
        }
        endEditing();
        startEditing(0);
        return;
    }

    MessageLine line = form_.read(text);
    line.droppedCodes = droppedCodes_;
    line.storedTags = storedTags_;
    line.answerCondition = answerCondition_;
    const SaveCheck check = checkLineForSave(line, direction_, group_, codes_);
    if (!check.refusal.empty()) {
        MessagePrompt prompt;
        prompt.text = toQString(check.refusal);
        prompt.icon = PromptIcon::Exclamation;
        prompts().message(&w_, prompt);
        return;
    }
    if (!check.warnings.empty() && !confirm(toQString(saveQuestion(check.warnings)))) return;

    const std::string stored = ComposeMessage(line, direction_, group_);
    const int index = editIndex_;
    if (!report(index >= 0 ? storeMessageLine(session_, listRef(), index + 1, stored)
                           : appendMessageLine(session_, listRef(), stored)))
        return;

    // The answer group is a known group from now on, so Go to Answer and the lists find it.
    const std::string answer = line.answerGroup.empty() ? group_ : line.answerGroup;
    registerGroup(answer, otherDirection(direction_));
    endEditing();
    int row = index;
    {
        const Loading loading(loading_);
        if (w_.cboAnswerGroup->findText(toQString(answer),
                                        Qt::MatchFixedString | Qt::MatchCaseSensitive) < 0)
            w_.cboAnswerGroup->addItem(toQString(answer));
        if (index >= 0 && index < w_.lstMessages->count()) {
            w_.lstMessages->item(index)->setText(toQString(PlainText(stored)));
        } else {
            w_.lstMessages->addItem(toQString(PlainText(stored)));
            row = w_.lstMessages->count() - 1;
        }
    }
    selectRow(row);
}

void MessageEditSession::cancel() {
    reloadMark_ = false;
    cancelEditing(true);
}

void MessageEditSession::deleteEdited() {
    if (!editing_) return;
    if (direction_ == Direction::Information) {
        if (!report(storeMessageLine(session_, listRef(), 1, ""))) return;
        {
            const Loading loading(loading_);
            w_.lstMessages->clear();
            w_.lstMessages->addItem(QString());
            w_.txtMessage->clear();
        }
        w_.cmdDelete->setEnabled(false);
        updateLength();
        return;
    }
    if (editIndex_ < 0 || !confirm(kRemoveQuestion)) return;
    const int row = editIndex_;
    endEditing();
    removeRow(row);
}

void MessageEditSession::removeLine() {
    const int row = w_.lstMessages->currentRow();
    if (editing_ || direction_ == Direction::Information || row < 0) return;
    if (!confirm(kRemoveQuestion)) return;
    removeRow(row);
}

void MessageEditSession::removeRow(int row) {
    if (!report(removeMessageLine(session_, listRef(), row + 1))) return;
    {
        const Loading loading(loading_);
        w_.txtMessage->clear();
        delete w_.lstMessages->takeItem(row);
        w_.lstMessages->setCurrentRow(-1);
        form_.reset();
    }
    updateListButtons();
}

void MessageEditSession::clearAll() {
    if (editing_ || direction_ == Direction::Information || w_.lstMessages->count() < 1) return;
    if (!confirm(kClearQuestion)) return;
    if (!report(clearMessageLines(session_, listRef()))) return;
    {
        const Loading loading(loading_);
        w_.lstMessages->clear();
        w_.txtMessage->clear();
        form_.reset();
    }
    updateListButtons();
}

void MessageEditSession::swapLine(int which) {
    if (editing_ || direction_ == Direction::Information) return;
    const int row = w_.lstMessages->currentRow();
    const int other = which == 0 ? row - 1 : row + 1;
    if (row < 0 || other < 0 || other >= w_.lstMessages->count()) return;
    if (!report(swapMessageLines(session_, listRef(), std::min(row, other) + 1, which == 1))) return;
    {
        const Loading loading(loading_);
        QListWidgetItem* moved = w_.lstMessages->item(row);
        QListWidgetItem* neighbour = w_.lstMessages->item(other);
        const QString text = moved->text();
        moved->setText(neighbour->text());
        neighbour->setText(text);
    }
    selectRow(other);
}

void MessageEditSession::goToAnswer() {
    if (editing_ || direction_ == Direction::Information) return;
    if (w_.lstMessages->currentRow() < 0) return;
    const QString typed = w_.cboAnswerGroup->currentText().trimmed();
    if (typed.isEmpty() || !storableOrRefused(typed)) return;
    const std::string answer = toBytes(typed);
    if (const std::string problem = groupNameProblem(answer); !problem.empty()) {
        MessagePrompt prompt;
        prompt.text = toQString(problem);
        prompt.icon = PromptIcon::Exclamation;
        prompts().message(&w_, prompt);
        return;
    }
    switchDirection(otherDirection(direction_), answer, true);
}

void MessageEditSession::textEdited() {
    if (loading_) return;
    // The game reads one line per key: a line break pasted into the text becomes a blank.
    const QString text = w_.txtMessage->toPlainText();
    if (text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r'))) {
        QTextCursor cursor = w_.txtMessage->textCursor();
        const int position = cursor.position();
        QString flat = text;
        flat.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), ' ');
        {
            const Loading loading(loading_);
            w_.txtMessage->setPlainText(flat);
        }
        cursor = w_.txtMessage->textCursor();
        cursor.setPosition(std::min(position, static_cast<int>(flat.size())));
        w_.txtMessage->setTextCursor(cursor);
    }
    updateLength();
}

void MessageEditSession::optionsEdited() {
    if (loading_ || !editing_) return;
    updateLength();
}

void MessageEditSession::insertCode(int label) {
    if (!editing_ || direction_ == Direction::Information) return;
    if (label < 0 || label >= static_cast<int>(frmMessages::kInsertCodes.size())) return;
    w_.txtMessage->insertPlainText(frmMessages::kInsertCodes[label]);
    w_.txtMessage->setFocus();
}

void MessageEditSession::updateLength() {
    if (!editing_) return;
    form_.updateLength(direction_, group_, editedText());
    if (direction_ == Direction::Information) w_.lblM1Text->setText(w_.txtMessage->toPlainText());
}

void MessageEditSession::customSwitchClicked(bool on) {
    if (report(setPlanetFlag(session_, kMessagesFlag, planet_, on)))
        return;
    const QSignalBlocker blocker(w_.chkCustom);
    w_.chkCustom->setChecked(!on);
}

void MessageEditSession::close() {
    cancelEditing(false);
    reloadMark_ = false;
}

bool MessageEditSession::report(bool ok) {
    if (ok) return true;
    MessagePrompt prompt;
    prompt.text = session_.lastError().empty()
                      ? QStringLiteral("The change could not be written to the system's file.")
                      : toQString(session_.lastError());
    prompt.icon = PromptIcon::Exclamation;
    prompts().message(&w_, prompt);
    return false;
}

bool MessageEditSession::confirm(const QString& question) {
    MessagePrompt prompt;
    prompt.text = question;
    prompt.buttons = PromptButtons::YesNo;
    prompt.icon = PromptIcon::Exclamation;
    return prompts().message(&w_, prompt) == PromptAnswer::Yes;
}

}  // namespace orr::ui
