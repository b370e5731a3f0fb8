#include "testmode/frmRespond.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "platform/Modal.h"
#include "platform/QtText.h"

namespace orr::ui {

frmRespond::frmRespond(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmRespond"));
    setWindowTitle(QStringLiteral("Choose a Message"));
    setModal(true);
    Response0 = new QRadioButton(this);
    Response0->setObjectName(QStringLiteral("Response0"));
    Response0->hide();
    cmdSend = new QPushButton(QStringLiteral("&Send Message"), this);
    cmdSend->setObjectName(QStringLiteral("cmdSend"));
    cmdSend->setDefault(true);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));

    optionsLayout_ = new QVBoxLayout;
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdSend);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(optionsLayout_);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(cmdSend, &QPushButton::clicked, this, &frmRespond::send);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

QList<QRadioButton*> frmRespond::options() const {
    return QList<QRadioButton*>(responses_.begin(), responses_.end());
}

void frmRespond::offer(const std::vector<OfferedResponse>& offered) {
    removeOptions();
    offered_ = offered;
    chosen_ = 0;
    for (std::size_t i = 0; i < offered.size(); ++i) {
        // A "&" in a response is text, not an access key.
        auto* option = new QRadioButton(
            toQString(offered[i].caption).replace(QLatin1Char('&'), QStringLiteral("&&")), this);
        option->setObjectName(QStringLiteral("Response%1").arg(i + 1));
        option->setAutoExclusive(false);  // none is chosen until the user chooses one
        connect(option, &QRadioButton::toggled, this, [this, option](bool on) {
            if (!on) return;
            for (QRadioButton* other : responses_)
                if (other != option) other->setChecked(false);
        });
        optionsLayout_->addWidget(option);
        responses_.push_back(option);
    }
    cmdSend->setFocus();
}

int frmRespond::choose(const std::vector<OfferedResponse>& offered) {
    offer(offered);
    setResult(QDialog::Rejected);
    runDialog(*this);
    removeOptions();
    if (result() != QDialog::Accepted) chosen_ = 0;
    return chosen_;
}

void frmRespond::keyPressEvent(QKeyEvent* event) {
    const QString key = event->text();
    if (key.size() == 1 && key[0] >= QLatin1Char('1') && key[0] <= QLatin1Char('9')) {
        const std::size_t index = static_cast<std::size_t>(key[0].unicode() - '1');
        if (index < responses_.size()) responses_[index]->setChecked(true);
        cmdSend->setFocus();
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmRespond::send() {
    chosen_ = 0;
    for (std::size_t i = 0; i < responses_.size(); ++i)
        if (responses_[i]->isChecked()) chosen_ = offered_[i].number;
    accept();
}

void frmRespond::removeOptions() {
    for (QRadioButton* option : responses_) {
        optionsLayout_->removeWidget(option);
        option->hide();
        option->deleteLater();
    }
    responses_.clear();
}

}  // namespace orr::ui
