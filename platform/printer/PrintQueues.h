#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

/// The queues of the printing system, CUPS, as far as the toolkit does not reach: whether a job was
/// taken, and what became of it. The system's library is loaded when first asked for.
class PrintQueues {
public:
    PrintQueues();
    ~PrintQueues();
    PrintQueues(const PrintQueues&) = delete;
    PrintQueues& operator=(const PrintQueues&) = delete;

    /// False where there is no such system.
    bool AreThere() const { return library_ != nullptr; }

    struct Answer {
        /// The job's number; 0 if it was refused.
        int Job = 0;
        /// The printing system's words for that.
        QString Refusal{};
    };
    /// Hands pages on to a printer, by the name that the toolkit has for it, to be printed with all
    /// its own settings.
    Answer Send(const QString& printer, const QString& title, const QByteArray& pdf) const;

    enum class JobState {
        UnderWay, ///< as far as is known: also while the printing system does not answer
        Waiting,  ///< until somebody has looked after the printer or lets the job go on
        Gone,     ///< printed, taken out of the queue by somebody, or not known any more
        Lost      ///< given up by the printing system
    };
    JobState StateOf(const QString& printer, int job) const;

private:
    struct Library;
    std::unique_ptr<Library> library_;
};
