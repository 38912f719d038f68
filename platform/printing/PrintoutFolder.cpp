#include "platform/printing/PrintoutFolder.h"

#include "platform/runtime/Dates.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/RuntimeError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QPageSize>
#include <QPdfWriter>
#include <QTime>

namespace {

RuntimeError Fault(const QString& what) {
    return {ErrorNumber::PrinterError, what};
}

/// A PDF file ends in its trailer, unless the disk filled up on the way.
bool IsWholePdf(const QString& path) {
    constexpr qint64 TrailerBytes = 16;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.size() > TrailerBytes &&
           file.seek(file.size() - TrailerBytes) && file.readAll().contains("%%EOF");
}

/// Gives the draft its name: date and time, and a number behind where that is taken. Renaming
/// never replaces a file, so that another copy of the program cannot lose one either.
QString Publish(const QString& draft, const QString& folder) {
    constexpr int MostInOneSecond = 1000;
    const QString moment = Today().toString(Qt::ISODate) + QLatin1Char(' ') +
                           QTime::currentTime().toString(QStringLiteral("HH-mm-ss"));
    for (int number = 1; number <= MostInOneSecond; ++number) {
        const QString name =
            number == 1 ? moment : QStringLiteral("%1 (%2)").arg(moment).arg(number);
        const QString path = QStringLiteral("%1/%2.pdf").arg(folder, name);
        if (QFile::rename(draft, path))
            return path;
    }
    throw Fault(QStringLiteral("The printout cannot be kept in %1").arg(folder));
}

QString FolderPath() {
    return InProgramFolder(QStringLiteral("Printouts"));
}

} // namespace

std::unique_ptr<QPagedPaintDevice> PrintoutFolder::Open() {
    if (!QDir().mkpath(FolderPath()))
        throw Fault(QStringLiteral("The folder %1 cannot be made").arg(FolderPath()));
    draft_ = QStringLiteral("%1/unfinished-%2.tmp")
                 .arg(FolderPath())
                 .arg(QCoreApplication::applicationPid());
    auto device = std::make_unique<QPdfWriter>(draft_);
    const bool american = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    device->setPageSize(QPageSize(american ? QPageSize::Letter : QPageSize::A4));
    device->setTitle(QCoreApplication::applicationName());
    return device;
}

void PrintoutFolder::Sent() {
    if (!IsWholePdf(draft_)) {
        QFile::remove(draft_);
        throw Fault(QStringLiteral("The printout cannot be written to %1").arg(FolderPath()));
    }
    CurrentDesktop().ShellExecute(QStringLiteral("open"), Publish(draft_, FolderPath()), 0);
}
