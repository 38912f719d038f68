#pragma once

#include "tests/common/TestWorld.h"

#include <QStringList>
#include <random>

/// A family that uses the program: an endless, seeded sequence of whole user actions on the store
/// of the session, each what one press of a button does. What action `n` does depends on the
/// seed, on `n` and on what the database holds, and on nothing else: two databases that hold the
/// same before it hold the same after it, in whatever process it ran.
class Household {
public:
    /// Pictures are taken from `pictureFolder`, where MakePictures has put them.
    Household(quint32 seed, const QString& pictureFolder);

    /// Files that serve as pictures, each of more than 100 kB.
    static void MakePictures(const QString& folder);

    /// Runs action `number` (1 the first) to its end, its commit included.
    void Do(int number);

    /// Saves a chart for children, as the list of children does on Ok.
    void SaveChart(const QString& chart, const QStringList& children, bool autoCreate);

private:
    int Any(int count);
    QString AnyOf(const QStringList& names);
    QString AnyPicture();
    void Act();
    void FillEditor();
    void SaveChartForSome();
    void Tick();
    void ChangeDay();
    void AddChild();

    quint32 seed_;
    QString pictures_;
    std::mt19937 random_;
    FakeEditor editor_;
    FakeViewer viewer_;
    QStringList children_;
    QStringList charts_;
};
