// The message editor's controls and their arrangement.

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include "messages/DirectionPicture.h"
#include "messages/LongEntryToolTip.h"
#include "messages/MessageLineForm.h"
#include "messages/frmMessages.h"
#include "platform/Named.h"

namespace orr::ui {

namespace {

QPushButton* button(const QString& caption, const QString& name, QWidget* parent) {
    auto* result = named(new QPushButton(caption, parent), name);
    // Enter never presses a button in this window (see keyPressEvent).
    result->setAutoDefault(false);
    return result;
}

QLabel* label(const QString& caption, const QString& name, QWidget* parent) {
    return named(new QLabel(caption, parent), name);
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
    directionRow->addSpacing(12);
    directionRow->addWidget(picDirection);

    chkCustom = named(new QCheckBox(QStringLiteral("Use Custom Messages"), this),
                      QStringLiteral("chkCustom"));
    auto* top = new QHBoxLayout;
    top->addWidget(fraDirection);
    top->addStretch(1);
    top->addWidget(chkCustom);

    form_ = new MessageLineForm(this);
    auto* middle = new QHBoxLayout;
    middle->addWidget(buildListArea(), 3);
    middle->addWidget(form_, 2);

    cmdGo = button(QStringLiteral("&Go to Answer"), QStringLiteral("cmdGo"), this);
    cmdEditRoom = button(QStringLiteral("Edit R&oom"), QStringLiteral("cmdEditRoom"), this);
    cmdWizard = button(QStringLiteral("Adventure &Wizard"), QStringLiteral("cmdWizard"), this);
    cmdClose = button(QStringLiteral("&Close"), QStringLiteral("cmdClose"), this);
    cmdEditRoom->setEnabled(false);  // until a group that can be a room is shown
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

    picTooltip = new LongEntryToolTip(lstMessages);
    mnuPopup = named(new QMenu(this), QStringLiteral("mnuPopup"));
    mnuEdit = named(mnuPopup->addAction(QStringLiteral("&Edit")), QStringLiteral("mnuEdit"));
    mnuRemove = named(mnuPopup->addAction(QStringLiteral("&Remove")), QStringLiteral("mnuRemove"));
    mnuGo = named(mnuPopup->addAction(QStringLiteral("&Go to Answer")), QStringLiteral("mnuGo"));
    buildShortcuts();
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

void frmMessages::buildShortcuts() {
    // The session's history, as in the main window's Edit menu. A text box keeps these keys for
    // its own undo of the typing (see undoOrRedo).
    actUndo = named(new QAction(this), QStringLiteral("actUndo"));
    actUndo->setShortcuts(QKeySequence::Undo);
    actRedo = named(new QAction(this), QStringLiteral("actRedo"));
    QList<QKeySequence> redo = QKeySequence::keyBindings(QKeySequence::Redo);
    for (const QKeySequence& usual :
         {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)})
        if (!redo.contains(usual)) redo.append(usual);
    actRedo->setShortcuts(redo);
    addAction(actUndo);
    addAction(actRedo);
}

}  // namespace orr::ui
