#include "store/TableNames.h"
#include "tests/store/StoreTest.h"

#include <QFileInfo>
#include <QImage>
#include <random>

namespace {

const QString Student = QStringLiteral("Student");
const QString Teacher = QStringLiteral("Teacher");

class FakeImages : public ImageList {
public:
    QList<QImage> pictures;
    int AddPicture(const QImage& picture) override {
        pictures += picture;
        return static_cast<int>(pictures.size());
    }
};

class FakePeople : public IconList {
public:
    int view = 0;
    ImageList* icons = nullptr;
    QStringList items;
    int View() const override { return view; }
    void SetIcons(ImageList& images) override { icons = &images; }
    void AddItemWithIcon(const QString& text, int icon) override {
        items += QStringLiteral("%1 #%2").arg(text).arg(icon);
    }
    void Clear() override { items.clear(); }
    void AddItem(const QString& text) override { items += text; }
};

class AccountRecordsTest : public StoreTest {
protected:
    static void Add(const QString& name, const QString& password, const QString& state = Student,
                    const QString& picture = {}) {
        Database().AddUser(name, password, state, picture);
        Database().Commit();
    }
    static void Delete(const QString& name) {
        Database().DeleteAccount(name);
        Database().Commit();
    }
};

TEST_F(AccountRecordsTest, UnknownNameHasAnEmptyPasswordAndStateAndNoError) {
    EXPECT_EQ(Database().RetrevePassword(Anna), QString());
    EXPECT_EQ(Database().RetreveState(Anna), QString());
}

TEST_F(AccountRecordsTest, AChildStartsWithATargetOf500AndAnAdultWithNone) {
    Add(Anna, QStringLiteral("cat"));
    Add(QStringLiteral("Mum"), QStringLiteral("tea"), Teacher);
    Add(QStringLiteral("Dad"), QStringLiteral("tea"), QStringLiteral("Parent"));
    EXPECT_EQ(Rows(UsersTable), (QStringList{QStringLiteral("Anna|cat|0|Student|<null>|500"),
                                             QStringLiteral("Mum|tea|0|Teacher|<null>|<null>"),
                                             QStringLiteral("Dad|tea|0|Parent|<null>|<null>")}));
}

TEST_F(AccountRecordsTest, NamesAreComparedWithTheirCase) {
    Add(Anna, QStringLiteral("cat"));
    EXPECT_EQ(Database().RetrevePassword(QStringLiteral("anna")), QString());
    EXPECT_EQ(Database().RetreveState(Anna), Student);
}

TEST_F(AccountRecordsTest, OfTwoRowsOfOneNameReadsTakeTheLaterAndWritesReachBoth) {
    Add(Anna, QStringLiteral("first"));
    Add(Anna, QStringLiteral("second"), Teacher);
    EXPECT_EQ(Database().RetrevePassword(Anna), QStringLiteral("second"));
    EXPECT_EQ(Database().RetreveState(Anna), Teacher);
    Database().ChangePassword(Anna, QStringLiteral("third"));
    Database().Commit();
    EXPECT_EQ(Rows(UsersTable),
              (QStringList{QStringLiteral("Anna|third|0|Student|<null>|500"),
                           QStringLiteral("Anna|third|0|Teacher|<null>|<null>")}));
    Delete(Anna);
    EXPECT_EQ(Rows(UsersTable), QStringList());
}

TEST_F(AccountRecordsTest, OfTwoRowsOfOneNameTheLaterPictureWinsAndNoPictureLeavesTheEarlier) {
    Add(Anna, QStringLiteral("1"), Student, PictureFile(QStringLiteral("a.png"), 0xffff0000));
    Add(QStringLiteral("Ben"), QStringLiteral("x"), Student, PictureFile());
    Add(Anna, QStringLiteral("2"), Student, PictureFile(QStringLiteral("b.png"), 0xff00ff00));
    FakePicture target;
    Database().RetrevePicture(Anna, target);
    EXPECT_EQ(target.picture.pixel(3, 3), 0xff00ff00);
    Add(Anna, QStringLiteral("3"));
    Database().RetrevePicture(Anna, target);
    EXPECT_EQ(target.picture.pixel(3, 3), 0xff00ff00);
}

TEST_F(AccountRecordsTest, APictureOfManyPiecesComesBackWhole) {
    QImage noise(200, 200, QImage::Format_RGB32);
    std::minstd_rand random;
    for (int y = 0; y < noise.height(); ++y)
        for (int x = 0; x < noise.width(); ++x)
            noise.setPixel(x, y, 0xff000000U | static_cast<QRgb>(random() & 0xffffffU));
    const QString file = Path(QStringLiteral("noise.png"));
    ASSERT_TRUE(noise.save(file));
    ASSERT_GT(QFileInfo(file).size(), 3 * 32768);
    Add(Anna, QStringLiteral("cat"), Student, file);
    FakePicture target;
    Database().RetrevePicture(Anna, target);
    EXPECT_EQ(target.picture.convertToFormat(QImage::Format_RGB32), noise);
}

TEST_F(AccountRecordsTest, ADuplicateIsTheSameNameWithTheSamePassword) {
    Add(Anna, QStringLiteral("cat"));
    EXPECT_TRUE(Database().CheckForUserDuplicates(Anna, QStringLiteral("cat")));
    EXPECT_FALSE(Database().CheckForUserDuplicates(Anna, QStringLiteral("Cat")));
    EXPECT_FALSE(Database().CheckForUserDuplicates(QStringLiteral("Ben"), QStringLiteral("cat")));
}

TEST_F(AccountRecordsTest, ListsAreNotClearedSoFillingTwiceShowsEachNameTwice) {
    Add(QStringLiteral("Mum"), QStringLiteral("tea"), Teacher);
    Add(Anna, QStringLiteral("cat"));
    Add(QStringLiteral("Gran"), QStringLiteral("tea"), QStringLiteral("Parent"));
    FakeList adults;
    FakeList children;
    Database().PopulateUserList(&adults, children);
    Database().PopulateUserList(&adults, children);
    EXPECT_EQ(adults.items, (QStringList{QStringLiteral("Mum"), QStringLiteral("Mum")}));
    EXPECT_EQ(children.items, (QStringList{Anna, Anna}));
}

TEST_F(AccountRecordsTest, WithoutAListForAdultsOnlyChildrenAreListed) {
    Add(QStringLiteral("Mum"), QStringLiteral("tea"), Teacher);
    Add(Anna, QStringLiteral("cat"));
    FakeList children;
    Database().PopulateUserList(nullptr, children);
    EXPECT_EQ(children.items, QStringList{Anna});
}

TEST_F(AccountRecordsTest, PicturesOfChildrenFillTheImageListAndItemsPointAtThem) {
    Add(QStringLiteral("Mum"), QStringLiteral("tea"), Teacher, PictureFile());
    Add(Anna, QStringLiteral("cat"), Student, PictureFile(QStringLiteral("a.png"), 0xffff0000));
    Add(QStringLiteral("Ben"), QStringLiteral("dog"), Student,
        PictureFile(QStringLiteral("b.png"), 0xff00ff00));
    FakeImages images;
    FakePeople people;
    FakePicture scratch;
    Database().AddUsersImages(images, people, Student, scratch);
    EXPECT_EQ(people.items, (QStringList{QStringLiteral("Anna #1"), QStringLiteral("Ben #2")}));
    EXPECT_EQ(people.icons, &images);
    ASSERT_EQ(images.pictures.size(), 2);
    EXPECT_EQ(images.pictures.at(0).pixel(3, 3), 0xffff0000);
    EXPECT_EQ(images.pictures.at(1).pixel(3, 3), 0xff00ff00);
}

TEST_F(AccountRecordsTest, AListWithoutLargeIconsGetsNamesAlone) {
    Add(Anna, QStringLiteral("cat"), Student, PictureFile());
    FakeImages images;
    FakePeople people;
    people.view = 3;
    FakePicture scratch;
    Database().AddUsersImages(images, people, Student, scratch);
    EXPECT_EQ(people.items, QStringList{Anna});
    EXPECT_TRUE(images.pictures.isEmpty());
}

TEST_F(AccountRecordsTest, ChangePictureReplacesThePictureAndAnEmptyPathKeepsIt) {
    Add(Anna, QStringLiteral("cat"), Student, PictureFile(QStringLiteral("a.png"), 0xffff0000));
    Database().ChangePicture(Anna, PictureFile(QStringLiteral("b.png"), 0xff00ff00));
    FakePicture target;
    Database().RetrevePicture(Anna, target);
    EXPECT_EQ(target.picture.pixel(3, 3), 0xff00ff00);
    Database().ChangePicture(Anna, QString());
    Database().RetrevePicture(Anna, target);
    EXPECT_EQ(target.picture.pixel(3, 3), 0xff00ff00);
}

TEST_F(AccountRecordsTest, AMissingPictureFileStoresNothing) {
    EXPECT_ERROR(53, Add(Anna, QStringLiteral("cat"), Student, Path(QStringLiteral("no"))));
    EXPECT_EQ(Rows(UsersTable), QStringList());
    Add(Anna, QStringLiteral("cat"), Student, PictureFile());
    EXPECT_ERROR(53, Database().ChangePicture(Anna, Path(QStringLiteral("no"))));
    FakePicture target;
    Database().RetrevePicture(Anna, target);
    EXPECT_FALSE(target.picture.isNull());
}

TEST_F(AccountRecordsTest, APictureThatTheDiskRefusesToReadIsNotStoredAsZeros) {
    // The first page of this process is nobody's: to read it is an input/output error.
    const QString refused = QStringLiteral("/proc/self/mem");
    EXPECT_ERROR(75, Add(Anna, QStringLiteral("c"), Student, refused));
    EXPECT_EQ(Rows(UsersTable), QStringList());
    Add(Anna, QStringLiteral("cat"), Student, PictureFile());
    const QStringList before = Rows(UsersTable);
    EXPECT_ERROR(75, Database().ChangePicture(Anna, refused));
    EXPECT_EQ(Rows(UsersTable), before);
}

TEST_F(AccountRecordsTest, AFolderAsPictureIsAnAccessError) {
    EXPECT_ERROR(75, Add(Anna, QStringLiteral("c"), Student, Path(QStringLiteral("Jobs"))));
    EXPECT_EQ(Rows(UsersTable), QStringList());
}

TEST_F(AccountRecordsTest, AnAccountWithoutAPictureEmptiesTheTarget) {
    Add(Anna, QStringLiteral("cat"));
    FakePicture target;
    Database().RetrevePicture(Anna, target);
    EXPECT_TRUE(target.picture.isNull());
}

TEST_F(AccountRecordsTest, AnEmptyAccountsTableFailsTheTakingOutOfAPicture) {
    FakePicture target;
    EXPECT_ERROR(3021, Database().RetrevePicture(Anna, target));
    EXPECT_TRUE(target.picture.isNull());
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("DeleteMe"))));
}

