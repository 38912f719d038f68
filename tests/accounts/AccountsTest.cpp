#include "tests/accounts/AccountsTest.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

const QString AccountsTest::Kim = QStringLiteral("Kim");
const QString AccountsTest::Lee = QStringLiteral("Lee");

namespace {

struct Caption : CaptionTarget {
    QString text = QStringLiteral("untouched");
    void SetCaption(const QString& caption) override { text = caption; }
};

struct PictureHolder : PictureTarget {
    QImage image;
    QImage Picture() const override { return image; }
    void SetPicture(const QImage& picture) override { image = picture; }
};

constexpr QRgb Red = 0xffff0000;
constexpr QRgb Green = 0xff00ff00;

} // namespace

AccountsTest::AccountsTest() {
    LetChildrenSeeOthers(false);
    MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
    MakeChild(Kim, 80, QStringLiteral("Red bike"), 500, Red);
    MakeChild(Lee, 30, QString(), 0, Green);
}

void AccountsTest::LetChildrenSeeOthers(bool allowed) {
    PutSettings({allowed ? QStringLiteral(" 1 ") : QStringLiteral(" 0 "), QString(),
                 QStringLiteral(" 0 "), QStringLiteral(" 0 "), QStringLiteral(" 1 ")});
}

void AccountsTest::MakeChild(const QString& name, qint16 points, const QString& toy, qint16 cost,
                             QRgb color) {
    const QString picture = PictureFile(QStringLiteral("picture-%1.png").arg(color, 0, 16), color);
    Arrange([&] {
        Database().AddUser(name, QStringLiteral("p"), QStringLiteral("Student"), picture);
        Database().AddPoints(name, points, false);
        Database().AddToy(name, toy, toy.isEmpty() ? QString() : picture, cost);
    });
}

DisplayAccount& AccountsTest::OpenView(const QString& user, const QString& state) {
    StartSession(user, state);
    View().Show();
    Settle();
    return View();
}

ChildrenList& AccountsTest::List() {
    return Find<ChildrenList>(View(), QStringLiteral("StudentsList"));
}

void AccountsTest::PressButton(const char* name) {
    auto& button = Find<QPushButton>(View(), QString::fromLatin1(name));
    ASSERT_TRUE(button.isVisible()) << name;
    Click(button);
}

namespace {

QPoint RowMiddle(const ChildrenList& list, int row) {
    return list.visualItemRect(list.topLevelItem(row)).center();
}

} // namespace

void AccountsTest::MousePress(int row, Qt::MouseButton button) {
    QTest::mousePress(List().viewport(), button, {}, RowMiddle(List(), row));
    if (button == Qt::RightButton)
        QTest::mouseRelease(List().viewport(), button, {}, RowMiddle(List(), 0));
    Settle();
}

void AccountsTest::MouseRelease(int row) {
    QTest::mouseRelease(List().viewport(), Qt::LeftButton, {}, RowMiddle(List(), row));
    Settle();
}

void AccountsTest::ActivateAgain() {
    Form& other = DefaultForm(QStringLiteral("OtherOptions"));
    other.Show();
    Settle();
    other.Unload();
    Settle();
}

QString AccountsTest::Text(const char* label) {
    return Find<QLabel>(View(), QString::fromLatin1(label)).text();
}

bool AccountsTest::Shown(const char* control) {
    return Find(View(), QString::fromLatin1(control)).isVisible();
}

QColor AccountsTest::PictureColor(const char* label) {
    return ColorOfLabel(View(), QString::fromLatin1(label));
}

QString AccountsTest::Figures() {
    return Text("Pointslbl") + QLatin1Char('|') + Text("ToyName") + QLatin1Char('|') +
           Text("ToyValue");
}

QString AccountsTest::StoredPoints(const QString& name) {
    Caption points;
    Database().RetrievePoints(name, points);
    return points.text;
}

QString AccountsTest::StoredToy(const QString& name) {
    Caption toy;
    Caption cost;
    PictureHolder picture;
    Database().RetrieveToy(name, toy, picture, cost);
    return toy.text + QLatin1Char('|') + cost.text;
}

QImage AccountsTest::StoredToyPicture(const QString& name) {
    Caption toy;
    Caption cost;
    PictureHolder picture;
    Database().RetrieveToy(name, toy, picture, cost);
    return picture.image;
}

QColor AccountsTest::StoredPictureColor(const QString& name) {
    PictureHolder picture;
    Database().RetrevePicture(name, picture);
    return picture.image.isNull() ? QColor()
                                  : picture.image.pixelColor(picture.image.rect().center());
}
