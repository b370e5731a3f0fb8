#include "testmode/frmGetNumber.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "platform/Modal.h"
#include "platform/QtText.h"

namespace orr::ui {

frmGetNumber::frmGetNumber(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmGetNumber"));
    setModal(true);
    lblMessage = new QLabel(this);
    lblMessage->setObjectName(QStringLiteral("lblMessage"));
    lblMessage->setWordWrap(true);
    lblMessage->setMinimumWidth(280);
    txtNumber = new QLineEdit(this);
    txtNumber->setObjectName(QStringLiteral("txtNumber"));
    vsbNumber = new QScrollBar(Qt::Vertical, this);
    vsbNumber->setObjectName(QStringLiteral("vsbNumber"));
    vsbNumber->setSingleStep(1);
    vsbNumber->setPageStep(100);
    vsbNumber->setMinimumHeight(120);
    lblNumber = new QLabel(this);
    lblNumber->setObjectName(QStringLiteral("lblNumber"));
    lblUnit = new QLabel(this);
    lblUnit->setObjectName(QStringLiteral("lblUnit"));
    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    auto* entry = new QGridLayout;
    entry->addWidget(txtNumber, 0, 0);
    entry->addWidget(lblUnit, 0, 1);
    entry->addWidget(lblNumber, 1, 0, 1, 2);
    entry->addWidget(vsbNumber, 0, 2, 3, 1);
    entry->setRowStretch(2, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblMessage);
    layout->addLayout(entry);
    layout->addLayout(buttons);

    connect(vsbNumber, &QScrollBar::valueChanged, this, &frmGetNumber::scrolled);
    connect(txtNumber, &QLineEdit::textEdited, this, &frmGetNumber::typed);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmGetNumber::prepare(const NumberRequest& request) {
    setWindowTitle(toQString(request.title));
    lblMessage->setText(toQString(request.prompt));
    lblUnit->setText(toQString(request.unit));
    entry_.emplace(request);
    const QSignalBlocker blocker(vsbNumber);
    vsbNumber->setRange(entry_->minimum(), entry_->maximum());
    vsbNumber->setValue(entry_->position());
    txtNumber->setText(toQString(entry_->numberText()));
    txtNumber->selectAll();
    showNumber();
    txtNumber->setFocus();
}

float frmGetNumber::GetNumber(const NumberRequest& request) {
    prepare(request);
    setResult(QDialog::Rejected);
    runDialog(*this);
    return result();
}

float frmGetNumber::result() const {
    return entry_ ? entry_->result(QDialog::result() == QDialog::Accepted) : 0;
}

void frmGetNumber::showNumber() {
    lblNumber->setText(toQString(entry_->numberText()));
}

void frmGetNumber::scrolled(int position) {
    if (!entry_) return;
    entry_->scrollTo(position);
    txtNumber->setText(toQString(entry_->numberText()));
    showNumber();
}

void frmGetNumber::typed(const QString& text) {
    if (!entry_) return;
    const std::string replacement = entry_->typed(toBytes(text));
    if (!replacement.empty()) txtNumber->setText(toQString(replacement));
    const QSignalBlocker blocker(vsbNumber);
    vsbNumber->setValue(entry_->position());
    showNumber();
}

}  // namespace orr::ui
