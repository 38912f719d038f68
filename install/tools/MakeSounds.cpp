// Synthesises the program's sounds as 16-bit stereo wave files.
//
//   MakeSounds OUTPUT_FOLDER

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <numbers>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using Wave = std::vector<double>;

// Both channels are of one length.
struct Sound {
    Wave Left, Right;
};

constexpr int SampleRate = 44100;
constexpr double Pi = std::numbers::pi;
constexpr double TargetLoudness = -16.0; // where loudest, in decibels of BroadcastLoudness
constexpr double PeakLimit = 0.84;       // about -1.5 dBFS

std::size_t Samples(double seconds) {
    return static_cast<std::size_t>(seconds * SampleRate);
}

double TimeOf(std::size_t index) {
    return static_cast<double>(index) / SampleRate;
}

// Random numbers that come out the same on every machine.
class Chance {
public:
    explicit Chance(std::uint32_t seed) : Engine(seed) {}
    double Between(double low, double high) {
        return low + (high - low) * (static_cast<double>(Engine()) / 4294967295.0);
    }
    double Noise() { return Between(-1.0, 1.0); }

private:
    std::mt19937 Engine;
};

// A filter of second order, told by its coefficients; those of the outputs stand on the left side.
class Filter {
public:
    Filter() = default;
    Filter(std::array<double, 3> ins, std::array<double, 2> outs) { Tune(ins, outs); }
    void Tune(std::array<double, 3> ins, std::array<double, 2> outs) {
        Ins = ins;
        Outs = outs;
    }
    double Step(double in) {
        const double out =
            Ins[0] * in + Ins[1] * In1 + Ins[2] * In2 - Outs[0] * Out1 - Outs[1] * Out2;
        In2 = std::exchange(In1, in);
        Out2 = std::exchange(Out1, out);
        return out;
    }

private:
    std::array<double, 3> Ins{};
    std::array<double, 2> Outs{};
    double In1 = 0, In2 = 0, Out1 = 0, Out2 = 0;
};

// A band-pass filter whose centre may be moved while it runs.
class BandPass {
public:
    BandPass(double centre, double sharpness) { Tune(centre, sharpness); }
    void Tune(double centre, double sharpness) {
        const double angle = 2.0 * Pi * centre / SampleRate;
        const double alpha = std::sin(angle) / (2.0 * sharpness);
        const double gain = alpha / (1.0 + alpha);
        Band.Tune({gain, 0.0, -gain},
                  {-2.0 * std::cos(angle) / (1.0 + alpha), (1.0 - alpha) / (1.0 + alpha)});
    }
    double Step(double in) { return Band.Step(in); }

private:
    Filter Band;
};

void MixIn(Wave& wave, const Wave& part, double start, double gain) {
    const std::size_t offset = Samples(start);
    for (std::size_t i = 0; i < part.size() && offset + i < wave.size(); ++i)
        wave[offset + i] += gain * part[i];
}

// A short puff of coloured noise: the stuff flicks, taps and claps are made of.
Wave Puff(Chance& chance, double centre, double sharpness, double attack, double decay) {
    Wave wave(Samples(attack + 7.0 * decay));
    BandPass filter(centre, sharpness);
    for (std::size_t i = 0; i < wave.size(); ++i) {
        const double time = TimeOf(i);
        const double level = time < attack ? time / attack : std::exp(-(time - attack) / decay);
        wave[i] = filter.Step(chance.Noise()) * level;
    }
    return wave;
}

// A brush of paper whose colour glides from one centre to another under a rounded swell.
Wave Brush(Chance& chance, double seconds, double fromCentre, double toCentre, double sharpness) {
    Wave wave(Samples(seconds));
    BandPass filter(fromCentre, sharpness);
    for (std::size_t i = 0; i < wave.size(); ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(wave.size());
        filter.Tune(fromCentre * std::pow(toCentre / fromCentre, part), sharpness);
        const double swell = std::sin(Pi * std::pow(part, 0.7));
        wave[i] = filter.Step(chance.Noise()) * swell * swell;
    }
    return wave;
}

// A dull, woody knock, as of a pile of cards set down on a table.
Wave Knock(double pitch, double decay) {
    Wave wave(Samples(8.0 * decay));
    for (std::size_t i = 0; i < wave.size(); ++i) {
        const double time = TimeOf(i);
        wave[i] = std::sin(2.0 * Pi * pitch * time) * std::exp(-time / decay) *
                  std::min(1.0, time / 0.002);
    }
    return wave;
}

