#pragma once

#include <QString>
#include <functional>

/// What has become of a print job.
struct PrintNews {
    /// The printer that has it; "" for none.
    QString Printer{};
    /// The printer stands still: the job waits there until somebody has looked after it.
    bool IsWaiting = false;
    /// The file in which it is kept; "" for none.
    QString File{};
};

/// Sets who hears what becomes of print jobs; empty for nobody.
void SetPrintNews(std::function<void(const PrintNews&)> hear);

void TellPrintNews(const PrintNews& news);
