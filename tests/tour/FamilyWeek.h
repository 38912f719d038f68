#pragma once

#include "tests/tour/Story.h"

/// Mum, Dad, Anna and Ben at home, from the first start of the program on Sunday 4 March 2001 to
/// the second Sunday after.
class FamilyWeek : public Story {
protected:
    FamilyWeek() : Story("family", QDate(2001, 3, 4)) {}

    static inline const Text ExitUnsaved = "Are you sure you want to exit without saving?";

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
    void MumEmptiesBensAccount();
    void BenUnticksWhatIsSpent();
    void ThursdayBeforeTheLogIn();
    void AnnaOnThursday();
    void AnnaFinishesOnSaturday();
    void DadMovesTheGardenOnSaturday();
    void TheNextWeekBegins();
    void DadDeletesCharts();
    void MumPrintsTheAccounts();

    // The second week: accounts and the review.
    void MumPaysAnna();
    void MumPromisesMore();
    void MumGivesPointsByHand();
    void TomComesToVisit();
    void AnnaLooksAtAllAccounts();
    void AnnaAndTomOnMonday();
    void DadHidesTheOthersAccounts();
    void AnnaLooksAtHerAccount();
    void TheChildrenOnWednesday();
    void MumReviewsTheWeek();
    void TomLeaves();

    // The Sunday after: what is printed.
    void TheReviewBeginsTheThirdWeek();
    void MumForgetsToChoose();
    void MumPrintsChartAndHistory();
    void MumPrintsEverything();
    void MumPrintsBetweenDates();
    void MumLeavesTheDates();
    void MumDeletesBensChart();
    void AnnaFindsTheReports();
    void MumLeaves();
};
