#include "testmode/frmSSOptions.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "messages/MessageKeys.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "testmode/StandardColour.h"
#include "testmode/UpgradeShape.h"
#include "testmode/frmSSControl.h"

namespace orr::ui {

namespace {

constexpr int kFlagColumns = 8;
constexpr int kMarkedColour = 12;
const std::array<const char*, kUpgradeKinds> kUpgradeCaptions = {"Energy", "Shields", "Photons",
                                                                 "Sensors", "Torpedo Bay"};
const std::array<const char*, kUpgradeKinds> kShapeNames = {"UpEn", "UpSh", "UpPt", "UpSn", "UpTb"};

void paintBackground(QWidget* widget, const QColor& colour) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
}

}  // namespace

frmSSOptions::frmSSOptions(ShipState& ship, RandomSource& random, TestPlanet planet,
                           std::vector<std::string> flagItems, QWidget* parent)
    : QDialog(parent),
      ship_(ship),
      random_(random),
      planet_(std::move(planet)),
      module_(ship, random, *this) {
    setObjectName(QStringLiteral("frmSSOptions"));
    setWindowTitle(QStringLiteral("Test Options"));
    setModal(true);
    options_ = std::make_unique<TestOptions>(module_, planet_, std::move(flagItems));
    buildControls();
    connectControls();
    hsbLast->setValue(std::clamp(planet_.record.LastVisit / 10, 0, TestOptions::kLastVisitMaximum));
    lblLast->setText(toQString(TestOptions::LastVisitCaption(hsbLast->value())));
    showFlags();
    showUpgrades();
}

frmSSOptions::~frmSSOptions() = default;

void frmSSOptions::buildControls() {
    chkList = new QCheckBox(QStringLiteral("List Flag Names"), this);
    chkList->setObjectName(QStringLiteral("chkList"));
    cmdClear = new QPushButton(QStringLiteral("Clear &Flags"), this);
    cmdClear->setObjectName(QStringLiteral("cmdClear"));
    cmdClear->setAutoDefault(false);

    auto* lastVisit = new QLabel(QStringLiteral("Last Visit"), this);
    hsbLast = new QScrollBar(Qt::Horizontal, this);
    hsbLast->setObjectName(QStringLiteral("hsbLast"));
    hsbLast->setRange(0, TestOptions::kLastVisitMaximum);
    hsbLast->setPageStep(10);
    hsbLast->setMinimumWidth(200);
    lblLast = new QLabel(this);
    lblLast->setObjectName(QStringLiteral("lblLast"));
    lblLast->setMinimumWidth(110);
    chkUpgrades = new QCheckBox(QStringLiteral("Upgrades"), this);
    chkUpgrades->setObjectName(QStringLiteral("chkUpgrades"));
    chkBadGuy = new QCheckBox(QStringLiteral("BadGuy"), this);
    chkBadGuy->setObjectName(QStringLiteral("chkBadGuy"));
    lblRetrofit = new QLabel(this);
    lblRetrofit->setObjectName(QStringLiteral("lblRetrofit"));

    txtStartGroup = new QLineEdit(this);
    txtStartGroup->setObjectName(QStringLiteral("txtStartGroup"));
    txtStartGroup->setPlaceholderText(QStringLiteral("as the last visit says"));
    txtSeed = new QLineEdit(this);
    txtSeed->setObjectName(QStringLiteral("txtSeed"));
    txtSeed->setPlaceholderText(QStringLiteral("from the clock"));
    lblSeed = new QLabel(this);
    lblSeed->setObjectName(QStringLiteral("lblSeed"));
    auto* replay = new QGroupBox(QStringLiteral("Replay"), this);
    auto* replayForm = new QFormLayout(replay);
    auto* startLabel = new QLabel(QStringLiteral("&Start at group:"), replay);
    startLabel->setBuddy(txtStartGroup);
    auto* seedLabel = new QLabel(QStringLiteral("S&eed:"), replay);
    seedLabel->setBuddy(txtSeed);
    replayForm->addRow(startLabel, txtStartGroup);
    replayForm->addRow(seedLabel, txtSeed);
    replayForm->addRow(QString(), lblSeed);

    cmdBegin = new QPushButton(QStringLiteral("&Begin"), this);
    cmdBegin->setObjectName(QStringLiteral("cmdBegin"));
    cmdBegin->setDefault(true);

    auto* flagButtons = new QHBoxLayout;
    flagButtons->addWidget(chkList);
    flagButtons->addStretch();
    flagButtons->addWidget(cmdClear);
    auto* left = new QVBoxLayout;
    left->addWidget(buildFlags(), 1);
    left->addLayout(flagButtons);

    auto* last = new QHBoxLayout;
    last->addWidget(hsbLast, 1);
    last->addWidget(lblLast);
    auto* options = new QHBoxLayout;
    options->addWidget(chkUpgrades);
    options->addWidget(chkBadGuy);
    options->addStretch();
    auto* begin = new QHBoxLayout;
    begin->addStretch();
    begin->addWidget(cmdBegin);
    auto* right = new QVBoxLayout;
    right->addWidget(lastVisit);
    right->addLayout(last);
    right->addLayout(options);
    right->addWidget(buildUpgrades());
    right->addWidget(lblRetrofit);
    right->addWidget(replay);
    right->addStretch();
    right->addLayout(begin);

    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addLayout(right);
}

