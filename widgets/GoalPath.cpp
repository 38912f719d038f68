#include "widgets/GoalPath.h"

#include "platform/runtime/Numbers.h"
#include "widgets/GoalScene.h"
#include "widgets/KeptUnits.h"

#include <QPainter>
#include <QTextDocument>
#include <QTimerEvent>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double WalkDuration = 550; // milliseconds
constexpr double LeastHeight = 30;   // pixels
constexpr double GoodHeight = 56;    // with a goal of 48

QString Words(double points, double cost, const QString& name) {
    if (cost <= 0)
        return QStringLiteral("No goal is set");
    const QString goal = name.isEmpty() ? QStringLiteral("the goal") : name;
    return QStringLiteral("%1 of %2 points towards %3%4")
        .arg(NumberText(points), NumberText(cost), goal,
             points >= cost ? QStringLiteral(": goal reached") : QString());
}

} // namespace

GoalPath::GoalPath(QWidget* parent) : QProgressBar(parent) {
    setTextVisible(false);
    setAccessibleName(QStringLiteral("Way to the goal"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

QSize GoalPath::sizeHint() const {
    return QSizeF(GoodHeight * 5, GoodHeight).toSize();
}

QSize GoalPath::minimumSizeHint() const {
    return QSizeF(GoodHeight * 4, LeastHeight).toSize();
}

double GoalPath::Way() const {
    return HasGoal() ? std::clamp(points_ / cost_, 0.0, 1.0) : 0;
}

void GoalPath::Show(double points, double cost, const QString& name, const QImage& picture) {
    walk_.Stop();
    points_ = points;
    cost_ = cost;
    name_ = name;
    picture_ = picture;
    scaled_ = QPixmap();
    Tell();
}

void GoalPath::WalkTo(double points) {
    walkFrom_ = Way();
    points_ = points;
    Tell();
    if (isVisible() && Movement::IsWelcome())
        walk_.Start(*this, static_cast<int>(WalkDuration));
}

/// To the screen and the screen reader.
void GoalPath::Tell() {
    // A progress bar would paint itself here and now, while an action is still under way.
    setUpdatesEnabled(false);
    setRange(0, std::max(1, static_cast<int>(std::ceil(cost_))));
    setValue(HasGoal() ? std::clamp(static_cast<int>(std::floor(points_)), 0, maximum()) : 0);
    setUpdatesEnabled(true);
    const QString words = Words(points_, cost_, name_);
    setAccessibleDescription(words);
    setToolTip(Qt::convertFromPlainText(WithUnitsKept(words)));
    atRest_ = QPixmap();
    update();
}

QPixmap GoalPath::PictureOfSize(int size) const {
    if (picture_.isNull())
        return {};
    const qreal ratio = devicePixelRatioF();
    const QSize wanted = picture_.size().scaled(QSize(size, size) * ratio, Qt::KeepAspectRatio);
    if (scaled_.size() != wanted) {
        scaled_ = QPixmap::fromImage(
            picture_.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        scaled_.setDevicePixelRatio(ratio);
    }
    return scaled_;
}

void GoalPath::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (walk_.IsRunning()) {
        PaintNow(painter);
        return;
    }
    const QSize sharp = size() * devicePixelRatioF();
    if (atRest_.size() != sharp) {
        atRest_ = QPixmap(sharp);
        atRest_.setDevicePixelRatio(devicePixelRatioF());
        atRest_.fill(Qt::transparent);
        QPainter onPicture(&atRest_);
        onPicture.setFont(font());
        PaintNow(onPicture);
    }
    painter.drawPixmap(0, 0, atRest_);
}

void GoalPath::PaintNow(QPainter& painter) const {
    GoalScene scene;
    scene.HasGoal = HasGoal();
    scene.Cost = cost_;
    scene.Place = Way();
    scene.IsReached = IsReached();
    if (walk_.IsRunning()) {
        // The hop takes the first part; what is left is for the joy at the goal.
        constexpr double hopPart = 0.65;
        const double hop = std::min(1.0, walk_.Progress() / hopPart);
        const double gentle = hop * hop * (3 - 2 * hop);
        scene.Place = walkFrom_ + (Way() - walkFrom_) * gentle;
        scene.Lift = std::sin(hop * std::numbers::pi);
        const double landing = std::max(0.0, walk_.Progress() - hopPart) / (1 - hopPart);
        scene.Squeeze = 1 + 0.1 * scene.Lift - 0.16 * std::sin(landing * std::numbers::pi);
        scene.Joy = landing;
        scene.IsReached = IsReached() && (landing > 0 || walkFrom_ >= 1);
        if (walkFrom_ >= 1)
            scene.Joy = 1;
    }
    scene.Picture = PictureOfSize(GoalPictureSize(height()));
    PaintGoalScene(painter, rect(), palette(), scene);
}

void GoalPath::timerEvent(QTimerEvent* event) {
    if (walk_.Takes(*event))
        update();
    else
        QProgressBar::timerEvent(event);
}

void GoalPath::changeEvent(QEvent* event) {
    QProgressBar::changeEvent(event);
    atRest_ = QPixmap();
    update();
}

void GoalPath::showEvent(QShowEvent* event) {
    QProgressBar::showEvent(event);
    // The desktop may need a moment to say what it was asked: it has until the first walk.
    Movement::IsWelcome();
}

void GoalPath::hideEvent(QHideEvent* event) {
    walk_.Stop();
    QProgressBar::hideEvent(event);
}
