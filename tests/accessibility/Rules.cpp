#include "tests/accessibility/Rules.h"

#include <QSet>
#include <algorithm>
#include <iostream>
#include <utility>

namespace {

/// Room round a control that its frame of focus may take, in pixels.
constexpr int Margin = 4;
/// Pixels that a person sees; a text cursor alone is not enough.
constexpr int LeastChange = 24;

bool IsEntry(const Control& control) {
    return control.Role == ATSPI_ROLE_LIST_ITEM || control.Role == ATSPI_ROLE_TABLE_CELL ||
           control.Role == ATSPI_ROLE_TREE_ITEM;
}

bool IsView(AtspiRole role) {
    return role == ATSPI_ROLE_LIST || role == ATSPI_ROLE_TREE || role == ATSPI_ROLE_TABLE ||
           role == ATSPI_ROLE_TREE_TABLE;
}

bool IsUsed(const Control& control) {
    switch (control.Role) {
    case ATSPI_ROLE_PUSH_BUTTON:
    case ATSPI_ROLE_TOGGLE_BUTTON:
    case ATSPI_ROLE_CHECK_BOX:
    case ATSPI_ROLE_RADIO_BUTTON:
    case ATSPI_ROLE_TEXT:
    case ATSPI_ROLE_ENTRY:
    case ATSPI_ROLE_PASSWORD_TEXT:
    case ATSPI_ROLE_COMBO_BOX:
    case ATSPI_ROLE_LINK:
    case ATSPI_ROLE_MENU_ITEM:
    case ATSPI_ROLE_CHECK_MENU_ITEM:
    case ATSPI_ROLE_SPIN_BUTTON:
        return true;
    default:
        return IsEntry(control) || IsView(control.Role) || control.Is(ATSPI_STATE_FOCUSABLE);
    }
}

bool SaysNothing(AtspiRole role) {
    return role == ATSPI_ROLE_FILLER || role == ATSPI_ROLE_UNKNOWN || role == ATSPI_ROLE_INVALID ||
           role == ATSPI_ROLE_PANEL || role == ATSPI_ROLE_FRAME || role == ATSPI_ROLE_IMAGE;
}

bool HasParentOf(const Controls& controls, const Control& control,
                 const std::function<bool(AtspiRole)>& role) {
    return control.Parent >= 0 && role(controls.at(control.Parent).Role);
}

/// Not the inside of another control.
bool IsTabStop(const Controls& controls, const Control& control) {
    if (!control.Is(ATSPI_STATE_FOCUSABLE) || !control.Is(ATSPI_STATE_ENABLED))
        return false;
    // Entries, and the days of a calendar.
    if ((IsEntry(control) || IsView(control.Role)) && HasParentOf(controls, control, IsView))
        return false;
    return !HasParentOf(controls, control,
                        [](AtspiRole role) { return role == ATSPI_ROLE_COMBO_BOX; });
}

bool IsInside(const Controls& controls, const Control& control) {
    for (int around = control.Parent; around >= 0; around = controls.at(around).Parent)
        if (IsView(controls.at(around).Role) || controls.at(around).Role == ATSPI_ROLE_COMBO_BOX)
            return true;
    return false;
}

/// Those that Tab must reach, whether they would take the keyboard or not: all but the parts of a
/// list or a calendar, which has keys for them, menus, and texts that can only be selected with
/// the mouse.
Controls TabStops(const Controls& controls) {
    Controls stops;
    for (const Control& control : controls)
        if (IsUsed(control) && control.Is(ATSPI_STATE_ENABLED) && !IsInside(controls, control) &&
            control.Role != ATSPI_ROLE_LABEL && control.Role != ATSPI_ROLE_MENU_ITEM)
            stops += control;
    return stops;
}

/// Follows the keyboard from control to control. Asking all of them for everything at each key
/// would take minutes on a form of many rows.
class Keyboard {
public:
    /// `known`: what has been read of the form.
    Keyboard(Shown& shown, Controls known) : shown_(shown), known_(std::move(known)) {}

