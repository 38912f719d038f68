#include "support/RegionData.h"

#include <QPolygon>
#include <QRect>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr qint32 KindRectangles = 1;
constexpr qint32 LargestCoordinate = (1 << 27) - 1;
constexpr qsizetype NumberSize = 4;

using Numbers = std::array<qint32, 4>;

qint32 NumberAt(const QByteArray& data, qsizetype place) {
    return qFromLittleEndian<qint32>(data.constData() + place);
}

void AppendNumber(QByteArray& data, qint32 number) {
    const qsizetype place = data.size();
    data.resize(place + NumberSize);
    qToLittleEndian(number, data.data() + place);
}

void AppendRectangle(QByteArray& data, const QRect& rectangle) {
    AppendNumber(data, rectangle.left());
    AppendNumber(data, rectangle.top());
    AppendNumber(data, rectangle.left() + rectangle.width());
    AppendNumber(data, rectangle.top() + rectangle.height());
}

/// True if the rectangle of these sides can be part of a region.
bool IsRectangle(const Numbers& sides) {
    const auto [left, top, right, bottom] = sides;
    return left < right && top < bottom && std::all_of(sides.begin(), sides.end(), [](qint32 side) {
               return side >= -LargestCoordinate - 1 && side <= LargestCoordinate;
           });
}

/// True if `next` continues the bands that end in `last`: to the right in the same band, or in a
/// band below.
bool IsInBandOrder(const QRect& last, const QRect& next) {
    const bool sameBand = next.top() == last.top() && next.bottom() == last.bottom();
    return sameBand ? next.left() > last.right() : next.top() > last.bottom();
}

} // namespace

std::unique_ptr<QRegion> CreatePolygonRgn(std::span<const QPoint> points) {
    constexpr auto isCoordinate = [](int value) {
        return value >= std::numeric_limits<qint16>::min() &&
               value <= std::numeric_limits<qint16>::max();
    };
    constexpr std::size_t fewest = 2;
    if (points.size() < fewest || !std::all_of(points.begin(), points.end(), [&](QPoint point) {
            return isCoordinate(point.x()) && isCoordinate(point.y());
        }))
        return nullptr;
    QPolygon polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (const QPoint& point : points)
        polygon.append(point);
    return std::make_unique<QRegion>(polygon, Qt::OddEvenFill);
}

QByteArray GetRegionData(const QRegion* region) {
    QByteArray data;
    if (region == nullptr)
        return data;
    const qint32 count = region->rectCount();
    data.reserve(RegionHeaderSize + qsizetype{count} * RegionRectangleSize);
    AppendNumber(data, RegionHeaderSize);
    AppendNumber(data, KindRectangles);
    AppendNumber(data, count);
    AppendNumber(data, count * RegionRectangleSize);
    AppendRectangle(data, region->boundingRect());
    for (const QRect& rectangle : *region)
        AppendRectangle(data, rectangle);
    return data;
}

std::unique_ptr<QRegion> ExtCreateRegion(const QByteArray& data) {
    if (data.size() < RegionHeaderSize)
        return nullptr;
    const qint32 headerSize = NumberAt(data, 0);
    const qint32 kind = NumberAt(data, NumberSize);
    const qint32 count = NumberAt(data, 2 * NumberSize);
    const qint32 size = NumberAt(data, 3 * NumberSize);
    if (headerSize != RegionHeaderSize || kind != KindRectangles || count < 0 ||
        count > MostRectangles)
        return nullptr;
    // A size of 0 is an unknown one.
    const qint32 wanted = count * RegionRectangleSize;
    if ((size != 0 && size != wanted) || data.size() - RegionHeaderSize < wanted)
        return nullptr;

    auto region = std::make_unique<QRegion>();
    QRect last;
    bool inBands = true;
    qsizetype place = RegionHeaderSize;
    for (qint32 index = 0; index < count; ++index) {
        Numbers sides{};
        for (qint32& side : sides) {
            side = NumberAt(data, place);
            place += NumberSize;
        }
        if (!IsRectangle(sides))
            return nullptr;
        const QRect rectangle(QPoint(sides[0], sides[1]), QPoint(sides[2] - 1, sides[3] - 1));
        inBands = inBands && (index == 0 || IsInBandOrder(last, rectangle));
        if (!inBands && count > MostUnordered)
            return nullptr;
        last = rectangle;
        *region += rectangle;
    }
    return region;
}
