#include "shell/ToolbarIcon.h"

#include <QIconEngine>
#include <QPainter>
#include <algorithm>
#include <iterator>
#include <utility>

namespace {

struct DrawnSize {
    int side; // pixels
    const char* tail;
};
// 24 and 32, and for children 48, at 100, 125, 150 and 200 percent.
constexpr DrawnSize DrawnSizes[] = {{24, "-24"}, {30, "-30"}, {32, ""},    {36, "-36"},
                                    {40, "-40"}, {48, "-48"}, {60, "-60"}, {64, "@2x"},
                                    {72, "-72"}, {96, "-96"}};

class ToolbarIconEngine : public QIconEngine {
public:
    explicit ToolbarIconEngine(QString key) : key_(std::move(key)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        const qreal scale = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, pixmap(rect.size() * scale, mode, state));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override {
        const int side = std::min(size.width(), size.height());
        const DrawnSize* drawn =
            std::find_if(std::begin(DrawnSizes), std::end(DrawnSizes) - 1,
                         [side](const DrawnSize& one) { return one.side >= side; });
        QPixmap picture(
            QStringLiteral(":/art/toolbar/%1%2.png").arg(key_, QLatin1String(drawn->tail)));
        picture.setDevicePixelRatio(1);
        return picture.width() == side
                   ? picture
                   : picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    QIconEngine* clone() const override { return new ToolbarIconEngine(key_); }

private:
    QString key_;
};

} // namespace

QIcon ToolbarIcon(const QString& key) {
    return QIcon(new ToolbarIconEngine(key));
}