Sound InTheMiddle(const Wave& wave) {
    return {wave, wave};
}

Sound MakeStack() {
    Chance chance(11);
    Wave wave(Samples(0.55));
    for (int tap = 0; tap < 3; ++tap) {
        const double start = 0.02 + 0.13 * tap;
        const double gain = 1.0 - 0.2 * tap;
        MixIn(wave, Knock(170.0 + 25.0 * tap, 0.022), start, 0.35 * gain);
        MixIn(wave, Puff(chance, 1500.0, 0.9, 0.003, 0.018), start, gain);
    }
    return InTheMiddle(wave);
}

Sound MakeShuffle() {
    Chance chance(23);
    Wave wave(Samples(1.05));
    double time = 0.03;
    for (int card = 0; card < 30; ++card) {
        const double swell = 0.45 + 0.55 * std::sin(Pi * card / 29.0);
        MixIn(wave, Puff(chance, chance.Between(1700.0, 2900.0), 1.3, 0.0015, 0.009), time, swell);
        time += 0.029 - 0.012 * std::sin(Pi * card / 29.0) + chance.Between(-0.002, 0.002);
    }
    MixIn(wave, Brush(chance, 0.28, 2600.0, 1300.0, 0.8), time - 0.02, 0.55);
    MixIn(wave, Knock(190.0, 0.02), time + 0.17, 0.3);
    return InTheMiddle(wave);
}

Sound MakeTurn() {
    Chance chance(37);
    Wave wave(Samples(0.36));
    MixIn(wave, Brush(chance, 0.20, 1300.0, 3000.0, 1.0), 0.01, 0.7);
    MixIn(wave, Puff(chance, 1900.0, 1.0, 0.002, 0.014), 0.185, 0.9);
    MixIn(wave, Knock(230.0, 0.012), 0.185, 0.18);
    return InTheMiddle(wave);
}

Sound MakeDraw() {
    Chance chance(41);
    Wave wave(Samples(0.75));
    MixIn(wave, Brush(chance, 0.50, 1100.0, 3600.0, 0.7), 0.01, 0.8);
    MixIn(wave, Brush(chance, 0.26, 3000.0, 1400.0, 0.9), 0.40, 0.6);
    for (int crackle = 0; crackle < 14; ++crackle)
        MixIn(wave, Puff(chance, chance.Between(2000.0, 3800.0), 2.0, 0.001, 0.004),
              chance.Between(0.08, 0.55), chance.Between(0.1, 0.35));
    return InTheMiddle(wave);
}

// One clap: the hands meet in two or three places within some milliseconds, and the hollow between
// them, wide or narrow, colours the noise.
Wave Clap(Chance& chance, double hollow, double decay) {
    Wave wave(Samples(0.014 + 8.0 * decay));
    const double skin = hollow * chance.Between(2.1, 2.9);
    double start = 0.0;
    for (const double strength : {chance.Between(0.15, 0.4), chance.Between(0.2, 0.6), 1.0}) {
        MixIn(wave, Puff(chance, hollow, 2.2, 0.0008, decay), start, strength);
        MixIn(wave, Puff(chance, skin, 0.9, 0.0004, 0.35 * decay), start, 0.55 * strength);
        start += chance.Between(0.0015, 0.0045);
    }
    return wave;
}

// Feedback echoes of unlike lengths stand in for the walls of a room; each pass loses brightness.
Wave Echoes(const Wave& dry, const std::array<double, 6>& delays) {
    constexpr double Kept = 0.68;
    constexpr double Dullness = 0.45;
    Wave all(dry.size());
    for (const double delay : delays) {
        const std::size_t gap = Samples(delay);
        Wave echo(dry.size());
        double dull = 0.0;
        for (std::size_t i = gap; i < dry.size(); ++i) {
            dull += (1.0 - Dullness) * (echo[i - gap] - dull);
            echo[i] = dry[i - gap] + Kept * dull;
            all[i] += echo[i] / static_cast<double>(delays.size());
        }
    }
    return all;
}

struct Clapper {
    double Hollow; // main pitch of the hands, in hertz
    double Decay;  // of a clap, in seconds
    double Pace;   // from clap to clap, in seconds
    double Gain;   // by distance
    double Side;   // 0 left to 1 right
    double Start, Stop;
};

