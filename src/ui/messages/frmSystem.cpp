#include "messages/frmSystem.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/Modal.h"
#include "platform/QtText.h"
#include "store/Tables.h"

namespace orr::ui {

frmSystem::frmSystem(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSystem"));
    setWindowTitle(kCaption);
    setModal(true);

    fraSystems = new QGroupBox(kFrameCaption, this);
    fraSystems->setObjectName(QStringLiteral("fraSystems"));
    auto* systems = new QVBoxLayout(fraSystems);
    for (std::size_t i = 0; i < optSys.size(); ++i) {
        optSys[i] = new QRadioButton(toQString(Tables::ShipSystemNames[i]), fraSystems);
        optSys[i]->setObjectName(QStringLiteral("optSys%1").arg(i));
        systems->addWidget(optSys[i]);
    }
    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraSystems);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(cmdOK, &QPushButton::clicked, this, &frmSystem::cmdOK_Click);
}

void frmSystem::prepare(int index) {
    chosen_ = std::clamp(index, 0, static_cast<int>(optSys.size()) - 1);
    optSys[chosen_]->setChecked(true);
    optSys[chosen_]->setFocus();
}

int frmSystem::choose(int index) {
    prepare(index);
    runDialog(*this);
    return chosen_;
}

void frmSystem::cmdOK_Click() {
    for (std::size_t i = 0; i < optSys.size(); ++i) {
        if (optSys[i]->isChecked()) chosen_ = static_cast<int>(i);
    }
    accept();
}

}  // namespace orr::ui
