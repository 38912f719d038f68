#pragma once

#include "platform/forms/Form.h"

/// The hourglass over a form, as long as it lives.
class Hourglass {
public:
    explicit Hourglass(Form& form) : form_(form) { form_.SetMousePointer(11); }
    ~Hourglass() { form_.SetMousePointer(0); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    Form& form_;
};
