#include "tests/faults/Damages.h"

namespace {

/// A sector of a disk, and a page of the database.
constexpr qsizetype BlockSizes[] = {512, 4096};

} // namespace

QByteArray Damages::Next() {
    QByteArray bytes = whole_;
    while (bytes == whole_)
        for (qsizetype count = 1 + Below(3); count > 0; --count)
            DamageOnce(bytes);
    return bytes;
}

void Damages::DamageOnce(QByteArray& bytes) {
    const qsizetype size = bytes.size();
    const qsizetype at = Below(size);
    switch (Below(8)) {
    case 0:
        bytes[at] = static_cast<char>(bytes.at(at) ^ (1 << Below(8)));
        break;
    case 1:
        bytes[at] = static_cast<char>(random_());
        break;
    case 2:
        for (qsizetype i = at; i < qMin(size, at + 1 + Below(64)); ++i)
            bytes[i] = static_cast<char>(random_());
        break;
    case 3: {
        const qsizetype count = qMin(size - at, 1 + Below(600));
        bytes.replace(at, count, QByteArray(count, Below(2) == 0 ? '\0' : '\xff'));
        break;
    }
    case 4:
        // Two bytes, or two numbers of four.
        for (qsizetype i = 0, other = Below(size - 4), count = Below(2) == 0 ? 1 : 4; i < count;
             ++i)
            std::swap(bytes[qMin(at, size - 4) + i], bytes[other + i]);
        break;
    default:
        DamageBlocks(bytes);
        break;
    }
}

void Damages::DamageBlocks(QByteArray& bytes) {
    const qsizetype size = BlockSizes[Below(2)];
    const qsizetype count = bytes.size() / size;
    const qsizetype at = Below(count) * size;
    const qsizetype other = Below(count) * size;
    const QByteArray block = bytes.mid(at, size);
    switch (Below(20)) {
    case 0:
        bytes.truncate(Below(bytes.size()));
        // Not less than a header and a page: what is shorter is refused at the first look.
        bytes.append(qMax<qsizetype>(0, 8192 - bytes.size()), '\0');
        break;
    case 1:
        bytes.append(block);
        break;
    case 2:
    case 3:
    case 4:
        bytes.replace(at, size, QByteArray(size, '\0'));
        break;
    case 5:
    case 6:
    case 7:
    case 8:
        bytes.replace(at, size, bytes.mid(other, size));
        bytes.replace(other, size, block);
        break;
    case 9:
    case 10:
    case 11:
        bytes.replace(other, size, block);
        break;
    default:
        if (at + size <= former_.size())
            bytes.replace(at, size, former_.mid(at, size));
        break;
    }
}
