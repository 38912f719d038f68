#include "platform/printer/SystemPrinter.h"

#include "platform/printing/PrintNews.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/Prompts.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScopeGuard>
#include <algorithm>
#include <chrono>
#include <utility>

namespace {

/// The system's default printer, or the first one. Null if there is none.
QPrinterInfo ChosenPrinter() {
    // A QPrinter calls itself valid without any printer, so ask for the names of the real ones.
    const QStringList names = QPrinterInfo::availablePrinterNames();
    if (names.isEmpty())
        return {};
    const QPrinterInfo chosen = QPrinterInfo::defaultPrinter();
    return chosen.isNull() ? QPrinterInfo::printerInfo(names.first()) : chosen;
}

/// The toolkit's device with what the printer would do of itself. Left to itself it is set to A4.
std::unique_ptr<QPrinter> DeviceOf(const QPrinterInfo& printer) {
    auto device = std::make_unique<QPrinter>(printer, QPrinter::HighResolution);
    const QPageSize paper = printer.defaultPageSize();
    device->setPageSize(paper.isValid() ? paper : PaperOfTheCountry());
    device->setDuplex(printer.defaultDuplexMode());
    device->setColorMode(printer.defaultColorMode());
    // All that the printer reaches.
    device->setPageMargins(device->pageLayout().minimumMargins(), device->pageLayout().units());
    return device;
}

} // namespace

SystemPrinter::SystemPrinter() {
    looking_.setSingleShot(true);
    QObject::connect(&looking_, &QTimer::timeout, &looking_,
                     [this] { RunAction([this] { LookAfterJobs(); }); });
}

std::unique_ptr<QPagedPaintDevice> SystemPrinter::Open() {
    const QPrinterInfo chosen = ChosenPrinter();
    printer_ = chosen.printerName();
    usesBothSides_ = !chosen.isNull() && chosen.defaultDuplexMode() != QPrinter::DuplexNone;
    if (chosen.isNull())
        return printouts_.Open();
    std::unique_ptr<QPrinter> device = DeviceOf(chosen);
    if (!queues_)
        queues_ = std::make_unique<PrintQueues>();
    if (!queues_->AreThere()) {
        device->setDocName(QCoreApplication::applicationName());
        return device;
    }
    // The toolkit does not say what the queue makes of its pages, so they are handed on from here.
    pdf_.clear();
    auto pages = std::make_unique<QBuffer>(&pdf_);
    pages->open(QIODevice::WriteOnly);
    auto writer = std::make_unique<QPdfWriter>(pages.get());
    pages.release()->setParent(writer.get());
    writer->setPageLayout(device->pageLayout());
    writer->setTitle(QCoreApplication::applicationName());
    return writer;
}

void SystemPrinter::Sent(const QString& name) {
    if (printer_.isEmpty()) {
        printouts_.Sent(name);
        return;
    }
    if (!queues_->AreThere()) {
        TellPrintNews({.Printer = printer_});
        return;
    }
    const QByteArray pdf = std::exchange(pdf_, {});
    const QString title = name.isEmpty() ? QCoreApplication::applicationName() : name;
    const PrintQueues::Answer answer = queues_->Send(printer_, title, pdf);
    if (answer.Job == 0) {
        Keep(pdf, name,
             QStringLiteral("The printer %1 does not take the pages: %2")
                 .arg(printer_, answer.Refusal));
        return;
    }
    TellPrintNews({.Printer = printer_});
    Job job{.printer = printer_, .number = answer.Job, .pdf = pdf, .name = name};
    if (LookAfter(job)) {
        jobs_ += job;
        pause_ = PauseAfter({});
        looking_.start(pause_);
    }
}

std::chrono::seconds SystemPrinter::PauseAfter(std::chrono::seconds pause) {
    using namespace std::chrono_literals;
    return std::clamp(2 * pause, 1s, 30s);
}

void SystemPrinter::Keep(const QByteArray& pdf, const QString& name, const QString& what) {
    const QString path = printouts_.Keep(pdf, name);
    Tell(what + QStringLiteral("\n\nThey are kept as a PDF file:\n") +
             QDir::toNativeSeparators(path),
         PromptIcon::Exclamation);
    TellPrintNews({.File = path});
}

void SystemPrinter::LookAfterJobs() {
    // While a box stands, events go on, and a job that cannot be kept ends this with an error.
    QList<Job> jobs = std::exchange(jobs_, {});
    pause_ = PauseAfter(pause_);
    const auto goOn = qScopeGuard([&] {
        jobs_ += jobs;
        if (!jobs_.isEmpty())
            looking_.start(pause_);
    });
    while (!jobs.isEmpty()) {
        Job job = jobs.takeFirst();
        if (LookAfter(job))
            jobs_ += job;
    }
}

bool SystemPrinter::LookAfter(Job& job) {
    switch (queues_->StateOf(job.printer, job.number)) {
    case PrintQueues::JobState::Lost:
        Keep(job.pdf, job.name,
             QStringLiteral("The printer %1 has given up the pages.").arg(job.printer));
        return false;
    case PrintQueues::JobState::Waiting:
        if (!std::exchange(job.isWaiting, true))
            TellPrintNews({.Printer = job.printer, .IsWaiting = true});
        break;
    case PrintQueues::JobState::UnderWay:
        job.isWaiting = false;
        break;
    case PrintQueues::JobState::Gone:
        return false;
    }
    return !job.latest.hasExpired();
}
