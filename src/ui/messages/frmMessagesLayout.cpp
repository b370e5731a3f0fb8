// The message editor's controls and their arrangement.

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include "messages/DirectionPicture.h"
#include "messages/LongEntryToolTip.h"
#include "messages/MessageLine.h"
#include "messages/SpecialCodesPanel.h"
#include "messages/frmMessages.h"

namespace orr::ui {

namespace {

template <typename Widget>
Widget* named(Widget* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}

QPushButton* button(const QString& caption, const QString& name, QWidget* parent) {
    auto* result = named(new QPushButton(caption, parent), name);
    // Enter never presses a button in this window (see keyPressEvent).
    result->setAutoDefault(false);
    return result;
}

QLabel* label(const QString& caption, const QString& name, QWidget* parent) {
    return named(new QLabel(caption, parent), name);
}

// A scroll bar standing for a small number; its top is the largest value (MessageLineForm).
// Long enough that the groove, not the two arrows, makes up most of it and the handle can be
// dragged.
QScrollBar* settingBar(int maximum, const QString& name, QWidget* parent) {
    auto* bar = named(new QScrollBar(Qt::Vertical, parent), name);
    bar->setRange(0, maximum);
    bar->setPageStep(1);
    bar->setMinimumHeight(bar->sizeHint().width() * 7);
    return bar;
}

// The two labels beside a bar stand together at its middle: the caption above, the value below.
void pairLabels(QLabel* caption, QLabel* value) {
    caption->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    value->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

}  // namespace

void frmMessages::buildControls() {
    fraDirection =
        named(new QGroupBox(QStringLiteral("Direction"), this), QStringLiteral("fraDirection"));
    const std::array<QString, 3> directions = {
        QStringLiteral("Message"), QStringLiteral("Information"), QStringLiteral("Response")};
    auto* directionRow = new QHBoxLayout(fraDirection);
    for (std::size_t i = 0; i < optDir.size(); ++i) {
        optDir[i] =
            named(new QRadioButton(directions[i], fraDirection), QStringLiteral("optDir%1").arg(i));
        directionRow->addWidget(optDir[i]);
    }
    optDir[0]->setChecked(true);
    picDirection = new DirectionPicture(fraDirection);
    tmrAnim = picDirection->timer();
    directionRow->addSpacing(12);
    directionRow->addWidget(picDirection);

    chkCustom = named(new QCheckBox(QStringLiteral("Use Custom Messages"), this),
                      QStringLiteral("chkCustom"));
    auto* top = new QHBoxLayout;
    top->addWidget(fraDirection);
    top->addStretch(1);
    top->addWidget(chkCustom);

    auto* middle = new QHBoxLayout;
    middle->addWidget(buildListArea(), 3);
    middle->addWidget(buildOptionFrames(), 2);

    cmdGo = button(QStringLiteral("&Go to Answer"), QStringLiteral("cmdGo"), this);
    cmdEditRoom = button(QStringLiteral("Edit R&oom"), QStringLiteral("cmdEditRoom"), this);
    cmdWizard = button(QStringLiteral("Adventure &Wizard"), QStringLiteral("cmdWizard"), this);
    cmdClose = button(QStringLiteral("&Close"), QStringLiteral("cmdClose"), this);
    // The room editor and the wizard are not part of this window yet.
    cmdEditRoom->setEnabled(false);
    cmdWizard->setEnabled(false);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(cmdGo);
    bottom->addWidget(cmdEditRoom);
    bottom->addWidget(cmdWizard);
    bottom->addStretch(1);
    bottom->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(middle, 1);
    layout->addLayout(bottom);

    picTooltip = new LongEntryToolTip(lstMessages, this);
    mnuPopup = named(new QMenu(this), QStringLiteral("mnuPopup"));
    mnuEdit = named(mnuPopup->addAction(QStringLiteral("&Edit")), QStringLiteral("mnuEdit"));
    mnuRemove = named(mnuPopup->addAction(QStringLiteral("&Remove")), QStringLiteral("mnuRemove"));
    mnuGo = named(mnuPopup->addAction(QStringLiteral("&Go to Answer")), QStringLiteral("mnuGo"));
    resize(940, 560);
}

QWidget* frmMessages::buildListArea() {
    fraMessages = named(new QGroupBox(QStringLiteral("Message Level: INIT"), this),
                        QStringLiteral("fraMessages"));
    lblGroup = label(QStringLiteral("Group:"), QStringLiteral("lblGroup"), fraMessages);
    cboGroup = named(new QComboBox(fraMessages), QStringLiteral("cboGroup"));
    cboGroup->setEditable(true);
    cboGroup->setInsertPolicy(QComboBox::NoInsert);
    cboGroup->setCompleter(nullptr);  // a typed name is taken as typed, never completed
    lblGroup->setBuddy(cboGroup);
    cmdAddGroup = button(QStringLiteral("A&dd Group"), QStringLiteral("cmdAddGroup"), fraMessages);
    auto* groupRow = new QHBoxLayout;
    groupRow->addWidget(lblGroup);
    groupRow->addWidget(cboGroup, 1);
    groupRow->addWidget(cmdAddGroup);

    lstMessages = named(new QListWidget(fraMessages), QStringLiteral("lstMessages"));
    txtMessage = named(new QPlainTextEdit(fraMessages), QStringLiteral("txtMessage"));
    txtMessage->setTabChangesFocus(true);
    txtMessage->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    stkLines = named(new QStackedWidget(fraMessages), QStringLiteral("stkLines"));
    stkLines->addWidget(lstMessages);
    stkLines->addWidget(txtMessage);

    pnlInfo = named(new QFrame(fraMessages), QStringLiteral("pnlInfo"));
    pnlInfo->setFrameShape(QFrame::StyledPanel);
    pnlInfo->setFrameShadow(QFrame::Sunken);
    lblM1Title = label(QStringLiteral("Life Signs:"), QStringLiteral("lblM1Title"), pnlInfo);
    QFont bold = lblM1Title->font();
    bold.setBold(true);
    lblM1Title->setFont(bold);
    lblM1Text = label(QString(), QStringLiteral("lblM1Text"), pnlInfo);
    lblM1Text->setWordWrap(true);
    lblM1Text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblM1Text->setTextFormat(Qt::PlainText);
    auto* info = new QVBoxLayout(pnlInfo);
    info->addWidget(lblM1Title);
    info->addWidget(lblM1Text, 1);
    pnlInfo->hide();

    auto* inserts = new QHBoxLayout;
    for (std::size_t i = 0; i < lblInsert.size(); ++i) {
        // Clickable like links: a click inserts the code (frmMessages::eventFilter).
        lblInsert[i] = label(kInsertCaptions[i], QStringLiteral("lblInsert%1").arg(i), fraMessages);
        lblInsert[i]->setStyleSheet(
            QStringLiteral("color: palette(link); text-decoration: underline;"));
        lblInsert[i]->setCursor(Qt::PointingHandCursor);
        lblInsert[i]->setToolTip(QStringLiteral("Insert %1 at the cursor").arg(kInsertCodes[i]));
        lblInsert[i]->hide();
        inserts->addWidget(lblInsert[i]);
    }
    inserts->addStretch(1);
    lblLength = label(QStringLiteral("Length: 0"), QStringLiteral("lblLength"), fraMessages);
    lblError = label(QString(), QStringLiteral("lblError"), fraMessages);
    lblError->setStyleSheet(QStringLiteral("color: red;"));
    auto* limits = new QHBoxLayout;
    limits->addWidget(lblLength);
    limits->addWidget(lblError);
    limits->addStretch(1);

    auto* lines = new QVBoxLayout;
    lines->addWidget(stkLines, 1);
    lines->addWidget(pnlInfo, 1);
    lines->addLayout(inserts);
    lines->addLayout(limits);
    auto* body = new QHBoxLayout;
    body->addLayout(lines, 1);
    body->addWidget(buildEditButtons());

    auto* layout = new QVBoxLayout(fraMessages);
    layout->addLayout(groupRow);
    layout->addLayout(body, 1);
    return fraMessages;
}

QWidget* frmMessages::buildEditButtons() {
    auto* column = new QWidget(fraMessages);
    cmdNew = button(QStringLiteral("&New"), QStringLiteral("cmdNew"), column);
    cmdEdit = button(QStringLiteral("&Edit"), QStringLiteral("cmdEdit"), column);
    cmdRemove = button(QStringLiteral("&Remove"), QStringLiteral("cmdRemove"), column);
    cmdClearAll = button(QStringLiteral("Clear &All"), QStringLiteral("cmdClearAll"), column);
    cmdSwap[0] = button(QString(), QStringLiteral("cmdSwap0"), column);
    cmdSwap[0]->setIcon(style()->standardIcon(QStyle::SP_ArrowUp));
    cmdSwap[0]->setToolTip(QStringLiteral("Move the line up"));
    cmdSwap[1] = button(QString(), QStringLiteral("cmdSwap1"), column);
    cmdSwap[1]->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
    cmdSwap[1]->setToolTip(QStringLiteral("Move the line down"));
    cmdTest = button(QStringLiteral("&Test"), QStringLiteral("cmdTest"), column);
    cmdTest->setEnabled(false);  // the test console is not part of this window yet
    cmdSave = button(QStringLiteral("&Save"), QStringLiteral("cmdSave"), column);
    // While a line is edited, "&Close" and "A&dd Group" stay in sight: these two take other keys.
    cmdCancel = button(QStringLiteral("Ca&ncel"), QStringLiteral("cmdCancel"), column);
    cmdDelete = button(QStringLiteral("De&lete"), QStringLiteral("cmdDelete"), column);

    auto* swaps = new QHBoxLayout;
    swaps->setContentsMargins(0, 0, 0, 0);
    swaps->addWidget(cmdSwap[0]);
    swaps->addWidget(cmdSwap[1]);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QPushButton* b : {cmdNew, cmdEdit, cmdRemove, cmdClearAll}) layout->addWidget(b);
    layout->addLayout(swaps);
    layout->addWidget(cmdTest);
    for (QPushButton* b : {cmdSave, cmdCancel, cmdDelete}) {
        layout->addWidget(b);
        b->hide();
    }
    layout->addStretch(1);
    return column;
}

QWidget* frmMessages::buildOptionFrames() {
    auto* column = new QWidget(this);

    fraOptions =
        named(new QGroupBox(QStringLiteral("Options"), column), QStringLiteral("fraOptions"));
    lblWaitFor =
        label(QStringLiteral("Message displays"), QStringLiteral("lblWaitFor"), fraOptions);
    lblWait = label(QString(), QStringLiteral("lblWait"), fraOptions);
    vsbWait = settingBar(kMaxWait, QStringLiteral("vsbWait"), fraOptions);
    lblIncluded =
        label(QStringLiteral("Message included"), QStringLiteral("lblIncluded"), fraOptions);
    lblPercent = label(QString(), QStringLiteral("lblPercent"), fraOptions);
    vsbPercent = settingBar(kMaxPercent, QStringLiteral("vsbPercent"), fraOptions);
    lblAnswer = label(QStringLiteral("Answer Group:"), QStringLiteral("lblAnswer"), fraOptions);
    cboAnswerGroup = named(new QComboBox(fraOptions), QStringLiteral("cboAnswerGroup"));
    cboAnswerGroup->setEditable(true);
    cboAnswerGroup->setInsertPolicy(QComboBox::NoInsert);
    cboAnswerGroup->setCompleter(nullptr);
    lblAnswer->setBuddy(cboAnswerGroup);
    pairLabels(lblWaitFor, lblWait);
    pairLabels(lblIncluded, lblPercent);
    auto* options = new QGridLayout(fraOptions);
    // Each bar stands left of the two labels that describe it.
    options->addWidget(vsbWait, 0, 0, 2, 1);
    options->addWidget(lblWaitFor, 0, 1);
    options->addWidget(lblWait, 1, 1);
    options->addWidget(vsbPercent, 0, 2, 2, 1);
    options->addWidget(lblIncluded, 0, 3);
    options->addWidget(lblPercent, 1, 3);
    options->addWidget(lblAnswer, 2, 0, 1, 4);
    options->addWidget(cboAnswerGroup, 3, 0, 1, 4);
    options->setColumnStretch(1, 1);
    options->setColumnStretch(3, 1);

    fraDisplay =
        named(new QGroupBox(QStringLiteral("Display"), column), QStringLiteral("fraDisplay"));
    const std::array<QString, 3> displays = {QStringLiteral("Standard"), QStringLiteral("Box"),
                                             QStringLiteral("Custom")};
    auto* display = new QGridLayout(fraDisplay);
    for (std::size_t i = 0; i < optDisplay.size(); ++i) {
        optDisplay[i] =
            named(new QRadioButton(displays[i], fraDisplay), QStringLiteral("optDisplay%1").arg(i));
        display->addWidget(optDisplay[i], 0, static_cast<int>(i));
    }
    optDisplay[0]->setChecked(true);
    txtDisplay = named(new QLineEdit(fraDisplay), QStringLiteral("txtDisplay"));
    display->addWidget(txtDisplay, 1, 0, 1, 3);

    fraActions = new SpecialCodesPanel(column);

    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(fraOptions);
    layout->addWidget(fraDisplay);
    layout->addWidget(fraActions, 1);
    return column;
}

}  // namespace orr::ui
