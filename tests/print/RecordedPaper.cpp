#include "tests/print/RecordedPaper.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <stdexcept>

namespace {

constexpr double GridWidth = 21;
constexpr double GridHeight = 30;

class RecordingEngine : public QPaintEngine {
public:
    RecordingEngine(QList<RecordedPage>& pages, const QPaintDevice& device)
        : QPaintEngine(AllFeatures), pages_(pages), device_(device) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void updateState(const QPaintEngineState& change) override {
        if (change.state() & DirtyPen)
            pen_ = change.pen();
    }
    void drawTextItem(const QPointF& baseLine, const QTextItem& item) override {
        // Letters that the font has not come in another one, as a part of their own.
        const bool goesOn = (baseLine - end_).manhattanLength() < 1;
        end_ = baseLine + QPointF(item.width(), 0);
        if (goesOn) {
            pages_.last().Texts.last().Words += item.text();
            return;
        }
        const QPointF top = baseLine - QPointF(0, QFontMetricsF(item.font(), &device_).ascent());
        pages_.last().Texts.append(
            {item.text(), InUnits(top), item.font().pointSize(), pen_.color().rgb()});
    }
    void drawLines(const QLineF* lines, int count) override {
        for (int line = 0; line < count; ++line)
            pages_.last().Strokes.append({InUnits(lines[line].p1()), InUnits(lines[line].p2()),
                                          pen_.color().rgb(), pen_.widthF()});
    }
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPath(const QPainterPath&) override {}

private:
    QPointF InUnits(const QPointF& dots) const {
        return {dots.x() * GridWidth / device_.width(), dots.y() * GridHeight / device_.height()};
    }

    QList<RecordedPage>& pages_;
    const QPaintDevice& device_;
    QPen pen_;
    /// Where the text drawn last ends on its base line.
    QPointF end_;
};

class RecordingDevice : public QPdfWriter {
public:
    explicit RecordingDevice(QList<RecordedPage>& pages)
        : QPdfWriter(QStringLiteral("/dev/null")), pages_(pages), engine_(pages, *this) {}

    QPaintEngine* paintEngine() const override { return &engine_; }
    bool newPage() override {
        pages_.append(RecordedPage());
        return true;
    }

private:
    QList<RecordedPage>& pages_;
    mutable RecordingEngine engine_;
};

} // namespace

std::unique_ptr<QPagedPaintDevice> RecordedPaper::Open() {
    pending_ = {RecordedPage()};
    return std::make_unique<RecordingDevice>(pending_);
}

const QList<RecordedPage>& RecordedPaper::LastJob() const {
    if (Jobs.isEmpty())
        throw std::runtime_error("nothing was printed");
    return Jobs.last();
}
