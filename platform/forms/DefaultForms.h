#pragma once

#include "platform/forms/Form.h"

#include <QString>
#include <functional>

/// The registry of default instances: each form has one shared instance that comes into being,
/// hidden and loaded, when it is first named, and anew when it is named after an unload. Forms of
/// different rooms name each other here, by name.

/// Makes a form known. `make` returns a new form that has not been loaded.
void RegisterForm(const QString& name, std::function<Form*()> make);

/// The default instance, made and loaded if there is none. Raises 91 for an unknown name.
Form& DefaultForm(const QString& name);

/// The default instance if there is one, else null. Makes nothing.
Form* ExistingForm(const QString& name);

/// Forgets an instance that is being unloaded; the next naming makes a fresh one.
void ForgetDefaultForm(const Form& form);

/// Unloads nothing, forgets all instances and deletes them; for the end of a run.
void DropDefaultForms();

/// RegisterForm for a class with a static `FormName`.
template <class T>
void RegisterFormClass() {
    RegisterForm(T::FormName, [] { return static_cast<Form*>(new T); });
}

/// The default instance of a form class of the same room.
template <class T>
T& Default() {
    return dynamic_cast<T&>(DefaultForm(T::FormName));
}