TEST_F(AccountRecordsTest, APictureOf40MegabytesGoesInAndComesOut) {
    // A real picture with a long tail behind it.
    QFile file(Path(QStringLiteral("huge.png")));
    ASSERT_TRUE(QFile::copy(PictureFile(), file.fileName()));
    ASSERT_TRUE(file.resize(40 * 1000 * 1000));
    Add(Anna, QStringLiteral("cat"), Student, file.fileName());
    FakePicture target;
    Database().RetrevePicture(Anna, target);
    EXPECT_EQ(target.picture.size(), QSize(24, 24));
}

TEST_F(AccountRecordsTest, OfThreeNeighbouringTablesOfAChildTheSecondSurvives) {
    Add(Anna, QStringLiteral("cat"));
    for (const char* name : {"A Anna", "B Anna", "C Anna"})
        SaveChart(QString::fromLatin1(name), {Job(QStringLiteral("a"), QStringLiteral("Mon"))});
    Delete(Anna);
    EXPECT_EQ(TableNames(), QStringList{QStringLiteral("B Anna")});
}

TEST_F(AccountRecordsTest, DeletingAnAccountTakesChartsAndHistoryButNoOneElses) {
    Add(Anna, QStringLiteral("cat"));
    const QList<EditorRow> rows = {Job(QStringLiteral("a"), QStringLiteral("Mon"))};
    SaveChart(QStringLiteral("Chores Anna"), rows);
    SaveChart(QStringLiteral("Chores Ben"), rows, QStringLiteral("Ben"));
    MakeEmptyChart(QStringLiteral("Empty"));
    Database().DuplicateChartHistory(QStringLiteral("Chores Anna"));
    Database().Commit();
    SaveChart(QStringLiteral("Chores"), rows, QStringLiteral("Nobody"));
    Delete(Anna);
    EXPECT_EQ(TableNames(), (QStringList{QStringLiteral("Chores"), QStringLiteral("Chores Ben"),
                                         QStringLiteral("Empty")}));
    EXPECT_EQ(Rows(UsersTable), QStringList());
}

