#include "platform/runtime/Progress.h"

#include <utility>

namespace {

ProgressWatch& Watch() {
    static ProgressWatch watch;
    return watch;
}

WaitWatch& WatchOfWaits() {
    static WaitWatch watch;
    return watch;
}

} // namespace

void SetProgressWatch(ProgressWatch watch) {
    Watch() = std::move(watch);
}

void ReportProgress(const QString& what, int done, int all) {
    if (Watch())
        Watch()(what, done, all);
}

void SetWaitWatch(WaitWatch watch) {
    WatchOfWaits() = std::move(watch);
}

void ReportWaiting(bool isWaiting) {
    if (WatchOfWaits())
        WatchOfWaits()(isWaiting);
}
