#include "platform/forms/DefaultForms.h"

#include "platform/forms/ActivationTracker.h"
#include "platform/runtime/RuntimeError.h"

#include <QHash>
#include <utility>

namespace {

struct Registration {
    std::function<Form*()> make;
    QPointer<QWidget> widget;
    Form* form = nullptr;
};

QHash<QString, Registration>& Registrations() {
    static QHash<QString, Registration> registrations;
    return registrations;
}

} // namespace

void RegisterForm(const QString& name, std::function<Form*()> make) {
    Registrations()[name].make = std::move(make);
}

Form& DefaultForm(const QString& name) {
    if (!Registrations().contains(name))
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    if (Form* existing = ExistingForm(name))
        return *existing;
    Form* form = Registrations()[name].make();
    Registration& registration = Registrations()[name];
    registration.form = form;
    registration.widget = &form->Widget();
    form->EnsureLoaded();
    return *form;
}

Form* ExistingForm(const QString& name) {
    const Registration registration = Registrations().value(name);
    return registration.widget.isNull() ? nullptr : registration.form;
}

void ForgetDefaultForm(const Form& form) {
    for (Registration& registration : Registrations())
        if (registration.form == &form) {
            registration.form = nullptr;
            registration.widget = nullptr;
        }
}

void DropDefaultForms() {
    ActivationTracker::Instance().Reset();
    for (Registration& registration : Registrations()) {
        const QPointer<QWidget> widget = std::exchange(registration.widget, nullptr);
        registration.form = nullptr;
        // A form in the main window goes with its frame.
        if (!widget.isNull())
            delete &dynamic_cast<Form&>(*widget).Frame();
    }
}
