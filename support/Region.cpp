#include "support/Region.h"

#include "platform/runtime/Numbers.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/RuntimeError.h"
#include "support/RegionData.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <span>

namespace {

/// Room for one more point, the former ones kept.
QPoint& GrowTo(std::vector<QPoint>& points, qint16 upperBound) {
    points.resize(static_cast<std::size_t>(upperBound) + 1);
    return points.back();
}

/// Opens for reading and writing, which makes a file that is not there, else for reading alone.
void OpenBinary(QFile& file) {
    const QFileInfo info(file);
    if (!info.dir().exists())
        throw RuntimeError(ErrorNumber::PathNotFound);
    if ((info.exists() && !info.isFile()) ||
        (!file.open(QIODevice::ReadWrite) && !file.open(QIODevice::ReadOnly)))
        throw RuntimeError(ErrorNumber::PathFileAccessError);
}

} // namespace

void Region::SubAddPoint(float x, float y) {
    const QPoint point(ToLong(x), ToLong(y));
    GrowTo(Points, PointCount) = point;
    PointCount = AddIntegers(PointCount, 1);
}

void Region::SetRegion(WindowShape& form) {
    QPoint& closing = GrowTo(Points, PointCount);
    closing = Points.front();
    const auto count = static_cast<std::size_t>(AddIntegers(PointCount, 1));
    RegionHandle = CreatePolygonRgn(std::span(Points).first(count));
    SaveRegionDataToFile(InProgramFolder(QStringLiteral("a")));
    form.SetWindowRgn(RegionHandle.get());
}

void Region::SaveRegionDataToFile(const QString& path) {
    const QByteArray data = GetRegionData(RegionHandle.get());
    if (data.isEmpty())
        return;
    QFile::remove(path);
    QFile file(path);
    if (file.open(QIODevice::ReadWrite))
        file.write(data);
}

void Region::LoadFromFile(const QString& path, WindowShape& form) {
    constexpr qint64 most = RegionHeaderSize + qint64{MostRectangles} * RegionRectangleSize;
    Clear();
    QFile file(path);
    OpenBinary(file);
    RegionHandle = ExtCreateRegion(file.read(std::min(file.size(), most)));
    form.SetWindowRgn(RegionHandle.get());
}

void Region::Clear() {
    RegionHandle.reset();
}
