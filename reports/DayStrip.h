#pragma once

#include <QWidget>

/// The names of the seven days, each above its column of the matrix.
class DayStrip : public QWidget {
    Q_OBJECT

public:
    explicit DayStrip(QWidget* parent = nullptr);

    /// Where the name of a day (1 Sunday to 7 Saturday) stands in the strip, in pixels.
    QRect PlaceOf(int day) const;

protected:
    void paintEvent(QPaintEvent* event) override;
};
