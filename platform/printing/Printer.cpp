#include "platform/printing/Printer.h"

#include "platform/printing/FittedText.h"
#include "platform/runtime/RuntimeError.h"

#include <QColor>
#include <QFontMetricsF>
#include <QPainter>
#include <functional>
#include <utility>
#include <vector>

namespace {

/// Where nothing is set: the grid of all the program's pages, and a text of a letter's size.
constexpr double DefaultScaleWidth = 21;
constexpr double DefaultScaleHeight = 30;
constexpr int DefaultFontSize = 12;

QColor ColorOf(qint32 color) {
    return {color & 0xff, (color >> 8) & 0xff, (color >> 16) & 0xff};
}

QPen PenOf(qint32 color, double width) {
    return {ColorOf(color), width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin};
}

/// The square whose sides run along the middle of a line `thickness` wide, so that the outer edges
/// stand as high as a capital letter of the font on that base line.
QRectF EmptyBoxOutline(const QFontMetricsF& metrics, const QPointF& baseLine, double thickness) {
    const double side = metrics.capHeight() - thickness;
    return {baseLine.x() + thickness / 2, baseLine.y() - metrics.capHeight() + thickness / 2, side,
            side};
}

/// The font in a size of which a whole line stands in `room` device dots down to the page's edge:
/// the rows of small paper are lower than a large text.
QFont FontWithin(double room, QFont font, const QPaintDevice& device) {
    const double needed = QFontMetricsF(font, &device).height();
    if (room > 0 && room < needed)
        font.setPointSizeF(font.pointSizeF() * room / needed);
    return font;
}

} // namespace

QFont PaperFont(double points) {
    // All three have the same widths, so that a page is laid out alike wherever it is printed.
    QFont font({QStringLiteral("Liberation Sans"), QStringLiteral("Arial"),
                QStringLiteral("Nimbus Sans")});
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(points);
    return font;
}

/// The pages drawn so far, as strokes to be made on the device once the job is whole.
class PrinterObject::Job {
public:
    using Stroke = std::function<void(QPainter&)>;

    explicit Job(PrintTarget& target) : device_(target.Open()) {
        // Without a printable area there is nothing to lay the grid on.
        if (device_ == nullptr || device_->width() <= 0 || device_->height() <= 0)
            throw RuntimeError(ErrorNumber::PrinterError);
    }

    /// Width and height of the printable area in device dots.
    QSizeF Dots() const { return {double(device_->width()), double(device_->height())}; }

    const QPaintDevice& Device() const { return *device_; }

    void Add(Stroke stroke) { pages_.back().strokes.push_back(std::move(stroke)); }
    /// One that lies over all others of its page.
    void AddOnTop(Stroke stroke) { pages_.back().onTop.push_back(std::move(stroke)); }

    void NewPage() { pages_.emplace_back(); }
    int PageCount() const { return static_cast<int>(pages_.size()); }

    /// Paints all pages and closes the device. Raises 482 if the device refuses.
    void Send() {
        if (pages_.size() > 1 && pages_.back().IsEmpty())
            pages_.pop_back();
        QPainter painter;
        Require(painter.begin(device_.get()));
        // No printer reaches beyond this area; the margins of a PDF would show halves of lines.
        painter.setClipRect(QRectF(QPointF(), Dots()));
        painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
        for (std::size_t page = 0; page < pages_.size(); ++page) {
            Require(page == 0 || device_->newPage());
            for (const Stroke& stroke : pages_[page].strokes)
                stroke(painter);
            for (const Stroke& stroke : pages_[page].onTop)
                stroke(painter);
        }
        Require(painter.end());
    }

private:
    struct Page {
        std::vector<Stroke> strokes;
        std::vector<Stroke> onTop;

        bool IsEmpty() const { return strokes.empty() && onTop.empty(); }
    };

    static void Require(bool success) {
        if (!success)
            throw RuntimeError(ErrorNumber::PrinterError);
    }

    std::unique_ptr<QPagedPaintDevice> device_;
    std::vector<Page> pages_{1};
};

PrinterObject::PrinterObject(PrintTarget& target) : target_(target) {
    KillDoc();
}

PrinterObject::~PrinterObject() = default;

PrinterObject::Job& PrinterObject::JobUnderWay() {
    if (!job_)
        job_ = std::make_unique<Job>(target_);
    return *job_;
}

void PrinterObject::SetScaleWidth(double units) {
    scaleWidth_ = units;
}

void PrinterObject::SetScaleHeight(double units) {
    scaleHeight_ = units;
}

