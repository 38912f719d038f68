#include "tests/faults/SmallFiles.h"

#include "platform/runtime/TextFiles.h"
#include "support/clsRegistry.h"
#include "tests/faults/FaultWorld.h"

namespace {

const QString Key = QStringLiteral("Dutygrid");
const QString Value = QStringLiteral("State");
/// Long enough for a write to be cut short.
constexpr int Length = 20'000;

QString TextOfRegistry(int state) {
    return QString::number(state).repeated(Length);
}

} // namespace

void SmallFiles::Write(int state) const {
    WriteText(state);
    WriteRegistry(state);
}

void SmallFiles::WriteText(int state) const {
    OutputFile file(TextFile());
    for (int line = 0; line < Length; ++line)
        file.PrintNumber(state);
    file.Close();
}

void SmallFiles::WriteRegistry(int state) const {
    const clsRegistry registry;
    registry.CreateKey(HKEY_CURRENT_USER, Key);
    registry.SetValue(HKEY_CURRENT_USER, Key, Value, TextOfRegistry(state));
}

std::optional<int> SmallFiles::TextState() const {
    const QByteArray text = BytesOf(TextFile());
    const int state = text.left(text.indexOf('\r')).trimmed().toInt();
    const QByteArray line = ' ' + QByteArray::number(state) + " \r\n";
    return text == line.repeated(Length) ? std::optional(state) : std::nullopt;
}

std::optional<int> SmallFiles::RegistryState() const {
    const QString text = clsRegistry().GetValue(HKEY_CURRENT_USER, Key, Value).toString();
    const int state = text.left(text.size() / Length).toInt();
    return text == TextOfRegistry(state) ? std::optional(state) : std::nullopt;
}
