#include "support/Region.h"

#include "support/RegionData.h"
#include "tests/common/OrdinaryUser.h"
#include "tests/common/RuntimeTest.h"

#include <QtEndian>
#include <ctime>
#include <limits>
#include <optional>

namespace {

/// Keeps the outline that it was given; a full rectangle has none.
class FakeWindow : public WindowShape {
public:
    void SetWindowRgn(const QRegion* region) override {
        ++Calls;
        Outline = region == nullptr ? std::nullopt : std::optional(*region);
    }

    int Calls = 0;
    std::optional<QRegion> Outline = QRegion(1, 2, 3, 4);
};

QByteArray Bytes(const QList<qint32>& numbers) {
    QByteArray bytes(numbers.size() * 4, '\0');
    for (qsizetype index = 0; index < numbers.size(); ++index)
        qToLittleEndian(numbers.at(index), bytes.data() + index * 4);
    return bytes;
}

class RegionTest : public RuntimeTest {
protected:
    static void AddSquare(Region& region, float side) {
        region.SubAddPoint(0, 0);
        region.SubAddPoint(side, 0);
        region.SubAddPoint(side, side);
        region.SubAddPoint(0, side);
    }

    /// Loads these bytes and returns whether they gave a region.
    bool Loads(const QByteArray& bytes) {
        WriteFile(Path(QStringLiteral("shape")), bytes);
        Shape.LoadFromFile(Path(QStringLiteral("shape")), Window);
        EXPECT_EQ(Window.Outline.has_value(), Shape.RegionHandle != nullptr);
        return Shape.RegionHandle != nullptr;
    }

    Region Shape;
    FakeWindow Window;
};

TEST_F(RegionTest, PointsAreRoundedToWholePixelsAHalfToTheEvenNeighbour) {
    Shape.SubAddPoint(1.5F, 2.5F);
    Shape.SubAddPoint(-0.5F, -1.6F);
    EXPECT_EQ(Shape.PointCount, 2);
    EXPECT_EQ(Shape.Points, (std::vector<QPoint>{QPoint(2, 2), QPoint(0, -2)}));
}

TEST_F(RegionTest, PointBeyond32BitsOverflowsAndIsNotAdded) {
    EXPECT_ERROR(6, Shape.SubAddPoint(3e9F, 0));
    EXPECT_ERROR(6, Shape.SubAddPoint(0, std::numeric_limits<float>::quiet_NaN()));
    EXPECT_EQ(Shape.PointCount, 0);
    EXPECT_TRUE(Shape.Points.empty());
}

TEST_F(RegionTest, PointNumber32768OverflowsTheCount) {
    for (int point = 0; point < 32767; ++point)
        Shape.SubAddPoint(0, 0);
    EXPECT_EQ(Shape.PointCount, 32767);
    EXPECT_ERROR(6, Shape.SubAddPoint(0, 0));
    EXPECT_EQ(Shape.PointCount, 32767);
    EXPECT_ERROR(6, Shape.SetRegion(Window));
}

TEST_F(RegionTest, SetRegionAppliesThePolygon) {
    AddSquare(Shape, 10);
    Shape.SetRegion(Window);
    EXPECT_EQ(Shape.PointCount, 4);
    ASSERT_TRUE(Window.Outline.has_value());
    EXPECT_EQ(*Window.Outline, QRegion(0, 0, 10, 10));
    EXPECT_EQ(Window.Calls, 1);
}

TEST_F(RegionTest, ClosingPointIsTheFirstWhereverThatStands) {
    Shape.SubAddPoint(7, 3);
    Shape.SubAddPoint(17, 3);
    Shape.SubAddPoint(17, 13);
    Shape.SubAddPoint(7, 13);
    Shape.SetRegion(Window);
    ASSERT_EQ(Shape.Points.size(), 5U);
    EXPECT_EQ(Shape.Points.back(), QPoint(7, 3));
    ASSERT_TRUE(Window.Outline.has_value());
    EXPECT_EQ(*Window.Outline, QRegion(7, 3, 10, 10));
}

TEST_F(RegionTest, PointAddedAfterSetRegionTakesTheClosingPointsPlace) {
    AddSquare(Shape, 10);
    Shape.SetRegion(Window);
    Shape.SubAddPoint(-5, 5);
    EXPECT_EQ(Shape.PointCount, 5);
    ASSERT_EQ(Shape.Points.size(), 5U);
    EXPECT_EQ(Shape.Points.back(), QPoint(-5, 5));
}

TEST_F(RegionTest, PolygonIsFilledAlternately) {
    // Two squares, the smaller within the larger, drawn in one line: the inner one is a hole.
    for (const QPoint point :
         {QPoint(0, 0), QPoint(30, 0), QPoint(30, 30), QPoint(0, 30), QPoint(0, 0), QPoint(10, 10),
          QPoint(20, 10), QPoint(20, 20), QPoint(10, 20), QPoint(10, 10)})
        Shape.SubAddPoint(static_cast<float>(point.x()), static_cast<float>(point.y()));
    Shape.SetRegion(Window);
    ASSERT_TRUE(Window.Outline.has_value());
    EXPECT_FALSE(Window.Outline->contains(QPoint(15, 15)));
    EXPECT_TRUE(Window.Outline->contains(QPoint(25, 15)));
    EXPECT_TRUE(Window.Outline->contains(QPoint(5, 25)));
}

TEST_F(RegionTest, SetRegionWithNoPointsHoldsOneEntryAndLeavesTheFullRectangle) {
    Shape.SetRegion(Window);
    EXPECT_EQ(Shape.PointCount, 0);
    EXPECT_EQ(Shape.Points.size(), 1U);
    EXPECT_EQ(Shape.RegionHandle, nullptr);
    EXPECT_FALSE(Window.Outline.has_value());
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("a")))) << "a call that failed has no data";
}

