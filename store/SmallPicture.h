#pragma once

#include "store/FormViews.h"

/// An account's picture as it stands beside a name: no larger than needed, and none in place of one
/// that is huge. It is shown unasked, wherever names are listed, so it comes straight out of the
/// store: nothing is written for it, and another copy of the program can mix up none.
class SmallPicture : public PictureTarget {
public:
    /// `side`: in device pixels, more than 0.
    explicit SmallPicture(int side) : side_(side) {}

    int SmallSide() const override { return side_; }
    QImage Picture() const override { return picture_; }
    void SetPicture(const QImage& picture) override { picture_ = picture; }

private:
    int side_;
    QImage picture_;
};
