#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QList>
#include <QMarginsF>
#include <QRectF>
#include <QSize>
#include <QSizeF>
#include <QString>
#include <QStringList>

/// Text read from paper as it was printed: a font joins the letters of "fi" and "fl" into one sign,
/// which is taken apart again.
QString WithoutLigatures(const QString& text);

/// What a program writes. Throws std::runtime_error if it does not start or fails.
QByteArray OutputOf(const QString& program, const QStringList& arguments);

/// A printed job as a reader of the paper sees it: where its words stand and what colour a place
/// has. All places are in the grid units of the program's pages, 21 across the printable area and
/// 30 down.
class PrintedPages {
public:
    struct Word {
        QString Text;
        QRectF Place;
    };

    /// Reads a PDF file whose pages have the margins of a QPdfWriter. Throws std::runtime_error if
    /// that fails.
    explicit PrintedPages(const QString& pdf);

    int Count() const { return static_cast<int>(words_.size()); }

    /// Pages count from 1. Each look at a page that is not there throws std::runtime_error.
    const QList<Word>& Words(int page) const;
    /// The first word of that text. Throws std::runtime_error if there is none.
    Word Find(int page, const QString& text) const;
    /// All words of that text, from top to bottom.
    QList<Word> FindAll(int page, const QString& text) const;
    /// The words that begin in the band of height 0.5 at `top`, from left to right, with one blank
    /// between them.
    QString LineAt(int page, double top) const;

    /// The picture of a page's printable area.
    const QImage& Picture(int page) const;
    QColor At(int page, double x, double y) const;
    /// The smallest rectangle that holds everything which is not white in the area.
    QRectF Ink(int page, const QRectF& area) const;
    /// True if something which is not white stands beyond the printable area.
    bool HasInkInMargins(int page) const;
    /// The colours other than white of the area, the most frequent one; white if there is none.
    QColor MainColor(int page, const QRectF& area) const;

    /// The sheet, in whole points.
    QSize SheetPoints() const { return sheet_; }
    /// Points in one grid unit, across and down.
    QSizeF UnitPoints() const { return unit_; }

private:
    QPointF ToGrid(double xPoints, double yPoints) const;
    QRect Pixels(int page, const QRectF& area) const;
    /// The picture of the whole sheet, and the place of the printable area in it.
    QImage Sheet(int page) const;
    QRect PrintableArea() const;

    QString pdf_;
    QMarginsF margins_;
    QSize sheet_;
    QSizeF unit_;
    QList<QList<Word>> words_;
    mutable QList<QImage> pictures_;
};