TEST_F(RegionTest, PointThatNoWindowHasMakesTheCallFail) {
    AddSquare(Shape, 2e9F);
    Shape.SetRegion(Window);
    EXPECT_EQ(Shape.RegionHandle, nullptr);
    EXPECT_FALSE(Window.Outline.has_value());
}

TEST_F(RegionTest, SetRegionLeavesTheRegionsDataBehindInTheFileA) {
    AddSquare(Shape, 10);
    Shape.SetRegion(Window);
    EXPECT_EQ(ReadFile(Path(QStringLiteral("a"))),
              Bytes({32, 1, 1, 16, 0, 0, 10, 10, 0, 0, 10, 10}));
}

TEST_F(RegionTest, FileHoldsRectanglesInBandsFromTopToBottomAndLeftToRight) {
    Shape.RegionHandle = std::make_unique<QRegion>(QRegion(0, 0, 10, 4) + QRegion(-3, 4, 5, 6) +
                                                   QRegion(20, 4, 5, 6));
    Shape.SaveRegionDataToFile(Path(QStringLiteral("shape")));
    EXPECT_EQ(ReadFile(Path(QStringLiteral("shape"))),
              Bytes({32, 1, 3, 48, -3, 0, 25, 10, 0, 0, 10, 4, -3, 4, 2, 10, 20, 4, 25, 10}));
}

TEST_F(RegionTest, PolygonWithoutAreaIsAnEmptyRegionOf32Bytes) {
    Shape.SubAddPoint(5, 5);
    Shape.SetRegion(Window);
    ASSERT_TRUE(Window.Outline.has_value());
    EXPECT_TRUE(Window.Outline->isEmpty());
    EXPECT_EQ(ReadFile(Path(QStringLiteral("a"))), Bytes({32, 1, 0, 0, 0, 0, 0, 0}));
    ASSERT_TRUE(Loads(ReadFile(Path(QStringLiteral("a")))));
    EXPECT_TRUE(Window.Outline->isEmpty());
}

