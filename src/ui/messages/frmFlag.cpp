#include "messages/frmFlag.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

#include "messages/Flags.h"
#include "messages/PlanetMessageStore.h"
#include "messages/SpecialEntry.h"
#include "platform/Modal.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "session/MessageEdits.h"

namespace orr::ui {

frmFlag::frmFlag(EditSession& session, QWidget* parent) : QDialog(parent), session_(session) {
    setObjectName(QStringLiteral("frmFlag"));
    setWindowTitle(kCaption);
    setModal(true);

    lblAvail = new QLabel(QStringLiteral("Available Flags"), this);
    lblAvail->setObjectName(QStringLiteral("lblAvail"));
    cboFlag = new QComboBox(this);
    cboFlag->setObjectName(QStringLiteral("cboFlag"));
    cboFlag->setEditable(false);
    cboFlag->setMinimumContentsLength(30);
    Label1 = new QLabel(QStringLiteral("Description"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    txtDesc = new QLineEdit(this);
    txtDesc->setObjectName(QStringLiteral("txtDesc"));
    txtDesc->installEventFilter(this);
    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    lblAvail->setBuddy(cboFlag);
    Label1->setBuddy(txtDesc);

    auto* fields = new QGridLayout;
    fields->addWidget(lblAvail, 0, 0);
    fields->addWidget(cboFlag, 0, 1);
    fields->addWidget(Label1, 1, 0);
    fields->addWidget(txtDesc, 1, 1);
    fields->setColumnStretch(1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addLayout(buttons);
    setMinimumWidth(420);

    connect(cboFlag, &QComboBox::currentIndexChanged, this, &frmFlag::flagChosen);
    connect(cmdOK, &QPushButton::clicked, this, &frmFlag::cmdOK_Click);
}

void frmFlag::setChosenIndex(int index) {
    chosen_ = (index >= 0 && index < kFlagCount) ? index : 0;
}

QString frmFlag::chosenFlag() const {
    return QString(QLatin1Char(FlagChar(chosen_)));
}

void frmFlag::LoadFlags() {
    PlanetMessageStore messages(session_.store(), planet_);
    {
        const QSignalBlocker blocker(cboFlag);
        cboFlag->clear();
        for (const std::string& item : LoadFlagItems(messages)) cboFlag->addItem(toQString(item));
        cboFlag->setCurrentIndex(chosen_);
    }
    flagChosen(cboFlag->currentIndex());
}

void frmFlag::prepare(const QString& current) {
    setChosenIndex(FlagIndex(toBytes(current)));
    LoadFlags();
}

QString frmFlag::GetFlagChar(const QString& current) {
    prepare(current);
    runDialog(*this);
    return chosenFlag();
}

void frmFlag::flagChosen(int index) {
    if (index < 0) {
        txtDesc->clear();
        txtDesc->setEnabled(false);
        return;
    }
    txtDesc->setEnabled(true);
    txtDesc->setText(toQString(FlagItemDescription(toBytes(cboFlag->itemText(index)))));
    txtDesc->setFocus();
    txtDesc->selectAll();
}

bool frmFlag::eventFilter(QObject* watched, QEvent* event) {
    // The whole description is selected on entering it, so typing replaces "Unused" at once.
    // (A mouse click would place the cursor after the focus arrives, hence the delay.)
    if (watched == txtDesc && event->type() == QEvent::FocusIn)
        QTimer::singleShot(0, txtDesc, &QLineEdit::selectAll);
    return QDialog::eventFilter(watched, event);
}

void frmFlag::cmdOK_Click() {
    const int index = cboFlag->currentIndex();
    const QString typed = txtDesc->text().trimmed();
    // A character the game cannot store would be written as "?": the dialog stays open.
    if (const QString characters = unstorableCharacters(typed); !characters.isEmpty()) {
        MessagePrompt prompt;
        prompt.text = unstorableMessage(characters);
        prompt.icon = PromptIcon::Exclamation;
        prompts().message(this, prompt);
        return;
    }
    const std::string description = toBytes(typed);
    if (index < 0 || !IsUsableFlagDescription(description)) {
        MessagePrompt prompt;
        prompt.text = QString::fromLatin1(kFlagDescriptionNeeded);
        prompt.icon = PromptIcon::Exclamation;
        prompts().message(this, prompt);
        return;
    }
    const char flag = FlagChar(index);
    // One step of the session's history ("Describe Flag C").
    if (!report(this, setFlagDescription(session_, planet_, flag, description),
                session_.lastError(), "The flag's description could not be written."))
        return;
    cboFlag->setItemText(index, toQString(std::string(1, flag) + kCodeSeparator + description));
    chosen_ = index;
    accept();
}

}  // namespace orr::ui
