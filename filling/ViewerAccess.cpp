#include "filling/ViewerAccess.h"

#include "filling/MarkImage.h"
#include "filling/RowText.h"

#include <QAccessibleWidget>

namespace {

/// What a press by the keyboard does can be asked for as an action, too.
class PressedAccess : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    QStringList actionNames() const override { return {action_, setFocusAction()}; }
    void doAction(const QString& action) override {
        if (action == action_)
            Press();
        else
            QAccessibleWidget::doAction(action);
    }

protected:
    void SetAction(const QString& action) { action_ = action; }
    virtual void Press() = 0;

private:
    QString action_;
};

class MarkAccess : public PressedAccess {
public:
    explicit MarkAccess(MarkImage* mark) : PressedAccess(mark, QAccessible::CheckBox), mark_(mark) {
        SetAction(toggleAction());
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = mark_->IsTick();
        return state;
    }

protected:
    void Press() override { mark_->click(); }

private:
    MarkImage* mark_;
};

class RowAccess : public PressedAccess {
public:
    explicit RowAccess(RowText* row) : PressedAccess(row, QAccessible::ListItem), row_(row) {
        SetAction(pressAction());
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = row_->IsSelected();
        return state;
    }

protected:
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
