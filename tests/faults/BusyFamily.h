#pragma once

#include "tests/faults/FaultWorld.h"
#include "tests/faults/Household.h"

#include <functional>
#include <map>
#include <string>

/// A family of three children in the midst of its week, and what it does with a press each. On a
/// disk in memory.
class BusyFamilyTest : public FaultTest {
public:
    /// The names of these actions.
    static inline const auto Actions =
        testing::Values("SavesOverTickedChartsOfMany", "RollsOver", "AddsPoints",
                        "StoresTheMarksOfADay", "DeletesAnAccountWithItsCharts", "DeletesAChart",
                        "SetsAnIncentiveWithAPicture", "MakesAnAccount", "ChangesAPassword");
    static std::string NameOf(const testing::TestParamInfo<const char*>& action) {
        return action.param;
    }

protected:
    BusyFamilyTest();
    ~BusyFamilyTest() override;

    static const QStringList Children;
    QString Charts() const { return ChartsFile(folder_.path()); }

    /// Opens the database as it was before the action.
    void Start();
    void Act(const char* action);

private:
    QString Picture(int number) const;
    void FillEditor(const QString& word);
    void SaveForAll();
    void TickAll(const QString& chart);

    QTemporaryDir folder_;
    Household family_{1, QString()};
    FakeEditor editor_;
    FakeViewer viewer_;
    std::map<std::string, std::function<void()>> actions_;
    QByteArray start_;
};
