// One target under libFuzzer; FUZZ_TARGET is its name.

#include "tests/fuzz/Targets.h"

#include <QGuiApplication>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static int argumentCount = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    static const QGuiApplication* application = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        return new QGuiApplication(argumentCount, arguments);
    }();
    static const FuzzWorld world;
    static const FuzzTarget* const target = FuzzTargetNamed(FUZZ_TARGET);
    if (application == nullptr || target == nullptr)
        std::abort();
    target->Read(
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
