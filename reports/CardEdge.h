#pragma once

#include <QWidget>

/// The edge of a card over what lies in it: nothing stands out beyond its round corners. The mouse
/// goes through it.
class CardEdge : public QWidget {
    Q_OBJECT

public:
    explicit CardEdge(QWidget* parent);

    static constexpr int Round = 8; ///< pixels

protected:
    void paintEvent(QPaintEvent* event) override;
};
