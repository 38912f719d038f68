#pragma once

#include "widgets/FittingLabel.h"

/// How hard a job is: in words, and before them as one to five dots for those who do not read yet.
/// A difficulty of the adult's own words has no dots.
class DifficultyText : public FittingLabel {
    Q_OBJECT

public:
    explicit DifficultyText(QWidget* parent);

    /// Dots that are filled, of five; 0 where none are shown.
    int Dots() const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The points of a job, behind a small star.
class PointsText : public FittingLabel {
    Q_OBJECT

public:
    explicit PointsText(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};
