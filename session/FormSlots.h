#pragma once

#include "platform/runtime/RuntimeError.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

/// A growable array of forms, each reached through the interface `Rows`. An element that holds no
/// form, or whose form has gone, is made when it is touched.
template <class Rows>
class FormSlots {
public:
    struct Slot {
        QPointer<QObject> form;
        Rows* rows = nullptr;
    };

    using Maker = std::function<Slot()>;

    /// What makes a form for an element; set by the room that owns the form. Returns the former.
    Maker SetMaker(Maker maker) { return std::exchange(maker_, std::move(maker)); }

    /// Grows or cuts the array to the bounds 0 to `upperBound`, keeping what it holds.
    void RedimPreserve(int upperBound) { slots_.resize(static_cast<std::size_t>(upperBound) + 1); }

    /// The form in an element, made if there is none. Raises 9 outside the bounds.
    Rows& At(int index) {
        Slot& slot = Element(index);
        if (slot.form.isNull()) {
            if (!maker_)
                throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
            slot = maker_();
        }
        return *slot.rows;
    }

    /// The form in an element, null if there is none. Raises 9 outside the bounds.
    Rows* Peek(int index) {
        const Slot& slot = Element(index);
        return slot.form.isNull() ? nullptr : slot.rows;
    }

    /// Empties the element that holds `form`: it has been unloaded.
    void Forget(const QObject* form) {
        for (Slot& slot : slots_)
            if (slot.form == form)
                slot = {};
    }

    void Clear() { slots_.clear(); }

private:
    Slot& Element(int index) {
        if (index < 0 || static_cast<std::size_t>(index) >= slots_.size())
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return slots_[static_cast<std::size_t>(index)];
    }

    std::vector<Slot> slots_;
    Maker maker_;
};