QWidget* frmSSOptions::buildFlags() {
    stkFlags = new QStackedWidget(this);
    stkFlags->setObjectName(QStringLiteral("stkFlags"));
    for (int i = 0; i < 2; ++i) {
        fraFlags[i] = new QGroupBox(QStringLiteral("Flags"), stkFlags);
        fraFlags[i]->setObjectName(QStringLiteral("fraFlags%1").arg(i));
        stkFlags->addWidget(fraFlags[i]);
    }
    auto* grid = new QGridLayout(fraFlags[0]);
    for (int n = 0; n < kLabelledFlags; ++n) {
        QLabel* label = new QLabel(toQString(TestOptions::FlagLabel(n)), fraFlags[0]);
        label->setObjectName(QStringLiteral("lblFlag%1").arg(n));
        label->setAlignment(Qt::AlignCenter);
        label->setFrameShape(QFrame::Panel);
        label->setFrameShadow(QFrame::Raised);
        // Every label as wide as the widest caption, "Treaty".
        label->setMinimumSize(label->fontMetrics().horizontalAdvance(QStringLiteral("Treaty")) + 12,
                              24);
        label->setAutoFillBackground(true);
        label->setToolTip(toQString(options_->FlagName(n)));
        label->installEventFilter(this);
        grid->addWidget(label, n / kFlagColumns, n % kFlagColumns);
        lblFlag[static_cast<std::size_t>(n)] = label;
    }
    lstFlags = new QListWidget(fraFlags[1]);
    lstFlags->setObjectName(QStringLiteral("lstFlags"));
    auto* list = new QVBoxLayout(fraFlags[1]);
    list->addWidget(lstFlags);
    return stkFlags;
}

QWidget* frmSSOptions::buildUpgrades() {
    auto* box = new QWidget(this);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < kUpgradeKinds; ++i) {
        auto* label = new QLabel(QString::fromLatin1(kUpgradeCaptions[i]), box);
        label->setObjectName(QStringLiteral("lblUpgrade%1").arg(i));
        label->installEventFilter(this);
        auto* shape = new UpgradeShape(box);
        shape->setObjectName(QString::fromLatin1(kShapeNames[i]));
        shape->installEventFilter(this);
        grid->addWidget(shape, i, 0);
        grid->addWidget(label, i, 1);
        lblUpgrade[static_cast<std::size_t>(i)] = label;
        upgradeShapes_[static_cast<std::size_t>(i)] = shape;
    }
    grid->setColumnStretch(1, 1);
    return box;
}

void frmSSOptions::connectControls() {
    connect(chkList, &QCheckBox::toggled, this,
            [this](bool on) { stkFlags->setCurrentIndex(on ? 1 : 0); });
    connect(cmdClear, &QPushButton::clicked, this, [this] {
        options_->clearFlags();
        showFlags();
    });
    connect(lstFlags, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        options_->removeEntry(lstFlags->row(item));
        showFlags();
    });
    connect(hsbLast, &QScrollBar::valueChanged, this, [this](int value) {
        lblLast->setText(toQString(TestOptions::LastVisitCaption(value)));
    });
    connect(chkUpgrades, &QCheckBox::toggled, this, [this](bool on) {
        options_->setUpgradesOption(on);
        showUpgrades();
    });
    connect(cmdBegin, &QPushButton::clicked, this, &frmSSOptions::begin);
}

bool frmSSOptions::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        for (int n = 0; n < kLabelledFlags; ++n) {
            if (watched != lblFlag[static_cast<std::size_t>(n)]) continue;
            options_->toggleFlag(n);
            showFlags();
            return true;
        }
        for (int i = 0; i < kUpgradeKinds; ++i) {
            const auto at = static_cast<std::size_t>(i);
            if (watched != lblUpgrade[at] && watched != upgradeShapes_[at]) continue;
            options_->cycleUpgrade(i + 1);
            showUpgrades();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmSSOptions::showFlags() {
    const QColor face = palette().color(QPalette::Window);
    for (int n = 0; n < kLabelledFlags; ++n)
        paintBackground(lblFlag[static_cast<std::size_t>(n)],
                        options_->isMarked(n) ? standardColour(kMarkedColour) : face);
    QStringList names;
    for (const FlagEntry& entry : options_->entries()) names << toQString(entry.name);
    QStringList shown;
    for (int row = 0; row < lstFlags->count(); ++row) shown << lstFlags->item(row)->text();
    if (shown != names) {
        lstFlags->clear();
        lstFlags->addItems(names);
    }
}

void frmSSOptions::showUpgrades() {
    for (int i = 0; i < kUpgradeKinds; ++i)
        upgradeShapes_[static_cast<std::size_t>(i)]->setLevel(ship_.UpgradeLevel[i + 1]);
    lblRetrofit->setText(toQString(options_->RetrofitCaption()));
}

void frmSSOptions::mirrorState() {
    if (options_->mirrorFlags()) showFlags();
    showUpgrades();
    if (console_)
        lblSeed->setText(QStringLiteral("Seed in use: %1").arg(console_->console().seedInUse()));
}

void frmSSOptions::boxShown(const std::string& text) {
    prompts().inform(this, toQString(text));
}

bool frmSSOptions::setupFromFields(ConsoleSetup& setup) {
    if (!txtStartGroup->text().trimmed().isEmpty())
        setup.startLevel = storedGroupName(toBytes(txtStartGroup->text().trimmed()));
    const QString seed = txtSeed->text().trimmed();
    if (seed.isEmpty()) return true;
    bool ok = false;
    setup.seed = seed.toUInt(&ok);
    if (!ok) {
        prompts().inform(this,
                         QStringLiteral("The seed must be a whole number from 0 to 4294967295."));
        txtSeed->setFocus();
    }
    return ok;
}

void frmSSOptions::begin() {
    ConsoleSetup setup;
    if (!setupFromFields(setup)) return;
    options_->begin(chkBadGuy->isChecked(), hsbLast->value());
    console_ = std::make_unique<frmSSControl>(ship_, planet_, random_, this);
    console_->setMirror([this] { mirrorState(); });
    console_->run(setup);
    mirrorState();
}

}  // namespace orr::ui
