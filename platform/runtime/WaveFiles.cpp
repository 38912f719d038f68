#include "platform/runtime/WaveFiles.h"

#include <QtEndian>

namespace {

constexpr qsizetype ChunkHeader = 8;  // bytes: a name and a length
constexpr qsizetype FileHeader = 12;  // bytes
constexpr qsizetype FormatBytes = 16; // at least

template <class Number>
Number NumberAt(const QByteArray& bytes, qsizetype place) {
    return qFromLittleEndian<Number>(bytes.constData() + place);
}

bool IsPlainFormat(const QByteArray& bytes, qsizetype place, qsizetype length) {
    if (length < FormatBytes)
        return false;
    constexpr quint16 plain = 1;
    const auto channels = NumberAt<quint16>(bytes, place + 2);
    const auto bits = NumberAt<quint16>(bytes, place + 14);
    return NumberAt<quint16>(bytes, place) == plain && (channels == 1 || channels == 2) &&
           NumberAt<quint32>(bytes, place + 4) > 0 && (bits == 8 || bits == 16) &&
           NumberAt<quint16>(bytes, place + 12) == channels * bits / 8;
}

} // namespace

bool IsWholeWave(const QByteArray& bytes) {
    if (bytes.size() < FileHeader || !bytes.startsWith("RIFF") || bytes.mid(8, 4) != "WAVE")
        return false;
    bool hasFormat = false;
    qsizetype place = FileHeader;
    while (bytes.size() - place >= ChunkHeader) {
        const QByteArray name = bytes.mid(place, 4);
        const qsizetype length = NumberAt<quint32>(bytes, place + 4);
        place += ChunkHeader;
        if (length > bytes.size() - place)
            return false;
        if (name == "fmt ")
            hasFormat = IsPlainFormat(bytes, place, length);
        else if (name == "data")
            return hasFormat && length > 0;
        // A chunk of odd length has a byte behind it.
        place += length + length % 2;
    }
    return false;
}
