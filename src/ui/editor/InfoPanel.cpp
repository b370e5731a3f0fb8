#include "editor/InfoPanel.h"

#include <QLabel>
#include <QVBoxLayout>

#include "platform/QtText.h"
#include "store/Tables.h"

namespace orr::ui {
namespace {

QString caption(const std::string& text) {
    return toQString(text);
}

QLabel* makeLabel(QWidget* parent, const char* name, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setMinimumWidth(1);  // never let a long name widen the panel
    return label;
}

}  // namespace

InfoPanel::InfoPanel(QWidget* parent) : QFrame(parent) {
    setObjectName(QStringLiteral("picInfo"));
    setFrameShape(QFrame::StyledPanel);
    setFrameShadow(QFrame::Sunken);

    lblPName = makeLabel(this, "lblPName", QStringLiteral("Planet X"));
    QFont bold = lblPName->font();
    bold.setBold(true);
    lblPName->setFont(bold);
    lnSep = new QFrame(this);
    lnSep->setObjectName(QStringLiteral("lnSep"));
    lnSep->setFrameShape(QFrame::HLine);
    lnSep->setFrameShadow(QFrame::Sunken);
    lblInh = makeLabel(this, "lblInh", QStringLiteral("Inhabited"));
    lblAdv = makeLabel(this, "lblAdv", QStringLiteral("Advanced"));
    lblAtt = makeLabel(this, "lblAtt", QStringLiteral("Attitude"));
    lblEnr = makeLabel(this, "lblEnr", QStringLiteral("Energy"));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblPName);
    layout->addWidget(lnSep);
    layout->addWidget(lblInh);
    layout->addWidget(lblAdv);
    layout->addWidget(lblAtt);
    layout->addWidget(lblEnr);
    layout->addStretch(1);
}

void InfoPanel::showPlanet(const QString& label, std::int32_t attributes) {
    const std::array<std::string, 4> captions = Tables::InfoCaptions(attributes);
    lblInh->setText(caption(captions[0]));
    lblAdv->setText(caption(captions[1]));
    lblAtt->setText(caption(captions[2]));
    lblEnr->setText(caption(captions[3]));
    fullName_ = label;
    lblPName->setText(FitName(lblPName, fullName_));
    lblPName->setToolTip(fullName_);
}

void InfoPanel::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    if (!fullName_.isEmpty()) lblPName->setText(FitName(lblPName, fullName_));
}

QString InfoPanel::FitName(const QLabel* label, const QString& text) {
    const QFontMetrics metrics(label->font());
    const int width = label->contentsRect().width();
    if (metrics.horizontalAdvance(text) <= width) return text;
    const QString ellipsis = QStringLiteral("...");
    QString shortened = text;
    while (!shortened.isEmpty()) {
        shortened.chop(1);
        if (metrics.horizontalAdvance(shortened + ellipsis) <= width) return shortened + ellipsis;
    }
    return metrics.horizontalAdvance(ellipsis) <= width ? ellipsis : QString();
}

}  // namespace orr::ui
