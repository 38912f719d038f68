#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

class QCloseEvent;

/// A window of the program with the life that the forms rest on: made and loaded once, shown and
/// hidden any number of times, activated each time it comes to the front, unloaded at the end.
///
/// A mixin for widgets; FormWidget is the form of a plain widget.
class Form {
public:
    /// Top-level window, or a sub-window of the main window.
    enum class Place { TopLevel, InMainWindow };

    Form(QWidget& widget, Place place);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    /// A mark that other forms set and read.
    QString Tag;

    /// Runs the form's load logic, the first time only. Show does so as well. A form whose load
    /// raises goes for good, as an unloaded one does: what names it again makes a fresh one.
    void EnsureLoaded();

    /// Shows the form, not modally, and brings it to the front.
    void Show();
    /// Hides the form; it stays loaded, with all its values.
    void Hide();
    /// Asks the form (QueryUnload), and unless it refuses ends it: it disappears at once and is
    /// deleted when control is back in the event loop, so a form may unload itself in a handler.
    /// False if the form refused. Commits first: raises what the commit raises, and the form stays.
    bool Unload();
    bool IsUnloaded() const { return unloaded_; }
    /// Brings a shown form to the front.
    void SetFocus();

    /// The title, as it is shown: any text stands as it is.
    QString Caption() const;
    void SetCaption(const QString& caption);

    /// 11 shows the hourglass over the form, 0 the ordinary pointer.
    void SetMousePointer(int pointer);

    /// Place of the form within its screen or the main window, and height of its inside, in twips.
    int Left() const;
    int Top() const;
    void Move(int left, int top);
    void SetHeight(int twips);
    /// Moves a form that has grown beyond the lower edge of the main window up again, at most to
    /// the upper edge.
    void KeepInMainWindow();

    QWidget& Widget() const { return widget_; }
    /// The window that carries the form: itself, or its sub-window's frame.
    QWidget& Frame() const;
    Place FormPlace() const { return place_; }

protected:
    /// Runs once, before the form is first shown, when its variables have been set.
    virtual void Load() {}
    /// Runs each time the form comes to the front from another form of the program.
    virtual void Activate() {}
    /// Runs when the form is about to be unloaded. False keeps the form.
    virtual bool QueryUnload() { return true; }
    /// Runs when the form is being unloaded for good.
    virtual void Unloaded() {}

    /// Ends the form without asking it, and without a commit.
    void Drop();

    /// What a widget's closeEvent does: the form unloads unless it refuses.
    void HandleClose(QCloseEvent& event);

private:
    friend class ActivationTracker;
    friend class FormFrame;

    void ShowInMainWindow();

    QWidget& widget_;
    Place place_;
    QPointer<QWidget> frame_;
    bool loaded_ = false;
    bool unloaded_ = false;
};

/// A form that is a plain widget.
class FormWidget : public QWidget, public Form {
    Q_OBJECT

public:
    explicit FormWidget(Place place);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};
