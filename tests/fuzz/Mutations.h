#pragma once

#include <QByteArray>
#include <QList>
#include <random>

/// Changes inputs as damage, mistakes and malice do: bits, bytes, cuts, tails, parts that are
/// doubled, exchanged or another input's, and the numbers and marks on which readers stumble.
class Mutations {
public:
    /// `inputs`: those that are known, at least one.
    Mutations(quint32 seed, QList<QByteArray> inputs);

    QByteArray Next();

private:
    qsizetype Below(qsizetype bound);
    const QByteArray& AnyInput();
    QByteArray AnyPiece(const QByteArray& bytes);
    void ChangeOnce(QByteArray& bytes);

    std::mt19937 random_;
    QList<QByteArray> inputs_;
};
