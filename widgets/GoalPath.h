#pragma once

#include "widgets/Movement.h"

#include <QImage>
#include <QPixmap>
#include <QProgressBar>

/// The way to an incentive, for those who do not read numbers yet: a star walks over stepping
/// stones to the incentive's picture. It shows the figures of the labels beside it, to a screen
/// reader as a progress bar.
class GoalPath : public QProgressBar {
    Q_OBJECT

public:
    explicit GoalPath(QWidget* parent = nullptr);

    /// What the labels say, shown at once. A cost that is not above 0 is no goal; an incentive
    /// without a picture is shown as a present.
    void Show(double points, double cost, const QString& name, const QImage& picture);
    /// Other points on the way to the same goal: the star hops there, if motion is welcome.
    void WalkTo(double points);

    bool HasGoal() const { return cost_ > 0; }
    bool IsReached() const { return HasGoal() && points_ >= cost_; }
    /// The part of the way that has been made, from 0 to 1.
    double Way() const;
    bool IsMoving() const { return walk_.IsRunning(); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void Tell();
    QPixmap PictureOfSize(int size) const;
    void PaintNow(QPainter& painter) const;

    double points_ = 0;
    double cost_ = 0;
    QString name_;
    QImage picture_;
    /// The incentive's picture, and the whole path at rest, in the size and sharpness that they
    /// were last painted in: a page that is turned beside the path does not wait for it.
    mutable QPixmap scaled_;
    QPixmap atRest_;
    Movement walk_;
    double walkFrom_ = 0;
};
