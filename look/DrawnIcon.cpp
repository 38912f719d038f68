#include "look/DrawnIcon.h"

#include <QIconEngine>
#include <QPainter>
#include <utility>

namespace {

class DrawnIconEngine : public QIconEngine {
public:
    DrawnIconEngine(int units, Drawing drawing) : units_(units), drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / qreal(units_), rect.height() / qreal(units_));
        drawing_(*painter, mode);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new DrawnIconEngine(units_, drawing_); }

private:
    int units_;
    Drawing drawing_;
};

} // namespace

QIcon DrawnIcon(int units, Drawing drawing) {
    return QIcon(new DrawnIconEngine(units, std::move(drawing)));
}
