#pragma once

#include "platform/forms/Form.h"

#include <QMdiSubWindow>

/// The frame of a form inside the main window. Closing it unloads the form, which may refuse.
class FormFrame : public QMdiSubWindow {
    Q_OBJECT

public:
    explicit FormFrame(Form& form);

    QString Caption() const { return form_.Caption(); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    Form& form_;
};
