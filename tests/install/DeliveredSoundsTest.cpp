#include "platform/runtime/WaveFiles.h"
#include "tests/common/Readable.h"

#include <QDir>
#include <QFile>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct SoundLimits {
    const char* Name;
    double Shortest, Longest; // seconds
};

constexpr std::array<SoundLimits, 5> Sounds{{{"turn", 0.2, 0.5},
                                             {"Draw", 0.4, 0.9},
                                             {"stack", 0.3, 0.8},
                                             {"shuffle", 0.6, 1.4},
                                             {"applause", 1.8, 2.6}}};

struct WaveFile {
    int Format = 0, Channels = 0, Rate = 0, Bits = 0;
    std::vector<std::vector<double>> Samples; // by channel, -1 to 1

    double Seconds() const { return static_cast<double>(Samples.at(0).size()) / Rate; }
    std::size_t Count(double seconds) const { return static_cast<std::size_t>(seconds * Rate); }
};

/// The delivered sound of that name; without samples, and with a failure, if it is none.
WaveFile Read(const char* name) {
    QFile file(QDir(QStringLiteral(DUTYGRID_ASSETS_DIR))
                   .filePath(u"sounds/%1.wav"_s.arg(QLatin1String(name))));
    WaveFile wave;
    if (!file.open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << name << ": " << file.errorString().toStdString();
        return wave;
    }
    const QByteArray bytes = file.readAll();
    const auto number = [&bytes](qsizetype at, int size) -> int {
        const char* place = bytes.constData() + at;
        return size == 2 ? qFromLittleEndian<qint16>(place) : qFromLittleEndian<qint32>(place);
    };
    if (bytes.size() < 44 || bytes.left(4) != "RIFF" || bytes.mid(8, 8) != "WAVEfmt " ||
        bytes.mid(36, 4) != "data" || number(4, 4) != bytes.size() - 8 ||
        number(40, 4) != bytes.size() - 44) {
        ADD_FAILURE() << name << " is no whole wave file";
        return wave;
    }
    wave.Format = number(20, 2);
    wave.Channels = number(22, 2);
    wave.Rate = number(24, 4);
    wave.Bits = number(34, 2);
    wave.Samples.resize(static_cast<std::size_t>(wave.Channels));
    for (qsizetype at = 44; at + 2 * wave.Channels <= bytes.size();)
        for (auto& channel : wave.Samples) {
            channel.push_back(number(at, 2) / 32768.0);
            at += 2;
        }
    return wave;
}

double Peak(const std::vector<double>& samples, std::size_t from, std::size_t to) {
    double peak = 0;
    for (std::size_t i = from; i < to; ++i)
        peak = std::max(peak, std::abs(samples[i]));
    return peak;
}

double Peak(const std::vector<double>& samples) {
    return Peak(samples, 0, samples.size());
}

double Decibels(double amplitude) {
    return 20 * std::log10(std::max(amplitude, 1e-9));
}

struct Biquad {
    double b0, b1, b2, a1, a2;

    std::vector<double> Run(const std::vector<double>& in) const {
        std::vector<double> out(in.size());
        double x1 = 0, x2 = 0, y1 = 0, y2 = 0;
        for (std::size_t i = 0; i < in.size(); ++i) {
            const double y = b0 * in[i] + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2;
            x2 = x1;
            x1 = in[i];
            y2 = y1;
            y1 = out[i] = y;
        }
        return out;
    }
};

/// A lift of `decibels` above `pitch`, in hertz.
Biquad HighShelf(double pitch, double decibels, double rate) {
    const double a = std::pow(10, decibels / 40);
    const double w = 2 * std::numbers::pi * pitch / rate;
    const double c = std::cos(w);
    const double beta = std::sin(w) * std::sqrt(2 * a);
    const double a0 = a + 1 - (a - 1) * c + beta;
    return {a * (a + 1 + (a - 1) * c + beta) / a0, -2 * a * (a - 1 + (a + 1) * c) / a0,
            a * (a + 1 + (a - 1) * c - beta) / a0, 2 * (a - 1 - (a + 1) * c) / a0,
            (a + 1 - (a - 1) * c - beta) / a0};
}

/// Nothing below `pitch`, in hertz.
Biquad HighPass(double pitch, double sharpness, double rate) {
    const double w = 2 * std::numbers::pi * pitch / rate;
    const double c = std::cos(w);
    const double alpha = std::sin(w) / (2 * sharpness);
    const double a0 = 1 + alpha;
    return {(1 + c) / 2 / a0, -(1 + c) / a0, (1 + c) / 2 / a0, -2 * c / a0, (1 - alpha) / a0};
}

