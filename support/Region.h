#pragma once

#include "support/WindowShape.h"

#include <QPoint>
#include <QString>
#include <memory>
#include <vector>

/// Gives a window an outline that is no rectangle, from a polygon or from a saved file. No form of
/// the program asks for one: they are rectangles.
class Region {
public:
    /// The number of points added.
    qint16 PointCount = 0;
    /// In pixels from the window's upper left corner.
    std::vector<QPoint> Points;
    /// The region; null when there is none.
    std::unique_ptr<QRegion> RegionHandle;

    /// Appends a point, rounded to whole pixels, a half to the even neighbour. Raises 6 for a
    /// number beyond 32 bits and for the 32768th point.
    void SubAddPoint(float x, float y);

    /// Closes the polygon, makes the region and applies it to the form. The region's data stays
    /// behind in the file "a" of the program's folder. A polygon that the platform refuses, one
    /// without points among them, leaves the form its full rectangle and writes no file.
    /// Raises 6 with 32767 points.
    void SetRegion(WindowShape& form);

    /// Writes the region's data (support/RegionData.h) to a file. Without a region, and whenever
    /// the file cannot be written, it does nothing.
    void SaveRegionDataToFile(const QString& path);

    /// Reads a region from a file and applies it to the form. An empty file, and one that holds no
    /// region, restore the form's full rectangle. A file that is not there is made, empty. Raises
    /// 76 if its folder is missing, 75 if it cannot be opened.
    void LoadFromFile(const QString& path, WindowShape& form);

    /// Deletes the region. A form that shows its outline keeps it.
    void Clear();
};
