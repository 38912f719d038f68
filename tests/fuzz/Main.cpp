// Reads every input of the corpus and many changed ones: each within the time a person waits.
//
// Usage: fuzz_tests [target]...

#include "tests/common/Rounds.h"
#include "tests/fuzz/Mutations.h"
#include "tests/fuzz/Targets.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <csignal>
#include <iostream>
#include <unistd.h>

namespace {

constexpr unsigned Longest = 5; // seconds

/// Where the input under way stands, for whoever looks into a crash.
const QString LastInput = QStringLiteral("fuzz-last-input");

QList<QByteArray> Corpus(const FuzzTarget& target) {
    const QDir folder(QStringLiteral(DUTYGRID_CORPUS_DIR "/") + QString::fromLatin1(target.Name));
    QList<QByteArray> inputs;
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            inputs += file.readAll();
    }
    return inputs;
}

class Reading {
public:
    explicit Reading(const FuzzTarget& target) : target_(target) {}

    void Read(const QByteArray& bytes) {
        input_ = bytes;
        underWay_ = this;
        // It ends the process: nothing else ends a reader that goes round for ever.
        ::alarm(Longest);
        QElapsedTimer timer;
        timer.start();
        target_.Read(bytes);
        slowest_ = std::max(slowest_, timer.elapsed());
        ::alarm(0);
        underWay_ = nullptr;
    }

    qint64 Slowest() const { return slowest_; }

    /// Leaves the input behind that a signal has ended.
    static void Keep(int signal) {
        std::signal(signal, SIG_DFL);
        if (underWay_ != nullptr) {
            QFile file(LastInput);
            if (file.open(QIODevice::WriteOnly))
                file.write(underWay_->input_);
            std::cerr << underWay_->target_.Name << ": signal " << signal << " at the input in "
                      << LastInput.toStdString() << std::endl;
        }
        std::raise(signal);
    }

private:
    static Reading* underWay_;
    const FuzzTarget& target_;
    QByteArray input_;
    qint64 slowest_ = 0;
};

Reading* Reading::underWay_ = nullptr;

bool RunTarget(const FuzzTarget& target) {
    const QList<QByteArray> corpus = Corpus(target);
    if (corpus.isEmpty()) {
        std::cerr << target.Name << ": no input in the corpus" << std::endl;
        return false;
    }
    Reading reading(target);
    for (const QByteArray& input : corpus)
        reading.Read(input);
    const int rounds = Rounds(500, 100'000);
    Mutations mutations(Seed(), corpus);
    for (int round = 0; round < rounds; ++round)
        reading.Read(mutations.Next());
    std::cout << target.Name << ": " << corpus.size() << " inputs and " << rounds
              << " changed ones, the slowest took " << reading.Slowest() << " ms" << std::endl;
    return true;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    // What libraries say of damaged pictures is of no interest.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    for (const int signal : {SIGABRT, SIGALRM, SIGSEGV, SIGFPE, SIGILL, SIGBUS})
        std::signal(signal, Reading::Keep);
    const FuzzWorld world;
    bool isGood = true;
    for (const FuzzTarget& target : FuzzTargets()) {
        const QStringList asked = QCoreApplication::arguments().mid(1);
        if (asked.isEmpty() || asked.contains(QString::fromLatin1(target.Name)))
            isGood = RunTarget(target) && isGood;
    }
    return isGood ? 0 : 1;
}
