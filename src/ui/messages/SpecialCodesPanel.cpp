#include "messages/SpecialCodesPanel.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <algorithm>

#include "messages/MessageEditRules.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"

namespace orr::ui {

SpecialCodesPanel::SpecialCodesPanel(QWidget* parent) : QGroupBox(kCaption, parent) {
    setObjectName(QStringLiteral("fraActions"));
    cboSpecial = new QComboBox(this);
    cboSpecial->setObjectName(QStringLiteral("cboSpecial"));
    cboSpecial->setEditable(false);
    // The box never grows with its entries (the drop-down shows them whole), so the window
    // keeps its width whatever the list file holds.
    cboSpecial->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboSpecial->setMinimumContentsLength(24);
    cboSpecial->view()->setTextElideMode(Qt::ElideRight);
    lstSpecial = new QListWidget(this);
    lstSpecial->setObjectName(QStringLiteral("lstSpecial"));
    lstSpecial->setMinimumHeight(lstSpecial->fontMetrics().lineSpacing() * 3);
    // The chosen or selected entry's explanation, wrapped to the frame's width in a box of two
    // lines that scrolls, so that neither a long explanation nor none moves the other controls.
    txtExplanation = new QPlainTextEdit(this);
    txtExplanation->setObjectName(QStringLiteral("txtExplanation"));
    txtExplanation->setReadOnly(true);
    txtExplanation->setFocusPolicy(Qt::NoFocus);
    txtExplanation->setFrameShape(QFrame::NoFrame);
    txtExplanation->viewport()->setAutoFillBackground(false);
    txtExplanation->document()->setDocumentMargin(0);
    txtExplanation->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    txtExplanation->setFixedHeight(txtExplanation->fontMetrics().lineSpacing() * 2);
    txtExplanation->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    cmdSpAdd = new QPushButton(QStringLiteral("Add"), this);
    cmdSpAdd->setObjectName(QStringLiteral("cmdSpAdd"));
    cmdSpDelete = new QPushButton(QStringLiteral("Delete"), this);
    cmdSpDelete->setObjectName(QStringLiteral("cmdSpDelete"));
    cmdSpEdit = new QPushButton(QStringLiteral("Edit"), this);
    cmdSpEdit->setObjectName(QStringLiteral("cmdSpEdit"));
    for (QPushButton* button : {cmdSpAdd, cmdSpDelete, cmdSpEdit}) {
        button->setAutoDefault(false);
        button->setEnabled(false);
    }

    auto* layout = new QGridLayout(this);
    layout->addWidget(cboSpecial, 0, 0, 1, 3);
    layout->addWidget(lstSpecial, 1, 0, 1, 3);
    layout->addWidget(txtExplanation, 2, 0, 1, 3);
    layout->addWidget(cmdSpAdd, 3, 0);
    layout->addWidget(cmdSpEdit, 3, 1);
    layout->addWidget(cmdSpDelete, 3, 2);

    connect(cboSpecial, &QComboBox::currentIndexChanged, this, &SpecialCodesPanel::chooseEntry);
    connect(cmdSpAdd, &QPushButton::clicked, this, &SpecialCodesPanel::addChosen);
    connect(cmdSpEdit, &QPushButton::clicked, this, &SpecialCodesPanel::editSelected);
    connect(cmdSpDelete, &QPushButton::clicked, this, &SpecialCodesPanel::deleteSelected);
    connect(lstSpecial, &QListWidget::currentRowChanged, this,
            &SpecialCodesPanel::attachedSelected);
    connect(lstSpecial, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem*) { editSelected(); });
}

void SpecialCodesPanel::setCodes(const SpecialCodeList& codes) {
    codes_ = codes;
    const QSignalBlocker blocker(cboSpecial);
    cboSpecial->clear();
    if (codes_.codesAvailable()) {
        for (const SpecialEntry& entry : codes_.entries()) {
            cboSpecial->addItem(toQString(entry.line()));
            if (!entry.explanation().empty()) {
                cboSpecial->setItemData(cboSpecial->count() - 1, toQString(entry.explanation()),
                                        Qt::ToolTipRole);
            }
            if (entry.isHeading()) {
                // Headings group the entries; they are shown but cannot be attached.
                QFont bold = cboSpecial->font();
                bold.setBold(true);
                cboSpecial->setItemData(cboSpecial->count() - 1, bold, Qt::FontRole);
            }
        }
    }
    cboSpecial->setCurrentIndex(-1);
    cboSpecial->setEnabled(codes_.codesAvailable() && !codes_.empty());
    updateAddButton();
}

void SpecialCodesPanel::setDirection(Direction direction) {
    direction_ = direction;
    updateAddButton();
}

void SpecialCodesPanel::setChoosers(Choosers choosers) {
    choosers_ = std::move(choosers);
}

void SpecialCodesPanel::setEntries(std::vector<SpecialEntry> entries) {
    attached_ = std::move(entries);
    showAttached(-1);
}

