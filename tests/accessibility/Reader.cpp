#include "tests/accessibility/Reader.h"

#include <QDeadlineTimer>
#include <QThread>
#include <algorithm>
#include <stdexcept>

namespace {

constexpr int LongestWait = 8000; // milliseconds

template <class Object>
std::shared_ptr<Object> Owned(Object* object) {
    return {object, [](Object* held) {
                if (held != nullptr)
                    g_object_unref(held);
            }};
}

/// Takes a text over from the library.
QString Taken(char* text) {
    const QString result = QString::fromUtf8(text);
    g_free(text);
    return result;
}

QString NameOf(AtspiAccessible* node) {
    return Taken(atspi_accessible_get_name(node, nullptr));
}

QList<AtspiStateType> StatesOf(AtspiAccessible* node) {
    QList<AtspiStateType> states;
    AtspiStateSet* set = atspi_accessible_get_state_set(node);
    if (set == nullptr)
        return states;
    GArray* array = atspi_state_set_get_states(set);
    for (guint index = 0; index < array->len; ++index)
        states += g_array_index(array, AtspiStateType, index);
    g_array_free(array, TRUE);
    g_object_unref(set);
    return states;
}

QRect PlaceOf(AtspiAccessible* node) {
    // Not asked first whether it has a place: each question goes over the bus.
    AtspiRect* extents =
        atspi_component_get_extents(ATSPI_COMPONENT(node), ATSPI_COORD_TYPE_SCREEN, nullptr);
    if (extents == nullptr)
        return {};
    const QRect place(extents->x, extents->y, extents->width, extents->height);
    g_free(extents);
    return place;
}

bool LabelsAnother(AtspiAccessible* label) {
    GArray* relations = atspi_accessible_get_relation_set(label, nullptr);
    if (relations == nullptr)
        return false;
    bool labels = false;
    for (guint index = 0; index < relations->len; ++index) {
        AtspiRelation* relation = g_array_index(relations, AtspiRelation*, index);
        labels = labels || atspi_relation_get_relation_type(relation) == ATSPI_RELATION_LABEL_FOR;
        g_object_unref(relation);
    }
    g_array_free(relations, TRUE);
    return labels;
}

/// The states have been asked for already.
Control ReadControl(const std::shared_ptr<AtspiAccessible>& node, int parent,
                    const QList<AtspiStateType>& states) {
    Control control;
    control.Ref = node;
    control.Parent = parent;
    control.Role = atspi_accessible_get_role(node.get(), nullptr);
    control.RoleName = Taken(atspi_role_get_name(control.Role));
    control.Name = NameOf(node.get());
    control.States = states;
    control.Place = PlaceOf(node.get());
    control.Labels = control.Role == ATSPI_ROLE_LABEL && LabelsAnother(node.get());
    return control;
}

/// Throws std::runtime_error if there is no accessibility bus.
std::shared_ptr<AtspiAccessible> Desktop() {
    if (atspi_init() > 1 || atspi_get_desktop_count() == 0)
        throw std::runtime_error("There is no accessibility bus: at-spi-bus-launcher did not start "
                                 "on this session's bus");
    const auto desktop = Owned(atspi_get_desktop(0));
    if (desktop == nullptr)
        throw std::runtime_error("The accessibility bus has no registry: at-spi2-registryd did not "
                                 "start");
    return desktop;
}

bool IsWindow(AtspiRole role) {
    return role == ATSPI_ROLE_FRAME || role == ATSPI_ROLE_WINDOW || role == ATSPI_ROLE_DIALOG ||
           role == ATSPI_ROLE_ALERT || role == ATSPI_ROLE_INTERNAL_FRAME;
}

} // namespace

QString Control::Said() const {
    return QStringLiteral("%1 \"%2\" at (%3, %4) %5 x %6")
        .arg(RoleName, Name)
        .arg(Place.x())
        .arg(Place.y())
        .arg(Place.width())
        .arg(Place.height());
}

bool WaitFor(const std::function<bool()>& condition) {
    const QDeadlineTimer latest(LongestWait);
    while (true) {
        while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
        }
        if (condition())
            return true;
        if (latest.hasExpired())
            return false;
        QThread::msleep(5);
    }
}

Reader::Reader(const QString& program) {
    const std::shared_ptr<AtspiAccessible> desktop = Desktop();
    // Every answer comes from the program itself, not from what the library remembers.
    atspi_accessible_set_cache_mask(desktop.get(), ATSPI_CACHE_NONE);
    const bool found = WaitFor([&] {
        const int count = atspi_accessible_get_child_count(desktop.get(), nullptr);
        for (int index = 0; index < count; ++index) {
            auto child = Owned(atspi_accessible_get_child_at_index(desktop.get(), index, nullptr));
            if (child != nullptr && NameOf(child.get()) == program) {
                program_ = child;
                return true;
            }
        }
        return false;
    });
    if (!found)
        throw std::runtime_error("The program under test is not on the accessibility bus");
    atspi_accessible_set_cache_mask(program_.get(), ATSPI_CACHE_NONE);
}

