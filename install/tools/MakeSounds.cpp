// Synthesises the program's sounds as 16-bit mono wave files.
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

constexpr int SampleRate = 44100;
constexpr double Pi = std::numbers::pi;
constexpr double TargetLevel = 0.13; // root mean square where loudest, about -18 dBFS
constexpr double PeakLimit = 0.84;   // about -1.5 dBFS

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

// A band-pass filter of second order whose centre may be moved while it runs.
class BandPass {
public:
    BandPass(double centre, double sharpness) { Tune(centre, sharpness); }
    void Tune(double centre, double sharpness) {
        const double angle = 2.0 * Pi * centre / SampleRate;
        const double alpha = std::sin(angle) / (2.0 * sharpness);
        Gain = alpha / (1.0 + alpha);
        First = -2.0 * std::cos(angle) / (1.0 + alpha);
        Second = (1.0 - alpha) / (1.0 + alpha);
    }
    double Step(double in) {
        const double out = Gain * (in - In2) - First * Out1 - Second * Out2;
        In2 = std::exchange(In1, in);
        Out2 = std::exchange(Out1, out);
        return out;
    }

private:
    double Gain = 0, First = 0, Second = 0;
    double In1 = 0, In2 = 0, Out1 = 0, Out2 = 0;
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

// A few feedback echoes of unlike lengths stand in for the walls of a room.
void AddRoom(Wave& wave, double amount) {
    const Wave dry = wave;
    for (const double delay : {0.0297, 0.0371, 0.0411, 0.0437}) {
        const std::size_t gap = Samples(delay);
        Wave echo(dry.size());
        for (std::size_t i = gap; i < dry.size(); ++i)
            echo[i] = dry[i - gap] + 0.72 * echo[i - gap];
        for (std::size_t i = 0; i < dry.size(); ++i)
            wave[i] += amount * echo[i];
    }
}

Wave MakeStack() {
    Chance chance(11);
    Wave wave(Samples(0.55));
    for (int tap = 0; tap < 3; ++tap) {
        const double start = 0.02 + 0.13 * tap;
        const double gain = 1.0 - 0.2 * tap;
        MixIn(wave, Knock(170.0 + 25.0 * tap, 0.022), start, 0.35 * gain);
        MixIn(wave, Puff(chance, 1500.0, 0.9, 0.003, 0.018), start, gain);
    }
    return wave;
}

Wave MakeShuffle() {
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
    return wave;
}

Wave MakeTurn() {
    Chance chance(37);
    Wave wave(Samples(0.36));
    MixIn(wave, Brush(chance, 0.20, 1300.0, 3000.0, 1.0), 0.01, 0.7);
    MixIn(wave, Puff(chance, 1900.0, 1.0, 0.002, 0.014), 0.185, 0.9);
    MixIn(wave, Knock(230.0, 0.012), 0.185, 0.18);
    return wave;
}

Wave MakeDraw() {
    Chance chance(41);
    Wave wave(Samples(0.75));
    MixIn(wave, Brush(chance, 0.50, 1100.0, 3600.0, 0.7), 0.01, 0.8);
    MixIn(wave, Brush(chance, 0.26, 3000.0, 1400.0, 0.9), 0.40, 0.6);
    for (int crackle = 0; crackle < 14; ++crackle)
        MixIn(wave, Puff(chance, chance.Between(2000.0, 3800.0), 2.0, 0.001, 0.004),
              chance.Between(0.08, 0.55), chance.Between(0.1, 0.35));
    return wave;
}

Wave MakeApplause() {
    Chance chance(59);
    Wave wave(Samples(2.4));
    for (int person = 0; person < 70; ++person) {
        const double pitch = chance.Between(750.0, 1900.0);
        const double pace = chance.Between(0.17, 0.26);
        const double near = chance.Between(0.25, 1.0);
        const double stop = chance.Between(1.55, 2.2);
        double time = chance.Between(0.0, 0.45);
        while (time < stop) {
            const Wave clap = Puff(chance, pitch * chance.Between(0.93, 1.07), 1.1, 0.0012,
                                   chance.Between(0.007, 0.014));
            MixIn(wave, clap, time, near * chance.Between(0.7, 1.0));
            time += pace * chance.Between(0.88, 1.12);
        }
    }
    AddRoom(wave, 0.16);
    for (std::size_t i = 0; i < wave.size(); ++i) {
        const double time = TimeOf(i);
        const double rise = std::min(1.0, time / 0.25);
        const double fall = std::clamp((2.38 - time) / 0.9, 0.0, 1.0);
        wave[i] *= rise * std::sin(0.5 * Pi * fall);
    }
    return wave;
}

Wave Horn(double pitch, double seconds) {
    Wave wave(Samples(seconds));
    for (std::size_t i = 0; i < wave.size(); ++i) {
        const double time = TimeOf(i);
        const double attack = std::min(1.0, time / 0.03);
        const double release = std::clamp((seconds - time) / 0.09, 0.0, 1.0);
        const double sway = 0.0025 * std::sin(2.0 * Pi * 5.2 * time) * std::min(1.0, time / 0.4);
        double sample = 0.0;
        for (int partial = 1; partial <= 7; ++partial) {
            const double bright = std::exp(-0.42 * (partial - 1) * (1.6 - 0.6 * attack));
            sample += bright * std::sin(2.0 * Pi * pitch * partial * (time + sway / 10.0));
        }
        wave[i] = sample * attack * release * (0.75 + 0.25 * std::exp(-time / 0.15));
    }
    return wave;
}

Wave MakeFanfare() {
    Wave wave(Samples(1.75));
    constexpr double C5 = 523.25, E5 = 659.26, G4 = 392.0, G5 = 783.99;
    MixIn(wave, Horn(G4, 0.17), 0.01, 0.6);
    MixIn(wave, Horn(C5, 0.17), 0.17, 0.6);
    MixIn(wave, Horn(E5, 0.17), 0.33, 0.6);
    MixIn(wave, Horn(G5, 0.30), 0.49, 0.6);
    MixIn(wave, Horn(E5, 0.16), 0.78, 0.6);
    for (const double pitch : {C5, E5, G5})
        MixIn(wave, Horn(pitch, 0.72), 0.94, pitch == G5 ? 0.45 : 0.28);
    AddRoom(wave, 0.04);
    return wave;
}

// Loudness as the ear takes it: the loudest fifth of a second, so short sounds are not drowned.
double HeardLevel(const Wave& wave) {
    const std::size_t window = Samples(0.2);
    double power = 0.0;
    double loudest = 0.0;
    for (std::size_t i = 0; i < wave.size(); ++i) {
        power += wave[i] * wave[i];
        if (i >= window)
            power -= wave[i - window] * wave[i - window];
        loudest = std::max(loudest, power);
    }
    return std::sqrt(loudest / static_cast<double>(window));
}

// Brings every sound to the same loudness, rounds off the peaks and softens both ends.
void Finish(Wave& wave) {
    for (int pass = 0; pass < 6; ++pass) {
        const double gain = TargetLevel / HeardLevel(wave);
        for (double& sample : wave)
            sample = PeakLimit * std::tanh(sample * gain / PeakLimit);
    }
    const std::size_t fadeIn = Samples(0.004);
    const std::size_t fadeOut = Samples(0.03);
    for (std::size_t i = 0; i < fadeIn; ++i)
        wave[i] *= static_cast<double>(i) / static_cast<double>(fadeIn);
    for (std::size_t i = 0; i < fadeOut; ++i)
        wave[wave.size() - 1 - i] *= static_cast<double>(i) / static_cast<double>(fadeOut);
}

void PutNumber(std::ostream& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out.put(static_cast<char>((value >> (8 * i)) & 0xffU));
}

void WriteWave(const std::filesystem::path& path, const Wave& wave) {
    std::ofstream out(path, std::ios::binary);
    const auto dataSize = static_cast<std::uint32_t>(wave.size() * 2);
    out << "RIFF";
    PutNumber(out, 36 + dataSize, 4);
    out << "WAVEfmt ";
    PutNumber(out, 16, 4);
    PutNumber(out, 1, 2); // plain samples
    PutNumber(out, 1, 2); // one channel
    PutNumber(out, SampleRate, 4);
    PutNumber(out, SampleRate * 2, 4);
    PutNumber(out, 2, 2);
    PutNumber(out, 16, 2);
    out << "data";
    PutNumber(out, dataSize, 4);
    for (const double sample : wave) {
        const long value = std::lround(std::clamp(sample, -1.0, 1.0) * 32767.0);
        PutNumber(out, static_cast<std::uint32_t>(value) & 0xffffU, 2);
    }
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + path.string());
}

struct Recipe {
    const char* FileName;
    Wave (*Make)();
};

constexpr std::array<Recipe, 6> Recipes{{{"stack.wav", MakeStack},
                                         {"shuffle.wav", MakeShuffle},
                                         {"turn.wav", MakeTurn},
                                         {"Draw.wav", MakeDraw},
                                         {"applause.wav", MakeApplause},
                                         {"fanfare.wav", MakeFanfare}}};

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
            Wave wave = recipe.Make();
            Finish(wave);
            WriteWave(folder / recipe.FileName, wave);
        }
    } catch (const std::exception& problem) {
        std::cerr << "MakeSounds: " << problem.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
