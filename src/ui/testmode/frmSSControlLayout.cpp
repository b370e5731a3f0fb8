// The ship console's controls and their wiring.

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/QtText.h"
#include "testmode/frmSSControl.h"

namespace orr::ui {

namespace {

QPushButton* button(const QString& caption, const QString& name, QWidget* parent) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
}

QLabel* plainLabel(const QString& name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    // Texts from the game's files are shown as written, never as markup.
    label->setTextFormat(Qt::PlainText);
    return label;
}

}  // namespace

void frmSSControl::buildControls() {
    pnlOrbiting = plainLabel(QStringLiteral("pnlOrbiting"), this);
    pnlOrbiting->setFrameShape(QFrame::Panel);
    pnlOrbiting->setFrameShadow(QFrame::Sunken);
    pnlOrbiting->setAlignment(Qt::AlignCenter);
    pnlOrbiting->hide();

    pnlCommands = new QGroupBox(QStringLiteral("Commands"), this);
    pnlCommands->setObjectName(QStringLiteral("pnlCommands"));
    cmdHail = button(QStringLiteral("&Hail"), QStringLiteral("cmdHail"), pnlCommands);
    cmdBeam = button(QStringLiteral("&Beam"), QStringLiteral("cmdBeam"), pnlCommands);
    cmdEnergy = button(QStringLiteral("&Energy"), QStringLiteral("cmdEnergy"), pnlCommands);
    cmdPhaser = button(QStringLiteral("Ph&aser"), QStringLiteral("cmdPhaser"), pnlCommands);
    cmdPhoton = button(QStringLiteral("&Photon"), QStringLiteral("cmdPhoton"), pnlCommands);
    cmdShields = button(QStringLiteral("&Shields"), QStringLiteral("cmdShields"), pnlCommands);
    cmdLeaveOrbit = button(QStringLiteral("&Leave"), QStringLiteral("cmdLeaveOrbit"), pnlCommands);
    cmdEnterOrbit = button(QStringLiteral("&Orbit"), QStringLiteral("cmdEnterOrbit"), pnlCommands);
    cmdExit = button(QStringLiteral("E&xit"), QStringLiteral("cmdExit"), pnlCommands);
    auto* commands = new QGridLayout(pnlCommands);
    const std::array<QPushButton*, 9> order = {cmdHail,       cmdBeam,       cmdEnergy,
                                               cmdPhaser,     cmdPhoton,     cmdShields,
                                               cmdEnterOrbit, cmdLeaveOrbit, cmdExit};
    for (std::size_t i = 0; i < order.size(); ++i)
        commands->addWidget(order[i], static_cast<int>(i / 3), static_cast<int>(i % 3));

    pnlMessage = new QFrame(this);
    pnlMessage->setObjectName(QStringLiteral("pnlMessage"));
    pnlMessage->setFrameShape(QFrame::StyledPanel);
    lblMessage = plainLabel(QStringLiteral("lblMessage"), pnlMessage);
    lblMessage->setText(QString::fromLatin1(kStandardTitle));
    QFont bold = lblMessage->font();
    bold.setBold(true);
    lblMessage->setFont(bold);
    Message = plainLabel(QStringLiteral("Message"), pnlMessage);
    Message->setWordWrap(true);
    Message->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Message->setMinimumSize(320, 90);
    cmdRespond = button(QStringLiteral("&Respond"), QStringLiteral("cmdRespond"), pnlMessage);
    cmdIgnore = button(QStringLiteral("&Ignore"), QStringLiteral("cmdIgnore"), pnlMessage);
    auto* answer = new QHBoxLayout;
    answer->addStretch();
    answer->addWidget(cmdRespond);
    answer->addWidget(cmdIgnore);
    auto* message = new QVBoxLayout(pnlMessage);
    message->addWidget(lblMessage);
    message->addWidget(Message, 1);
    message->addLayout(answer);
    // The panel keeps its place while hidden, so the window does not jump.
    QSizePolicy keep = pnlMessage->sizePolicy();
    keep.setRetainSizeWhenHidden(true);
    pnlMessage->setSizePolicy(keep);
    pnlMessage->hide();

    cmdNotes = button(QStringLiteral("Message Level: INIT"), QStringLiteral("cmdNotes"), this);
    cmdGoat = button(QString(), QStringLiteral("cmdGoat"), this);
    cmdGoat->setFlat(true);
    cmdGoat->setFixedSize(0, 0);  // only there to take the focus

    chkShipState = new QCheckBox(QStringLiteral("Ship S&tate"), this);
    chkShipState->setObjectName(QStringLiteral("chkShipState"));
    chkTranscript = new QCheckBox(QStringLiteral("Tra&nscript"), this);
    chkTranscript->setObjectName(QStringLiteral("chkTranscript"));

    tmrMessage = new QTimer(this);
    tmrMessage->setObjectName(QStringLiteral("tmrMessage"));
    tmrMessage->setInterval(1000);
    tmrFlags = new QTimer(this);
    tmrFlags->setObjectName(QStringLiteral("tmrFlags"));
    tmrFlags->setInterval(200);

    auto* left = new QVBoxLayout;
    left->addWidget(pnlCommands);
    left->addWidget(cmdNotes);
    left->addStretch();
    auto* extras = new QHBoxLayout;
    extras->addWidget(chkShipState);
    extras->addWidget(chkTranscript);
    extras->addStretch();
    extras->addWidget(cmdGoat);
    left->addLayout(extras);
    auto* top = new QHBoxLayout;
    top->addLayout(left);
    top->addWidget(pnlMessage, 1);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(buildShipState());
    bottom->addWidget(buildTranscript(), 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(pnlOrbiting);
    layout->addLayout(top);
    layout->addLayout(bottom, 1);
}

QWidget* frmSSControl::buildShipState() {
    fraShipState = new QGroupBox(QStringLiteral("Ship State"), this);
    fraShipState->setObjectName(QStringLiteral("fraShipState"));
    auto* form = new QFormLayout(fraShipState);
    for (const StateRow& row : console_.rows()) {
        QLabel* value = plainLabel(QString(), fraShipState);
        form->addRow(toQString(row.label) + QLatin1Char(':'), value);
        stateValues_.push_back(value);
    }
    fraShipState->hide();
    return fraShipState;
}

QWidget* frmSSControl::buildTranscript() {
    fraTranscript = new QGroupBox(QStringLiteral("Transcript"), this);
    fraTranscript->setObjectName(QStringLiteral("fraTranscript"));
    txtTranscript = new QPlainTextEdit(fraTranscript);
    txtTranscript->setObjectName(QStringLiteral("txtTranscript"));
    txtTranscript->setReadOnly(true);
    txtTranscript->setMinimumSize(360, 160);
    cmdCopy = button(QStringLiteral("&Copy"), QStringLiteral("cmdCopy"), fraTranscript);
    cmdSaveAs = button(QStringLiteral("Sa&ve As"), QStringLiteral("cmdSaveAs"), fraTranscript);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdCopy);
    buttons->addWidget(cmdSaveAs);
    auto* layout = new QVBoxLayout(fraTranscript);
    layout->addWidget(txtTranscript);
    layout->addLayout(buttons);
    fraTranscript->hide();
    return fraTranscript;
}

