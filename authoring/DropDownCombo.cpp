#include "authoring/DropDownCombo.h"

#include "platform/forms/Handlers.h"
#include "widgets/ElidingEdit.h"
#include "widgets/KeptPicture.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCompleter>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QStyleOptionComboBox>
#include <QWheelEvent>
#include <algorithm>

namespace {

class ComboAccess : public QAccessibleWidget {
public:
    explicit ComboAccess(DropDownCombo* combo) : QAccessibleWidget(combo, QAccessible::ComboBox) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? Combo().Text() : QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = Combo().IsDropped();
        state.hasPopup = true;
        state.editable = true;
        return state;
    }

    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        if (action == showMenuAction())
            Combo().showPopup();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    DropDownCombo& Combo() const { return *static_cast<DropDownCombo*>(widget()); }
};

QAccessibleInterface* MakeComboAccess(const QString& key, QObject* object) {
    return key == QLatin1String("DropDownCombo")
               ? new ComboAccess(static_cast<DropDownCombo*>(object))
               : nullptr;
}

} // namespace

void InstallComboAccess() {
    QAccessible::installFactory(MakeComboAccess);
}

/// An editor has three boxes a row: what makes the toolkit build a box's list, and its completer,
/// before anybody asks for them costs four times as much as the rest of the box.
DropDownCombo::DropDownCombo(QWidget* parent) : QComboBox(parent) {
    // A text that has no completer yet would be given one of its own.
    static QPointer<QCompleter> passing;
    if (passing.isNull())
        passing = new QCompleter(qApp);
    auto* edit = new ElidingEdit(this);
    edit->setCompleter(passing);
    setLineEdit(edit);
    setCompleter(nullptr);
    setInsertPolicy(QComboBox::NoInsert);
    // At the end of typing the toolkit chooses the entry that equals the text, as if it had been
    // clicked; a typed text is not a click.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    // The beginning of a long text tells more than its end.
    On(lineEdit(), &QLineEdit::editingFinished, this, [this] {
        if (!lineEdit()->hasFocus())
            lineEdit()->setCursorPosition(0);
    });
}

void DropDownCombo::SetText(const QString& text) {
    setCurrentIndex(-1);
    setEditText(text);
    lineEdit()->setCursorPosition(0);
}

void DropDownCombo::SetSpokenName(const QString& name) {
    setAccessibleName(name);
    lineEdit()->setAccessibleName(name);
}

bool DropDownCombo::IsDropped() const {
    // Not view(): that would make the list, which takes longer than all the rest of the box.
    const auto* list = findChild<const QAbstractItemView*>();
    return list != nullptr && list->isVisible();
}

void DropDownCombo::showPopup() {
    const QPointer<DropDownCombo> self(this);
    emit AboutToDrop();
    if (!self)
        return;
    FitList();
    QComboBox::showPopup();
    TellExpanded();
}

/// The list is as wide as its longest entry, and ends above the lower edge of the screen rather
/// than cover what is above the box.
void DropDownCombo::FitList() {
    constexpr int MostEntries = 10;
    constexpr int FewestEntries = 4;
    constexpr int Frame = 4; // pixels, upper and lower edge together
    QAbstractItemView& list = *view();
    list.setTextElideMode(Qt::ElideRight);
    const QRect room = screen()->availableGeometry();
    const int entry = list.sizeHintForRow(0);
    if (entry <= 0)
        return;
    const int below = room.bottom() - mapToGlobal(QPoint(0, height())).y();
    const int fitting = (below - Frame) / entry;
    setMaxVisibleItems(fitting < FewestEntries ? MostEntries : std::min(fitting, MostEntries));
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &list);
    list.setMinimumWidth(
        std::min(list.sizeHintForColumn(0) + scrollBar + 2 * Frame, room.width() / 2));
}

void DropDownCombo::hidePopup() {
    QComboBox::hidePopup();
    TellExpanded();
}

void DropDownCombo::TellExpanded() {
    QAccessible::State change;
    change.expanded = true;
    QAccessibleStateChangeEvent told(this, change);
    QAccessible::updateAccessibility(&told);
}

void DropDownCombo::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

// The text has a widget of its own.
void DropDownCombo::paintEvent(QPaintEvent*) {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QString kind = QStringLiteral("DropDownCombo %1").arg(int(option.activeSubControls));
    PaintFromPicture(*this, rect(), kind, option, [&](QPainter& painter) {
        style()->drawComplexControl(QStyle::CC_ComboBox, &option, &painter, this);
        // The program's style sheet takes the toolkit's button away, which is too big for a row.
        const QRectF button =
            style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
        const QPointF middle = button.center();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::ButtonText), 1.6, Qt::SolidLine, Qt::RoundCap,
                            Qt::RoundJoin));
        painter.drawPolyline(
            QPolygonF{middle + QPointF(-4, -2), middle + QPointF(0, 2), middle + QPointF(4, -2)});
    });
}
