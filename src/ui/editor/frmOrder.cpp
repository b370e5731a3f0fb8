#include "editor/frmOrder.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "pictures/PictureStrip.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "store/SystemOperations.h"

namespace orr::ui {

frmOrder::frmOrder(SystemStore& store, PictureStrip* pictures, QWidget* parent)
    : QDialog(parent), store_(store), pictures_(pictures) {
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
    for (int n = 1; n <= store_.record().PlanetCount; ++n) {
        lstPlanets->addItem(toQString(planetLabel(store_, n)));
    }
    if (lstPlanets->count() > 0) lstPlanets->setCurrentRow(0);
}

bool frmOrder::ShowSetOrder() {
    fillPlanets();
    exec();
    return finish();
}

bool frmOrder::finish() {
    return report(store_.SaveSystemBlock());
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
    if (!report(swapPlanets(store_, from + 1, to + 1, pictures_))) return;
    QListWidgetItem* fromItem = lstPlanets->item(from);
    QListWidgetItem* toItem = lstPlanets->item(to);
    const QString text = fromItem->text();
    fromItem->setText(toItem->text());
    toItem->setText(text);
    lstPlanets->setCurrentRow(to);
}

bool frmOrder::report(bool ok) {
    if (!ok) {
        MessagePrompt prompt;
        prompt.text = store_.lastError().empty()
                          ? QStringLiteral("The planets' order could not be saved.")
                          : toQString(store_.lastError());
        prompt.icon = PromptIcon::Exclamation;
        prompts().message(this, prompt);
    }
    return ok;
}

}  // namespace orr::ui
