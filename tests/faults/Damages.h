#pragma once

#include <QByteArray>
#include <random>

/// What becomes of files on bad disks and in bad memory: bits and bytes that change, blocks that
/// are lost, exchanged or old ones again, an end that is missing.
class Damages {
public:
    /// `former`: the file as it was some time before, for what was written and has not arrived.
    Damages(quint32 seed, QByteArray whole, QByteArray former)
        : random_(seed), whole_(std::move(whole)), former_(std::move(former)) {}

    /// The file with one to three damages. Differs from the whole one.
    QByteArray Next();

private:
    qsizetype Below(qsizetype bound) {
        return static_cast<qsizetype>(random_() % static_cast<quint64>(bound));
    }
    void DamageOnce(QByteArray& bytes);
    void DamageBlocks(QByteArray& bytes);

    std::mt19937_64 random_;
    QByteArray whole_;
    QByteArray former_;
};
