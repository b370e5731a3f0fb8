// The message editor's directions, groups and list: what is shown and where it comes from.
// The commands that change lines are in MessageEditSessionLines.cpp.

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>

#include "messages/DirectionPicture.h"
#include "messages/MessageCodec.h"
#include "messages/MessageEditRules.h"
#include "messages/MessageEditSession.h"
#include "messages/MessageLineForm.h"
#include "messages/SpecialCodesPanel.h"
#include "messages/frmMessages.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"

namespace orr::ui {

namespace {

constexpr const char* kHailGroup = "Hail";

// The hourglass while the file is searched.
class WaitCursor {
  public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

int kindOf(Direction direction) {
    return direction == Direction::Response ? MessageGroups::kResponseKind
                                            : MessageGroups::kMessageKind;
}

}  // namespace

MessageEditSession::MessageEditSession(frmMessages& window, EditSession& session,
                                       MessageLineForm& form, const SpecialCodeList& codes)
    : w_(window), session_(session), form_(form), codes_(codes) {}

void MessageEditSession::setPlanet(int planet) {
    if (messages_ && planet == planet_) return;
    planet_ = planet;
    messages_ = std::make_unique<PlanetMessageStore>(session_.store(), planet);
}

MessageStore& MessageEditSession::messages() {
    if (!messages_) setPlanet(planet_);
    return *messages_;
}

MessageList MessageEditSession::list() {
    return MessageList(messages(), group_, direction_);
}

bool MessageEditSession::activated() {
    if (skipMark_) {
        skipMark_ = false;
        return false;
    }
    const std::string name = session_.record().DisplayName;
    if (planet_ == loadedPlanet_ && name == loadedName_ && !reloadMark_) return false;
    reload();
    return true;
}

void MessageEditSession::reload() {
    groups_.clear();
    loadedPlanet_ = planet_;
    loadedName_ = session_.record().DisplayName;
    lastGroup_.clear();
    switchDirection(Direction::Information, {}, false);
    {
        const Loading loading(loading_);
        w_.cboGroup->setEditText(kLoadingGroups);
    }
    reloadMark_ = true;
    w_.cmdAddGroup->setEnabled(false);
    switchDirection(Direction::Message, {}, false);
}

void MessageEditSession::refresh() {
    const std::string wanted = direction_ == Direction::Information ? lastGroup_ : group_;
    switchDirection(direction_, wanted, false);
    if (direction_ == Direction::Information) lastGroup_ = wanted;
}

void MessageEditSession::chooseDirection(Direction direction) {
    if (loading_ || direction == direction_) return;
    switchDirection(direction, direction_ == Direction::Information ? lastGroup_ : group_, false);
}

void MessageEditSession::switchDirection(Direction direction, const std::string& wanted,
                                         bool create) {
    if (editing_) cancelEditing(false);
    {
        const Loading loading(loading_);
        w_.optDir[static_cast<int>(direction)]->setChecked(true);
        w_.lstMessages->clear();
    }
    if (direction_ != Direction::Information) lastGroup_ = group_;
    direction_ = direction;
    w_.picDirection->setDirection(direction);
    w_.fraActions->setDirection(direction);
    if (direction == Direction::Information) {
        showInformation();
        return;
    }
    w_.pnlInfo->hide();
    w_.stkLines->setMaximumHeight(QWIDGETSIZE_MAX);
    loadGroupLists();
    restoreGroup(wanted, create);
}

void MessageEditSession::showInformation() {
    {
        const Loading loading(loading_);
        w_.cboGroup->clear();
        w_.cboGroup->setEditText(QString::fromLatin1(kInfoKey));
        w_.cboAnswerGroup->clear();
    }
    w_.cboGroup->setEnabled(false);
    group_ = kInfoKey;
    w_.fraMessages->setTitle(QStringLiteral("Information"));
    w_.cmdAddGroup->setEnabled(false);
    w_.cmdEditRoom->setEnabled(false);
    fillMessageList();
    // The information text is edited in place, above a preview of how the game shows it.
    w_.stkLines->setMaximumHeight(w_.txtMessage->fontMetrics().lineSpacing() * 5);
    w_.lblM1Text->clear();
    w_.pnlInfo->show();
    startEditing(0);
}

void MessageEditSession::loadGroupLists() {
    const WaitCursor hourglass;
    const Loading loading(loading_);
    w_.cboGroup->clear();
    w_.cboAnswerGroup->clear();
    w_.lstMessages->clear();
    form_.reset();
    if (groups_.empty()) ++scanCount_;
    const GroupLists lists = groups_.LoadGroupLists(messages());
    const bool messages = direction_ == Direction::Message;
    for (const std::string& group : messages ? lists.messageGroups : lists.responseGroups)
        w_.cboGroup->addItem(toQString(group));
    for (const std::string& group : messages ? lists.responseGroups : lists.messageGroups)
        w_.cboAnswerGroup->addItem(toQString(group));
    w_.cboAnswerGroup->setCurrentIndex(-1);
    w_.cboGroup->setEnabled(true);
}

bool MessageEditSession::listsGroup(const std::string& group) const {
    return w_.cboGroup->findText(toQString(group), Qt::MatchFixedString | Qt::MatchCaseSensitive) >=
           0;
}

void MessageEditSession::registerGroup(const std::string& group, Direction direction) {
    groups_.ScanGroup(messages(), group, kindOf(direction));
}

void MessageEditSession::restoreGroup(const std::string& wanted, bool create) {
    std::string group = wanted;
    if (!group.empty() && group != kInfoKey && !listsGroup(group)) {
        // A group this direction does not list yet is shown when it holds lines here (or when
        // the designer asked to go there).
        if (create || MessageList(messages(), group, direction_).count() > 0) {
            registerGroup(group, direction_);
            const Loading loading(loading_);
            w_.cboGroup->addItem(toQString(group));
        }
    }
    if (!listsGroup(group)) group = kInitGroup;
    if (!listsGroup(group)) group = kHailGroup;
    showGroup(group);
}

void MessageEditSession::showGroup(const std::string& group) {
    {
        const Loading loading(loading_);
        const int index =
            w_.cboGroup->findText(toQString(group), Qt::MatchFixedString | Qt::MatchCaseSensitive);
        w_.cboGroup->setCurrentIndex(index);
        w_.cboGroup->setEditText(toQString(group));
    }
    group_ = group;
    const QString level = direction_ == Direction::Response ? QStringLiteral("Response Level: ")
                                                            : QStringLiteral("Message Level: ");
    w_.fraMessages->setTitle(level + toQString(group));
    // The room editor is not part of this window yet; the button stays off.
    w_.cmdEditRoom->setEnabled(false);
    w_.cmdAddGroup->setEnabled(false);
    fillMessageList();
}

void MessageEditSession::groupChosen(int index) {
    if (loading_ || index < 0) return;
    const std::string group = toBytes(w_.cboGroup->itemText(index));
    if (editing_) cancelEditing(false);
    showGroup(group);
}

void MessageEditSession::groupTextEdited(const QString& text) {
    if (loading_ || direction_ == Direction::Information) return;
    const int index = w_.cboGroup->findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (index >= 0 && toBytes(text) != group_) {
        w_.cboGroup->setCurrentIndex(index);
        groupChosen(index);
    }
    w_.cmdAddGroup->setEnabled(index < 0 && !text.trimmed().isEmpty());
}

void MessageEditSession::addGroup() {
    if (direction_ == Direction::Information) return;
    const QString typed = w_.cboGroup->currentText().trimmed();
    if (typed.isEmpty() || !storableOrRefused(typed)) return;
    const std::string name = toBytes(typed);
    if (listsGroup(name)) return;
    if (const std::string problem = groupNameProblem(name); !problem.empty()) {
        MessagePrompt prompt;
        prompt.text = toQString(problem);
        prompt.icon = PromptIcon::Exclamation;
        prompts().message(&w_, prompt);
        return;
    }
    if (editing_) cancelEditing(false);
    // The group exists only here until a line is saved in it.
    registerGroup(name, direction_);
    {
        const Loading loading(loading_);
        w_.cboGroup->addItem(toQString(name));
    }
    showGroup(name);
}

bool MessageEditSession::adoptTypedGroup() {
    if (loading_ || editing_ || direction_ == Direction::Information) return true;
    const QString typed = w_.cboGroup->currentText().trimmed();
    if (typed == toQString(group_)) return true;
    if (!typed.isEmpty()) {
        if (unstorableCharacters(typed).isEmpty() && listsGroup(toBytes(typed))) {
            showGroup(toBytes(typed));
            return true;
        }
        addGroup();
        if (toQString(group_) == typed) return true;
    }
    showCurrentGroupName();
    return typed.isEmpty();
}

void MessageEditSession::showCurrentGroupName() {
    if (w_.cboGroup->currentText() == toQString(group_)) return;
    {
        const Loading loading(loading_);
        w_.cboGroup->setEditText(toQString(group_));
    }
    w_.cmdAddGroup->setEnabled(false);
}

void MessageEditSession::groupBoxLeft() {
    adoptTypedGroup();
}

void MessageEditSession::fillMessageList() {
    const WaitCursor hourglass;
    {
        const Loading loading(loading_);
        w_.lstMessages->clear();
        w_.txtMessage->clear();
        form_.reset();  // no line selected: the options show nothing of the last group's lines
        MessageList lines = list();
        if (direction_ == Direction::Information) {
            const std::string info = lines.line(1);
            w_.lstMessages->addItem(toQString(info == kMissingValue ? "" : info));
        } else {
            for (const std::string& line : lines.lines())
                w_.lstMessages->addItem(toQString(PlainText(line)));
        }
    }
    updateListButtons();
}

void MessageEditSession::updateListButtons() {
    const int row = editing_ ? -1 : w_.lstMessages->currentRow();
    const int count = direction_ == Direction::Information ? 0 : w_.lstMessages->count();
    const bool selected = row >= 0 && row < count;
    w_.cmdEdit->setEnabled(selected);
    w_.cmdRemove->setEnabled(selected);
    w_.cmdGo->setEnabled(selected);
    w_.cmdSwap[0]->setEnabled(selected && row > 0);
    w_.cmdSwap[1]->setEnabled(selected && row < count - 1);
    w_.cmdClearAll->setEnabled(count >= 1);
    w_.cmdNew->setEnabled(direction_ != Direction::Information);
    w_.mnuEdit->setEnabled(selected);
    w_.mnuRemove->setEnabled(selected);
    w_.mnuGo->setEnabled(selected);
}

void MessageEditSession::lineSelected(int row) {
    if (loading_ || editing_ || direction_ == Direction::Information) return;
    if (row < 0 || row >= w_.lstMessages->count()) {
        updateListButtons();
        return;
    }
    // The stored line shows its options, answer group and codes while it is selected.
    const MessageLine line = DecodeMessage(list().line(row + 1), direction_, group_, codes_);
    {
        const Loading loading(loading_);
        form_.show(line);
    }
    form_.updateLength(direction_, group_, line.text);
    updateListButtons();
}

void MessageEditSession::selectRow(int row) {
    {
        const Loading loading(loading_);
        w_.lstMessages->setCurrentRow(row);
    }
    lineSelected(row);
}

}  // namespace orr::ui
