#include "platform/runtime/Numbers.h"
#include "platform/runtime/Pictures.h"
#include "platform/runtime/RuntimeError.h"
#include "store/AccountKinds.h"
#include "store/ChartFields.h"
#include "store/DatabaseCls.h"
#include "store/Pictures.h"
#include "store/Rows.h"
#include "store/TableNames.h"

namespace {

constexpr int FirstIncentiveCost = 500;
constexpr int NamePosition = 1;
constexpr int StatePosition = 4;

} // namespace

void DatabaseCls::AddUser(const QString& Name, const QString& Password, const QString& State,
                          const QString& ImagePath) {
    OnOneConnection([&] {
        Recordset rows = Tables().OpenRecordset(UsersTable);
        rows.AddNew();
        rows.SetValue(AccountField::Name, Name);
        rows.SetValue(AccountField::Password, Password);
        rows.SetValue(AccountField::Points, 0);
        rows.SetValue(AccountField::State, State);
        if (!IsAdult(State))
            rows.SetValue(AccountField::IncentiveCost, FirstIncentiveCost);
        if (!ImagePath.isEmpty())
            StorePicture(rows, AccountField::Image, ImagePath);
        rows.Update();
    });
}

void DatabaseCls::ChangePicture(const QString& Name, const QString& ImagePath) {
    OnOneConnection([&] {
        Recordset rows = Tables().OpenRecordset(UsersTable);
        ForEachRowOf(Name, rows, [&] {
            rows.Edit();
            if (!ImagePath.isEmpty())
                StorePicture(rows, AccountField::Image, ImagePath);
            rows.Update();
        });
    });
}

QString DatabaseCls::RetrevePassword(const QString& Name) {
    QString password;
    Recordset rows = Tables().OpenRecordset(UsersTable);
    ForEachRowOf(Name, rows, [&] { password = TextOf(rows.Value(AccountField::Password)); });
    return password;
}

void DatabaseCls::ChangePassword(const QString& Name, const QString& NewPassword) {
    Recordset rows = Tables().OpenRecordset(UsersTable);
    ForEachRowOf(Name, rows, [&] {
        rows.Edit();
        rows.SetValue(AccountField::Password, NewPassword);
        rows.Update();
    });
}

QString DatabaseCls::RetreveState(const QString& Name) {
    QString state;
    Recordset rows = Tables().OpenRecordset(UsersTable);
    ForEachRowOf(Name, rows, [&] { state = TextOf(rows.Value(AccountField::State)); });
    return state;
}

void DatabaseCls::RetrevePicture(const QString& Name, PictureTarget& Target) {
    Target.SetPicture(LoadPicture(QString()));
    Recordset rows = Tables().OpenRecordset(UsersTable);
    ShowPictures(rows, Name, AccountField::Image, Target);
}

void DatabaseCls::PopulateUserList(NameList* Teachers, NameList& Students) {
    Recordset rows = Tables().OpenRecordset(UsersTable);
    ForEachRow(rows, [&] {
        const QString state = TextOf(rows.Value(AccountField::State));
        const QString name = TextOf(rows.Value(AccountField::Name));
        // The other names of the kinds stand in no list.
        if (IsStoredChild(state))
            Students.AddItem(name);
        else if (IsStoredAdult(state) && Teachers != nullptr)
            Teachers->AddItem(name);
    });
}

void DatabaseCls::AddUsersImages(ImageList& Images, IconList& People, const QString& State,
                                 PictureTarget& Scratch) {
    constexpr int largeIcons = 0;
    Recordset rows = Tables().OpenRecordset(UsersTable);
    ForEachRow(rows, [&] {
        if (TextOf(rows.Value(StatePosition)) != State)
            return;
        const QString name = TextOf(rows.Value(NamePosition));
        RetrevePicture(name, Scratch);
        Scratch.SetPicture(Scratch.Picture());
        if (People.View() != largeIcons) {
            People.AddItem(name);
            return;
        }
        const int icon = Images.AddPicture(Scratch.Picture());
        People.SetIcons(Images);
        People.AddItemWithIcon(name, icon);
    });
}

bool DatabaseCls::CheckForUserDuplicates(const QString& Name, const QString& Password) {
    bool found = false;
    Recordset rows = Tables().OpenRecordset(UsersTable);
    ForEachRowOf(Name, rows, [&] {
        if (TextOf(rows.Value(AccountField::Password)) == Password)
            found = true;
    });
    return found;
}

void DatabaseCls::DeleteAccount(const QString& Name) {
    Recordset accounts = Tables().OpenRecordset(UsersTable);
    ForEachRowOf(Name, accounts, [&] { accounts.Delete(); });

    // Forward while deleting, on purpose: the table behind a deleted one moves to its index and
    // is passed over, and the last indexes come to nothing.
    TableWalk rows = Tables().WalkThrough({QStringLiteral("UserName")});
    const int last = Tables().TableCount() - 1;
    for (int index = 0; index <= last; ++index) {
        WithErrorsSkipped([&] {
            const QString table = Tables().TableName(index);
            if (!IsOwned(table))
                return;
            rows.Open(table);
            const bool isOwn = Holds(rows.Value(0), Name);
            rows.Leave();
            if (isOwn)
                Tables().DeleteTable(table);
        });
    }
}
