#pragma once

#include <QByteArray>
#include <QPoint>
#include <QRegion>
#include <memory>
#include <span>

/// Regions and their data: a header of 32 bytes and 16 bytes for each rectangle, all numbers
/// 32-bit with the low byte first.
///
/// Header: its own size (32), the kind (1, rectangles), the count of rectangles, their size in
/// bytes, and the bounding rectangle. A rectangle: left, top, right, bottom; right and bottom lie
/// just outside. Rectangles stand in bands from top to bottom, within a band from left to right.

/// The region within a closed polygon, by alternate filling. Null, as a failed call, for fewer
/// than two points, and for a coordinate that no window has (beyond 16 bits).
std::unique_ptr<QRegion> CreatePolygonRgn(std::span<const QPoint> points);

/// The data of a region; an empty region has a header alone. Empty, as a failed call, for null.
QByteArray GetRegionData(const QRegion* region);

/// The region that `data` describes; bytes behind its last rectangle do not matter. Null, as a
/// failed call, for data that is none: a wrong header, a size that does not fit the count, fewer
/// bytes than that, an empty or turned rectangle, a coordinate beyond 28 bits, more rectangles
/// than MostRectangles, or rectangles that are not in bands and more than MostUnordered.
std::unique_ptr<QRegion> ExtCreateRegion(const QByteArray& data);

constexpr int RegionHeaderSize = 32;
constexpr int RegionRectangleSize = 16;
/// Many more than the outline of any window has.
constexpr int MostRectangles = 1 << 20;
/// Each rectangle out of order is united with all before it, which may cut both into many.
constexpr int MostUnordered = 256;
