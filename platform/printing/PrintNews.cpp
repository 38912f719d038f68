#include "platform/printing/PrintNews.h"

#include <utility>

namespace {

std::function<void(const PrintNews&)>& Hearer() {
    static std::function<void(const PrintNews&)> hear;
    return hear;
}

} // namespace

void SetPrintNews(std::function<void(const PrintNews&)> hear) {
    Hearer() = std::move(hear);
}

void TellPrintNews(const PrintNews& news) {
    if (Hearer())
        Hearer()(news);
}
