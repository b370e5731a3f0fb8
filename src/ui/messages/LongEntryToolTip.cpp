#include "messages/LongEntryToolTip.h"

#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

namespace orr::ui {

namespace {

constexpr int kPadding = 3;

}  // namespace

LongEntryToolTip::LongEntryToolTip(QListWidget* list) : QFrame(list->viewport()), list_(list) {
    setObjectName(QStringLiteral("picTooltip"));
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    // Clicks go through to the entries below.
    setAttribute(Qt::WA_TransparentForMouseEvents);
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
    for (QScrollBar* bar : {list_->verticalScrollBar(), list_->horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &LongEntryToolTip::dismiss);
    connect(list_->model(), &QAbstractItemModel::modelReset, this, &LongEntryToolTip::dismiss);
    connect(list_->model(), &QAbstractItemModel::rowsRemoved, this, &LongEntryToolTip::dismiss);
}

bool LongEntryToolTip::showFor(int row) {
    QListWidgetItem* item = row >= 0 ? list_->item(row) : nullptr;
    QWidget* viewport = list_->viewport();
    if (!item || !list_->isVisible()) {
        dismiss();
        return false;
    }
    const QString text = item->text();
    const QFontMetrics metrics(list_->font());
    if (metrics.horizontalAdvance(text) + 2 * kPadding <= viewport->width()) {
        dismiss();
        return false;
    }
    // As wide as the list, wrapped, from the entry down; near the bottom it grows upwards so
    // that it stays inside the list.
    const QRect entry = list_->visualItemRect(item);
    const int width = viewport->width();
    lblTooltip->setFont(list_->font());
    lblTooltip->setText(text);
    const int height =
        std::max(lblTooltip->heightForWidth(width - 2 * kPadding - 2) + 4, entry.height());
    const int top = std::max(0, std::min(entry.top(), viewport->height() - height));
    setGeometry(0, top, width, std::min(height, viewport->height()));
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
                const QModelIndex index = list_->indexAt(move->position().toPoint());
                const int row = index.isValid() ? index.row() : -1;
                if (move->buttons() != Qt::NoButton)
                    dismiss();
                else if (row != row_)
                    showFor(row);
                break;
            }
            case QEvent::Leave:
            case QEvent::Wheel:
            case QEvent::Hide:
            case QEvent::Resize:
            case QEvent::MouseButtonPress:
                dismiss();
                break;
            default:
                break;
        }
    }
    return QFrame::eventFilter(watched, event);
}

}  // namespace orr::ui
