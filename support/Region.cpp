#include "support/Region.h"

#include "platform/runtime/FileFaults.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/WholeFiles.h"
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

/// Opens for reading; makes a file that is not there, but not at the end of a link.
void OpenBinary(QFile& file) {
    const QFileInfo info(file);
    if (!info.dir().exists())
        throw ReadFault(ErrorNumber::PathNotFound, file.fileName());
    const bool isOpen = info.exists() ? info.isFile() && file.open(QIODevice::ReadOnly)
                                      : file.open(QIODevice::ReadWrite | QIODevice::NewOnly);
    if (!isOpen)
        throw ReadFault(ErrorNumber::PathFileAccessError, file.fileName());
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
    WithErrorsSkipped([&] { ReplaceFile(path, data); });
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