void PrinterObject::SetFontSize(int points) {
    fontSize_ = points;
}

void PrinterObject::SetForeColor(qint32 color) {
    foreColor_ = color;
}

void PrinterObject::SetDrawWidth(int dots) {
    drawWidth_ = dots;
}

QPointF PrinterObject::ToDots(double x, double y) {
    const QSizeF dots = JobUnderWay().Dots();
    return {x * dots.width() / scaleWidth_, y * dots.height() / scaleHeight_};
}

void PrinterObject::Print(const QString& text, const TextRoom& room) {
    Job& job = JobUnderWay();
    const QFont font = PaperFont(fontSize_);
    const QFontMetricsF metrics(font, &job.Device());
    const QPointF corner = ToDots(currentX_, currentY_);
    const QPointF baseLine = corner + QPointF(0, metrics.ascent());
    if (text == EmptyBoxText) {
        const double thickness = metrics.lineWidth();
        job.Add([pen = PenOf(foreColor_, thickness),
                 box = EmptyBoxOutline(metrics, baseLine, thickness)](QPainter& painter) {
            painter.setPen(pen);
            painter.drawRect(box);
        });
    } else if (!text.isEmpty()) {
        const double end = ToDots(room.End > 0 ? room.End : scaleWidth_, 0).x();
        const QFont whole = FontWithin(job.Dots().height() - corner.y(), font, job.Device());
        const QPointF itsBase = corner + QPointF(0, QFontMetricsF(whole, &job.Device()).ascent());
        for (const FittedText& part :
             Fitted({text, whole, itsBase}, end - corner.x(), room.Lead, job.Device()))
            job.Add([part, color = ColorOf(foreColor_)](QPainter& painter) {
                painter.setFont(part.Font);
                painter.setPen(color);
                painter.drawText(part.BaseLine, part.Text);
            });
    }
    currentX_ = 0;
    currentY_ += static_cast<float>(metrics.lineSpacing() * scaleHeight_ / job.Dots().height());
}

void PrinterObject::Line(double x1, double y1, double x2, double y2, qint32 color) {
    JobUnderWay().Add([pen = PenOf(color, drawWidth_), from = ToDots(x1, y1),
                       to = ToDots(x2, y2)](QPainter& painter) {
        painter.setPen(pen);
        painter.drawLine(from, to);
    });
}

void PrinterObject::Box(double x1, double y1, double x2, double y2, qint32 color) {
    JobUnderWay().AddOnTop(
        [pen = PenOf(color, drawWidth_),
         outline = QRectF(ToDots(x1, y1), ToDots(x2, y2)).normalized()](QPainter& painter) {
            painter.setPen(pen);
            painter.drawRect(outline);
        });
}

void PrinterObject::PaintPicture(const QImage& picture, double left, double top, double width,
                                 double height) {
    if (picture.isNull())
        throw RuntimeError(ErrorNumber::InvalidPicture);
    JobUnderWay().Add(
        [picture, target = QRectF(ToDots(left, top), ToDots(left + width, top + height))](
            QPainter& painter) { painter.drawImage(target, picture); });
}

void PrinterObject::NewPage() {
    JobUnderWay().NewPage();
    currentX_ = 0;
    currentY_ = 0;
}

void PrinterObject::NewSheet() {
    const bool wasFront = JobUnderWay().PageCount() % 2 == 1;
    NewPage();
    if (wasFront && target_.UsesBothSides())
        NewPage();
}

void PrinterObject::EndDoc() {
    std::unique_ptr<Job> job = std::move(job_);
    const QString name = docName_;
    KillDoc();
    if (!job)
        return;
    job->Send();
    // The last bytes are written when the device goes.
    job.reset();
    target_.Sent(name);
}

void PrinterObject::KillDoc() {
    job_.reset();
    scaleWidth_ = DefaultScaleWidth;
    scaleHeight_ = DefaultScaleHeight;
    currentX_ = 0;
    currentY_ = 0;
    fontSize_ = DefaultFontSize;
    drawWidth_ = 1;
    foreColor_ = 0;
    docName_.clear();
}

namespace {

std::unique_ptr<PrinterObject>& DefaultPrinter() {
    static std::unique_ptr<PrinterObject> printer;
    return printer;
}

} // namespace

PrinterObject& Printer() {
    if (!DefaultPrinter())
        throw RuntimeError(ErrorNumber::PrinterError);
    return *DefaultPrinter();
}

void SetPrintTarget(PrintTarget* target) {
    DefaultPrinter() = target == nullptr ? nullptr : std::make_unique<PrinterObject>(*target);
}
