#include "filling/ViewerAccess.h"

#include "filling/MarkImage.h"
#include "filling/RowText.h"

#include <QAccessibleWidget>

namespace {

/// What a press by the keyboard does can be asked for as an action, too.
class PressedAccess : public QAccessibleWidget {
public:
    PressedAccess(QWidget* widget, QAccessible::Role role, const QString& action)
        : QAccessibleWidget(widget, role), action_(action) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        SetState(state);
        return state;
    }
    QStringList actionNames() const override { return {action_, setFocusAction()}; }
    void doAction(const QString& action) override {
        if (action == action_)
            Press();
        else
            QAccessibleWidget::doAction(action);
    }

protected:
    virtual void SetState(QAccessible::State& state) const = 0;
    virtual void Press() = 0;

private:
    QString action_;
};

class MarkAccess : public PressedAccess {
public:
    explicit MarkAccess(MarkImage* mark)
        : PressedAccess(mark, QAccessible::CheckBox, toggleAction()), mark_(mark) {}

protected:
    void SetState(QAccessible::State& state) const override {
        state.checkable = true;
        state.checked = mark_->IsTick();
    }
    void Press() override { mark_->click(); }

private:
    MarkImage* mark_;
};

class RowAccess : public PressedAccess {
public:
    explicit RowAccess(RowText* row)
        : PressedAccess(row, QAccessible::ListItem, pressAction()), row_(row) {}

protected:
    void SetState(QAccessible::State& state) const override {
        state.selectable = true;
        state.selected = row_->IsSelected();
    }
    void Press() override { emit row_->Chosen(); }

private:
    RowText* row_;
};

QAccessibleInterface* MakeViewerAccess(const QString& key, QObject* object) {
    if (key == QLatin1String("MarkImage"))
        return new MarkAccess(static_cast<MarkImage*>(object));
    if (key == QLatin1String("RowText"))
        return new RowAccess(static_cast<RowText*>(object));
    return nullptr;
}

} // namespace

void InstallViewerAccess() {
    QAccessible::installFactory(MakeViewerAccess);
}
