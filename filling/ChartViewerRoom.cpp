#include "filling/ChartViewer.h"

#include "filling/ViewerLayout.h"
#include "platform/forms/Twips.h"
#include "ui_ChartViewer.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScrollArea>
#include <algorithm>

using namespace ViewerLayout;

namespace {

// Pixels between the parts, and above the first.
constexpr int Ample = 8;
constexpr int Tight = 4;
// Pixels at the sides. A scroll bar takes the difference of both.
constexpr int Sides = 14;
constexpr int SidesWithScrollBar = 6;

} // namespace

void ChartViewer::showEvent(QShowEvent* event) {
    FormWidget::showEvent(event);
    Frame().installEventFilter(this);
    if (QWidget* mainWindow = Frame().parentWidget())
        mainWindow->installEventFilter(this);
    FitToRoom();
}

void ChartViewer::resizeEvent(QResizeEvent* event) {
    FormWidget::resizeEvent(event);
    FitToRoom();
}

bool ChartViewer::eventFilter(QObject* watched, QEvent* event) {
    // The wheel over the list turns its rows, also where what is round it could be scrolled.
    if (watched == ui_->CleanUpList && event->type() == QEvent::Wheel)
        return QCoreApplication::sendEvent(ui_->VScroll, event);
    const bool changesRoom = event->type() == QEvent::Move || event->type() == QEvent::Resize;
    if (changesRoom && watched != ui_->CleanUpList)
        FitToRoom();
    return FormWidget::eventFilter(watched, event);
}

/// Pixels of the form below the lower edge of the main window.
int ChartViewer::HeightOutOfView() const {
    const QWidget& frame = Frame();
    const QWidget* mainWindow = frame.parentWidget();
    if (&frame == this || mainWindow == nullptr)
        return 0;
    return std::clamp(frame.geometry().bottom() + 1 - mainWindow->height(), 0, height() / 2);
}

/// The buttons stand above the main window's lower edge, whatever the form's height is, with the
/// person responsible below them: the form grows by that, so that a row that is clicked moves none
/// of them. A maximised form cannot grow; once somebody has been shown there it keeps the place
/// free, and a button pressed again is where it was. What has no room above the buttons is scrolled
/// to. Room beyond the designed height is for more rows.
void ChartViewer::FitToRoom() {
    // Under a pressed button nothing may move away.
    if (QGuiApplication::mouseButtons() != Qt::NoButton) {
        constexpr int shortly = 20; // milliseconds
        fitLater_.start(shortly);
        return;
    }
    const int withResponsible = PixelsOf(FormHeightWithResponsible);
    const bool keepsItsPlace =
        Frame().isMaximized() && height() >= withResponsible && !ui_->Namelbl->text().isEmpty();
    QSizePolicy policy = ui_->Shape6->sizePolicy();
    policy.setRetainSizeWhenHidden(keepsItsPlace);
    ui_->Shape6->setSizePolicy(policy);
    const int outOfView = HeightOutOfView();
    const int designed =
        ui_->Shape6->isHidden() && !keepsItsPlace ? PixelsOf(FormHeight) : withResponsible;
    const int spare = height() - outOfView - designed;
    const int gap = spare < 0 ? Tight : Ample;
    ui_->contentLayout->setSpacing(gap);
    ui_->formLayout->setContentsMargins(0, 0, 0, gap + outOfView);
    ui_->formLayout->setSpacing(gap);
    SetListHeight(PixelsOf(ListHeight) + std::max(0, spare));
    ui_->contentLayout->setContentsMargins(Sides, gap, Sides, 0);
    ui_->formLayout->activate();
    if (ui_->contentLayout->minimumSize().height() > ui_->ContentScroll->height())
        ui_->contentLayout->setContentsMargins(SidesWithScrollBar, gap, SidesWithScrollBar, 0);
}

void ChartViewer::SetListHeight(int pixels) {
    if (ui_->CleanUpList->height() == pixels && ui_->Rows->height() == pixels)
        return;
    constexpr int Edge = 4; // pixels below the scroll bar
    for (QWidget* side :
         {static_cast<QWidget*>(ui_->CleanUpList), static_cast<QWidget*>(ui_->Picture2)})
        side->setFixedHeight(pixels);
    ui_->Rows->resize(ui_->Rows->width(), pixels);
    ui_->RowsClip->resize(ui_->RowsClip->width(), pixels - ui_->RowsClip->y());
    ui_->VScroll->resize(ui_->VScroll->width(), pixels - ui_->VScroll->y() - Edge);
    ui_->VScroll->setPageStep(RowsInView() - 1);
}

/// Where the last row in sight ends, in twips.
int ChartViewer::ListBottom() const {
    return TwipsOf(ui_->Rows->height());
}

int ChartViewer::RowsInView() const {
    return (ListBottom() - ListTop) / (Instructions.Height(0) + RowGap);
}
