#include "tests/common/PrintedPages.h"

#include "tests/common/Entries.h"

#include <QHash>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <algorithm>
#include <stdexcept>

namespace {

constexpr double GridWidth = 21;
constexpr double GridHeight = 30;
constexpr int DotsPerInch = 150;

bool IsWhite(QRgb pixel) {
    constexpr int NearlyWhite = 240;
    return qRed(pixel) > NearlyWhite && qGreen(pixel) > NearlyWhite && qBlue(pixel) > NearlyWhite;
}

} // namespace

QByteArray OutputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        throw std::runtime_error(program.toStdString() +
                                 " failed: " + process.errorString().toStdString() + ' ' +
                                 process.readAllStandardError().toStdString());
    return process.readAllStandardOutput();
}

QString WithoutLigatures(const QString& text) {
    return text.normalized(QString::NormalizationForm_KC);
}

PrintedPages::PrintedPages(const QString& pdf) : pdf_(pdf) {
    QTemporaryDir scratch;
    margins_ = QPdfWriter(scratch.filePath(QStringLiteral("any.pdf")))
                   .pageLayout()
                   .margins(QPageLayout::Point);
    QXmlStreamReader reader(
        OutputOf(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")}));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto number = [attributes = reader.attributes()](QLatin1String name) {
            return attributes.value(name).toDouble();
        };
        if (reader.name() == QLatin1String("page")) {
            sheet_ =
                QSizeF(number(QLatin1String("width")), number(QLatin1String("height"))).toSize();
            unit_ = {(number(QLatin1String("width")) - margins_.left() - margins_.right()) /
                         GridWidth,
                     (number(QLatin1String("height")) - margins_.top() - margins_.bottom()) /
                         GridHeight};
            words_.append(QList<Word>());
        } else if (reader.name() == QLatin1String("word")) {
            const QRectF place(
                ToGrid(number(QLatin1String("xMin")), number(QLatin1String("yMin"))),
                ToGrid(number(QLatin1String("xMax")), number(QLatin1String("yMax"))));
            LastOf(words_).append({WithoutLigatures(reader.readElementText()), place});
        }
    }
    if (reader.hasError())
        throw std::runtime_error("pdftotext: " + reader.errorString().toStdString());
}

QPointF PrintedPages::ToGrid(double xPoints, double yPoints) const {
    return {(xPoints - margins_.left()) / unit_.width(),
            (yPoints - margins_.top()) / unit_.height()};
}

const QList<PrintedPages::Word>& PrintedPages::Words(int page) const {
    return EntryOf(words_, page - 1);
}

PrintedPages::Word PrintedPages::Find(int page, const QString& text) const {
    const QList<Word> found = FindAll(page, text);
    if (found.isEmpty())
        throw std::runtime_error("not printed: " + text.toStdString());
    return found.first();
}

QList<PrintedPages::Word> PrintedPages::FindAll(int page, const QString& text) const {
    QList<Word> found;
    for (const Word& word : Words(page))
        if (word.Text == text)
            found.append(word);
    std::stable_sort(found.begin(), found.end(), [](const Word& left, const Word& right) {
        return left.Place.top() < right.Place.top();
    });
    return found;
}

QString PrintedPages::LineAt(int page, double top) const {
    constexpr double Tolerance = 0.25;
    QList<Word> line;
    for (const Word& word : Words(page))
        if (std::abs(word.Place.top() - top) < Tolerance)
            line.append(word);
    std::stable_sort(line.begin(), line.end(), [](const Word& left, const Word& right) {
        return left.Place.left() < right.Place.left();
    });
    QStringList texts;
    for (const Word& word : line)
        texts += word.Text;
    return texts.join(QLatin1Char(' '));
}

QImage PrintedPages::Sheet(int page) const {
    const QString number = QString::number(page);
    const QByteArray pixmap =
        OutputOf(QStringLiteral("pdftoppm"),
                 {QStringLiteral("-r"), QString::number(DotsPerInch), QStringLiteral("-f"), number,
                  QStringLiteral("-l"), number, QStringLiteral("-thinlinemode"),
                  QStringLiteral("solid"), pdf_});
    return QImage::fromData(pixmap, "PPM").convertToFormat(QImage::Format_RGB32);
}

QRect PrintedPages::PrintableArea() const {
    const double scale = DotsPerInch / 72.0;
    return QRectF(margins_.left() * scale, margins_.top() * scale,
                  unit_.width() * GridWidth * scale, unit_.height() * GridHeight * scale)
        .toRect();
}

const QImage& PrintedPages::Picture(int page) const {
    if (pictures_.isEmpty())
        pictures_.resize(Count());
    QImage& picture = EntryOf(pictures_, page - 1);
    if (picture.isNull())
        picture = Sheet(page).copy(PrintableArea());
    return picture;
}

bool PrintedPages::HasInkInMargins(int page) const {
    const QImage sheet = Sheet(page);
    // The area's edge falls between dots.
    const QRect area = PrintableArea().adjusted(-1, -1, 1, 1);
    for (int y = 0; y < sheet.height(); ++y)
        for (int x = 0; x < sheet.width(); ++x)
            if (!area.contains(x, y) && !IsWhite(sheet.pixel(x, y)))
                return true;
    return false;
}

QRect PrintedPages::Pixels(int page, const QRectF& area) const {
    const QImage& picture = Picture(page);
    const double across = picture.width() / GridWidth;
    const double down = picture.height() / GridHeight;
    return QRectF(area.x() * across, area.y() * down, area.width() * across, area.height() * down)
        .toRect()
        .intersected(picture.rect());
}

QColor PrintedPages::At(int page, double x, double y) const {
    const QRect pixel = Pixels(page, QRectF(x, y, 0.1, 0.1));
    return Picture(page).pixelColor(pixel.topLeft());
}

QRectF PrintedPages::Ink(int page, const QRectF& area) const {
    const QImage& picture = Picture(page);
    const QRect pixels = Pixels(page, area);
    QRect ink;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        for (int x = pixels.left(); x <= pixels.right(); ++x)
            if (!IsWhite(picture.pixel(x, y)))
                ink |= QRect(x, y, 1, 1);
    const double across = picture.width() / GridWidth;
    const double down = picture.height() / GridHeight;
    return {ink.x() / across, ink.y() / down, ink.width() / across, ink.height() / down};
}

QColor PrintedPages::MainColor(int page, const QRectF& area) const {
    const QImage& picture = Picture(page);
    const QRect pixels = Pixels(page, area);
    QHash<QRgb, int> counts;
    QRgb main = qRgb(255, 255, 255);
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (!IsWhite(pixel) && ++counts[pixel] > counts.value(main))
                main = pixel;
        }
    return QColor(main);
}
