// The message editor's directions, groups and list: what is shown and where it comes from. The
// rules are MessageEditorState's; this shows its state in the controls.

#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>

#include "messages/DirectionPicture.h"
#include "messages/MessageCodec.h"
#include "messages/MessageLineForm.h"
#include "messages/frmMessages.h"
#include "platform/QtText.h"
#include "rooms/RoomNames.h"

namespace orr::ui {

namespace {

// The hourglass while the file is searched.
class WaitCursor {
  public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace

MessageStore& frmMessages::messages() {
    if (!reader_) reader_ = std::make_unique<PlanetMessageStore>(session_.store(), planet());
    return *reader_;
}

MessageList frmMessages::list() {
    return MessageList(messages(), state_.group(), state_.direction());
}

MessageListRef frmMessages::listRef() const {
    return {state_.planet(), state_.group(), state_.direction()};
}

void frmMessages::activate() {
    if (state_.activate(session_.record().DisplayName))
        switchDirection(Direction::Message, {}, false);
    else
        switchDirection(state_.direction(), state_.groupToKeep(), false);
}

void frmMessages::chooseDirection(Direction direction) {
    if (loading_ || direction == state_.direction()) return;
    switchDirection(direction, state_.groupToKeep(), false);
}

void frmMessages::switchDirection(Direction direction, const std::string& wanted, bool create) {
    if (editing_) cancelEditing(false);
    changesPending_ = false;
    {
        const WaitCursor hourglass;
        state_.show(messages(), direction, wanted, create);
    }
    {
        const Busy loading(loading_);
        optDir[static_cast<int>(direction)]->setChecked(true);
        lstMessages->clear();
    }
    picDirection->setDirection(direction);
    form_->setDirection(direction);
    if (direction == Direction::Information) {
        showInformation();
        return;
    }
    pnlInfo->hide();
    stkLines->setMaximumHeight(QWIDGETSIZE_MAX);
    cboGroup->setEnabled(true);
    showGroupLists();
    showGroup();
}

void frmMessages::showInformation() {
    {
        const Busy loading(loading_);
        cboGroup->clear();
        cboGroup->setEditText(QString::fromLatin1(kInfoKey));
        form_->setAnswerGroups({});
    }
    cboGroup->setEnabled(false);
    fraMessages->setTitle(QStringLiteral("Information"));
    cmdAddGroup->setEnabled(false);
    cmdEditRoom->setEnabled(false);
    fillMessageList();
    // The information text is edited in place, above a preview of how the game shows it.
    stkLines->setMaximumHeight(txtMessage->fontMetrics().lineSpacing() * 5);
    lblM1Text->clear();
    pnlInfo->show();
    startEditing(0);
}

void frmMessages::showGroupLists() {
    const Busy loading(loading_);
    cboGroup->clear();
    for (const std::string& group : state_.groups()) cboGroup->addItem(toQString(group));
    form_->setAnswerGroups(state_.answerGroups());
}

void frmMessages::showGroup() {
    const QString group = toQString(state_.group());
    {
        const Busy loading(loading_);
        cboGroup->setCurrentIndex(
            cboGroup->findText(group, Qt::MatchFixedString | Qt::MatchCaseSensitive));
        cboGroup->setEditText(group);
    }
    const QString level = state_.direction() == Direction::Response
                              ? QStringLiteral("Response Level: ")
                              : QStringLiteral("Message Level: ");
    fraMessages->setTitle(level + group);
    cmdEditRoom->setEnabled(canEditAsRoom(state_.group()));
    cmdAddGroup->setEnabled(false);
    fillMessageList();
}

void frmMessages::groupChosen(int index) {
    if (loading_ || index < 0) return;
    if (!state_.choose(toBytes(cboGroup->itemText(index)))) return;
    if (editing_) cancelEditing(false);
    showGroup();
}

void frmMessages::groupTextEdited(const QString& text) {
    if (loading_ || state_.direction() == Direction::Information) return;
    const std::string name = toBytes(text);
    const bool listed = unstorableCharacters(text).isEmpty() && state_.lists(name);
    if (listed && name != state_.group()) {
        const int index = cboGroup->findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
        cboGroup->setCurrentIndex(index);
        groupChosen(index);
    }
    cmdAddGroup->setEnabled(!listed && !text.trimmed().isEmpty());
}

bool frmMessages::takeGroup(const QString& typed) {
    if (!storableOrRefused(typed)) return false;
    if (const std::string problem = state_.take(messages(), toBytes(typed)); !problem.empty()) {
        warn(toQString(problem));
        return false;
    }
    // The group exists only here until a line is saved in it.
    if (editing_) cancelEditing(false);
    showGroupLists();
    showGroup();
    return true;
}

void frmMessages::addGroup() {
    const QString typed = cboGroup->currentText().trimmed();
    if (state_.direction() == Direction::Information || typed.isEmpty()) return;
    if (!takeGroup(typed)) showCurrentGroupName();
}

bool frmMessages::adoptTypedGroup() {
    if (loading_ || editing_ || state_.direction() == Direction::Information) return true;
    const QString typed = cboGroup->currentText().trimmed();
    if (typed == toQString(state_.group())) return true;
    if (!typed.isEmpty() && takeGroup(typed)) return true;
    showCurrentGroupName();
    return typed.isEmpty();
}

void frmMessages::showCurrentGroupName() {
    if (cboGroup->currentText() == toQString(state_.group())) return;
    {
        const Busy loading(loading_);
        cboGroup->setEditText(toQString(state_.group()));
    }
    cmdAddGroup->setEnabled(false);
}

void frmMessages::fillMessageList() {
    const WaitCursor hourglass;
    {
        const Busy loading(loading_);
        lstMessages->clear();
        txtMessage->clear();
        resetForm();  // no line selected: the options show nothing of the last group's lines
        MessageList lines = list();
        if (state_.direction() == Direction::Information) {
            const std::string info = lines.line(1);
            lstMessages->addItem(toQString(info == kMissingValue ? "" : info));
        } else {
            for (const std::string& line : lines.lines())
                lstMessages->addItem(toQString(PlainText(line)));
        }
    }
    updateListButtons();
}

void frmMessages::updateListButtons() {
    const bool information = state_.direction() == Direction::Information;
    const int row = editing_ ? -1 : lstMessages->currentRow();
    const int count = information ? 0 : lstMessages->count();
    const bool selected = row >= 0 && row < count;
    cmdEdit->setEnabled(selected);
    cmdRemove->setEnabled(selected);
    cmdGo->setEnabled(selected);
    cmdSwap[0]->setEnabled(selected && row > 0);
    cmdSwap[1]->setEnabled(selected && row < count - 1);
    cmdClearAll->setEnabled(count >= 1);
    cmdNew->setEnabled(!information);
    mnuEdit->setEnabled(selected);
    mnuRemove->setEnabled(selected);
    mnuGo->setEnabled(selected);
}

void frmMessages::lineSelected(int row) {
    if (loading_ || editing_ || state_.direction() == Direction::Information) return;
    if (row < 0 || row >= lstMessages->count()) {
        updateListButtons();
        return;
    }
    // The stored line shows its options, answer group and codes while it is selected.
    const MessageLine line =
        DecodeMessage(list().line(row + 1), state_.direction(), state_.group(), codes_);
    form_->showLine(line);
    showLength(line.text);
    updateListButtons();
}

void frmMessages::selectRow(int row) {
    {
        const Busy loading(loading_);
        lstMessages->setCurrentRow(row);
    }
    lineSelected(row);
}

bool frmMessages::editedLineChanged() {
    if (editIndex_ < 0) return false;  // a new line: nothing stored to change
    MessageList lines = list();
    if (state_.direction() != Direction::Information && editIndex_ >= lines.count()) return true;
    return lines.line(editIndex_ + 1) != editedStored_;
}

void frmMessages::showFromFile() {
    if (editing_) {
        const bool information = state_.direction() == Direction::Information;
        if (!editedLineChanged()) {
            // The edit goes on; the list is shown from the file when it ends.
            if (!information) changesPending_ = true;
            return;
        }
        if (information) {
            cancelEditing(true);  // edited again, from the text now stored
            return;
        }
        cancelEditing(false);
    }
    const int row = lstMessages->currentRow();
    switchDirection(state_.direction(), state_.groupToKeep(), true);
    if (row >= 0 && row < lstMessages->count()) selectRow(row);
}

void frmMessages::showPendingChanges() {
    if (!changesPending_ || editing_) return;
    changesPending_ = false;
    showFromFile();
}

}  // namespace orr::ui