// Most people are far away; some are so near that their claps can be told apart.
Clapper SeatedSomewhere(Chance& chance) {
    const double nearness = chance.Between(0.0, 1.0);
    Clapper person{};
    person.Hollow = chance.Between(620.0, 1500.0);
    person.Decay = chance.Between(0.006, 0.013);
    person.Pace = chance.Between(0.19, 0.29);
    person.Gain = 0.18 + 0.82 * std::pow(nearness, 3.0);
    person.Side = chance.Between(0.1, 0.9);
    // A few begin, all fall in, and it thins out to the last ones.
    person.Start = 0.01 + 0.42 * std::pow(chance.Between(0.0, 1.0), 1.4);
    person.Stop = 2.05 - 0.85 * std::pow(chance.Between(0.0, 1.0), 1.7);
    return person;
}

Sound MakeApplause() {
    constexpr int People = 64;
    constexpr double Seconds = 2.35;
    Chance chance(59);
    Sound dry{Wave(Samples(Seconds)), Wave(Samples(Seconds))};
    for (int i = 0; i < People; ++i) {
        const Clapper person = SeatedSomewhere(chance);
        double force = 0.75;
        for (double time = person.Start; time < person.Stop;
             time += person.Pace * chance.Between(0.9, 1.1)) {
            force = std::min(1.0, force + 0.1);
            // The last claps grow tired.
            const double tired = std::clamp((person.Stop - time) / 0.6, 0.45, 1.0);
            const double gain = person.Gain * force * tired * chance.Between(0.7, 1.0);
            const Wave clap =
                Clap(chance, person.Hollow * chance.Between(0.94, 1.06), person.Decay);
            MixIn(dry.Left, clap, time, gain * std::cos(0.5 * Pi * person.Side));
            // The ear on the other side hears it up to a third of a millisecond later.
            MixIn(dry.Right, clap, time + 0.0003, gain * std::sin(0.5 * Pi * person.Side));
        }
    }
    const Wave leftRoom = Echoes(dry.Left, {0.0171, 0.0233, 0.0297, 0.0371, 0.0411, 0.0437});
    const Wave rightRoom = Echoes(dry.Right, {0.0187, 0.0221, 0.0313, 0.0353, 0.0427, 0.0449});
    Sound sound = dry;
    MixIn(sound.Left, leftRoom, 0.0, 0.9);
    MixIn(sound.Right, rightRoom, 0.0, 0.9);
    MixIn(sound.Left, rightRoom, 0.0, 0.25);
    MixIn(sound.Right, leftRoom, 0.0, 0.25);
    return sound;
}

// Weighs frequencies as the ear does, by the two filters of the broadcasters' recommendation
// BS.1770: a head that lifts the heights, and a loss of the depths.
Wave AsTheEarHears(const Wave& wave) {
    constexpr double ShelfPitch = 1681.974450955533, ShelfSharpness = 0.7071752369554196;
    constexpr double ShelfLift = 3.999843853973347; // decibels
    constexpr double DepthPitch = 38.13547087602444, DepthSharpness = 0.5003270373238773;

    const double shelf = std::tan(Pi * ShelfPitch / SampleRate);
    const double lift = std::pow(10.0, ShelfLift / 20.0);
    const double bend = std::pow(lift, 0.4996667741545416);
    const double shelfSum = 1.0 + shelf / ShelfSharpness + shelf * shelf;
    Filter head({(lift + bend * shelf / ShelfSharpness + shelf * shelf) / shelfSum,
                 2.0 * (shelf * shelf - lift) / shelfSum,
                 (lift - bend * shelf / ShelfSharpness + shelf * shelf) / shelfSum},
                {2.0 * (shelf * shelf - 1.0) / shelfSum,
                 (1.0 - shelf / ShelfSharpness + shelf * shelf) / shelfSum});

    const double depth = std::tan(Pi * DepthPitch / SampleRate);
    const double depthSum = 1.0 + depth / DepthSharpness + depth * depth;
    Filter depths({1.0, -2.0, 1.0}, {2.0 * (depth * depth - 1.0) / depthSum,
                                     (1.0 - depth / DepthSharpness + depth * depth) / depthSum});
    Wave heard(wave.size());
    for (std::size_t i = 0; i < wave.size(); ++i)
        heard[i] = depths.Step(head.Step(wave[i]));
    return heard;
}