void SpecialCodesPanel::showAttached(int selectRow) {
    const QSignalBlocker blocker(lstSpecial);
    lstSpecial->clear();
    for (const SpecialEntry& entry : attached_) {
        auto* item = new QListWidgetItem(toQString(entry.line()), lstSpecial);
        // The descriptions are longer than the frame is wide.
        QString tip = item->text();
        if (!entry.explanation().empty()) tip += QLatin1Char('\n') + toQString(entry.explanation());
        item->setToolTip(tip);
    }
    lstSpecial->setCurrentRow(selectRow);
    attachedSelected(selectRow);
}

void SpecialCodesPanel::updateAddButton() {
    const int index = cboSpecial->currentIndex();
    const bool chosen = index >= 0 && index < static_cast<int>(codes_.size());
    cmdSpAdd->setEnabled(chosen && codes_.codesAvailable() &&
                         SpecialCodeList::canAdd(codes_.entries()[index], direction_));
}

void SpecialCodesPanel::chooseEntry(int index) {
    if (settling_) return;
    // A heading passes the choice on to the nearest entry below it (or above, at the end).
    const int settled = codes_.settleChoice(index);
    if (settled != index && index >= 0) {
        settling_ = true;
        cboSpecial->setCurrentIndex(settled);
        settling_ = false;
    }
    updateAddButton();
    const int chosen = cboSpecial->currentIndex();
    showExplanation(chosen >= 0 && chosen < static_cast<int>(codes_.size())
                        ? codes_.entries()[chosen].explanation()
                        : std::string());
}

void SpecialCodesPanel::showExplanation(const std::string& explanation) {
    txtExplanation->setPlainText(toQString(explanation));
}

void SpecialCodesPanel::addChosen() {
    const int index = cboSpecial->currentIndex();
    if (index < 0 || index >= static_cast<int>(codes_.size())) return;
    const SpecialEntry& chosen = codes_.entries()[index];
    if (!SpecialCodeList::canAdd(chosen, direction_)) return;
    const AttachConflict conflict = SpecialCodeList::checkAttach(attached_, chosen);
    if (conflict != AttachConflict::None) {
        MessagePrompt prompt;
        prompt.text = toQString(attachConflictMessage(conflict));
        prompt.icon = PromptIcon::Exclamation;
        prompts().message(window(), prompt);
        return;
    }
    attached_.push_back(chosen);
    showAttached(static_cast<int>(attached_.size()) - 1);
    emit changed();
}

std::string SpecialCodesPanel::askArgument(const SpecialEntry& entry) {
    const ArgumentEditor editor = entry.argumentEditor();
    switch (editor.kind) {
        case ArgumentEditorKind::SystemChooser:
            if (!choosers_.chooseSystem) return {};
            return shipSystemArgument(choosers_.chooseSystem(editor.systemIndex));
        case ArgumentEditorKind::FlagChooser:
            if (!choosers_.chooseFlag) return {};
            return choosers_.chooseFlag(editor.current);
        case ArgumentEditorKind::InputBox:
            break;
        case ArgumentEditorKind::None:
            return {};
    }
    InputPrompt prompt;
    prompt.caption = kEditCaption;
    prompt.text = kEditQuestion;
    prompt.defaultText = toQString(editor.current);
    const std::optional<QString> answer = prompts().input(window(), prompt);
    if (!answer || answer->isEmpty()) return {};
    std::string value;
    QString problem;
    // A character the game cannot store would be written as "?": refused, the old value stays.
    if (const QString characters = unstorableCharacters(*answer); !characters.isEmpty()) {
        problem = unstorableMessage(characters);
    } else {
        value = toBytes(*answer);
        problem = toQString(argumentProblem(entry.code(), value));
    }
    if (!problem.isEmpty()) {
        MessagePrompt refusal;
        refusal.text = problem;
        refusal.icon = PromptIcon::Exclamation;
        prompts().message(window(), refusal);
        return {};
    }
    return value;
}

void SpecialCodesPanel::editSelected() {
    const int row = lstSpecial->currentRow();
    if (row < 0 || row >= static_cast<int>(attached_.size())) return;
    const SpecialEntry entry = attached_[row];
    const std::string value = askArgument(entry);
    if (value.empty()) return;  // cancelled: the old argument stays
    const ArgumentEditor editor = entry.argumentEditor();
    attached_[row] = editor.kind == ArgumentEditorKind::FlagChooser
                         ? entry.withSquareArgument(value)
                         : entry.withRoundArgument(value);
    showAttached(row);
    emit changed();
}

void SpecialCodesPanel::deleteSelected() {
    const int row = lstSpecial->currentRow();
    if (row < 0 || row >= static_cast<int>(attached_.size())) return;
    attached_.erase(attached_.begin() + row);
    // The entry that took its place, or the new last one.
    showAttached(std::min(row, static_cast<int>(attached_.size()) - 1));
    emit changed();
}

void SpecialCodesPanel::attachedSelected(int row) {
    const bool selected = row >= 0 && row < static_cast<int>(attached_.size());
    cmdSpDelete->setEnabled(selected);
    cmdSpEdit->setEnabled(selected && attached_[row].canEditArgument());
    if (selected) showExplanation(attached_[row].explanation());
}

}  // namespace orr::ui
