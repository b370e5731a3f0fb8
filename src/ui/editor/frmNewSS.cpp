#include "editor/frmNewSS.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <filesystem>

#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "store/SystemList.h"
#include "store/SystemName.h"

namespace orr::ui {

frmNewSS::frmNewSS(GameFolder folder, QWidget* parent)
    : QDialog(parent), folder_(std::move(folder)) {
    setWindowTitle(kCaption);
    setModal(true);

    lblSystems = new QLabel(QStringLiteral("Select a system to replace:"), this);
    lblSystems->setObjectName(QStringLiteral("lblSystems"));
    cboSystems = new QComboBox(this);
    cboSystems->setObjectName(QStringLiteral("cboSystems"));
    cboSystems->setMinimumContentsLength(24);
    lblSystems->setBuddy(cboSystems);
    chkCustom = new QCheckBox(QStringLiteral("Custom"), this);
    chkCustom->setObjectName(QStringLiteral("chkCustom"));
    lblName = new QLabel(QStringLiteral("System Name:"), this);
    lblName->setObjectName(QStringLiteral("lblName"));
    txtName = new QLineEdit(this);
    txtName->setObjectName(QStringLiteral("txtName"));
    lblName->setBuddy(txtName);
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblSystems);
    layout->addWidget(cboSystems);
    layout->addSpacing(6);
    layout->addWidget(chkCustom);
    layout->addWidget(lblName);
    layout->addWidget(txtName);
    layout->addSpacing(6);
    layout->addLayout(buttons);

    connect(chkCustom, &QCheckBox::clicked, this, &frmNewSS::chkCustom_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmNewSS::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmNewSS::cmdCancel_Click);

    refresh();
}

void frmNewSS::refresh() {
    answer_.reset();
    cboSystems->clear();
    txtName->clear();
    // A descriptor saved under an entry's key means that system is replaced already, whether
    // or not it is the one open in its working copy.
    for (const std::string& key : OfferedSystems(folder_)) {
        cboSystems->addItem(toQString(key),
                            QByteArray(key.data(), static_cast<qsizetype>(key.size())));
    }
    if (cboSystems->count() > 0) {
        cboSystems->setCurrentIndex(0);
        chkCustom->setChecked(false);
        chkCustom->setEnabled(true);
    } else {
        chkCustom->setChecked(true);
        chkCustom->setEnabled(false);
    }
    applyCustomState(false);
}

void frmNewSS::showEvent(QShowEvent* event) {
    refresh();
    QDialog::showEvent(event);
    applyCustomState(true);
}

void frmNewSS::applyCustomState(bool moveFocus) {
    const bool custom = chkCustom->isChecked();
    cboSystems->setEnabled(!custom);
    txtName->setEnabled(custom);
    // The label of the input in use reads as normal text, the other as greyed text.
    const QColor normal = palette().color(QPalette::Active, QPalette::ButtonText);
    const QColor grey = palette().color(QPalette::Disabled, QPalette::WindowText);
    QPalette systems = lblSystems->palette();
    systems.setColor(QPalette::WindowText, custom ? grey : normal);
    lblSystems->setPalette(systems);
    QPalette name = lblName->palette();
    name.setColor(QPalette::WindowText, custom ? normal : grey);
    lblName->setPalette(name);
    if (moveFocus) {
        if (custom) {
            txtName->setFocus();
        } else {
            cboSystems->setFocus();
        }
    }
}

void frmNewSS::chkCustom_Click() {
    applyCustomState(true);
}

QString frmNewSS::refusalFor(const QString& name) const {
    if (name.isEmpty()) return kNoNameMessage;
    if (const QString unstorable = unstorableCharacters(name); !unstorable.isEmpty())
        return unstorableMessage(unstorable);
    const auto reason = canCreateSystem(folder_, toBytes(name), NewSystemAnswer::CustomName);
    return reason ? toQString(*reason) : QString();
}

void frmNewSS::cmdOK_Click() {
    if (chkCustom->isChecked()) {
        const QString name = txtName->text();
        const QString refusal = refusalFor(name);
        if (!refusal.isEmpty()) {
            MessagePrompt prompt;
            prompt.text = refusal;
            prompt.icon = PromptIcon::Exclamation;
            prompts().message(this, prompt);
            txtName->setFocus();
            txtName->selectAll();
            return;
        }
        answer_ = Answer{toBytes(name), NewSystemAnswer::CustomName};
    } else {
        if (cboSystems->currentIndex() < 0) return;
        answer_ = Answer{cboSystems->currentData().toByteArray().toStdString(),
                         NewSystemAnswer::ListedKey};
    }
    accept();
}

void frmNewSS::cmdCancel_Click() {
    reject();
}

void frmNewSS::reject() {
    answer_.reset();
    QDialog::reject();
}

}  // namespace orr::ui
