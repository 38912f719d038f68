#include "widgets/LinkLabel.h"

#include "platform/forms/EnterKey.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

class LinkAccess : public QAccessibleWidget {
public:
    explicit LinkAccess(LinkLabel* link) : QAccessibleWidget(link, QAccessible::Link) {}

    QString text(QAccessible::Text kind) const override {
        const auto* link = static_cast<const LinkLabel*>(widget());
        const bool isUnnamed = kind == QAccessible::Name && link->accessibleName().isEmpty();
        return isUnnamed ? link->text() : QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        if (action == pressAction())
            emit static_cast<LinkLabel*>(widget())->Clicked();
        else
            QAccessibleWidget::doAction(action);
    }
};

QAccessibleInterface* MakeLinkAccess(const QString& key, QObject* object) {
    return key == QLatin1String("LinkLabel") ? new LinkAccess(static_cast<LinkLabel*>(object))
                                             : nullptr;
}

} // namespace

LinkLabel::LinkLabel(QWidget* parent) : QLabel(parent) {
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
}

void LinkLabel::mouseReleaseEvent(QMouseEvent* event) {
    QLabel::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit Clicked();
}

void LinkLabel::keyPressEvent(QKeyEvent* event) {
    if (IsPressKey(*event))
        emit Clicked();
    else
        QLabel::keyPressEvent(event);
}

void LinkLabel::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    constexpr int Round = 4; // pixels
    painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), Round, Round);
}

void InstallLinkAccess() {
    QAccessible::installFactory(MakeLinkAccess);
}
