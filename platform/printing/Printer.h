#pragma once

#include <QFont>
#include <QImage>
#include <QPagedPaintDevice>
#include <QString>
#include <memory>

/// The text that prints as an empty box, to be ticked by pen: the character U+0019 alone.
inline const QString EmptyBoxText = QString(QChar(0x19));

/// Where a finished print job goes: the system's printer, a PDF file, a test's file.
class PrintTarget {
public:
    virtual ~PrintTarget() = default;
    /// A device of the target, for the metrics of text and then for the pages. Raises 482 if
    /// there is none.
    virtual std::unique_ptr<QPagedPaintDevice> Open() = 0;
    /// Called after the pages have been painted on the device and the device has been closed.
    /// `name`: what the job shows, in a few words; "" if nobody has said.
    virtual void Sent(const QString& name) = 0;
    /// True where the second page stands on the back of the first.
    virtual bool UsesBothSides() const { return false; }
};

/// The font of all paper in that size, of the widths that the pages are laid out for.
QFont PaperFont(double points);

/// How far a text may go. One that needs more room is made smaller, and ends in dots where it
/// would be too small to read.
struct TextRoom {
    /// Grid units from the left edge; 0: to the right edge of the page.
    double End = 0;
    /// As many letters at its beginning keep their size and place.
    qsizetype Lead = 0;
};

/// The program's printer: pages on a logical grid.
///
/// All coordinates are grid units, ScaleWidth of them across the printable width and ScaleHeight
/// down the printable height, on any paper; what is drawn beyond is lost. A job is kept in memory
/// and sent at EndDoc, so that one that fails half-way prints nothing.
class PrinterObject {
public:
    explicit PrinterObject(PrintTarget& target);
    ~PrinterObject();
    PrinterObject(const PrinterObject&) = delete;
    PrinterObject& operator=(const PrinterObject&) = delete;

    void SetScaleWidth(double units);
    void SetScaleHeight(double units);

    /// The drawing position, single precision.
    float CurrentX() const { return currentX_; }
    float CurrentY() const { return currentY_; }
    void SetCurrentX(double units) { currentX_ = static_cast<float>(units); }
    void SetCurrentY(double units) { currentY_ = static_cast<float>(units); }

    /// Size in points of the text that follows.
    void SetFontSize(int points);
    /// Colour of the text that follows: red in the low byte.
    void SetForeColor(qint32 color);
    /// Width in device dots of the lines that follow.
    void SetDrawWidth(int dots);
    /// What the job under way shows, in a few words: its name on its way and as a file.
    void SetDocName(const QString& name) { docName_ = name; }

    /// Draws one line of text with its top left corner at the drawing position; afterwards
    /// CurrentX is 0 and CurrentY one line of the current font lower. EmptyBoxText is drawn
    /// as an empty square as high as the font's capital letters.
    void Print(const QString& text, const TextRoom& room = {});
    void Line(double x1, double y1, double x2, double y2, qint32 color);
    /// The outline of a box, nothing filled; it lies over the lines and texts of its page.
    void Box(double x1, double y1, double x2, double y2, qint32 color);
    /// Scales a picture into a rectangle. Raises 481 for the empty picture.
    void PaintPicture(const QImage& picture, double left, double top, double width, double height);
    /// Ends the page; the drawing position goes to the next one's top left corner. A last page on
    /// which nothing is drawn is not sent.
    void NewPage();
    /// The same for what belongs to somebody else: it does not begin on the back of a page.
    void NewSheet();

    /// Ends the job, sends it and makes ready for the next. Raises 482 if the device refuses; the
    /// job is gone then.
    void EndDoc();

    /// Forgets the job under way. The next one begins on its first page, in black, with lines one
    /// dot wide.
    void KillDoc();

private:
    class Job;

    /// The job that this drawing belongs to, begun if none is. Raises 482 without a device.
    Job& JobUnderWay();
    /// A place on the page in device dots.
    QPointF ToDots(double x, double y);

    PrintTarget& target_;
    std::unique_ptr<Job> job_;
    double scaleWidth_ = 0;
    double scaleHeight_ = 0;
    float currentX_ = 0;
    float currentY_ = 0;
    int fontSize_ = 0;
    int drawWidth_ = 0;
    qint32 foreColor_ = 0;
    QString docName_;
};

/// Drops an unfinished job when it goes out of scope; a job ended by EndDoc is not touched.
class PrintJobGuard {
public:
    explicit PrintJobGuard(PrinterObject& printer) : printer_(printer) { printer_.KillDoc(); }
    ~PrintJobGuard() { printer_.KillDoc(); }
    PrintJobGuard(const PrintJobGuard&) = delete;
    PrintJobGuard& operator=(const PrintJobGuard&) = delete;

private:
    PrinterObject& printer_;
};

/// The system's default printer. Raises 482 if no target has been set.
PrinterObject& Printer();

/// Sets where the printer's jobs go; must outlive its use.
void SetPrintTarget(PrintTarget* target);
