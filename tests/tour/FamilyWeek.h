#pragma once

#include "tests/tour/Story.h"

/// Mum, Dad, Anna and Ben at home, from the first start of the program on Sunday 4 March 2001 to
/// the Sunday after.
class FamilyWeek : public Story {
protected:
    FamilyWeek() : Story("family", QDate(2001, 3, 4)) {}

    // Sunday: the adults set everything up.
    void FirstStart();
    void MakeAccounts();
    void MumLogsInForTheFirstTime();
    void MumWritesChores();
    void MumWritesPiano();
    void DadWritesGarden();
    void DadSetsOptions();
    void DadLooksAround();
    void PromiseAnnaABike();

    // The week.
    void AnnaOnSunday();
    void AnnaOnMonday();
    void BenLeavesHisChartOpen();
    void AnnaOnTuesday();
    void AnnaReachesHerGoalOnWednesday();
    void BenUnticksWhatIsSpent();
    void ThursdayBeforeTheLogIn();
    void AnnaOnThursday();
    void AnnaFinishesOnSaturday();
    void DadMovesTheGardenOnSaturday();
    void TheNextWeekBegins();
    void DadDeletesCharts();
    void MumLeaves();
};
