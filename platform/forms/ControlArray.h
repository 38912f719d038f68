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
/// `Control` is a widget class. An index outside the array raises 9.
template <class Control>
class ControlArray {
public:
    using Maker = std::function<Control*()>;
    using Renewer = std::function<void(Control&)>;

    /// `make` returns a new hidden control with the designed one's parent; it also connects it.
    /// The control's index within the array is the count before the call.
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

    int Count() const { return static_cast<int>(elements_.size()); }
    Control& operator[](int index) const { return *Element(index).control; }

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

    /// Removes the last element. If it is not kept, it is deleted when control is back in the
    /// event loop, since the element may be the one whose handler runs. The designed element
    /// stays: raises 9.
    void UnloadLast() {
        if (elements_.size() <= 1)
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        Control* control = elements_.back().control;
        elements_.pop_back();
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
    bool Visible(int index) const { return !Element(index).control->isHidden(); }
    void SetVisible(int index, bool visible) { Element(index).control->setHidden(!visible); }

private:
    struct Entry {
        Control* control;
        TwipRect place;
    };

    Entry& Element(int index) { return const_cast<Entry&>(std::as_const(*this).Element(index)); }
    const Entry& Element(int index) const {
        if (index < 0 || index >= Count())
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return elements_[static_cast<std::size_t>(index)];
    }

    void Append(Control* control, const TwipRect& place) {
        control->setObjectName(QStringLiteral("%1(%2)").arg(name_).arg(Count()));
        elements_.push_back({control, place});
        Place(Count() - 1);
    }

    void Place(int index) {
        const Entry& entry = Element(index);
        entry.control->setGeometry(PixelRect(entry.place));
    }

    QString name_;
    Maker make_;
    Renewer renew_;
    std::vector<Entry> elements_;
    /// Hidden; the one with the lowest index last.
    std::vector<Control*> unloaded_;
};
