#pragma once

#include <QGroupBox>

/// A frame that wants its greatest size and shrinks where there is no room for it.
class ListFrame : public QGroupBox {
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;

    QSize sizeHint() const override { return maximumSize(); }
};
