#pragma once

#include <QString>
#include <memory>

class QProgressDialog;

/// Shows long work in a small window of its own, once it has taken a second or is going to, and
/// the hourglass over all windows while nothing can be done.
class SystemProgress {
public:
    SystemProgress();
    ~SystemProgress();
    SystemProgress(const SystemProgress&) = delete;
    SystemProgress& operator=(const SystemProgress&) = delete;

    /// `done` equal to `all` takes the window away.
    void Show(const QString& what, int done, int all);

private:
    std::unique_ptr<QProgressDialog> window_;
};
