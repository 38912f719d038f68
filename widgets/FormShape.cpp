#include "widgets/FormShape.h"

#include <limits>

void FormShape::SetWindowRgn(const QRegion* region) {
    QWidget& window = form_.Frame();
    if (region == nullptr) {
        window.clearMask();
        return;
    }
    // Window systems count the pixels of a window in 16 bits.
    constexpr int most = std::numeric_limits<qint16>::max();
    const QRegion seen = region->intersected(QRect(0, 0, most, most));
    // An empty mask would be none at all: a pixel beside the window hides it instead.
    window.setMask(seen.isEmpty() ? QRegion(-1, -1, 1, 1) : seen);
}
