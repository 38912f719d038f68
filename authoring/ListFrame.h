#pragma once

#include <QGroupBox>

/// A frame that wants its greatest size and shrinks where there is no room for it. Behind the heads
/// of its columns lies a band, as lists have one.
class ListFrame : public QGroupBox {
    Q_OBJECT

public:
    /// Where the band ends and the rows begin, in pixels.
    static constexpr int BandBottom = 40;

    using QGroupBox::QGroupBox;

    QSize sizeHint() const override { return maximumSize(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};
