#pragma once

#include "platform/forms/Form.h"
#include "support/WindowShape.h"

/// The outline of a form's window, its frame within the main window included. No form asks for one
/// (support/Region.h).
class FormShape : public WindowShape {
public:
    explicit FormShape(Form& form) : form_(form) {}
    void SetWindowRgn(const QRegion* region) override;

private:
    Form& form_;
};