TEST_F(RegionTest, SaveReplacesALongerFile) {
    WriteFile(Path(QStringLiteral("shape")), QByteArray(500, 'x'));
    AddSquare(Shape, 10);
    Shape.SetRegion(Window);
    Shape.SaveRegionDataToFile(Path(QStringLiteral("shape")));
    EXPECT_EQ(ReadFile(Path(QStringLiteral("shape"))).size(), 48);
}

TEST_F(RegionTest, SaveWithoutARegionTouchesNoFile) {
    WriteFile(Path(QStringLiteral("shape")), "kept");
    Shape.SaveRegionDataToFile(Path(QStringLiteral("shape")));
    EXPECT_EQ(ReadFile(Path(QStringLiteral("shape"))), "kept");
}

TEST_F(RegionTest, SaveThatCannotWriteEndsQuietly) {
    AddSquare(Shape, 10);
    Shape.SetRegion(Window);
    QDir().mkpath(Path(QStringLiteral("folder/within")));
    Shape.SaveRegionDataToFile(Path(QStringLiteral("folder")));
    Shape.SaveRegionDataToFile(Path(QStringLiteral("missing/shape")));
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("missing"))));
    EXPECT_TRUE(QFileInfo(Path(QStringLiteral("folder/within"))).isDir());
}

TEST_F(RegionTest, WhatWasSavedIsLoadedAgain) {
    for (const QPoint point : {QPoint(50, 0), QPoint(100, 80), QPoint(7, 33), QPoint(90, 20)})
        Shape.SubAddPoint(static_cast<float>(point.x()), static_cast<float>(point.y()));
    Shape.SetRegion(Window);
    const QRegion saved = *Window.Outline;
    Region other;
    other.LoadFromFile(Path(QStringLiteral("a")), Window);
    ASSERT_TRUE(Window.Outline.has_value());
    EXPECT_EQ(*Window.Outline, saved);
    EXPECT_GT(saved.rectCount(), 10);
    EXPECT_EQ(other.PointCount, 0);
}

TEST_F(RegionTest, EmptyFileRestoresTheFullRectangle) {
    AddSquare(Shape, 10);
    Shape.SetRegion(Window);
    EXPECT_FALSE(Loads(QByteArray()));
    EXPECT_EQ(Window.Calls, 2);
}

TEST_F(RegionTest, MissingFileIsMadeEmptyAndRestoresTheFullRectangle) {
    Shape.LoadFromFile(Path(QStringLiteral("new")), Window);
    EXPECT_FALSE(Window.Outline.has_value());
    EXPECT_EQ(ReadFile(Path(QStringLiteral("new"))), QByteArray());
}

TEST_F(RegionTest, FileThatCannotBeOpenedRaisesItsErrorAndLeavesTheFormAlone) {
    EXPECT_ERROR(76, Shape.LoadFromFile(Path(QStringLiteral("missing/shape")), Window));
    EXPECT_ERROR(75, Shape.LoadFromFile(ProgramFolder(), Window));
    EXPECT_EQ(Window.Calls, 0);
}

TEST_F(RegionTest, ReadOnlyFileIsLoaded) {
    WriteFile(Path(QStringLiteral("shape")), Bytes({32, 1, 1, 16, 0, 0, 9, 9, 0, 0, 9, 9}));
    ASSERT_EQ(::chmod(QFile::encodeName(Path(QStringLiteral("shape"))).constData(), 0444), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(ProgramFolder()).constData(), 0755), 0);
    const OrdinaryUser user;
    Shape.LoadFromFile(Path(QStringLiteral("shape")), Window);
    EXPECT_EQ(Window.Outline, QRegion(0, 0, 9, 9));
}

TEST_F(RegionTest, FileThatNobodyMayWriteIsRead) {
    // A program that runs; it is no region.
    Shape.LoadFromFile(QStringLiteral("/proc/self/exe"), Window);
    EXPECT_FALSE(Window.Outline.has_value());
    EXPECT_EQ(Window.Calls, 1);
}

