#include "messages/LongEntryToolTip.h"

#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <algorithm>

namespace orr::ui {

namespace {

constexpr int kPadding = 3;

}  // namespace

LongEntryToolTip::LongEntryToolTip(QListWidget* list, QWidget* window)
    : QFrame(window), list_(list) {
    setObjectName(QStringLiteral("picTooltip"));
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    lblTooltip = new QLabel(this);
    lblTooltip->setObjectName(QStringLiteral("lblTooltip"));
    lblTooltip->setWordWrap(true);
    lblTooltip->setForegroundRole(QPalette::ToolTipText);
    lblTooltip->setTextFormat(Qt::PlainText);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kPadding, 1, kPadding, 1);
    layout->addWidget(lblTooltip);
    hide();

    list_->viewport()->setMouseTracking(true);
    list_->viewport()->installEventFilter(this);
}

int LongEntryToolTip::rowAt(const QPoint& viewportPos) const {
    const QModelIndex index = list_->indexAt(viewportPos);
    return index.isValid() ? index.row() : -1;
}

bool LongEntryToolTip::showFor(int row) {
    QListWidgetItem* item = row >= 0 ? list_->item(row) : nullptr;
    if (!item || !list_->isVisible()) {
        dismiss();
        return false;
    }
    const QString text = item->text();
    const QFontMetrics metrics(list_->font());
    const QRect entry = list_->visualItemRect(item);
    if (metrics.horizontalAdvance(text) + 2 * kPadding <= list_->viewport()->width()) {
        dismiss();
        return false;
    }
    QWidget* window = parentWidget();
    const QPoint topLeft = list_->viewport()->mapTo(window, entry.topLeft());
    // As wide as the text needs, but never past the window's right edge: then it wraps.
    const int room = std::max(80, window->width() - topLeft.x() - 4);
    const int width = std::min(metrics.horizontalAdvance(text) + 4 * kPadding + 2, room);
    lblTooltip->setFont(list_->font());
    lblTooltip->setText(text);
    const int height = lblTooltip->heightForWidth(width - 2 * kPadding - 2) + 4;
    setGeometry(topLeft.x(), topLeft.y(), width, std::max(height, entry.height()));
    row_ = row;
    show();
    raise();
    return true;
}

void LongEntryToolTip::dismiss() {
    row_ = -1;
    hide();
}

bool LongEntryToolTip::eventFilter(QObject* watched, QEvent* event) {
    if (watched == list_->viewport()) {
        switch (event->type()) {
            case QEvent::MouseMove: {
                const auto* move = static_cast<QMouseEvent*>(event);
                if (move->buttons() == Qt::NoButton) showFor(rowAt(move->position().toPoint()));
                break;
            }
            case QEvent::Wheel:
            case QEvent::Hide:
                dismiss();
                break;
            default:
                break;
        }
    }
    return QFrame::eventFilter(watched, event);
}

void LongEntryToolTip::mousePressEvent(QMouseEvent* event) {
    const int row = row_;
    if (row < 0) return;
    if (event->button() == Qt::RightButton) {
        dismiss();
        emit entryMenuRequested(row, event->globalPosition().toPoint());
    } else if (event->button() == Qt::LeftButton) {
        emit entryClicked(row);
    }
}

void LongEntryToolTip::mouseDoubleClickEvent(QMouseEvent* event) {
    const int row = row_;
    if (row < 0 || event->button() != Qt::LeftButton) return;
    dismiss();
    emit entryDoubleClicked(row);
}

void LongEntryToolTip::leaveEvent(QEvent* event) {
    dismiss();
    QFrame::leaveEvent(event);
}

}  // namespace orr::ui
