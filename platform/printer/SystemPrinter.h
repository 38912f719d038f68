#pragma once

#include "platform/printer/PrintQueues.h"
#include "platform/printing/PrintoutFolder.h"

#include <QDeadlineTimer>
#include <QList>
#include <QTimer>
#include <chrono>
#include <memory>

/// The printer of the program: the system's default printer with its own settings, or the folder
/// of printouts where no printer is installed.
///
/// A job that the printer refuses, or loses after it has taken it, is kept in that folder, and the
/// user is told.
class SystemPrinter : public PrintTarget {
public:
    SystemPrinter();

    std::unique_ptr<QPagedPaintDevice> Open() override;
    void Sent(const QString& name) override;
    bool UsesBothSides() const override { return usesBothSides_; }

    /// How long to wait from one look after the jobs to the next: from a second on twice as long
    /// each time, up to half a minute, for each asks the printing system.
    static std::chrono::seconds PauseAfter(std::chrono::seconds pause);

private:
    /// A job that a printer has taken.
    struct Job {
        QString printer;
        int number = 0;
        QByteArray pdf{};
        QString name{};
        bool isWaiting = false;
        /// What stands in a queue for so long is known there.
        QDeadlineTimer latest{std::chrono::minutes(10)};
    };

    /// Keeps a job that will not be printed, and tells of it. `what`: a sentence with %1 for the
    /// printer.
    void Keep(const QByteArray& pdf, const QString& name, const QString& what);
    void LookAfterJobs();
    /// False once nothing more can become of the job.
    bool LookAfter(Job& job);

    PrintoutFolder printouts_;
    /// Made when there is a printer: before, there is nothing to ask the printing system.
    std::unique_ptr<PrintQueues> queues_;
    /// The printer that the device opened last is for, "" for the folder.
    QString printer_;
    bool usesBothSides_ = false;
    /// The pages painted on that device.
    QByteArray pdf_;
    QList<Job> jobs_;
    QTimer looking_;
    std::chrono::seconds pause_{};
};
