#pragma once

#include "platform/forms/ControlArray.h"
#include "platform/runtime/Colors.h"
#include "reports/MatrixCell.h"

/// A control array of the weekly review's labels.
class CellArray : public ControlArray<MatrixCell> {
public:
    QString Caption(int index) const { return (*this)[index].text(); }
    void SetCaption(int index, const QString& caption) { (*this)[index].setText(caption); }
    int BackStyle(int index) const { return (*this)[index].BackStyle(); }
    void SetBackStyle(int index, int backStyle) { (*this)[index].SetBackStyle(backStyle); }
    qint32 ForeColor(int index) const { return ValueFromColor((*this)[index].ForeColor()); }
    void SetForeColor(int index, qint32 color) {
        (*this)[index].SetForeColor(ColorFromValue(color));
    }
};