/// The innermost one: a sub-window may have the title of the window around it.
AtspiAccessible* Reader::FindWindow(AtspiAccessible* within, const QString& title) {
    AtspiAccessible* best = nullptr;
    const int count = atspi_accessible_get_child_count(within, nullptr);
    for (int index = 0; index < count && best == nullptr; ++index) {
        const auto child = Owned(atspi_accessible_get_child_at_index(within, index, nullptr));
        if (child == nullptr || !StatesOf(child.get()).contains(ATSPI_STATE_SHOWING))
            continue;
        best = FindWindow(child.get(), title);
        if (best == nullptr && IsWindow(atspi_accessible_get_role(child.get(), nullptr)) &&
            NameOf(child.get()) == title)
            best = ATSPI_ACCESSIBLE(g_object_ref(child.get()));
    }
    return best;
}

void Reader::Collect(AtspiAccessible* node, int parent, Controls& found) {
    const int count = atspi_accessible_get_child_count(node, nullptr);
    for (int index = 0; index < count; ++index) {
        const auto child = Owned(atspi_accessible_get_child_at_index(node, index, nullptr));
        if (child == nullptr)
            continue;
        const QList<AtspiStateType> states = StatesOf(child.get());
        if (!states.contains(ATSPI_STATE_SHOWING))
            continue;
        found += ReadControl(child, parent, states);
        Collect(child.get(), static_cast<int>(found.size()) - 1, found);
    }
}

Controls Reader::Read(const QString& title) const {
    Controls found;
    WaitFor([] { return true; });
    const auto window = Owned(FindWindow(program_.get(), title));
    if (window != nullptr)
        Collect(window.get(), -1, found);
    return found;
}

Controls Reader::ReadAll() const {
    Controls found;
    WaitFor([] { return true; });
    Collect(program_.get(), -1, found);
    return found;
}

bool Reader::HasKeyboard(const Control& control) {
    return StatesOf(control.Ref.get()).contains(ATSPI_STATE_FOCUSED);
}

QString Reader::DescriptionOf(const Control& control) {
    return Taken(atspi_accessible_get_description(control.Ref.get(), nullptr));
}

std::pair<int, int> Reader::NumberOf(const Control& entry) {
    const auto list = Owned(atspi_accessible_get_parent(entry.Ref.get(), nullptr));
    return {atspi_accessible_get_index_in_parent(entry.Ref.get(), nullptr),
            atspi_accessible_get_child_count(list.get(), nullptr)};
}

Control Reader::Again(const Control& control) {
    WaitFor([] { return true; });
    return ReadControl(control.Ref, control.Parent, StatesOf(control.Ref.get()));
}

Listener::Listener(const char* event)
    : listener_(Owned(atspi_event_listener_new(&Listener::Hear, this, nullptr))), event_(event) {
    if (atspi_event_listener_register(listener_.get(), event_, nullptr) == FALSE)
        throw std::runtime_error("The accessibility bus passes on no events");
}

Listener::~Listener() {
    atspi_event_listener_deregister(listener_.get(), event_, nullptr);
}

void Listener::Hear(AtspiEvent* event, void* listener) {
    if (event->source != nullptr)
        static_cast<Listener*>(listener)->events_ +=
            Event{NameOf(event->source), static_cast<int>(event->detail1)};
    g_boxed_free(ATSPI_TYPE_EVENT, event);
}

bool Listener::Heard(const QString& name, int detail) {
    return WaitFor([&] {
        return std::any_of(events_.begin(), events_.end(), [&](const Event& event) {
            return event.name == name && (detail == -1 || event.detail == detail);
        });
    });
}

Attention::Attention(const char* event)
    : listener_(Owned(atspi_event_listener_new(
          [](AtspiEvent* heard, void*) { g_boxed_free(ATSPI_TYPE_EVENT, heard); }, nullptr,
          nullptr))),
      event_(event) {
    const std::shared_ptr<AtspiAccessible> desktop = Desktop();
    if (atspi_event_listener_register(listener_.get(), event_, nullptr) == FALSE)
        throw std::runtime_error("The accessibility bus passes on no events");
    // The registry answers in order: when this one has come it knows the listener.
    atspi_accessible_get_child_count(desktop.get(), nullptr);
}

Attention::~Attention() {
    atspi_event_listener_deregister(listener_.get(), event_, nullptr);
}

QStringList Listener::Names() const {
    QStringList names;
    for (const Event& event : events_)
        names += event.name;
    return names;
}
