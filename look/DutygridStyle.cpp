#include "look/DutygridStyle.h"

#include "look/BoxIcons.h"
#include "look/ButtonSign.h"
#include "look/GroupBox.h"
#include "look/LookColors.h"
#include "look/TickPath.h"
#include "look/TitleBar.h"

#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOptionSlider>

using namespace LookColors;

namespace {

/// An arrow head of 8 by 4 pixels, pointing down at 0 degrees.
void DrawArrow(QPainter& painter, const QRect& place, qreal degrees, const QColor& color) {
    painter.save();
    painter.translate(QRectF(place).center());
    painter.rotate(degrees);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{{-4, -2}, {0, 2}, {4, -2}});
    painter.restore();
}

void DrawScrollBar(const QStyleOptionSlider& option, QPainter& painter, const QStyle& style,
                   const QWidget* widget) {
    const auto place = [&](QStyle::SubControl part) {
        return style.subControlRect(QStyle::CC_ScrollBar, &option, part, widget);
    };
    const auto isUnderMouse = [&option](QStyle::SubControl part) {
        return option.activeSubControls.testFlag(part) &&
               option.state.testFlag(QStyle::State_MouseOver);
    };
    const bool across = option.orientation == Qt::Horizontal;
    const bool canMove =
        option.maximum > option.minimum && option.state.testFlag(QStyle::State_Enabled);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Band);
    constexpr int Round = 4; // pixels
    painter.drawRoundedRect(option.rect, Round, Round);

    const bool rightToLeft = across && option.direction == Qt::RightToLeft;
    for (const QStyle::SubControl part :
         {QStyle::SC_ScrollBarSubLine, QStyle::SC_ScrollBarAddLine}) {
        const bool atStart = (part == QStyle::SC_ScrollBarSubLine) != rightToLeft;
        const bool atEnd = part == QStyle::SC_ScrollBarSubLine
                               ? option.sliderPosition <= option.minimum
                               : option.sliderPosition >= option.maximum;
        if (canMove && !atEnd && isUnderMouse(part)) {
            painter.setBrush(HoneyDark);
            painter.drawRoundedRect(place(part).adjusted(1, 1, -1, -1), Round, Round);
        }
        const qreal up = across ? 90 : 180;
        DrawArrow(painter, place(part), atStart ? up : up - 180, canMove && !atEnd ? Ink : Line);
    }
    // With nothing to scroll there is nothing to take hold of.
    if (canMove) {
        const bool held = option.state.testFlag(QStyle::State_Sunken) &&
                          option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
        const QRectF slider = place(QStyle::SC_ScrollBarSlider);
        painter.setBrush(held || option.state.testFlag(QStyle::State_HasFocus) ? Teal
                         : isUnderMouse(QStyle::SC_ScrollBarSlider)            ? Muted
                                                                               : Outline);
        const QRectF thumb = across ? slider.adjusted(1, 3, -1, -3) : slider.adjusted(3, 1, -3, -1);
        painter.drawRoundedRect(thumb, Round, Round);
    }
    painter.restore();
}

/// What is before an entry with others below it: an arrow head that points down while they show.
void DrawBranch(const QStyleOption& option, QPainter& painter) {
    if (!option.state.testFlag(QStyle::State_Children))
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isOpen = option.state.testFlag(QStyle::State_Open);
    const bool isChosen = option.state.testFlag(QStyle::State_Selected);
    DrawArrow(painter, option.rect, isOpen ? 0 : -90, isChosen ? Card : Ink);
    painter.restore();
}

/// The square of a check box or the disc of an option button.
void DrawMark(const QStyleOption& option, QPainter& painter, bool isRound) {
    const bool usable = option.state.testFlag(QStyle::State_Enabled);
    const bool on = option.state.testFlag(QStyle::State_On);
    const bool focus = option.state.testFlag(QStyle::State_HasFocus);
    const bool hover = option.state.testFlag(QStyle::State_MouseOver);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal width = focus ? 2 : 1;
    const qreal inset = focus ? 1 : 1.5; // edges on whole pixels
    const QRectF box = QRectF(option.rect).adjusted(inset, inset, -inset, -inset);
    const qreal round = isRound ? box.height() / 2 : 4;
    painter.setPen(QPen(!usable ? Line : (on || focus) ? Teal : Muted, width));
    painter.setBrush(on && !isRound && usable ? Teal : hover && usable ? Honey : Card);
    painter.drawRoundedRect(box, round, round);
    if (on && isRound) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(usable ? Teal : Unusable);
        painter.drawEllipse(box.center(), box.width() / 4, box.width() / 4);
    } else if (on) {
        painter.setPen(
            QPen(usable ? Card : Unusable, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        const qreal side = box.width();
        painter.drawPath(TickPath(QRectF(box.topLeft() + QPointF(side * 0.175, side * 0.195),
                                         QSizeF(side * 0.646, side * 0.618))));
    }
    painter.restore();
}

/// Other buttons have a dark edge instead, which would not show on the colour of a primary one.
void DrawButtonFocus(const QWidget& button, QPainter& painter) {
    if (button.property("role").toString() != QLatin1String("primary"))
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Card, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(button.rect()).adjusted(4, 4, -4, -4), 4, 4);
    painter.restore();
}

