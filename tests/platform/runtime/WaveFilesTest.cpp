#include "platform/runtime/WaveFiles.h"

#include "tests/common/Readable.h"

#include <QtEndian>
#include <gtest/gtest.h>

namespace {

template <class Number>
QByteArray Bytes(Number number) {
    QByteArray bytes(sizeof number, '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

QByteArray Chunk(const QByteArray& name, const QByteArray& content) {
    return name + Bytes(static_cast<quint32>(content.size())) + content +
           QByteArray(content.size() % 2, '\0');
}

struct Sound {
    quint16 format = 1;
    quint16 channels = 1;
    quint32 rate = 8000; ///< samples a second
    quint16 frame = 2;   ///< bytes
    quint16 bits = 16;
    QByteArray samples{"abcd"};

    QByteArray Format() const {
        return Bytes(format) + Bytes(channels) + Bytes(rate) + Bytes(rate * frame) + Bytes(frame) +
               Bytes(bits);
    }
};

QByteArray Wave(const QByteArray& chunks) {
    return "RIFF" + Bytes(static_cast<quint32>(4 + chunks.size())) + "WAVE" + chunks;
}

QByteArray Wave(const Sound& sound) {
    return Wave(Chunk("fmt ", sound.Format()) + Chunk("data", sound.samples));
}

TEST(WaveFilesTest, PlainSamplesAreASound) {
    EXPECT_TRUE(IsWholeWave(Wave(Sound{})));
    EXPECT_TRUE(IsWholeWave(Wave({.channels = 2, .frame = 4})));
    EXPECT_TRUE(IsWholeWave(Wave({.frame = 1, .bits = 8})));
    EXPECT_TRUE(IsWholeWave(Wave(Sound{}) + "behind"));
}

TEST(WaveFilesTest, OtherChunksAreGoneBy) {
    const Sound sound;
    EXPECT_TRUE(IsWholeWave(Wave(Chunk("LIST", "odd") + Chunk("fmt ", sound.Format() + "more") +
                                 Chunk("fact", "") + Chunk("data", sound.samples))));
}

TEST(WaveFilesTest, OneCutOffAnywhereIsNone) {
    const QByteArray whole = Wave(Sound{});
    for (qsizetype length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(IsWholeWave(whole.left(length))) << length;
}

TEST(WaveFilesTest, WhatCannotBePlayedIsNone) {
    const Sound sounds[] = {{.format = 3},
                            {.channels = 0, .frame = 0},
                            {.channels = 3, .frame = 6},
                            {.rate = 0},
                            {.frame = 4},
                            {.frame = 3, .bits = 24},
                            {.samples = ""}};
    for (const Sound& sound : sounds)
        EXPECT_FALSE(IsWholeWave(Wave(sound))) << &sound - sounds;
    const QByteArray format = Chunk("fmt ", Sound{}.Format());
    const QByteArray samples = Chunk("data", "abcd");
    EXPECT_FALSE(IsWholeWave(Wave(samples))) << "no format";
    EXPECT_FALSE(IsWholeWave(Wave(format))) << "no samples";
    EXPECT_FALSE(IsWholeWave(Wave(samples + format))) << "the format too late";
    EXPECT_FALSE(IsWholeWave(Wave(Chunk("fmt ", Sound{}.Format().left(15)) + samples)));
    EXPECT_FALSE(IsWholeWave(Wave(format + "data" + Bytes(0xffffffffU) + "abcd")));
    EXPECT_FALSE(IsWholeWave(Wave(format + samples).replace("RIFF", "RIFX")));
    EXPECT_FALSE(IsWholeWave(Wave(format + samples).replace("WAVE", "AVI ")));
}

} // namespace
