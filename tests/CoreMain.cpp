#include <QFont>
#include <QGuiApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QGuiApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    QCoreApplication::setApplicationName(QStringLiteral("Sparkit Dutygrid"));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
