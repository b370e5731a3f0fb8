#include "editor/frmPlanet.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <string>

#include "platform/Modal.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "session/PlanetEdits.h"
#include "session/SystemEdits.h"
#include "store/PictureFiles.h"

namespace orr::ui {

namespace {

int checkedIndex(const std::array<QRadioButton*, 4>& options) {
    for (int i = 0; i < 4; ++i) {
        if (options[static_cast<std::size_t>(i)]->isChecked()) return i;
    }
    return 0;
}

}  // namespace

frmPlanet::frmPlanet(EditSession& session, QWidget* parent) : QDialog(parent), session_(session) {
    setWindowTitle(kCaptionPrefix);
    setModal(true);

    fraInh = makeGroup(QStringLiteral("fraInh"), QStringLiteral("Life"), "gpInh",
                       Tables::InhabitedCaptions, gpInh, Inhabited);
    fraAtt = makeGroup(QStringLiteral("fraAtt"), QStringLiteral("Attitude"), "gpAtt",
                       Tables::AttitudeCaptions, gpAtt, Attitude);
    fraAdv = makeGroup(QStringLiteral("fraAdv"), QStringLiteral("Advanced"), "gpAdv",
                       Tables::AdvancedCaptions, gpAdv, Advanced);
    fraEnr = makeGroup(QStringLiteral("fraEnr"), QStringLiteral("Energy"), "gpEnr",
                       Tables::EnergyCaptions, gpEnr, Energy);

    lblAlien = new QLabel(QStringLiteral("Alien Name"), this);
    lblAlien->setObjectName(QStringLiteral("lblAlien"));
    cboAlienName = new QComboBox(this);
    cboAlienName->setObjectName(QStringLiteral("cboAlienName"));
    cboAlienName->setMaxVisibleItems(16);
    lblAlien->setBuddy(cboAlienName);

    lblSizeText = new QLabel(QStringLiteral("Size:"), this);
    lblSizeText->setObjectName(QStringLiteral("lblSizeText"));
    lblSize = new QLabel(this);
    lblSize->setObjectName(QStringLiteral("lblSize"));
    spnSize = makeSpinner(QStringLiteral("spnSize"), lblSize, 1, 5);
    lblMoonsText = new QLabel(QStringLiteral("Moons:"), this);
    lblMoonsText->setObjectName(QStringLiteral("lblMoonsText"));
    lblMoons = new QLabel(this);
    lblMoons->setObjectName(QStringLiteral("lblMoons"));
    spnMoons = makeSpinner(QStringLiteral("spnMoons"), lblMoons, 0, 25);

    chkPicture = new QCheckBox(QStringLiteral("Use Custom Picture"), this);
    chkPicture->setObjectName(QStringLiteral("chkPicture"));
    cmdPic = new QPushButton(QStringLiteral("Edit"), this);
    cmdPic->setObjectName(QStringLiteral("cmdPic"));
    cmdPic->setEnabled(false);
    chkMessage = new QCheckBox(QStringLiteral("Use Custom Messages"), this);
    chkMessage->setObjectName(QStringLiteral("chkMessage"));
    cmdMsg = new QPushButton(QStringLiteral("Edit"), this);
    cmdMsg->setObjectName(QStringLiteral("cmdMsg"));
    cmdMsg->setEnabled(false);
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    auto* groups = new QGridLayout;
    groups->addWidget(fraInh, 0, 0);
    groups->addWidget(fraAtt, 0, 1);
    groups->addWidget(fraAdv, 1, 0);
    groups->addWidget(fraEnr, 1, 1);

    auto* numbers = new QHBoxLayout;
    numbers->addWidget(lblSizeText);
    numbers->addWidget(lblSize);
    numbers->addWidget(spnSize);
    numbers->addSpacing(24);
    numbers->addWidget(lblMoonsText);
    numbers->addWidget(lblMoons);
    numbers->addWidget(spnMoons);
    numbers->addStretch(1);

    auto* flags = new QGridLayout;
    flags->addWidget(chkPicture, 0, 0);
    flags->addWidget(cmdPic, 0, 1);
    flags->addWidget(chkMessage, 1, 0);
    flags->addWidget(cmdMsg, 1, 1);
    flags->setColumnStretch(0, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(groups);
    layout->addWidget(lblAlien);
    layout->addWidget(cboAlienName);
    layout->addLayout(numbers);
    layout->addLayout(flags);
    layout->addSpacing(6);
    layout->addLayout(buttons);

    connect(cmdMsg, &QPushButton::clicked, this, &frmPlanet::cmdMsg_Click);
    connect(cmdPic, &QPushButton::clicked, this, &frmPlanet::cmdPic_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmPlanet::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

QGroupBox* frmPlanet::makeGroup(const QString& frameName, const QString& caption,
                                const char* prefix, const std::array<std::string, 4>& captions,
                                std::array<QRadioButton*, 4>& options, Group group) {
    auto* frame = new QGroupBox(caption, this);
    frame->setObjectName(frameName);
    auto* layout = new QVBoxLayout(frame);
    auto* buttons = new QButtonGroup(frame);
    for (int i = 0; i < 4; ++i) {
        auto* option = new QRadioButton(toQString(captions[static_cast<std::size_t>(i)]), frame);
        option->setObjectName(QString::fromLatin1(prefix) + QString::number(i));
        layout->addWidget(option);
        buttons->addButton(option, i);
        options[static_cast<std::size_t>(i)] = option;
    }
    connect(buttons, &QButtonGroup::idClicked, this,
            [this, group](int index) { option_Click(group, index); });
    return frame;
}

QWidget* frmPlanet::makeSpinner(const QString& name, QLabel* value, int low, int high) {
    auto* spinner = new QWidget(this);
    spinner->setObjectName(name);
    auto* layout = new QVBoxLayout(spinner);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    const auto addButton = [&](const QString& suffix, Qt::ArrowType arrow, int step) {
        auto* button = new QToolButton(spinner);
        button->setObjectName(name + suffix);
        button->setArrowType(arrow);
        button->setAutoRepeat(true);
        layout->addWidget(button);
        // The label holds the value, as it is what OK reads back.
        connect(button, &QToolButton::clicked, this, [value, low, high, step]() {
            value->setText(QString::number(std::clamp(value->text().toInt() + step, low, high)));
        });
    };
    addButton(QStringLiteral("Up"), Qt::UpArrow, 1);
    addButton(QStringLiteral("Down"), Qt::DownArrow, -1);
    return spinner;
}

void frmPlanet::setMessageEditorOpener(MessageEditorOpener opener) {
    messageEditorOpener_ = std::move(opener);
    cmdMsg->setEnabled(static_cast<bool>(messageEditorOpener_));
}

void frmPlanet::setPictureEditorOpener(PictureEditorOpener opener) {
    pictureEditorOpener_ = std::move(opener);
    cmdPic->setEnabled(static_cast<bool>(pictureEditorOpener_));
}

void frmPlanet::fillAlienNames() {
    // Races the game folder does not name are still selectable under a number.
    cboAlienName->clear();
    const auto& names = session_.tables().AlienNames;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0 && names[i].empty()) {
            cboAlienName->addItem(QStringLiteral("Alien #") + QString::number(i));
        } else {
            cboAlienName->addItem(toQString(names[i]));
        }
    }
}

void frmPlanet::selectOptions(const PlanetAttributes& attributes) {
    gpInh[static_cast<std::size_t>(attributes.Inhabited & 3)]->setChecked(true);
    gpAtt[static_cast<std::size_t>(attributes.Attitude & 3)]->setChecked(true);
    gpAdv[static_cast<std::size_t>(attributes.Advanced & 3)]->setChecked(true);
    gpEnr[static_cast<std::size_t>(attributes.Energy & 3)]->setChecked(true);
}

void frmPlanet::loadPlanet(int planet) {
    planet_ = std::clamp(planet, 1, kMaxPlanets);
    static int openings = 0;
    mergeKey_ = "properties " + std::to_string(++openings);
    const PlanetRecord& record = session_.record().planet(planet_);
    const PlanetAttributes attributes = PlanetAttributes::unpack(record.Attributes);

    fillAlienNames();
    selectOptions(attributes);
    cboAlienName->setCurrentIndex(std::clamp(attributes.Alien, 0, cboAlienName->count() - 1));

    lblMoons->setText(QString::number(record.Moons));
    lblSize->setText(QString::number(record.Size));
    // An asteroid belt has no size and no moons to change.
    spnSize->setEnabled(record.Size != 0);
    spnMoons->setEnabled(record.Size != 0);

    chkMessage->setChecked(session_.store().GetGeneralFlag(kMessagesFlag, planet_) == 1);
    chkPicture->setChecked(session_.store().HasCustomPictures(planet_));
    applyPictureEnabling();
    applyMessageEnabling();

    setWindowTitle(kCaptionPrefix + toQString(planetName(session_.store(), planet_)));
}

bool frmPlanet::ShowPlanetProperties(int planet) {
    loadPlanet(planet);
    runDialog(*this);
    return result() == QDialog::Accepted;
}

void frmPlanet::cmdOK_Click() {
    PlanetProperties properties;
    properties.attributes = PlanetAttributes::unpack(session_.record().planet(planet_).Attributes);
    properties.attributes.Inhabited = checkedIndex(gpInh);
    properties.attributes.Attitude = checkedIndex(gpAtt);
    properties.attributes.Advanced = checkedIndex(gpAdv);
    properties.attributes.Energy = checkedIndex(gpEnr);
    if (cboAlienName->isEnabled())
        properties.attributes.Alien = std::max(cboAlienName->currentIndex(), 0);
    properties.moons = lblMoons->text().toInt();
    properties.size = lblSize->text().toInt();
    if (chkPicture->isEnabled()) properties.customPictures = chkPicture->isChecked();
    if (chkMessage->isEnabled()) properties.customMessages = chkMessage->isChecked();
    if (report(setPlanetProperties(session_, planet_, properties, mergeKey_))) accept();
}

void frmPlanet::option_Click(Group group, int index) {
    static constexpr AttributeGroup kGroups[] = {AttributeGroup::Inhabited,
                                                 AttributeGroup::Attitude, AttributeGroup::Advanced,
                                                 AttributeGroup::Energy};
    report(setPlanetAttribute(session_, planet_, kGroups[group], index, mergeKey_));
    selectOptions(PlanetAttributes::unpack(session_.record().planet(planet_).Attributes));
}

void frmPlanet::cmdMsg_Click() {
    if (!messageEditorOpener_) return;
    chkMessage->setChecked(messageEditorOpener_(planet_, chkMessage->isChecked()));
    applyMessageEnabling();
}

void frmPlanet::cmdPic_Click() {
    if (!pictureEditorOpener_) return;
    pictureEditorOpener_(planet_);
    chkPicture->setChecked(session_.store().GetGeneralFlag(kPlanetPics, planet_) == 1);
    applyPictureEnabling();
}

bool frmPlanet::systemHasPictures() {
    return session_.pictures().hasAnyPlanetPicture() ||
           findStripFile(session_.folder(), session_.name()).has_value();
}

void frmPlanet::applyPictureEnabling() {
    const bool enabled = systemHasPictures();
    if (!enabled) chkPicture->setChecked(false);
    chkPicture->setEnabled(enabled);
}

void frmPlanet::applyMessageEnabling() {
    const bool enabled = session_.store().SectionExists(std::to_string(planet_));
    if (!enabled) chkMessage->setChecked(false);
    chkMessage->setEnabled(enabled);
}

bool frmPlanet::report(bool ok) {
    return orr::ui::report(this, ok, session_.lastError(),
                           "The planet's changes could not be saved.");
}

}  // namespace orr::ui
