#include "editor/frmAbout.h"

#include <QCheckBox>
#include <QFont>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/Settings.h"

#ifndef ORRERION_VERSION
#define ORRERION_VERSION "0.0.0"
#endif

namespace orr::ui {

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("About ") + kProduct);
    setModal(true);

    lblProduct = new QLabel(kProduct, this);
    lblProduct->setObjectName(QStringLiteral("lblProduct"));
    QFont big = lblProduct->font();
    big.setPointSizeF(big.pointSizeF() * 1.8);
    big.setBold(true);
    lblProduct->setFont(big);
    lblVersion = new QLabel(QStringLiteral("Version ") + version(), this);
    lblVersion->setObjectName(QStringLiteral("lblVersion"));
    lblDescription = new QLabel(kDescription, this);
    lblDescription->setObjectName(QStringLiteral("lblDescription"));
    lblDescription->setWordWrap(true);
    chkShowAbout = new QCheckBox(QStringLiteral("&Show this window at start-up"), this);
    chkShowAbout->setObjectName(QStringLiteral("chkShowAbout"));
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(chkShowAbout);
    bottom->addStretch(1);
    bottom->addWidget(cmdOK);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblProduct);
    layout->addWidget(lblVersion);
    layout->addSpacing(8);
    layout->addWidget(lblDescription);
    layout->addSpacing(12);
    layout->addLayout(bottom);

    chkShowAbout->setChecked(Settings::showAbout());
    // Written at once, so the choice holds however the window is closed.
    connect(chkShowAbout, &QCheckBox::toggled, this, [](bool on) { Settings::setShowAbout(on); });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

QString frmAbout::version() {
    return QStringLiteral(ORRERION_VERSION);
}

void frmAbout::showEvent(QShowEvent* event) {
    const QSignalBlocker quiet(chkShowAbout);
    chkShowAbout->setChecked(Settings::showAbout());
    QDialog::showEvent(event);
}

}  // namespace orr::ui
