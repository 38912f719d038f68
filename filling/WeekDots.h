#pragma once

#include <QLabel>
#include <QSet>

/// The week of a chart as seven discs, Sunday to Saturday: those with jobs are filled, today has a
/// ring, the day on display a bar below. A tool tip and screen readers tell the same.
class WeekDots : public QLabel {
    Q_OBJECT

public:
    explicit WeekDots(QWidget* parent = nullptr);

    /// Days are numbers from 1 Sunday to 7 Saturday.
    void SetWeek(const QSet<int>& daysWithJobs, int today);
    /// The day on display.
    void SetShown(int day);

    const QSet<int>& DaysWithJobs() const { return daysWithJobs_; }
    int Today() const { return today_; }
    int ShownDay() const { return shown_; }
    /// The disc of a day, without its ring.
    QRectF Disc(int day) const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Tell();
    int BarsTop() const;

    QSet<int> daysWithJobs_;
    int today_ = 0;
    int shown_ = 0;
};
