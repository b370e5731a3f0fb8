#include "editor/DisplayNameBox.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "store/SystemRecord.h"

namespace orr::ui {

namespace {

// The keys of Edit > Undo and Redo: the box claims them all, not only its platform's own.
bool isHistoryKey(QKeyEvent* key) {
    const QKeyCombination pressed = key->keyCombination();
    return key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo) ||
           pressed == QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key_Z) ||
           pressed == QKeyCombination(Qt::CTRL, Qt::Key_Y);
}

}  // namespace

DisplayNameBox::DisplayNameBox(QWidget* parent) : QStackedWidget(parent) {
    lblName = new QLabel(this);
    lblName->setObjectName(QStringLiteral("lblName"));
    lblName->setAlignment(Qt::AlignCenter);
    lblName->setToolTip(QStringLiteral("Click to change the name the game shows"));
    QFont nameFont = lblName->font();
    nameFont.setPointSizeF(nameFont.pointSizeF() * 1.4);
    nameFont.setBold(true);
    lblName->setFont(nameFont);
    lblName->installEventFilter(this);
    txtName = new QLineEdit(this);
    txtName->setObjectName(QStringLiteral("txtName"));
    txtName->setMaxLength(static_cast<int>(kDisplayNameWidth));
    txtName->setAlignment(Qt::AlignCenter);
    txtName->setFont(nameFont);
    txtName->installEventFilter(this);
    addWidget(lblName);
    addWidget(txtName);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(txtName, &QLineEdit::returnPressed, this, [this] { finishEdit(true); });
}

void DisplayNameBox::setName(const QString& name) {
    lblName->setText(name);
}

bool DisplayNameBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblName && event->type() == QEvent::MouseButtonPress) {
        beginEdit();
        return true;
    }
    if (watched != txtName) return QStackedWidget::eventFilter(watched, event);
    if (event->type() == QEvent::ShortcutOverride && isHistoryKey(static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        finishEdit(false);
        return true;
    }
    if (event->type() == QEvent::FocusOut && !refusing_) finishEdit(false);
    return QStackedWidget::eventFilter(watched, event);
}

void DisplayNameBox::beginEdit() {
    if (!editable_) return;
    txtName->setText(lblName->text());
    setCurrentWidget(txtName);
    txtName->selectAll();
    txtName->setFocus();
}

void DisplayNameBox::finishEdit(bool keep) {
    if (currentWidget() != txtName) return;
    const QString typed = txtName->text();
    if (const QString unstorable = unstorableCharacters(typed); keep && !unstorable.isEmpty()) {
        // The box stays open for a correction; the message must not close it by taking the
        // focus away.
        refusing_ = true;
        prompts().inform(this, unstorableMessage(unstorable));
        refusing_ = false;
        txtName->setFocus();
        return;
    }
    // Enter or Escape leave the focus in the closing box; a click elsewhere has taken it.
    const bool focusLeft = !txtName->hasFocus();
    setCurrentWidget(lblName);
    if (keep) emit nameEntered(typed);
    if (!focusLeft) emit editingFinished();
}

}  // namespace orr::ui
