#pragma once

#include "platform/forms/ControlArray.h"
#include "platform/runtime/Colors.h"
#include "reports/MatrixCell.h"
#include "store/FormViews.h"

/// A control array of the form as the store works on it.
template <class Control, class Interface>
class MatrixArray : public Interface {
public:
    void Design(const QString& name, const TwipRect& place, const std::function<Control*()>& make) {
        controls_.Design(name, make(), place, make);
    }

    Control& operator[](int index) const { return controls_[index]; }
    bool Visible(int index) const { return controls_.Visible(index); }

    int Count() const override { return controls_.Count(); }
    void LoadElement() override { controls_.LoadElement(); }
    void UnloadLast() override { controls_.UnloadLast(); }
    int Left(int index) const override { return controls_.Left(index); }
    int Top(int index) const override { return controls_.Top(index); }
    int Width(int index) const override { return controls_.Width(index); }
    int Height(int index) const override { return controls_.Height(index); }
    void SetLeft(int index, int twips) override { controls_.SetLeft(index, twips); }
    void SetTop(int index, int twips) override { controls_.SetTop(index, twips); }
    void SetVisible(int index, bool visible) override { controls_.SetVisible(index, visible); }

private:
    ControlArray<Control> controls_;
};

/// An array of labels.
class CellArray : public MatrixArray<MatrixCell, MatrixLabels> {
public:
    QString Caption(int index) const override { return (*this)[index].text(); }
    void SetCaption(int index, const QString& caption) override { (*this)[index].setText(caption); }
    int BackStyle(int index) const { return (*this)[index].BackStyle(); }
    void SetBackStyle(int index, int backStyle) override { (*this)[index].SetBackStyle(backStyle); }
    qint32 ForeColor(int index) const { return ValueFromColor((*this)[index].ForeColor()); }
    void SetForeColor(int index, qint32 color) override {
        (*this)[index].SetForeColor(ColorFromValue(color));
    }
};
