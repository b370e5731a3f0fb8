// The room editor's controls and their arrangement.

#include <QAction>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "platform/Named.h"
#include "rooms/RoomPicture.h"
#include "rooms/frmEditRoom.h"

namespace orr::ui {

namespace {

QPushButton* button(const QString& caption, const QString& name, QWidget* parent) {
    auto* result = named(new QPushButton(caption, parent), name);
    // Enter never presses a button here: every keystroke is stored as it is typed.
    result->setAutoDefault(false);
    return result;
}

// A standard action's box: its value is always the stored action's state (unticked, ticked,
// grey), so a click does not change it; the window stores the change and shows the result.
class ActionBox : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;

  protected:
    void nextCheckState() override {}
};

// A text without "*" (it would begin the line's codes) and without line breaks.
QValidator* lineTextValidator(QObject* parent, const QString& alsoForbidden = {}) {
    return new QRegularExpressionValidator(
        QRegularExpression(
            QStringLiteral("[^*\\x00-\\x1f%1]*").arg(QRegularExpression::escape(alsoForbidden))),
        parent);
}

}  // namespace

void frmEditRoom::buildControls() {
    pnlRoom = new RoomPicture(this);
    auto* boxes = new QVBoxLayout;
    for (int i = 0; i < kStandardActionCount; ++i) {
        chkAct[i] = named<QCheckBox>(new ActionBox(QString::fromLatin1(kStandardCaptions[i]), this),
                                     QStringLiteral("chkAct%1").arg(i));
        chkAct[i]->setTristate(true);
        chkAct[i]->setAutoFillBackground(true);
        boxes->addWidget(chkAct[i]);
    }
    lblRoomDesc = named(new QLabel(QStringLiteral("&Room Description:"), this),
                        QStringLiteral("lblRoomDesc"));
    txtMessage = named(new QPlainTextEdit(this), QStringLiteral("txtMessage"));
    txtMessage->setTabChangesFocus(true);
    txtMessage->setFixedHeight(txtMessage->fontMetrics().lineSpacing() * 4 + 12);
    txtMessage->installEventFilter(this);
    lblRoomDesc->setBuddy(txtMessage);
    boxes->addSpacing(8);
    boxes->addWidget(lblRoomDesc);
    boxes->addWidget(txtMessage);
    boxes->addStretch(1);
    auto* top = new QHBoxLayout;
    top->addWidget(pnlRoom, 1);
    top->addLayout(boxes);

    fraTools = named(new QGroupBox(QStringLiteral("Tools"), this), QStringLiteral("fraTools"));
    cmdLock = button(QStringLiteral("&Lock"), QStringLiteral("cmdLock"), fraTools);
    cmdAdd = button(QStringLiteral("Add &Action"), QStringLiteral("cmdAdd"), fraTools);
    // "&Advanced" would share Alt+A with "Add &Action", so this one takes the N.
    cmdAdvanced = button(QStringLiteral("Adva&nced"), QStringLiteral("cmdAdvanced"), fraTools);
    auto* tools = new QVBoxLayout(fraTools);
    for (QPushButton* tool : {cmdLock, cmdAdd, cmdAdvanced}) tools->addWidget(tool);
    tools->addStretch(1);

    lvwActions = named(new QTreeWidget(this), QStringLiteral("lvwActions"));
    lvwActions->setColumnCount(2);
    lvwActions->setHeaderLabels({QStringLiteral("Destination"), QStringLiteral("Action")});
    lvwActions->setRootIsDecorated(false);
    lvwActions->setUniformRowHeights(true);
    lvwActions->setAllColumnsShowFocus(true);
    lvwActions->header()->setStretchLastSection(true);
    lvwActions->setColumnWidth(0, 150);
    lvwActions->setMinimumHeight(lvwActions->fontMetrics().lineSpacing() * 6);
    auto* middle = new QHBoxLayout;
    middle->addWidget(fraTools);
    middle->addWidget(lvwActions, 1);

    cmdBack = button(QStringLiteral("Back to Previous Room"), QStringLiteral("cmdBack"), this);
    cmdBack->setEnabled(false);
    cmdClose = button(QStringLiteral("&Close"), QStringLiteral("cmdClose"), this);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(cmdBack);
    bottom->addStretch(1);
    bottom->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 3);
    layout->addLayout(middle, 2);
    layout->addWidget(buildActionFrame());
    layout->addLayout(bottom);

    mnuPopup = named(new QMenu(this), QStringLiteral("mnuPopup"));
    for (int choice = 0; choice < kDirectionChoiceCount; ++choice) {
        mnuPDir[choice] = named(mnuPopup->addAction(QString::fromLatin1(kDirectionChoices[choice])),
                                QStringLiteral("mnuPDir%1").arg(choice));
        mnuPDir[choice]->setCheckable(true);
        mnuPDir[choice]->setData(QString::fromLatin1(kDirectionTags[choice]));
    }
    tmrDisableHighlight = named(new QTimer(this), QStringLiteral("tmrDisableHighlight"));
    tmrDisableHighlight->setInterval(kHighlightMs);
    tmrDisableHighlight->setSingleShot(true);

    actUndo = new QAction(this);
    actUndo->setShortcut(QKeySequence::Undo);
    actRedo = new QAction(this);
    actRedo->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    addAction(actUndo);
    addAction(actRedo);
}

