#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <QDate>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <memory>
#include <utility>

class EmptyNote;
class QListWidget;

namespace Ui {
class Reportfrm;
}

/// A yes or no that tells when it becomes yes.
class WatchedFlag {
public:
    explicit WatchedFlag(std::function<void()> whenSet) : whenSet_(std::move(whenSet)) {}
    WatchedFlag& operator=(bool value) {
        value_ = value;
        if (value)
            whenSet_();
        return *this;
    }
    operator bool() const { return value_; }

private:
    std::function<void()> whenSet_;
    bool value_ = false;
};

/// Prints a child's chart, or job reports over charts, history tables or a span of dates.
class Reportfrm : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::Reportfrm;

    Reportfrm();
    ~Reportfrm() override;

    /// The first and the last day chosen.
    QDate StartDate;
    QDate EndDate;
    /// Both are in: the report begun last among those that wait for them goes on when control is
    /// back in the event loop.
    WatchedFlag DatesChosen{[this] { datesAreIn_.start(); }};
    /// The tables that a report is to cover.
    QStringList SelectedCharts;

protected:
    void Activate() override;
    void Unloaded() override;

private:
    QString ReturnSelectedKid() const;
    QString ReturnSelectedChart();
    QString ReturnSelectedHistory();
    QString CollectSelected(const QListWidget& list);

    void StudentsList_Click();
    void ListView1_RightPress();
    void Ok_Click();
    void Ok2_Click();
    void Command2_Click();
    void PrintSelected(const QString& kid);
    void AskForDates();
    /// What comes behind the wait for the dates.
    void PrintDateRange(const QString& kid);

    std::unique_ptr<Ui::Reportfrm> ui_;
    EmptyNote* noCharts_;
    EmptyNote* noHistory_;
    /// The children whose reports wait for dates, the latest last. The wait holds up nothing else,
    /// and ends with the form or the process.
    QStringList waitingKids_;
    QTimer datesAreIn_;
};
