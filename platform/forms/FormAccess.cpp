#include "platform/forms/FormAccess.h"

#include "platform/forms/FormFrame.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QLabel>
#include <QWidget>

namespace {

class FormAccess : public QAccessibleWidget {
public:
    explicit FormAccess(QWidget* form) : QAccessibleWidget(form) {}

    QAccessible::Role role() const override {
        return widget()->isWindow() ? QAccessible::Window : QAccessible::Pane;
    }
};

/// The toolkit takes a sub-window for out of sight as soon as a corner of it is.
class FrameAccess : public QAccessibleWidget {
public:
    explicit FrameAccess(QWidget* frame) : QAccessibleWidget(frame, QAccessible::Window) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? static_cast<FormFrame*>(widget())->Caption()
                                         : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* MakeFormAccess(const QString& key, QObject* object) {
    if (key == QLatin1String("FormFrame"))
        return new FrameAccess(static_cast<QWidget*>(object));
    return key == QLatin1String("FormWidget") && object->isWidgetType()
               ? new FormAccess(static_cast<QWidget*>(object))
               : nullptr;
}

} // namespace

void InstallFormAccess() {
    QAccessible::installFactory(MakeFormAccess);
}

void NameListsByLabels(const QWidget& form) {
    for (const QLabel* label : form.findChildren<QLabel*>())
        if (auto* list = qobject_cast<QAbstractItemView*>(label->buddy()))
            if (list->accessibleName().isEmpty())
                list->setAccessibleName(label->text().remove(QLatin1Char('&')));
}