QWidget* frmEditRoom::buildActionFrame() {
    fraAction = named(new QGroupBox(QStringLiteral("Action"), this), QStringLiteral("fraAction"));
    txtResponse = named(new QLineEdit(fraAction), QStringLiteral("txtResponse"));
    txtResponse->setValidator(lineTextValidator(txtResponse));
    lblDest =
        named(new QLabel(QStringLiteral("&Destination:"), fraAction), QStringLiteral("lblDest"));
    txtDest = named(new QLineEdit(fraAction), QStringLiteral("txtDest"));
    txtDest->setValidator(lineTextValidator(txtDest, QStringLiteral("=")));
    lblDest->setBuddy(txtDest);
    chkDir = button(QStringLiteral("Direction"), QStringLiteral("chkDir"), fraAction);
    // Wide enough for the longest direction's caption, so the button keeps its size.
    int widest = 0;
    for (const char* caption : kDirectionChoices)
        widest =
            std::max(widest, chkDir->fontMetrics().horizontalAdvance(QString::fromLatin1(caption)));
    chkDir->setMinimumWidth(widest +
                            chkDir->fontMetrics().horizontalAdvance(QStringLiteral("MMMM")));
    chkDir->setToolTip(QStringLiteral("The direction this action leads in"));
    cmdEffect = button(QStringLiteral("&Edit Effect"), QStringLiteral("cmdEffect"), fraAction);
    cmdRemove = button(QStringLiteral("Remo&ve"), QStringLiteral("cmdRemove"), fraAction);
    lblProblem = named(new QLabel(fraAction), QStringLiteral("lblProblem"));
    QPalette warning = lblProblem->palette();
    warning.setColor(QPalette::WindowText, Qt::red);
    lblProblem->setPalette(warning);
    lblProblem->setWordWrap(true);
    lblProblem->hide();
    for (QWidget* control : std::initializer_list<QWidget*>{txtResponse, lblDest, txtDest, chkDir,
                                                            cmdEffect, cmdRemove}) {
        // Hidden controls keep their room: the frame does not jump as actions come and go.
        QSizePolicy policy = control->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        control->setSizePolicy(policy);
    }
    txtResponse->installEventFilter(this);
    txtDest->installEventFilter(this);

    auto* grid = new QGridLayout(fraAction);
    grid->addWidget(txtResponse, 0, 0, 1, 6);
    grid->addWidget(lblDest, 1, 0);
    grid->addWidget(txtDest, 1, 1);
    grid->addWidget(chkDir, 1, 2);
    grid->addItem(new QSpacerItem(12, 1), 1, 3);
    grid->addWidget(cmdEffect, 1, 4);
    grid->addWidget(cmdRemove, 1, 5);
    grid->addWidget(lblProblem, 2, 0, 1, 6);
    grid->setColumnStretch(1, 1);
    return fraAction;
}

void frmEditRoom::connectControls() {
    for (int i = 0; i < kStandardActionCount; ++i) {
        connect(chkAct[i], &QCheckBox::clicked, this, [this, i] { boxClicked(i); });
        chkAct[i]->installEventFilter(this);
    }
    for (int d = 0; d < kDirectionCount; ++d) pnlRoom->door(d)->installEventFilter(this);
    connect(pnlRoom, &RoomPicture::doorClicked, this, &frmEditRoom::doorClicked);
    connect(txtMessage, &QPlainTextEdit::textChanged, this, &frmEditRoom::descriptionEdited);
    connect(cmdLock, &QPushButton::clicked, this, &frmEditRoom::lockClicked);
    connect(cmdAdd, &QPushButton::clicked, this, &frmEditRoom::addClicked);
    connect(cmdAdvanced, &QPushButton::clicked, this, &frmEditRoom::advancedClicked);
    connect(lvwActions, &QTreeWidget::itemClicked, this, &frmEditRoom::listClicked);
    connect(lvwActions, &QTreeWidget::itemDoubleClicked, this, &frmEditRoom::listDoubleClicked);
    connect(txtResponse, &QLineEdit::textEdited, this, &frmEditRoom::responseEdited);
    connect(txtDest, &QLineEdit::textEdited, this, &frmEditRoom::destinationEdited);
    // Leaving a box that holds what cannot be stored shows the stored text again.
    for (QLineEdit* box : {txtResponse, txtDest})
        connect(box, &QLineEdit::editingFinished, this, [this] { showActionFields(); });
    connect(chkDir, &QPushButton::clicked, this, &frmEditRoom::openDirectionMenu);
    for (int choice = 0; choice < kDirectionChoiceCount; ++choice)
        connect(mnuPDir[choice], &QAction::triggered, this,
                [this, choice] { directionChosen(choice); });
    connect(cmdEffect, &QPushButton::clicked, this, &frmEditRoom::effectClicked);
    connect(cmdRemove, &QPushButton::clicked, this, &frmEditRoom::removeClicked);
    connect(cmdBack, &QPushButton::clicked, this, &frmEditRoom::backClicked);
    connect(cmdClose, &QPushButton::clicked, this, &frmEditRoom::reject);
    connect(actUndo, &QAction::triggered, this, [this] { undoOrRedo(false); });
    connect(actRedo, &QAction::triggered, this, [this] { undoOrRedo(true); });
}

}  // namespace orr::ui
