#pragma once

#include <QRegion>

/// A window that can be given an outline (support/Region.h). Forms can be, though none is.
class WindowShape {
public:
    virtual ~WindowShape() = default;

    /// Shows of the window only what lies within `region`, in pixels from its upper left corner,
    /// and redraws it. Null restores the full rectangle; an empty region leaves nothing to see.
    virtual void SetWindowRgn(const QRegion* region) = 0;
};
