#pragma once

#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <utility>

#include <atspi/atspi.h>

/// A control as a screen reader gets it.
struct Control {
    std::shared_ptr<AtspiAccessible> Ref;
    /// Index in the list of the form's controls; -1 for the form itself.
    int Parent = -1;
    AtspiRole Role = ATSPI_ROLE_INVALID;
    QString RoleName;
    QString Name;
    QList<AtspiStateType> States;
    QRect Place;         ///< on the screen
    bool Labels = false; ///< It is the label of another control.

    bool Is(AtspiStateType state) const { return States.contains(state); }
    bool IsSame(const Control& other) const { return Ref.get() == other.Ref.get(); }
    /// Role, name and place in words.
    QString Said() const;
};

using Controls = QList<Control>;

/// A screen reader's view of one program, over the accessibility bus.
class Reader {
public:
    /// Looks for the program on the bus. Throws std::runtime_error if there is no bus, or no such
    /// program on it after some seconds.
    explicit Reader(const QString& program);

    /// The window or sub-window in sight with that title, and all in it that can be seen, in the
    /// order of the tree. Empty if there is none.
    Controls Read(const QString& title) const;

    /// All controls of the program that can be seen.
    Controls ReadAll() const;

    /// Whether a control has the keyboard now.
    static bool HasKeyboard(const Control& control);
    /// What is said of a control besides its name.
    static QString DescriptionOf(const Control& control);
    /// The place of an entry in its list, 0 the first, and how many there are.
    static std::pair<int, int> NumberOf(const Control& entry);
    /// A control's present state.
    static Control Again(const Control& control);

private:
    static AtspiAccessible* FindWindow(AtspiAccessible* within, const QString& title);
    static void Collect(AtspiAccessible* node, int parent, Controls& found);

    std::shared_ptr<AtspiAccessible> program_;
};

/// What a screen reader is told of without asking, for as long as it lives.
class Listener {
public:
    /// `event`: "object:property-change:accessible-name" and the like.
    explicit Listener(const char* event);
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// True once an event came whose source has the name, with the detail if it is not -1; waits
    /// for it a few seconds at most.
    bool Heard(const QString& name, int detail = -1);
    /// The names of all sources so far.
    QStringList Names() const;

private:
    struct Event {
        QString name;
        int detail;
    };
    static void Hear(AtspiEvent* event, void* listener);

    std::shared_ptr<AtspiEventListener> listener_;
    const char* event_;
    QList<Event> events_;
};

/// Has programs that start while it lives tell of an event ever after. One that runs already
/// learns of a new listener in its own time, perhaps after the key that is pressed next. It is not
/// to live longer: for as long as anybody listens, the toolkit sends each key over the bus before
/// it reaches a control.
class Attention {
public:
    explicit Attention(const char* event);
    ~Attention();
    Attention(const Attention&) = delete;
    Attention& operator=(const Attention&) = delete;

private:
    std::shared_ptr<AtspiEventListener> listener_;
    const char* event_;
};

/// Lets the bus deliver until the condition holds, a few seconds at most; what it was at the end.
bool WaitFor(const std::function<bool()>& condition);
