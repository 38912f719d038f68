#include "tests/common/Pictures.h"

#include "tests/common/Needed.h"
#include "tests/common/TestRun.h"

#include <QDir>
#include <QImage>
#include <QTest>
#include <gtest/gtest.h>
#include <string>

using namespace Qt::StringLiterals;

namespace {

/// With which the pictures were made.
constexpr auto ToolkitVersion = "6.4.2";

/// Pictures are kept at half their size. Squares of this many pixels of it are compared by their
/// mean: smooth edges of letters may differ, a line that is missing may not.
constexpr int Square = 2;
constexpr int Tolerance = 10; // of 255

struct Mean {
    int red = 0;
    int green = 0;
    int blue = 0;
};

Mean MeanOf(const QImage& image, const QRect& place) {
    Mean sum;
    for (int y = place.top(); y <= place.bottom(); ++y)
        for (int x = place.left(); x <= place.right(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            sum.red += qRed(pixel);
            sum.green += qGreen(pixel);
            sum.blue += qBlue(pixel);
        }
    const int count = place.width() * place.height();
    return {sum.red / count, sum.green / count, sum.blue / count};
}

bool AreAlike(const Mean& one, const Mean& other) {
    return std::abs(one.red - other.red) <= Tolerance &&
           std::abs(one.green - other.green) <= Tolerance &&
           std::abs(one.blue - other.blue) <= Tolerance;
}

/// What encloses all squares that differ; empty if none does.
QRect Difference(const QImage& one, const QImage& other) {
    QRect found;
    for (int y = 0; y < one.height(); y += Square)
        for (int x = 0; x < one.width(); x += Square) {
            const QRect place = QRect(x, y, Square, Square) & one.rect();
            if (!AreAlike(MeanOf(one, place), MeanOf(other, place)))
                found |= place;
        }
    return found;
}

void Leave(const QImage& seen, const QDir& folder, const QString& file) {
    constexpr int mostPacked = 0;
    folder.mkpath(u"."_s);
    ASSERT_TRUE(seen.save(folder.absoluteFilePath(file), "PNG", mostPacked))
        << folder.path().toStdString();
}

QString FileOf(const QString& name) {
    const char* suite = testing::UnitTest::GetInstance()->current_test_info()->test_suite_name();
    return QString::fromLatin1(suite) + u'-' + name + u".png"_s;
}

QImage AsKept(const QImage& painted) {
    return painted.scaled(painted.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGB32);
}

bool IsOfTheToolkit() {
    return qstrcmp(qVersion(), ToolkitVersion) == 0;
}

QImage Expected(const QString& file) {
    QImage expected;
    EXPECT_TRUE(expected.load(QDir(QStringLiteral(DUTYGRID_PICTURES_DIR)).filePath(file)))
        << file.toStdString();
    return expected.convertToFormat(QImage::Format_RGB32);
}

} // namespace

void ExpectPicture(const QImage& painted, const QString& name) {
    const QString file = FileOf(name);
    const QImage seen = AsKept(painted);
    const QString folder = qEnvironmentVariable("DUTYGRID_PICTURES");
    if (!folder.isEmpty()) {
        Leave(seen, folder, file);
        return;
    }
    if (painted.devicePixelRatio() != 1)
        return;
    if (!IsOfTheToolkit()) {
        SkipOrFail(std::string("the pictures are those of Qt ") + ToolkitVersion + ", not of " +
                   qVersion());
        return;
    }
    const QImage expected = Expected(file);
    if (seen.size() != expected.size())
        ADD_FAILURE() << file.toStdString() << " has another size: " << seen.width() << " x "
                      << seen.height();
    else if (const QRect place = Difference(seen, expected); !place.isEmpty())
        ADD_FAILURE() << file.toStdString() << " is painted otherwise: " << place.width() << " x "
                      << place.height() << " at " << place.x() << ", " << place.y();
    else
        return;
    Leave(seen, QDir(u"pictures-seen"_s), file);
}

void ExpectPicture(const std::function<QImage()>& painted, const QString& name) {
    constexpr int longestMove = 1000; // milliseconds
    if (!qEnvironmentVariableIsEmpty("DUTYGRID_PICTURES")) {
        QTest::qWait(longestMove);
    } else if (painted().devicePixelRatio() == 1 && IsOfTheToolkit()) {
        const QImage expected = Expected(FileOf(name));
        const auto isAsExpected = [&] {
            const QImage seen = AsKept(painted());
            return seen.size() == expected.size() && Difference(seen, expected).isEmpty();
        };
        // What it differs in is told below.
        static_cast<void>(QTest::qWaitFor(isAsExpected, Patience));
    }
    ExpectPicture(painted(), name);
}