/// Where one entry at most is chosen, that is the one with the keyboard.
void DrawEntryFocus(const QAbstractItemView& list, const QStyleOption& option, QPainter& painter) {
    const bool isChosen = option.state.testFlag(QStyle::State_Selected);
    if (isChosen && list.selectionMode() == QAbstractItemView::SingleSelection)
        return;
    painter.save();
    painter.setPen(isChosen ? Card : Teal);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5));
    painter.restore();
}

} // namespace

DutygridStyle::DutygridStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void DutygridStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (auto* button = qobject_cast<QPushButton*>(widget))
        DrawSignOf(*button);
}

void DutygridStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && slider != nullptr)
        DrawScrollBar(*slider, *painter, *proxy(), widget);
    else if (const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
             control == CC_TitleBar && bar != nullptr && widget != nullptr)
        DrawTitleBar(*bar, *painter, widget);
    else if (const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
             control == CC_GroupBox && box != nullptr)
        DrawGroupBox(*box, *painter);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void DutygridStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    const bool isRow = element == PE_PanelItemViewItem || element == PE_PanelItemViewRow;
    if (isRow && option->state.testFlag(State_Selected))
        painter->fillRect(option->rect, Teal);
    else if (element == PE_IndicatorBranch)
        DrawBranch(*option, *painter);
    else if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton)
        DrawMark(*option, *painter, element == PE_IndicatorRadioButton);
    else if (element == PE_FrameFocusRect && qobject_cast<const QPushButton*>(widget) != nullptr)
        DrawButtonFocus(*widget, *painter);
    else if (const auto* list = qobject_cast<const QAbstractItemView*>(widget);
             element == PE_FrameFocusRect && list != nullptr)
        DrawEntryFocus(*list, *option, *painter);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

QIcon DutygridStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                  const QWidget* widget) const {
    if (icon == SP_MessageBoxWarning)
        return WarningIcon();
    if (icon == SP_MessageBoxCritical)
        return ErrorIcon();
    return QProxyStyle::standardIcon(icon, option, widget);
}

QRect DutygridStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                    SubControl part, const QWidget* widget) const {
    const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    return control == CC_GroupBox && box != nullptr
               ? GroupBoxPart(*box, part)
               : QProxyStyle::subControlRect(control, option, part, widget);
}

QSize DutygridStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                      const QSize& contents, const QWidget* widget) const {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    constexpr int leastEntry = 20; // pixels; the style sheet adds the air above and below
    return type == CT_ItemViewItem ? size.expandedTo(QSize(0, leastEntry)) : size;
}

int DutygridStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* returned) const {
    switch (hint) {
    case SH_UnderlineShortcut:
        return 1;
    case SH_DialogButtonLayout:
        // As on the forms: at the right, the button that goes on before the one that leaves.
        return QDialogButtonBox::WinLayout;
    case SH_MessageBox_CenterButtons:
    case SH_DialogButtonBox_ButtonsHaveIcons:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

int DutygridStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                               const QWidget* widget) const {
    constexpr int BoxMargin = 18; // pixels
    constexpr int ButtonGap = 10;
    switch (metric) {
    case PM_MessageBoxIconSize:
        return 40;
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
        return qobject_cast<const QMessageBox*>(widget) != nullptr
                   ? BoxMargin
                   : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return qobject_cast<const QDialogButtonBox*>(widget) != nullptr
                   ? ButtonGap
                   : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_MenuVMargin: // above the first entry and below the last
        return 4;
    case PM_FocusFrameHMargin: // the room before and behind an entry's text
        return 6;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return 18;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return 8;
    case PM_ScrollBarExtent:
        return 16;
    case PM_ToolBarExtensionExtent:
        return 22;
    case PM_ScrollBarSliderMin:
        return 28;
    case PM_TitleBarHeight:
        return TitleBarHeight;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}
