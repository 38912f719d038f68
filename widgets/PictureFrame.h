#pragma once

#include <QLabel>

/// A label for a picture. While it has none a pale head and shoulders tell that somebody's belongs
/// there, or a pale present that a goal's does.
class PictureFrame : public QLabel {
    Q_OBJECT
    Q_PROPERTY(bool ofGoal MEMBER isOfGoal_)

public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool isOfGoal_ = false;
};
