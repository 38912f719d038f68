#pragma once

#include "platform/forms/Twips.h"
#include "platform/runtime/RuntimeError.h"

#include <QString>
#include <QWidget>
#include <functional>
#include <utility>
#include <vector>

/// An array of like controls, one a row: element 0 is designed, the others are loaded at its end
/// and unloaded from there at run time. Geometry is kept in twips and reads back as written.
///
/// An element may be promised: it counts, has a place and a visible flag, and its control is made
/// when it is asked for.
///
/// `Control` is a widget class. An index outside the array raises 9.
template <class Control>
class ControlArray {
public:
    using Maker = std::function<Control*()>;
    using Renewer = std::function<void(Control&)>;
    using Keeper = std::function<void(int)>;

    /// `make` returns a new hidden control with the designed one's parent; it also connects it.
    /// The control's index within the array is the count before the call, or that of the promise.
    ///
    /// `renew` turns a control that `make` has returned back to how it was then, but for its
    /// visibility and geometry. With it, unloaded controls are kept for the same index: to make
    /// one takes several times as long.
    void Design(const QString& name, Control* first, const TwipRect& place, Maker make,
                Renewer renew = {}) {
        name_ = name;
        make_ = std::move(make);
        renew_ = std::move(renew);
        Append(first, place);
    }

    /// `keep` is called with the index of a promised element whose control is asked for. It has to
    /// have MakeElement called for it.
    void KeepPromisesBy(Keeper keep) { keep_ = std::move(keep); }

    int Count() const { return static_cast<int>(elements_.size()); }
    Control& operator[](int index) const {
        if (Element(index).control == nullptr)
            keep_(index);
        return *Element(index).control;
    }

    /// Adds an element at the end: hidden, with the geometry of the designed one.
    void LoadElement() {
        Control* control = nullptr;
        if (unloaded_.empty()) {
            control = make_();
            control->hide();
        } else {
            control = unloaded_.back();
            unloaded_.pop_back();
            renew_(*control);
        }
        Append(control, elements_.front().place);
    }

    /// Adds an element at the end that has no control yet: hidden, with the geometry of the
    /// designed one.
    void PromiseElement() { elements_.push_back({nullptr, elements_.front().place, false}); }

    /// Makes the control of a promised element.
    void MakeElement(int index) {
        Control* control = make_();
        Element(index).control = control;
        Name(index);
        Place(index);
        control->setHidden(!Element(index).isShown);
    }

    /// Removes the last element. If it is not kept, it is deleted when control is back in the
    /// event loop, since the element may be the one whose handler runs. The designed element
    /// stays: raises 9.
    void UnloadLast() {
        if (elements_.size() <= 1)
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        Control* control = elements_.back().control;
        elements_.pop_back();
        if (control == nullptr)
            return;
        control->hide();
        control->setObjectName(QString());
        if (renew_)
            unloaded_.push_back(control);
        else
            control->deleteLater();
    }

    int Left(int index) const { return Element(index).place.Left; }
    int Top(int index) const { return Element(index).place.Top; }
    int Width(int index) const { return Element(index).place.Width; }
    int Height(int index) const { return Element(index).place.Height; }

    void SetLeft(int index, int twips) {
        Element(index).place.Left = twips;
        Place(index);
    }
    void SetTop(int index, int twips) {
        Element(index).place.Top = twips;
        Place(index);
    }

    /// The control's own flag, whether or not its form can be seen.
    bool Visible(int index) const {
        const Entry& entry = Element(index);
        return entry.control == nullptr ? entry.isShown : !entry.control->isHidden();
    }
    void SetVisible(int index, bool visible) {
        Entry& entry = Element(index);
        if (entry.control == nullptr)
            entry.isShown = visible;
        else
            entry.control->setHidden(!visible);
    }

private:
    struct Entry {
        Control* control; ///< Null if it is promised.
        TwipRect place;
        bool isShown = false; ///< While it is promised.
    };

    Entry& Element(int index) { return const_cast<Entry&>(std::as_const(*this).Element(index)); }
    const Entry& Element(int index) const {
        if (index < 0 || index >= Count())
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return elements_[static_cast<std::size_t>(index)];
    }

    void Append(Control* control, const TwipRect& place) {
        elements_.push_back({control, place});
        Name(Count() - 1);
        Place(Count() - 1);
    }

    void Name(int index) {
        const QString name = QStringLiteral("%1(%2)").arg(name_).arg(index);
        Element(index).control->setObjectName(name);
    }

    void Place(int index) {
        const Entry& entry = Element(index);
        if (entry.control != nullptr)
            entry.control->setGeometry(PixelRect(entry.place));
    }

    QString name_;
    Maker make_;
    Renewer renew_;
    Keeper keep_;
    std::vector<Entry> elements_;
    /// Hidden; the one with the lowest index last.
    std::vector<Control*> unloaded_;
};