// Loudness in decibels below a full wave, as broadcasters measure it, of the loudest fifth of a
// second, so that short sounds are not taken for soft ones.
double BroadcastLoudness(const Sound& sound) {
    const Wave left = AsTheEarHears(sound.Left);
    const Wave right = AsTheEarHears(sound.Right);
    const std::size_t window = Samples(0.2);
    double power = 0.0;
    double loudest = 0.0;
    for (std::size_t i = 0; i < left.size(); ++i) {
        power += left[i] * left[i] + right[i] * right[i];
        if (i >= window)
            power -= left[i - window] * left[i - window] + right[i - window] * right[i - window];
        loudest = std::max(loudest, power);
    }
    return -0.691 + 10.0 * std::log10(loudest / static_cast<double>(window));
}

// Takes away what moves the membrane without being heard, and lets both ends begin and end at rest.
void Smooth(Wave& wave) {
    const double kept = std::exp(-2.0 * Pi * 25.0 / SampleRate);
    double in = 0.0;
    double out = 0.0;
    for (double& sample : wave) {
        out = kept * (out + sample - in);
        in = sample;
        sample = out;
    }
    const auto ramp = [](std::size_t i, std::size_t all) {
        return 0.5 - 0.5 * std::cos(Pi * static_cast<double>(i) / static_cast<double>(all));
    };
    const std::size_t fadeIn = Samples(0.005);
    const std::size_t fadeOut = Samples(0.05);
    for (std::size_t i = 0; i < fadeIn; ++i)
        wave[i] *= ramp(i, fadeIn);
    for (std::size_t i = 0; i < fadeOut; ++i)
        wave[wave.size() - 1 - i] *= ramp(i, fadeOut);
}

// Brings every sound to the same loudness and rounds off the peaks.
void Finish(Sound& sound) {
    Smooth(sound.Left);
    Smooth(sound.Right);
    for (int pass = 0; pass < 8; ++pass) {
        const double gain = std::pow(10.0, (TargetLoudness - BroadcastLoudness(sound)) / 20.0);
        for (Wave* wave : {&sound.Left, &sound.Right})
            for (double& sample : *wave)
                sample = PeakLimit * std::tanh(sample * gain / PeakLimit);
    }
}

void PutNumber(std::ostream& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out.put(static_cast<char>((value >> (8 * i)) & 0xffU));
}

void WriteWave(const std::filesystem::path& path, const Sound& sound) {
    constexpr std::uint32_t Channels = 2, BytesPerSample = 2;
    std::ofstream out(path, std::ios::binary);
    const auto dataSize = static_cast<std::uint32_t>(sound.Left.size() * Channels * BytesPerSample);
    out << "RIFF";
    PutNumber(out, 36 + dataSize, 4);
    out << "WAVEfmt ";
    PutNumber(out, 16, 4);
    PutNumber(out, 1, 2); // plain samples
    PutNumber(out, Channels, 2);
    PutNumber(out, SampleRate, 4);
    PutNumber(out, SampleRate * Channels * BytesPerSample, 4);
    PutNumber(out, Channels * BytesPerSample, 2);
    PutNumber(out, 8 * BytesPerSample, 2);
    out << "data";
    PutNumber(out, dataSize, 4);
    for (std::size_t i = 0; i < sound.Left.size(); ++i)
        for (const double sample : {sound.Left[i], sound.Right[i]}) {
            const long value = std::lround(std::clamp(sample, -1.0, 1.0) * 32767.0);
            PutNumber(out, static_cast<std::uint32_t>(value) & 0xffffU, 2);
        }
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + path.string());
}

struct Recipe {
    const char* FileName;
    Sound (*Make)();
};

constexpr std::array<Recipe, 5> Recipes{{{"stack.wav", MakeStack},
                                         {"shuffle.wav", MakeShuffle},
                                         {"turn.wav", MakeTurn},
                                         {"Draw.wav", MakeDraw},
                                         {"applause.wav", MakeApplause}}};

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: MakeSounds OUTPUT_FOLDER\n";
        return EXIT_FAILURE;
    }
    try {
        const std::filesystem::path folder(argv[1]);
        std::filesystem::create_directories(folder);
        for (const Recipe& recipe : Recipes) {
            Sound sound = recipe.Make();
            Finish(sound);
            WriteWave(folder / recipe.FileName, sound);
        }
    } catch (const std::exception& problem) {
        std::cerr << "MakeSounds: " << problem.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
