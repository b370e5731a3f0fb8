#include "rooms/frmAdvancedRoom.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "messages/PlanetMessageStore.h"
#include "platform/Modal.h"
#include "platform/QtText.h"
#include "session/RoomEdits.h"

namespace orr::ui {

namespace {

constexpr std::array<const char*, 3> kRowCaptions = {"Beam Up:", "Search:", "Tricorder:"};
constexpr std::array<const char*, 3> kOptionCaptions = {"Set", "Clear", "None"};
constexpr std::array<char, 2> kNeeds = {'F', 'f'};  // Set, Clear

}  // namespace

frmAdvancedRoom::frmAdvancedRoom(EditSession& session, int planet, FlagChooser chooseFlag,
                                 QWidget* parent)
    : QDialog(parent), session_(session), planet_(planet), chooseFlag_(std::move(chooseFlag)) {
    setObjectName(QStringLiteral("frmAdvancedRoom"));
    setWindowTitle(kCaption);
    setModal(true);
    fraReqFlags = new QGroupBox(QStringLiteral("Required Flags"), this);
    fraReqFlags->setObjectName(QStringLiteral("fraReqFlags"));
    auto* grid = new QGridLayout(fraReqFlags);
    for (int row = 0; row < kRows; ++row) {
        lblMessageType[row] = new QLabel(QString::fromLatin1(kRowCaptions[row]), fraReqFlags);
        lblMessageType[row]->setObjectName(QStringLiteral("lblMessageType%1").arg(row));
        grid->addWidget(lblMessageType[row], row, 0);
        needs_[row] = new QButtonGroup(this);
        for (int option = 0; option < 3; ++option) {
            QRadioButton*& button = optNeed[row * 3 + option];
            button = new QRadioButton(QString::fromLatin1(kOptionCaptions[option]), fraReqFlags);
            button->setObjectName(QStringLiteral("optNeed%1").arg(row * 3 + option));
            needs_[row]->addButton(button, option);
            grid->addWidget(button, row, 1 + option);
            connect(button, &QRadioButton::clicked, this,
                    [this, row, option] { optionClicked(row, option); });
        }
        cmdChoose[row] = new QPushButton(QStringLiteral("Choose"), fraReqFlags);
        cmdChoose[row]->setObjectName(QStringLiteral("cmdChoose%1").arg(row));
        cmdChoose[row]->setAutoDefault(false);
        connect(cmdChoose[row], &QPushButton::clicked, this, [this, row] { chooseClicked(row); });
        grid->addWidget(cmdChoose[row], row, 4);
        lblFlag[row] = new QLabel(fraReqFlags);
        lblFlag[row]->setObjectName(QStringLiteral("lblFlag%1").arg(row));
        lblFlag[row]->setMinimumWidth(lblFlag[row]->fontMetrics().horizontalAdvance("Not MM"));
        grid->addWidget(lblFlag[row], row, 5);
    }
    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &frmAdvancedRoom::okClicked);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraReqFlags);
    layout->addLayout(buttons);
}

void frmAdvancedRoom::Load() {
    session_.recheck();
    PlanetMessageStore reader(session_.store(), planet_);
    codes_ = readRequirements(reader).codes;
    for (int row = 0; row < kRows; ++row) {
        const std::string& code = codes_[row];
        flags_[row] = code.size() == 3 ? QChar::fromLatin1(code[2]) : QChar();
        const int option = code.starts_with("%F") ? 0 : code.starts_with("%f") ? 1 : 2;
        needs_[row]->button(option)->setChecked(true);
        showRow(row);
    }
}

void frmAdvancedRoom::showRow(int row) {
    const std::string& code = codes_[row];
    const QString flag = code.size() == 3 ? QString(QChar::fromLatin1(code[2])) : QString();
    lblFlag[row]->setText(code.starts_with("%f") ? QStringLiteral("Not ") + flag : flag);
    cmdChoose[row]->setToolTip(flags_[row].isNull() ? QStringLiteral("No flag chosen yet")
                                                    : QStringLiteral("Flag %1").arg(flags_[row]));
}

void frmAdvancedRoom::optionClicked(int row, int option) {
    if (option < 2 && flags_[row].isNull()) chooseClicked(row);
    const char flag = flags_[row].isNull() ? 'A' : flags_[row].toLatin1();
    codes_[row] = option < 2 ? requirementCode(kNeeds[option], flag) : std::string();
    showRow(row);
}

void frmAdvancedRoom::chooseClicked(int row) {
    const QString chosen =
        chooseFlag_(this, flags_[row].isNull() ? QString() : QString(flags_[row]));
    if (!chosen.isEmpty()) flags_[row] = chosen.at(0);
    if (flags_[row].isNull()) return;  // still no flag: nothing to show (and no loop back here)
    const int option = needs_[row]->checkedId();
    if (option == 2 || option < 0) {
        needs_[row]->button(0)->setChecked(true);
        optionClicked(row, 0);
        return;
    }
    // A new flag on a row that is on Set or Clear takes effect at once: what the row shows is
    // what "OK" stores.
    optionClicked(row, option);
}

void frmAdvancedRoom::okClicked() {
    if (!report(this, setRequirements(session_, planet_, shown()), session_.lastError())) return;
    accept();
}

}  // namespace orr::ui
