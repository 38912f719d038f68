#include "tests/tour/Album.h"

#include "platform/printing/PrintNews.h"

#include "tests/common/Readable.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QMdiSubWindow>
#include <QPdfWriter>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <gtest/gtest.h>

namespace {

/// Dots an inch of the printed pages' pictures: enough to read them on a screen.
const QString PageResolution = QStringLiteral("80");

QString& Folder() {
    static QString folder;
    return folder;
}

QStringList Patterns() {
    return {QStringLiteral("*.png"), QStringLiteral("*.pdf")};
}

QByteArray Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << program.toStdString();
    return process.readAllStandardOutput();
}

QString PartLine(const QWidget& window, const QWidget& part, const QString& name) {
    const QRect place =
        QRect(part.mapTo(&window, QPoint()), part.size()).intersected(window.rect());
    return QStringLiteral("%1 %2 %3 %4 %5\n")
        .arg(name)
        .arg(place.x())
        .arg(place.y())
        .arg(place.width())
        .arg(place.height());
}

QString PartsOf(const QWidget& window, const QWidget& form) {
    const auto* frame = qobject_cast<QMdiSubWindow*>(form.parentWidget());
    QString parts = PartLine(window, frame == nullptr ? form : *frame, QStringLiteral("Form"));
    for (const QWidget* control : form.findChildren<QWidget*>())
        if (control->isVisible() && !control->isWindow() && !control->objectName().isEmpty() &&
            !control->objectName().startsWith(QLatin1String("qt_")))
            parts += PartLine(window, *control, control->objectName());
    return parts;
}

} // namespace

bool Album::SetFolder(const QString& folder) {
    Folder() = folder;
    if (!QDir().mkpath(folder) || !QFileInfo(folder).isWritable())
        return false;
    for (const QString& file : Files())
        if (file.startsWith(QLatin1String("family-")) || file.startsWith(QLatin1String("class-")))
            QDir(folder).remove(file);
    return true;
}

QStringList Album::Files() {
    return QDir(Folder()).entryList(Patterns(), QDir::Files, QDir::Name);
}

void Album::Begin(const Text& chapter) {
    chapter_ = chapter;
    number_ = 0;
}

QString Album::NextFile(const QString& name, const QString& ending) {
    return QStringLiteral("%1/%2-%3-%4.%5")
        .arg(Folder(), chapter_)
        .arg(++number_, 2, 10, QLatin1Char('0'))
        .arg(name, ending);
}

void Album::Take(const QWidget& window, const Text& name, const QWidget* form) {
    const QString file = NextFile(name, QStringLiteral("png"));
    QImage picture = const_cast<QWidget&>(window).grab().toImage();
    if (form != nullptr)
        picture.setText(QStringLiteral("Parts"), PartsOf(window, *form));
    EXPECT_TRUE(picture.save(file)) << file.toStdString();
}

void Album::TakeScreen(const Text& name) {
    const QString file = NextFile(name, QStringLiteral("png"));
    EXPECT_TRUE(QGuiApplication::primaryScreen()->grabWindow().save(file)) << file.toStdString();
}

std::unique_ptr<QPagedPaintDevice> Album::Open() {
    EXPECT_FALSE(printName_.isEmpty()) << "a print that nobody asked for";
    pendingPrint_ = NextFile(printName_, QStringLiteral("pdf"));
    return std::make_unique<QPdfWriter>(pendingPrint_);
}

void Album::Sent(const QString&) {
    TellPrintNews({.Printer = QStringLiteral("Home_Printer")});
    prints_ += pendingPrint_;
    printName_.clear();
    const QString pages = pendingPrint_.chopped(4);
    Run(QStringLiteral("pdftoppm"),
        {QStringLiteral("-png"), QStringLiteral("-r"), PageResolution, pendingPrint_, pages});
}

QString Album::PrintedText() const {
    if (prints_.isEmpty())
        return {};
    return QString::fromUtf8(
        Run(QStringLiteral("pdftotext"),
            {QStringLiteral("-layout"), prints_.constLast(), QStringLiteral("-")}));
}