/// Loudness as the ear weighs it, in decibels below a full wave, of the loudest stretch of
/// `seconds`.
double Loudness(const WaveFile& wave, double seconds) {
    const std::size_t window = wave.Count(seconds);
    std::vector<double> power(wave.Samples.at(0).size());
    for (const auto& channel : wave.Samples) {
        const auto heard =
            HighPass(38, 0.5, wave.Rate).Run(HighShelf(1500, 4, wave.Rate).Run(channel));
        for (std::size_t i = 0; i < heard.size(); ++i)
            power[i] += heard[i] * heard[i];
    }
    double sum = 0, loudest = 0;
    for (std::size_t i = 0; i < power.size(); ++i) {
        sum += power[i] - (i >= window ? power[i - window] : 0);
        loudest = std::max(loudest, sum);
    }
    return 10 * std::log10(loudest / static_cast<double>(window));
}

/// Root of the mean square of the first channel's samples from one time to another, in seconds.
double Level(const WaveFile& wave, double from, double to) {
    double sum = 0;
    for (std::size_t i = wave.Count(from); i < wave.Count(to); ++i)
        sum += wave.Samples[0][i] * wave.Samples[0][i];
    return std::sqrt(sum / static_cast<double>(wave.Count(to) - wave.Count(from)));
}

class DeliveredSoundsTest : public testing::TestWithParam<SoundLimits> {
protected:
    void SetUp() override {
        wave = Read(GetParam().Name);
        ASSERT_FALSE(wave.Samples.empty());
    }

    WaveFile wave;
};

TEST_P(DeliveredSoundsTest, IsAPlainStereoWaveOfItsLength) {
    QFile file(QDir(QStringLiteral(DUTYGRID_ASSETS_DIR))
                   .filePath(u"sounds/%1.wav"_s.arg(QLatin1String(GetParam().Name))));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(IsWholeWave(file.readAll()));
    EXPECT_EQ(wave.Format, 1);
    EXPECT_EQ(wave.Channels, 2);
    EXPECT_EQ(wave.Rate, 44100);
    EXPECT_EQ(wave.Bits, 16);
    EXPECT_GE(wave.Seconds(), GetParam().Shortest);
    EXPECT_LE(wave.Seconds(), GetParam().Longest);
}

TEST_P(DeliveredSoundsTest, BeginsAndEndsAtRestWithoutAClick) {
    for (const auto& samples : wave.Samples) {
        const std::size_t size = samples.size();
        EXPECT_EQ(samples.front(), 0);
        EXPECT_EQ(samples.back(), 0);
        EXPECT_LT(Decibels(Peak(samples, 0, wave.Count(0.001))), -40);
        EXPECT_LT(Decibels(Peak(samples, size - wave.Count(0.01), size)), -40);
    }
}

TEST_P(DeliveredSoundsTest, IsHeardAtOnce) {
    EXPECT_GT(Decibels(Peak(wave.Samples[0], 0, wave.Count(0.06))), -35);
}

TEST_P(DeliveredSoundsTest, NoSampleComesNearTheLimit) {
    for (const auto& samples : wave.Samples) {
        EXPECT_LT(Decibels(Peak(samples)), -1);
        EXPECT_GT(Decibels(Peak(samples)), -16);
    }
}

TEST_P(DeliveredSoundsTest, SwingsRoundZero) {
    for (const auto& samples : wave.Samples) {
        double sum = 0;
        for (const double sample : samples)
            sum += sample;
        EXPECT_LT(Decibels(std::abs(sum) / static_cast<double>(samples.size())), -66);
    }
}

TEST_P(DeliveredSoundsTest, IsAsLoudAsTheApplause) {
    EXPECT_NEAR(Loudness(wave, 0.2), Loudness(Read("applause"), 0.2), 1.5);
    EXPECT_NEAR(Loudness(wave, 0.2), -16, 2);
}

INSTANTIATE_TEST_SUITE_P(All, DeliveredSoundsTest, testing::ValuesIn(Sounds),
                         [](const auto& tested) { return tested.param.Name; });

TEST(DeliveredApplauseTest, PeopleClapAllRoundAndStopOneAfterTheOther) {
    const WaveFile wave = Read("applause");
    ASSERT_EQ(wave.Channels, 2);
    double both = 0, left = 0, right = 0;
    for (std::size_t i = 0; i < wave.Samples[0].size(); ++i) {
        both += wave.Samples[0][i] * wave.Samples[1][i];
        left += wave.Samples[0][i] * wave.Samples[0][i];
        right += wave.Samples[1][i] * wave.Samples[1][i];
    }
    EXPECT_LT(both / std::sqrt(left * right), 0.9);
    EXPECT_NEAR(Decibels(std::sqrt(left)), Decibels(std::sqrt(right)), 3);
    EXPECT_LT(Level(wave, 0.0, 0.1), Level(wave, 0.6, 1.1));
    EXPECT_LT(Level(wave, 1.7, 1.9), 0.8 * Level(wave, 0.6, 1.1));
    EXPECT_LT(Level(wave, 2.1, 2.3), 0.2 * Level(wave, 0.6, 1.1));
    // Single claps stand out of the crowd's.
    EXPECT_GT(Peak(wave.Samples[0]), 3.5 * Level(wave, 0.6, 1.1));
}

} // namespace
