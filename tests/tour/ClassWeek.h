#pragma once

#include "tests/tour/Story.h"

/// Ms Lind and six children at school, from the first start of the program on Monday 5 March 2001
/// to the second Monday after.
class ClassWeek : public Story {
protected:
    ClassWeek() : Story("class", QDate(2001, 3, 5)) {}

    // Monday: the teacher sets everything up.
    void FirstStartAtSchool();
    void MakeAccounts();
    void WriteClassDuties();
    void WriteLibraryAndPlants();
    void WriteTripForNobody();

    // The week.
    void AmirOnMonday();
    void BeaAndEmilOnTuesday();
    void LibraryIsRewrittenOnWednesday();
    void MaryAnnOnWednesday();
    void AmirOnFriday();
    void TheWeekend();
    void TheNextMonday();
    void LibraryIsMovedOn();
    void TheAccountsArePrinted();

    // The second week.
    void AmirLooksAtHisAccount();
    void TheClassIsReviewed();
    void CarlMovesAway();
    void TheWeeksAreReported();
    void LeaveFromTheLogIn();
};
