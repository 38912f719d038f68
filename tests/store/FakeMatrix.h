#pragma once

#include "session/Session.h"

#include <QObject>
#include <array>

/// An array of the weekly review without a form; the store reaches it while its matrix lives.
template <class Interface>
class FakeControls : public Interface {
public:
    struct Element {
        int left = 0;
        int top = 0;
        int width = 0;
        int height = 0;
        bool visible = true;
        QString caption;
        int backStyle = 0;
        qint32 foreColor = 0;
    };
    QList<Element> elements{Element{}};

    int Count() const override { return static_cast<int>(elements.size()); }
    void LoadElement() override {
        elements.append(elements.first());
        elements.last().visible = false;
    }
    void UnloadLast() override {
        if (elements.size() == 1)
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        elements.removeLast();
    }
    int Left(int index) const override { return At(index).left; }
    int Top(int index) const override { return At(index).top; }
    int Width(int index) const override { return At(index).width; }
    int Height(int index) const override { return At(index).height; }
    void SetLeft(int index, int twips) override { At(index).left = twips; }
    void SetTop(int index, int twips) override { At(index).top = twips; }
    void SetVisible(int index, bool visible) override { At(index).visible = visible; }

    const Element& At(int index) const {
        if (index < 0 || index >= elements.size())
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return elements.at(index);
    }
    Element& At(int index) {
        if (index < 0 || index >= elements.size())
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return elements[index];
    }
};

class FakeLabels : public FakeControls<MatrixLabels> {
public:
    QString Caption(int index) const override { return At(index).caption; }
    void SetCaption(int index, const QString& caption) override { At(index).caption = caption; }
    void SetBackStyle(int index, int backStyle) override { At(index).backStyle = backStyle; }
    void SetForeColor(int index, qint32 color) override { At(index).foreColor = color; }
};

class FakeMatrix : public ChartMatrix, public CaptionTarget {
public:
    FakeMatrix() {
        WeeklyReview = [this]() -> ChartMatrix& { return *this; };
        dayTotals.elements.resize(7);
    }
    ~FakeMatrix() override { WeeklyReview = {}; }
    FakeMatrix(const FakeMatrix&) = delete;
    FakeMatrix& operator=(const FakeMatrix&) = delete;

    QString title = QStringLiteral("as it was");
    FakeLabels jobs;
    FakeLabels values;
    std::array<FakeLabels, 7> cells;
    FakeLabels jobTotals;
    FakeControls<MatrixControls> outlines;
    FakeLabels dayTotals;

    void SetCaption(const QString& caption) override { title = caption; }
    CaptionTarget& Title() override { return *this; }
    MatrixLabels& Jobs() override { return jobs; }
    MatrixLabels& Values() override { return values; }
    MatrixLabels& Cells(int day) override { return cells.at(static_cast<std::size_t>(day - 1)); }
    MatrixLabels& JobTotals() override { return jobTotals; }
    MatrixControls& Outlines() override { return outlines; }
    MatrixLabels& DayTotals() override { return dayTotals; }
};
