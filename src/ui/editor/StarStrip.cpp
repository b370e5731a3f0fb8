#include "editor/StarStrip.h"

#include <QString>
#include <algorithm>

// The pictures are compiled into the static editor library; its resources must be registered by
// hand or the linker drops them.
static void registerEditorResources() {
    Q_INIT_RESOURCE(resources);
}

namespace orr::ui {

StarStrip::StarStrip(QObject* parent) : QObject(parent) {
    setObjectName(QStringLiteral("clpStars"));
    registerEditorResources();
    for (int i = 0; i < kCellCount; ++i) {
        QImage image(QStringLiteral(":/stars/star%1.png").arg(i));
        if (image.isNull()) {
            // Never leave the star invisible, even if a picture went missing from the build.
            image = QImage(kCellSize, kCellSize, QImage::Format_ARGB32);
            image.fill(Qt::yellow);
        }
        cells_[static_cast<std::size_t>(i)] = image.convertToFormat(QImage::Format_ARGB32);
    }
}

QImage StarStrip::cell(int starType) const {
    starType = std::clamp(starType, 0, kCellCount - 1);
    return cells_[static_cast<std::size_t>(starType)];
}

}  // namespace orr::ui
