#include "tests/tour/Story.h"

void Story::OpenAccounts() {
    Toolbar("View");
    Front("DisplayAccount");
    CaptionIs("Sparkit Dutygrid Account Viewer");
}

void Story::Figures(const Text& name, const Text& points, const Text& goal, const Text& cost,
                    const Text& needed, Here here) {
    Shows("KidName", name, here);
    Shows("Pointslbl", points, here);
    Shows("ToyName", goal, here);
    Shows("ToyValue", cost, here);
    Shows("Label5", needed, here);
}

void Story::NobodyIsSelected(Here here) {
    Front("DisplayAccount", here);
    Figures("", "", "", "", "0", here);
}

void Story::Promise(const Text& incentive, const Text& cost, const Text& file,
                    const Text& picture) {
    Click("Incentivesbtn");
    Front("AddIncentives");
    CaptionIs("Points and Incentive Editor");
    Type("ToyName", incentive);
    Type("Value", cost);
    ShowsPicture("Image1", false);
    BrowseForPicture("IncentivesPictures", file);
    if (!picture.isEmpty())
        Shoot(picture);
    Click("AddIncentive");
    IsGone("AddIncentives");
    NobodyIsSelected();
}

void Story::PrintAccounts() {
    const Text sure = "Are you sure you want to print?";
    Boxes.Expect(sure, QMessageBox::No, "account-print-question");
    Click("Infobtn");
    Boxes.Expect(sure, QMessageBox::Yes);
    Pictures.NameNextPrint("print-list-of-accounts");
    Click("Infobtn");
    NobodyIsSelected();
}
