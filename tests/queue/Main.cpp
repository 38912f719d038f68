#include <QGuiApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Sparkit Dutygrid"));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
