#include "support/Region.h"
#include "support/RegionData.h"
#include "tests/common/RuntimeTest.h"

#include <QRandomGenerator>
#include <QtEndian>

namespace {

class LastOutline : public WindowShape {
public:
    void SetWindowRgn(const QRegion* region) override {
        ++Calls;
        HasOutline = region != nullptr;
        Outline = region == nullptr ? QRegion() : *region;
    }

    int Calls = 0;
    bool HasOutline = false;
    QRegion Outline;
};

qint32 NumberAt(const QByteArray& bytes, qsizetype index) {
    return qFromLittleEndian<qint32>(bytes.constData() + index * 4);
}

/// Reads files of window outlines that are damaged in every way. Whatever a file holds, the form
/// gets an outline or its full rectangle, and an outline is never more than the file's rectangles.
class RegionFileFuzzTest : public RuntimeTest {
protected:
    RegionFileFuzzTest() : random_(20010307) {}

    int Below(int bound) { return static_cast<int>(random_.bounded(bound)); }

    QByteArray ValidFile() {
        Region shape;
        if (Below(2) == 0) {
            const int points = Below(12) + 1;
            for (int point = 0; point < points; ++point)
                shape.SubAddPoint(static_cast<float>(Below(120) - 10),
                                  static_cast<float>(Below(60) - 5));
            shape.SetRegion(window_);
            shape.SaveRegionDataToFile(File());
        } else {
            QRegion region;
            for (int part = Below(6); part >= 0; --part)
                region ^= QRect(Below(100), Below(100), 1 + Below(50), 1 + Below(50));
            shape.RegionHandle = std::make_unique<QRegion>(region);
            shape.SaveRegionDataToFile(File());
        }
        return ReadFile(File());
    }

    /// One damage: a bit, a byte, a number that is dear to attackers, a cut, a tail, a doubled or
    /// a swapped part.
    void Damage(QByteArray& bytes) {
        static const qint32 numbers[] = {0,         1,          -1,         15,        16,
                                         32,        0x7fffffff, -0x7ffffff, INT32_MIN, 0x10000000,
                                         0x8000000, -0x8000001, 65536};
        const int size = static_cast<int>(bytes.size());
        if (size == 0) {
            bytes.append(static_cast<char>(Below(256)));
            return;
        }
        switch (Below(7)) {
        case 0: {
            char& hit = bytes[Below(size)];
            hit = static_cast<char>(hit ^ (1 << Below(8)));
            break;
        }
        case 1:
            bytes[Below(size)] = static_cast<char>(Below(256));
            break;
        case 2:
            if (size >= 4)
                qToLittleEndian(numbers[Below(static_cast<int>(std::size(numbers)))],
                                bytes.data() + Below(size / 4) * qsizetype{4});
            break;
        case 3:
            bytes.truncate(Below(size));
            break;
        case 4:
            bytes.append(Below(64), static_cast<char>(Below(256)));
            break;
        case 5:
            bytes.insert(Below(size), bytes.mid(Below(size), Below(64)));
            break;
        default:
            std::swap(bytes[Below(size)], bytes[Below(size)]);
            break;
        }
    }

    /// Files cost more than the reading: one in many takes the whole way.
    void ReadAndJudge(const QByteArray& bytes) {
        const std::unique_ptr<QRegion> region = ExtCreateRegion(bytes);
        if (reads_++ % 16 == 0)
            LoadAndCompare(bytes, region.get());
        if (region == nullptr)
            return;
        ++accepted_;
        ASSERT_GE(bytes.size(), RegionHeaderSize);
        const qint32 count = NumberAt(bytes, 2);
        ASSERT_LE(qint64{count} * RegionRectangleSize + RegionHeaderSize, bytes.size());
        // The same rectangles, put together in the plainest way.
        QRegion plain;
        for (qint32 index = 0; index < count; ++index) {
            const qsizetype at = 8 + qsizetype{index} * 4;
            plain = plain.united(
                QRect(QPoint(NumberAt(bytes, at), NumberAt(bytes, at + 1)),
                      QPoint(NumberAt(bytes, at + 2) - 1, NumberAt(bytes, at + 3) - 1)));
        }
        ASSERT_TRUE(region->xored(plain).isEmpty()) << bytes.toHex().constData();
    }

    void LoadAndCompare(const QByteArray& bytes, const QRegion* region) {
        WriteFile(File(), bytes);
        const int calls = window_.Calls;
        Region shape;
        shape.LoadFromFile(File(), window_);
        ASSERT_EQ(window_.Calls, calls + 1) << bytes.toHex().constData();
        ASSERT_EQ(window_.HasOutline, region != nullptr);
        ASSERT_EQ(window_.Outline, region == nullptr ? QRegion() : *region);
        ASSERT_EQ(ReadFile(File()), bytes) << "reading changes nothing";
    }

    int Accepted() const { return accepted_; }

private:
    static QString File() { return Path(QStringLiteral("shape")); }

    QRandomGenerator random_;
    LastOutline window_;
    int reads_ = 0;
    int accepted_ = 0;
};

TEST_F(RegionFileFuzzTest, TwentyThousandDamagedFilesGiveAnOutlineOrTheFullRectangle) {
    constexpr int files = 20'000;
    constexpr int filesOfOneOrigin = 50;
    QByteArray origin;
    for (int file = 0; file < files; ++file) {
        if (file % filesOfOneOrigin == 0)
            origin = ValidFile();
        QByteArray bytes = origin;
        for (int damages = 1 + Below(4); damages > 0; --damages)
            Damage(bytes);
        ReadAndJudge(bytes);
        if (HasFatalFailure())
            return;
    }
    // Damage to what is not looked at, and damage to what is.
    EXPECT_GT(Accepted(), files / 100);
    EXPECT_LT(Accepted(), files * 9 / 10);
}

TEST_F(RegionFileFuzzTest, FileCutAtEveryLengthIsTakenOnlyWhenItIsWhole) {
    for (int round = 0; round < 20; ++round) {
        const QByteArray whole = ValidFile();
        for (qsizetype length = 0; length < whole.size(); ++length) {
            const int before = Accepted();
            ReadAndJudge(whole.left(length));
            ASSERT_EQ(Accepted(), before) << "cut at " << length << " of " << whole.size();
        }
        const int before = Accepted();
        ReadAndJudge(whole);
        ASSERT_EQ(Accepted(), before + 1);
    }
}

} // namespace
