#include "tests/fuzz/Mutations.h"

#include <utility>

namespace {

/// Longer inputs take time and show nothing that shorter ones do not.
constexpr qsizetype Longest = 200'000;

const QList<QByteArray>& Stumbles() {
    static const QList<QByteArray> all{QByteArray("\0", 1),
                                       "\r\n",
                                       "\r",
                                       "\n",
                                       "\"",
                                       "\"\"",
                                       ",",
                                       "\\",
                                       "/",
                                       "..",
                                       "-",
                                       "+",
                                       ".",
                                       "e",
                                       "1e999",
                                       "nan",
                                       "inf",
                                       "0x",
                                       "-32769",
                                       "32768",
                                       "2147483648",
                                       "-2147483649",
                                       "99999999999999999999",
                                       "\xff\xff\xff\xff",
                                       "\xff\xff\xff\x7f",
                                       QByteArray("\0\0\0\x80", 4),
                                       QByteArray("\0\0\0\0", 4),
                                       "\xef\xbb\xbf",
                                       "\xc3",
                                       "\xed\xa0\x80",
                                       "\xf0\x9f\xa7\xb9",
                                       "<h1>",
                                       "</h1>",
                                       "<h2 id=\"",
                                       "<!--",
                                       "-->",
                                       "{",
                                       "}",
                                       "[",
                                       "]",
                                       ":",
                                       "Sun-Sat",
                                       "2/29/2001",
                                       "0/0/0",
                                       "RIFF",
                                       "data",
                                       "fmt "};
    return all;
}

} // namespace

Mutations::Mutations(quint32 seed, QList<QByteArray> inputs)
    : random_(seed), inputs_(std::move(inputs)) {}

qsizetype Mutations::Below(qsizetype bound) {
    return static_cast<qsizetype>(random_() % static_cast<quint32>(qMax<qsizetype>(1, bound)));
}

const QByteArray& Mutations::AnyInput() {
    return inputs_.at(Below(inputs_.size()));
}

QByteArray Mutations::AnyPiece(const QByteArray& bytes) {
    return bytes.mid(Below(bytes.size()), 1 + Below(Below(2) == 0 ? 16 : 4096));
}

QByteArray Mutations::Next() {
    QByteArray bytes = AnyInput();
    for (qsizetype count = 1 + Below(6); count > 0; --count)
        ChangeOnce(bytes);
    return bytes.left(Longest);
}

void Mutations::ChangeOnce(QByteArray& bytes) {
    const qsizetype at = Below(bytes.size() + 1);
    switch (Below(9)) {
    case 0:
        if (at < bytes.size())
            bytes[at] = static_cast<char>(bytes.at(at) ^ (1 << Below(8)));
        break;
    case 1:
        if (at < bytes.size())
            bytes[at] = static_cast<char>(random_());
        break;
    case 2:
        bytes.truncate(at);
        break;
    case 3:
        bytes.remove(at, 1 + Below(64));
        break;
    case 4:
        bytes.insert(at, Stumbles().at(Below(Stumbles().size())));
        break;
    case 5: {
        const QByteArray& stumble = Stumbles().at(Below(Stumbles().size()));
        bytes.replace(at, stumble.size(), stumble);
        break;
    }
    case 6:
        bytes.insert(at, AnyPiece(bytes));
        break;
    case 7:
        bytes.insert(at, AnyPiece(AnyInput()));
        break;
    default:
        bytes.insert(at, QByteArray(Below(300), static_cast<char>(random_())));
        break;
    }
}