    /// The tab stop that has the keyboard; without Ref if none has it.
    Control Find() {
        for (int round = 0; round < 2; ++round) {
            const qsizetype count = known_.size();
            // Most keys lead to a neighbour, to either side.
            for (qsizetype step = 0; step < count; ++step) {
                const qsizetype away = step % 2 == 0 ? step / 2 : count - (step + 1) / 2;
                const qsizetype index = (last_ + away) % count;
                if (IsTabStop(known_, known_.at(index)) && Reader::HasKeyboard(known_.at(index))) {
                    last_ = index;
                    known_[index] = Reader::Again(known_.at(index));
                    return known_.at(index);
                }
            }
            // It may be on a control that has only just come.
            known_ = shown_.Read();
        }
        return {};
    }

    /// A control stands where it can be seen only if nothing around it cuts it off.
    bool IsInSight(const Control& control) const {
        for (int around = control.Parent; around >= 0; around = known_.at(around).Parent)
            if (!known_.at(around).Place.contains(control.Place.center()))
                return false;
        return true;
    }

    const Controls& Known() const { return known_; }

private:
    Shown& shown_;
    Controls known_;
    qsizetype last_ = 0;
};

bool IsBackwards(const QRect& from, const QRect& to) {
    constexpr int Tolerance = 4; // pixels
    const int shared = std::min(from.bottom(), to.bottom()) - std::max(from.top(), to.top());
    const bool sameLine = shared * 2 > std::min(from.height(), to.height());
    if (sameLine)
        return to.right() <= from.left() + Tolerance;
    const bool isAbove = to.bottom() <= from.top() + Tolerance;
    // Up again is how a second column begins.
    return isAbove && to.left() < from.right();
}

bool Has(const Controls& controls, const Control& control) {
    return std::any_of(controls.begin(), controls.end(),
                       [&](const Control& other) { return other.IsSame(control); });
}

/// One way round by a key: the stops in the order in which they came.
struct Round {
    Controls stops;
    QStringList broken;
    int backwards = 0;
    QString lastBackwards;
};

Round GoRound(Shown& shown, Keyboard& keyboard, const QString& key, bool look) {
    Round round;
    const bool aloud = qEnvironmentVariableIsSet("DUTYGRID_READ_ALOUD");
    Control last = keyboard.Find();
    if (!last.Ref) {
        round.broken += QStringLiteral("No control has the keyboard");
        return round;
    }
    round.stops += last;
    constexpr int Most = 200;
    while (round.stops.size() < Most) {
        if (look)
            shown.Look();
        shown.Press(key);
        Control next = keyboard.Find();
        // On a page of text Tab goes from link to link first.
        constexpr int MostLinks = 40;
        for (int link = 0; link < MostLinks && last.Role == ATSPI_ROLE_LABEL && next.IsSame(last);
             ++link) {
            shown.Press(key);
            next = keyboard.Find();
        }
        if (aloud)
            std::cout << key.toStdString() << ": " << next.Said().toStdString() << '\n';
        if (!next.Ref) {
            round.broken +=
                QStringLiteral("%1 at %2 takes the keyboard away").arg(key, last.Said());
            break;
        }
        if (next.IsSame(last)) {
            // Where there is one control only, it is the next one, too.
            const bool isOnly = round.stops.size() == 1 && TabStops(keyboard.Known()).size() == 1;
            if (!isOnly)
                round.broken += QStringLiteral("%1 does not leave %2").arg(key, last.Said());
            break;
        }
        if (look) {
            shown.Look();
            if (shown.Changed(next.Place.adjusted(-Margin, -Margin, Margin, Margin)) < LeastChange)
                round.broken += QStringLiteral("The keyboard is not seen on %1").arg(next.Said());
            if (!keyboard.IsInSight(next))
                round.broken +=
                    QStringLiteral("The keyboard goes out of sight to %1").arg(next.Said());
        }
        if (IsBackwards(Reader::Again(last).Place, next.Place)) {
            ++round.backwards;
            round.lastBackwards +=
                QStringLiteral("\n    from %1 to %2").arg(last.Said(), next.Said());
        }
        if (Has(round.stops, next))
            break;
        round.stops += next;
        last = next;
    }
    return round;
}

/// Of a group of options Tab reaches one, the arrow keys the others.
bool HasOptionBeside(const Controls& stops, const Control& option) {
    return option.Role == ATSPI_ROLE_RADIO_BUTTON &&
           std::any_of(stops.begin(), stops.end(), [&](const Control& stop) {
               return stop.Role == ATSPI_ROLE_RADIO_BUTTON && stop.Parent == option.Parent;
           });
}

/// The entries of a list or tree.
Controls EntriesOf(const Controls& controls, const Control& view) {
    Controls entries;
    for (const Control& entry : controls)
        if (IsEntry(entry) && entry.Parent >= 0 && controls.at(entry.Parent).IsSame(view))
            entries += entry;
    return entries;
}

bool AnySelectedNow(const Controls& entries) {
    return std::any_of(entries.begin(), entries.end(), [](const Control& entry) {
        return Reader::Again(entry).Is(ATSPI_STATE_SELECTED);
    });
}

/// Does by keys what a control is for. What is wrong, or nothing.
QString Use(Shown& shown, Keyboard& keyboard, const Control& control) {
    switch (control.Role) {
    case ATSPI_ROLE_PUSH_BUTTON:
    case ATSPI_ROLE_TOGGLE_BUTTON:
        return shown.Takes(QStringLiteral("Space")) ? QString()
                                                    : QStringLiteral("Space does not press it");
    case ATSPI_ROLE_CHECK_BOX: {
        shown.Press(QStringLiteral("Space"));
        // A mark is two pictures, of which the other one has come.
        const Control flipped = keyboard.Find();
        const bool follows = flipped.Name == control.Name &&
                             flipped.Is(ATSPI_STATE_CHECKED) != control.Is(ATSPI_STATE_CHECKED);
        shown.Press(QStringLiteral("Space"));
        return follows ? QString() : QStringLiteral("Space does not tick it");
    }
    case ATSPI_ROLE_RADIO_BUTTON:
        for (const char* key : {"Down", "Right", "Up", "Left"}) {
            shown.Press(QString::fromLatin1(key));
            const Control other = keyboard.Find();
            if (other.Role == ATSPI_ROLE_RADIO_BUTTON && !other.IsSame(control) &&
                other.Is(ATSPI_STATE_CHECKED) && !Reader::Again(control).Is(ATSPI_STATE_CHECKED))
                return {};
        }
        return QStringLiteral("no arrow key chooses the next option");
    case ATSPI_ROLE_TEXT:
    case ATSPI_ROLE_ENTRY:
    case ATSPI_ROLE_PASSWORD_TEXT:
        if (!control.Is(ATSPI_STATE_EDITABLE))
            return {};
        shown.Press(QStringLiteral("End"));
        // Seen, not read: a password is not read out.
        shown.Look();
        shown.Press(QStringLiteral("7"));
        shown.Look();
        return shown.Changed(control.Place) > 0 ? QString()
                                                : QStringLiteral("nothing can be typed into it");
    case ATSPI_ROLE_COMBO_BOX: {
        shown.Press(QStringLiteral("Alt+Down"));
        const bool opened = Reader::Again(control).Is(ATSPI_STATE_EXPANDED);
        shown.Press(QStringLiteral("Esc"));
        const bool closed = !Reader::Again(control).Is(ATSPI_STATE_EXPANDED);
        return opened && closed ? QString() : QStringLiteral("Alt+Down does not open its list");
    }
    case ATSPI_ROLE_LIST:
    case ATSPI_ROLE_TREE: {
        const Controls entries = EntriesOf(keyboard.Known(), control);
        if (entries.isEmpty())
            return {};
        shown.Press(QStringLiteral("Down"));
        if (!AnySelectedNow(entries))
            shown.Press(QStringLiteral("Space"));
        return AnySelectedNow(entries) ? QString()
                                       : QStringLiteral("neither Down nor Space selects an entry");
    }
    case ATSPI_ROLE_LIST_ITEM:
        shown.Press(QStringLiteral("Space"));
        return Reader::Again(control).Is(ATSPI_STATE_SELECTED)
                   ? QString()
                   : QStringLiteral("Space does not select it");
    case ATSPI_ROLE_LINK: {
        const auto before = shown.Told().size();
        shown.Press(QStringLiteral("Return"));
        return shown.Told().size() > before ? QString()
                                            : QStringLiteral("Enter does not follow it");
    }
    default:
        return {};
    }
}

/// Controls of one kind, a row each, are as good as one.
QString KindOf(const Control& control) {
    QString kind = control.RoleName + control.Name;
    kind.removeIf([](QChar c) { return c.isDigit(); });
    return kind;
}

} // namespace

