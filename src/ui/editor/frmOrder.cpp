#include "editor/frmOrder.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/Modal.h"
#include "platform/QtText.h"
#include "session/PlanetEdits.h"
#include "session/SystemEdits.h"

namespace orr::ui {

frmOrder::frmOrder(EditSession& session, QWidget* parent) : QDialog(parent), session_(session) {
    setWindowTitle(kCaption);
    setModal(true);

    lstPlanets = new QListWidget(this);
    lstPlanets->setObjectName(QStringLiteral("lstPlanets"));
    cmdUp = new QPushButton(QStringLiteral("Move &Up"), this);
    cmdUp->setObjectName(QStringLiteral("cmdUp"));
    cmdDown = new QPushButton(QStringLiteral("Move &Down"), this);
    cmdDown->setObjectName(QStringLiteral("cmdDown"));
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    cmdClose->setDefault(true);

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(cmdUp);
    buttons->addWidget(cmdDown);
    buttons->addStretch(1);
    buttons->addWidget(cmdClose);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(lstPlanets, 1);
    layout->addLayout(buttons);

    connect(cmdUp, &QPushButton::clicked, this, &frmOrder::cmdUp_Click);
    connect(cmdDown, &QPushButton::clicked, this, &frmOrder::cmdDown_Click);
    // Closing, by the button or the close box, keeps every move made.
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

void frmOrder::fillPlanets() {
    lstPlanets->clear();
    for (int n = 1; n <= session_.record().PlanetCount; ++n)
        lstPlanets->addItem(toQString(planetLabel(session_.store(), n)));
    if (lstPlanets->count() > 0) lstPlanets->setCurrentRow(0);
}

void frmOrder::ShowSetOrder() {
    fillPlanets();
    runDialog(*this);
}

void frmOrder::cmdUp_Click() {
    const int row = lstPlanets->currentRow();
    if (row >= 1) moveEntry(row, row - 1);
}

void frmOrder::cmdDown_Click() {
    const int row = lstPlanets->currentRow();
    if (row >= 0 && row + 1 < lstPlanets->count()) moveEntry(row, row + 1);
}

void frmOrder::moveEntry(int from, int to) {
    // Planets are numbered from 1, list entries from 0.
    const std::string step =
        "Move Planet " + std::to_string(from + 1) + (to < from ? " Up" : " Down");
    if (!report(this, swapPlanets(session_, from + 1, to + 1, step), session_.lastError(),
                "The planets' order could not be saved."))
        return;
    // Named again from the session: a planet without a name of its own is called after the place
    // it has now.
    fillPlanets();
    lstPlanets->setCurrentRow(to);
}

}  // namespace orr::ui
