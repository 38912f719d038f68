#include "platform/runtime/Numbers.h"
#include "platform/runtime/RuntimeError.h"
#include "store/ChartFields.h"
#include "store/DatabaseCls.h"
#include "store/TableNames.h"

namespace {

const QString Teacher = QStringLiteral("Teacher");
const QString Student = QStringLiteral("Student");
constexpr int FirstIncentiveCost = 500;
constexpr int NamePosition = 1;
constexpr int StatePosition = 4;

} // namespace

Recordset DatabaseCls::ForEachAccount(const QString& name,
                                      const std::function<void(Recordset&)>& action) {
    Recordset rows = Tables().OpenRecordset(UsersTable);
    if (!rows.Eof())
        rows.MoveFirst();
    while (!rows.Eof()) {
        // Names are no keys: every row of the name is meant.
        if (Holds(rows.Value(AccountField::Name), name))
            action(rows);
        rows.MoveNext();
    }
    return rows;
}

void DatabaseCls::AddUser(const QString& Name, const QString& Password, const QString& State,
                          const QString& ImagePath) {
    OnOneConnection([&] {
        Recordset rows = Tables().OpenRecordset(UsersTable);
        rows.AddNew();
        rows.SetValue(AccountField::Name, Name);
        rows.SetValue(AccountField::Password, Password);
        rows.SetValue(AccountField::Points, 0);
        rows.SetValue(AccountField::State, State);
        if (State != QLatin1String("Parent") && State != Teacher)
            rows.SetValue(AccountField::IncentiveCost, FirstIncentiveCost);
        if (!ImagePath.isEmpty())
            StorePicture(rows, AccountField::Image, ImagePath);
        rows.Update();
    });
}

void DatabaseCls::ChangePicture(const QString& Name, const QString& ImagePath) {
    OnOneConnection([&] {
        ForEachAccount(Name, [&](Recordset& rows) {
            rows.Edit();
            if (!ImagePath.isEmpty())
                StorePicture(rows, AccountField::Image, ImagePath);
            rows.Update();
        });
    });
}

QString DatabaseCls::RetrevePassword(const QString& Name) {
    QString password;
    ForEachAccount(Name,
                   [&](Recordset& rows) { password = TextOf(rows.Value(AccountField::Password)); });
    return password;
}

void DatabaseCls::ChangePassword(const QString& Name, const QString& NewPassword) {
    ForEachAccount(Name, [&](Recordset& rows) {
        rows.Edit();
        rows.SetValue(AccountField::Password, NewPassword);
        rows.Update();
    });
}

QString DatabaseCls::RetreveState(const QString& Name) {
    QString state;
    ForEachAccount(Name, [&](Recordset& rows) { state = TextOf(rows.Value(AccountField::State)); });
    return state;
}

void DatabaseCls::RetrevePicture(const QString& Name, PictureTarget& Target) {
    TakeOutPicture(Name, AccountField::Image, Target, [](Recordset&) {});
}

void DatabaseCls::PopulateUserList(NameList* Teachers, NameList& Students) {
    Recordset rows = Tables().OpenRecordset(UsersTable);
    if (!rows.Eof())
        rows.MoveFirst();
    for (; !rows.Eof(); rows.MoveNext()) {
        const QString state = TextOf(rows.Value(AccountField::State));
        const QString name = TextOf(rows.Value(AccountField::Name));
        if (state == Student)
            Students.AddItem(name);
        else if (state == Teacher && Teachers != nullptr)
            Teachers->AddItem(name);
    }
}

void DatabaseCls::AddUsersImages(ImageList& Images, IconList& People, const QString& State,
                                 PictureTarget& Scratch) {
    constexpr int largeIcons = 0;
    Recordset rows = Tables().OpenRecordset(UsersTable);
    for (; !rows.Eof(); rows.MoveNext()) {
        if (TextOf(rows.Value(StatePosition)) != State)
            continue;
        const QString name = TextOf(rows.Value(NamePosition));
        RetrevePicture(name, Scratch);
        Scratch.SetPicture(Scratch.Picture());
        if (People.View() != largeIcons) {
            People.AddItem(name);
            continue;
        }
        const int icon = Images.AddPicture(Scratch.Picture());
        People.SetIcons(Images);
        People.AddItemWithIcon(name, icon);
    }
}

bool DatabaseCls::CheckForUserDuplicates(const QString& Name, const QString& Password) {
    bool found = false;
    ForEachAccount(Name, [&](Recordset& rows) {
        if (TextOf(rows.Value(AccountField::Password)) == Password)
            found = true;
    });
    return found;
}

void DatabaseCls::DeleteAccount(const QString& Name) {
    ForEachAccount(Name, [](Recordset& rows) { rows.Delete(); });

    // Forward while deleting, on purpose: the table behind a deleted one moves to its index and
    // is passed over, and the last indexes come to nothing.
    TableWalk rows = Tables().WalkThrough({QStringLiteral("UserName")});
    const int last = Tables().TableCount() - 1;
    for (int index = 0; index <= last; ++index) {
        WithErrorsSkipped([&] {
            const QString table = Tables().TableName(index);
            if (KindPrefix(table) == QLatin1String("MSys") || table == UsersTable)
                return;
            rows.Open(table);
            const bool isOwn = Holds(rows.Value(0), Name);
            rows.Leave();
            if (isOwn)
                Tables().DeleteTable(table);
        });
    }
}