TEST_F(RegionTest, ClearDeletesTheRegionAndTheFormKeepsItsOutline) {
    AddSquare(Shape, 10);
    Shape.SetRegion(Window);
    Shape.Clear();
    EXPECT_EQ(Shape.RegionHandle, nullptr);
    EXPECT_EQ(Window.Outline, QRegion(0, 0, 10, 10));
    EXPECT_EQ(Shape.PointCount, 4);
    Shape.Clear();
    EXPECT_EQ(Shape.RegionHandle, nullptr);
}

TEST_F(RegionTest, BytesBehindTheLastRectangleAndTheBoundsDoNotMatter) {
    ASSERT_TRUE(Loads(Bytes({32, 1, 1, 16, 7, 7, -7, -7, 0, 0, 9, 9}) + "tail"));
    EXPECT_EQ(Window.Outline, QRegion(0, 0, 9, 9));
    ASSERT_TRUE(Loads(Bytes({32, 1, 1, 0, 0, 0, 9, 9, 0, 0, 9, 9}))) << "0 is an unknown size";
}

TEST_F(RegionTest, FewRectanglesOutOfOrderAreUnited) {
    ASSERT_TRUE(Loads(Bytes({32, 1, 2, 32, 0, 0, 9, 9, 5, 5, 9, 9, 0, 0, 6, 6})));
    EXPECT_EQ(Window.Outline, QRegion(5, 5, 4, 4) + QRegion(0, 0, 6, 6));
}

TEST_F(RegionTest, DataThatIsNoRegionGivesTheFullRectangle) {
    const QList<std::pair<const char*, QByteArray>> damaged = {
        {"one byte", QByteArray(1, '\x20')},
        {"half a header", Bytes({32, 1, 0, 0})},
        {"a header of another size", Bytes({36, 1, 0, 0, 0, 0, 0, 0, 0})},
        {"another kind", Bytes({32, 2, 0, 0, 0, 0, 0, 0})},
        {"count below 0", Bytes({32, 1, -1, -16, 0, 0, 0, 0})},
        {"count of four billion bytes", Bytes({32, 1, 0x10000000, 0, 0, 0, 0, 0})},
        {"the largest count", Bytes({32, 1, 0x7fffffff, 0, 0, 0, 0, 0})},
        {"size without count", Bytes({32, 1, 0, 16, 0, 0, 9, 9, 0, 0, 9, 9})},
        {"count without size", Bytes({32, 1, 2, 16, 0, 0, 9, 9, 0, 0, 9, 9})},
        {"one rectangle too few", Bytes({32, 1, 2, 32, 0, 0, 9, 9, 0, 0, 9, 9})},
        {"a rectangle without width", Bytes({32, 1, 1, 16, 0, 0, 9, 9, 5, 0, 5, 9})},
        {"a rectangle without height", Bytes({32, 1, 1, 16, 0, 0, 9, 9, 0, 5, 9, 5})},
        {"a turned rectangle", Bytes({32, 1, 1, 16, 0, 0, 9, 9, 9, 9, 0, 0})},
        {"a right side beyond 28 bits", Bytes({32, 1, 1, 16, 0, 0, 9, 9, 0, 0, 1 << 27, 9})},
        {"a top side beyond 28 bits", Bytes({32, 1, 1, 16, 0, 0, 9, 9, 0, -(1 << 27) - 1, 9, 9})},
        {"the largest sides",
         Bytes({32, 1, 1, 16, 0, 0, 9, 9, INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX})},
    };
    for (const auto& [what, bytes] : damaged) {
        AddSquare(Shape, 10);
        EXPECT_FALSE(Loads(bytes)) << what;
    }
}

/// Of the processor, for this process: others that are at work as well do not count.
double SecondsOfWork() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