TEST_F(AccountRecordsTest, DeletingAnAccountTakesTheLastTableTooIfNoneWentBefore) {
    Add(Anna, QStringLiteral("cat"));
    const QList<EditorRow> rows = {Job(QStringLiteral("a"), QStringLiteral("Mon"))};
    SaveChart(QStringLiteral("Chores Ben"), rows, QStringLiteral("Ben"));
    SaveChart(QStringLiteral("Zoo Anna"), rows);
    Delete(Anna);
    EXPECT_EQ(TableNames(), QStringList{QStringLiteral("Chores Ben")});
}

TEST_F(AccountRecordsTest, DeletingAnAccountLeavesTheEnginesTablesAlone) {
    Add(Anna, QStringLiteral("cat"));
    for (const char* name : {"MSys Anna", "Chores Ben", "msys Anna two", "Chores Bob"})
        SaveChart(QString::fromLatin1(name), {Job(QStringLiteral("a"), QStringLiteral("Mon"))},
                  QLatin1String(name).contains(Anna) ? Anna : QStringLiteral("Ben"));
    Delete(Anna);
    EXPECT_EQ(TableNames(), (QStringList{QStringLiteral("Chores Ben"), QStringLiteral("Chores Bob"),
                                         QStringLiteral("MSys Anna")}));
}

TEST_F(AccountRecordsTest, NamesLongerThanTheirFieldAreRefusedAndNothingIsStored) {
    EXPECT_ERROR(3163, Add(QString(51, QLatin1Char('x')), QStringLiteral("p")));
    EXPECT_EQ(Rows(UsersTable), QStringList());
}

TEST_F(AccountRecordsTest, NamesOfAnyKindAreKeptAsTheyStand) {
    const QStringList names = {QStringLiteral("O'Neil \"Bo\""), QStringLiteral("a/b\\c.d"),
                               QStringLiteral("😀"), QStringLiteral("   ")};
    for (const QString& name : names)
        Add(name, QStringLiteral("p%1").arg(names.indexOf(name)));
    Restart();
    for (const QString& name : names)
        EXPECT_EQ(Database().RetrevePassword(name), QStringLiteral("p%1").arg(names.indexOf(name)));
}

} // namespace