Control Focused(const Controls& controls) {
    Control focused;
    for (const Control& control : controls)
        if (control.Is(ATSPI_STATE_FOCUSED))
            focused = control;
    return focused;
}

QStringList BrokenNames(const Controls& controls) {
    QStringList broken;
    for (const Control& control : controls) {
        if (IsUsed(control) && control.Name.trimmed().isEmpty())
            broken += QStringLiteral("No name: %1").arg(control.Said());
        if (control.Is(ATSPI_STATE_FOCUSABLE) && SaysNothing(control.Role))
            broken += QStringLiteral("No role: %1").arg(control.Said());
    }
    return broken;
}

QStringList BrokenBuddies(const Controls& controls) {
    QStringList broken;
    for (const Control& control : controls)
        if (control.Role == ATSPI_ROLE_LABEL && !control.Labels &&
            control.Name.trimmed().endsWith(QLatin1Char(':')))
            broken += QStringLiteral("Labels nothing: %1").arg(control.Said());
    return broken;
}

QStringList BrokenTabs(Shown& shown, const Controls& controls) {
    Keyboard keyboard(shown, controls);
    Round forth = GoRound(shown, keyboard, QStringLiteral("Tab"), true);
    QStringList broken = std::exchange(forth.broken, {});
    for (const Control& control : TabStops(controls))
        if (!Has(forth.stops, control) && !HasOptionBeside(forth.stops, control))
            broken += QStringLiteral("Tab does not reach %1").arg(control.Said());
    // Once round there is one way back to the beginning.
    if (forth.backwards > 1)
        broken += QStringLiteral("Tab does not go as the eye does:%1").arg(forth.lastBackwards);

    const Round back = GoRound(shown, keyboard, QStringLiteral("Shift+Tab"), false);
    broken += back.broken;
    for (const Control& control : forth.stops)
        if (!Has(back.stops, control) && !HasOptionBeside(back.stops, control))
            broken += QStringLiteral("Shift+Tab does not reach %1").arg(control.Said());
    return broken;
}

QStringList BrokenKeys(Shown& shown, const Controls& controls) {
    QStringList broken;
    QSet<QString> used;
    Keyboard keyboard(shown, controls);
    Control control = keyboard.Find();
    const Control first = control;
    constexpr int Most = 200;
    for (int stop = 0; stop < Most && control.Ref; ++stop) {
        if (const QString kind = KindOf(control); !used.contains(kind)) {
            used += kind;
            if (const QString wrong = Use(shown, keyboard, control); !wrong.isEmpty())
                broken += QStringLiteral("%1: %2").arg(control.Said(), wrong);
        }
        shown.Press(QStringLiteral("Tab"));
        control = keyboard.Find();
        if (control.IsSame(first))
            break;
    }
    return broken;
}

Control GoTo(Shown& shown, AtspiRole role, const QString& name) {
    Keyboard keyboard(shown, shown.Read());
    constexpr int Most = 60;
    for (int pressed = 0; pressed < Most; ++pressed) {
        const Control focused = keyboard.Find();
        if (focused.Ref && focused.Role == role && focused.Name == name)
            return focused;
        shown.Press(QStringLiteral("Tab"));
    }
    return {};
}