TEST_F(RegionTest, FileOf40MegabytesOfNothingIsRefusedAtOnce) {
    const double before = SecondsOfWork();
    EXPECT_FALSE(Loads(QByteArray(40 << 20, '\x20')));
    EXPECT_LT(SecondsOfWork() - before, 5);
}

TEST_F(RegionTest, SidesOf28BitsAreTaken) {
    constexpr qint32 least = -(1 << 27);
    constexpr qint32 most = (1 << 27) - 1;
    ASSERT_TRUE(Loads(Bytes({32, 1, 1, 16, 0, 0, 9, 9, least, least, most, most})));
    EXPECT_EQ(Window.Outline->boundingRect(),
              QRect(QPoint(least, least), QPoint(most - 1, most - 1)));
}

/// The data of bands of two rectangles each, one line high, and of one more rectangle.
QByteArray ManyRectangles(qint32 bands, const QList<qint32>& oneMore) {
    const qint32 count = 2 * bands + 1;
    QList<qint32> numbers = {32, 1, count, count * 16, 0, 0, 0, 0};
    for (qint32 band = 0; band < bands; ++band) {
        const qint32 left = band % 7;
        numbers += {left, band, left + 10, band + 1};
        numbers += {left + 10, band, left + 20, band + 1};
    }
    return Bytes(numbers + oneMore);
}

TEST_F(RegionTest, ManyRectanglesAreTakenInBandsAndRefusedOtherwise) {
    constexpr qint32 bands = 100'000;
    constexpr qint32 lastLeft = (bands - 1) % 7;
    const QList<std::tuple<const char*, QList<qint32>, bool>> ends = {
        {"in the band below", {0, bands, 9, bands + 1}, true},
        {"in the same band", {lastLeft + 20, bands - 1, 90, bands}, true},
        {"over the one before", {lastLeft + 19, bands - 1, 90, bands}, false},
        {"left of the one before", {-9, bands - 1, -1, bands}, false},
        {"higher than its band", {lastLeft + 20, bands - 1, 90, bands + 1}, false},
        {"far above", {50, 0, 90, 1}, false},
    };
    for (const auto& [what, end, isTaken] : ends) {
        SCOPED_TRACE(what);
        const double before = SecondsOfWork();
        EXPECT_EQ(Loads(ManyRectangles(bands, end)), isTaken);
        EXPECT_LT(SecondsOfWork() - before, 10);
        if (isTaken) {
            EXPECT_EQ(Window.Outline->boundingRect().bottom(), end.at(3) - 1);
        }
    }
}

TEST_F(RegionTest, RectanglesAreTakenUpToTheMost) {
    QList<qint32> numbers = {32, 1, 0, 0, 0, 0, 0, 0};
    for (qint32 band = 0; band <= MostRectangles; ++band)
        numbers += {band % 2, band, 9, band + 1};
    for (const qint32 count : {MostRectangles, MostRectangles + 1}) {
        numbers[2] = count;
        EXPECT_EQ(Loads(Bytes(numbers)), count == MostRectangles);
    }
}

TEST_F(RegionTest, ABandMayNotBeginInTheOneBefore) {
    QList<qint32> numbers = {32, 1, 300, 300 * 16, 0, 0, 0, 0};
    for (qint32 band = 0; band < 299; ++band)
        numbers += {0, 2 * band, 9, 2 * band + 2};
    EXPECT_TRUE(Loads(Bytes(numbers + QList<qint32>{0, 598, 9, 600})));
    EXPECT_FALSE(Loads(Bytes(numbers + QList<qint32>{0, 597, 9, 600})));
}

TEST_F(RegionTest, OutOfOrderAreFewRectanglesOnly) {
    for (const qint32 count : {256, 257}) {
        QList<qint32> numbers = {32, 1, count, count * 16, 0, 0, 0, 0};
        for (qint32 index = 0; index < count; ++index)
            numbers += {0, -index, 9, 1 - index};
        EXPECT_EQ(Loads(Bytes(numbers)), count == 256);
    }
}

} // namespace
