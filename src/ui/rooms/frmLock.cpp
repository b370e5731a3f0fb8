#include "rooms/frmLock.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/Named.h"
#include "platform/Prompts.h"

namespace orr::ui {

frmLock::frmLock(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmLock"));
    setWindowTitle(kCaption);
    setModal(true);
    Label1 =
        named(new QLabel(QStringLiteral("Select the action you want to lock:"), this), "Label1");
    cboAction = named(new QComboBox(this), "cboAction");
    cboAction->setEditable(false);
    cboAction->setMinimumContentsLength(40);
    Label2 = named(new QLabel(QStringLiteral("Enter the message for when the action is locked: "
                                             "(for example: \"That door is locked\")"),
                              this),
                   "Label2");
    txtDesc = named(new QLineEdit(this), "txtDesc");
    Label3 = named(
        new QLabel(QStringLiteral("After clicking OK, you will be asked to choose a flag. This "
                                  "flag must be set somewhere else in order to use this action. If "
                                  "the flag is clear the above message will be displayed."),
                   this),
        "Label3");
    Label3->setWordWrap(true);
    cmdOK = named(new QPushButton(QStringLiteral("&OK"), this), "cmdOK");
    cmdOK->setDefault(true);
    cmdCancel = named(new QPushButton(QStringLiteral("&Cancel"), this), "cmdCancel");
    Label1->setBuddy(cboAction);
    Label2->setBuddy(txtDesc);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    for (QWidget* control : std::initializer_list<QWidget*>{Label1, cboAction, Label2, txtDesc})
        layout->addWidget(control);
    layout->addSpacing(6);
    layout->addWidget(Label3);
    layout->addLayout(buttons);
    setMinimumWidth(460);

    connect(cmdOK, &QPushButton::clicked, this, &frmLock::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &frmLock::reject);
}

void frmLock::Clear() {
    cboAction->clear();
    cboAction->setCurrentIndex(-1);
    txtDesc->clear();
}

void frmLock::AddItem(const QString& text, int number) {
    cboAction->addItem(text, number);
    // Nothing is chosen until the designer chooses.
    cboAction->setCurrentIndex(-1);
}

int frmLock::SelectedID() const {
    return cboAction->currentIndex() < 0 ? 0 : cboAction->currentData().toInt();
}

QString frmLock::Description() const {
    return txtDesc->text();
}

void frmLock::okClicked() {
    const QString refusal = SelectedID() == 0                     ? kNoAction
                            : txtDesc->text().trimmed().isEmpty() ? kNoMessage
                                                                  : QString();
    if (refusal.isEmpty()) {
        accept();
        return;
    }
    MessagePrompt prompt;
    prompt.text = refusal;
    prompt.icon = PromptIcon::Exclamation;
    prompts().message(this, prompt);
}

void frmLock::reject() {
    Clear();
    QDialog::reject();
}

}  // namespace orr::ui
