#pragma once

#include "platform/printing/Printer.h"

#include <QList>
#include <QPointF>
#include <QString>

/// What has been drawn on one page, in the order of drawing and in grid units (21 across and 30
/// down), whether or not the paper reaches so far.
struct RecordedPage {
    struct Text {
        QString Words;
        /// Where the text's top left corner stands.
        QPointF Place;
        int Points = 0;
        QRgb Color = 0;
    };
    struct Stroke {
        QPointF From;
        QPointF To;
        QRgb Color = 0;
        /// In device dots.
        double Width = 0;
    };
    QList<Text> Texts;
    QList<Stroke> Strokes;
};

/// Paper that keeps what is drawn on it. Only jobs sent count.
class RecordedPaper : public PrintTarget {
public:
    std::unique_ptr<QPagedPaintDevice> Open() override;
    void Sent(const QString&) override { Jobs.append(pending_); }

    /// The pages of the job sent last. Fails the test hard if there is none.
    const QList<RecordedPage>& LastJob() const;

    QList<QList<RecordedPage>> Jobs;

private:
    QList<RecordedPage> pending_;
};