void frmSSControl::connectControls() {
    connect(cmdHail, &QPushButton::clicked, this, [this] { console_.hail(); });
    connect(cmdBeam, &QPushButton::clicked, this, [this] { console_.beam(); });
    connect(cmdEnergy, &QPushButton::clicked, this, [this] { console_.energy(); });
    connect(cmdPhaser, &QPushButton::clicked, this, [this] { console_.phaser(); });
    connect(cmdPhoton, &QPushButton::clicked, this, [this] { console_.photon(); });
    connect(cmdLeaveOrbit, &QPushButton::clicked, this, [this] { console_.leave(); });
    connect(cmdExit, &QPushButton::clicked, this, [this] { console_.exit(); });
    connect(cmdRespond, &QPushButton::clicked, this, [this] { console_.respond(); });
    connect(cmdIgnore, &QPushButton::clicked, this, [this] {
        console_.ignore();
        cmdGoat->setFocus();
    });
    connect(cmdNotes, &QPushButton::clicked, this, [this] {
        console_.notes();
        cmdGoat->setFocus();
        flagTick();
    });
    connect(tmrMessage, &QTimer::timeout, this, &frmSSControl::messageTick);
    connect(tmrFlags, &QTimer::timeout, this, &frmSSControl::flagTick);
    connect(chkShipState, &QCheckBox::toggled, this, [this](bool on) {
        fraShipState->setVisible(on);
        flagTick();
        adjustSize();
    });
    connect(chkTranscript, &QCheckBox::toggled, this, [this](bool on) {
        fraTranscript->setVisible(on);
        adjustSize();
    });
    connect(cmdCopy, &QPushButton::clicked, this, &frmSSControl::copyTranscript);
    connect(cmdSaveAs, &QPushButton::clicked, this, &frmSSControl::saveTranscript);
}

void frmSSControl::copyTranscript() {
    QApplication::clipboard()->setText(transcript_.join(QLatin1Char('\n')));
}

}  // namespace orr::ui
