#pragma once

#include "platform/printing/Printer.h"
#include "tests/common/PrintedPages.h"

#include <QPagedPaintDevice>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

inline constexpr qint32 Black = 0;
inline constexpr qint32 Red = 255;
inline constexpr qint32 Green = 0x00ff00;
inline constexpr qint32 Blue = 16711680;
/// Half the width of a letter's side bearing, and what rounding to the reader's dots costs.
inline constexpr double Near = 0.06;

/// A printer whose pages are 21 wide and 30 high, and what it has sent.
class PrinterTest : public testing::Test {
protected:
    PrinterTest() {
        printer_.SetScaleWidth(21);
        printer_.SetScaleHeight(30);
    }

    void PrintAt(double x, double y, const QString& text) {
        printer_.SetCurrentX(x);
        printer_.SetCurrentY(y);
        printer_.Print(text);
    }

    PrintedPages Send() {
        printer_.EndDoc();
        return PrintedPages(target_.LastFile());
    }

    QTemporaryDir folder_;
    PdfPrintTarget target_{folder_.path()};
    PrinterObject printer_{target_};
};

/// A target whose devices are made by the test.
class MadeByTest : public PrintTarget {
public:
    std::function<std::unique_ptr<QPagedPaintDevice>()> Make;
    int SentJobs = 0;

    std::unique_ptr<QPagedPaintDevice> Open() override { return Make(); }
    void Sent(const QString&) override { ++SentJobs; }
};
