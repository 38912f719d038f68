#include "platform/runtime/Numbers.h"
#include "platform/runtime/Pictures.h"
#include "platform/runtime/Prompts.h"
#include "platform/runtime/RuntimeError.h"
#include "store/ChartFields.h"
#include "store/DatabaseCls.h"
#include "store/Pictures.h"
#include "store/Rows.h"
#include "store/TableNames.h"

void DatabaseCls::AddPoints(const QString& UserName, qint16 Delta, Mode Reset) {
    Recordset rows = Tables().OpenRecordset(UsersTable);
    ForEachRowOf(UserName, rows, [&] {
        const qint16 balance = AddIntegers(IntegerOf(rows.Value(AccountField::Points)), Delta);
        if (balance < 0) {
            Tell(QStringLiteral("Sorry you have insufficient points to clear the account"));
            return;
        }
        rows.Edit();
        rows.SetValue(AccountField::Points, Reset.IsTrue() ? 0 : int{balance});
        rows.Update();
    });
    rows.MoveFirst();
}

void DatabaseCls::RetrievePoints(const QString& UserName, CaptionTarget& Target) {
    Recordset rows = Tables().OpenRecordset(UsersTable);
    ForEachRowOf(UserName, rows,
                 [&] { Target.SetCaption(TextOf(rows.Value(AccountField::Points))); });
}

void DatabaseCls::AddToy(const QString& UserName, const QString& ToyName,
                         const QString& PicturePath, qint16 Cost) {
    OnOneConnection([&] {
        Recordset rows = Tables().OpenRecordset(UsersTable);
        ForEachRowOf(UserName, rows, [&] {
            rows.Edit();
            rows.SetValue(AccountField::IncentiveName,
                          ToyName.isEmpty() ? QVariant() : QVariant(ToyName));
            rows.SetValue(AccountField::IncentiveCost,
                          Cost == 0 ? QVariant() : QVariant(int{Cost}));
            if (PicturePath.isEmpty())
                rows.SetValue(AccountField::IncentivePicture, QVariant());
            else
                StorePicture(rows, AccountField::IncentivePicture, PicturePath);
            rows.Update();
        });
        rows.MoveFirst();
    });
}

void DatabaseCls::RetrieveToy(const QString& UserName, CaptionTarget& NameLabel,
                              PictureTarget& Picture, CaptionTarget& CostLabel) {
    Picture.SetPicture(LoadPicture(QString()));
    Recordset rows = Tables().OpenRecordset(UsersTable);
    ShowPictures(rows, UserName, AccountField::IncentivePicture, Picture, [&] {
        WithErrorsSkipped(
            [&] { NameLabel.SetCaption(TextOf(rows.Value(AccountField::IncentiveName))); });
        WithErrorsSkipped(
            [&] { CostLabel.SetCaption(TextOf(rows.Value(AccountField::IncentiveCost))); });
    });
}

bool DatabaseCls::AllChecked(const QString& Name) {
    Recordset rows = Tables().OpenRecordset(Name);
    bool all = true;
    ForEachRow(rows, [&] {
        if (!BooleanOf(rows.Value(ChartField::Completed)))
            all = false;
    });
    return all;
}

void DatabaseCls::ClearChartPoints(const QString& Name) {
    RefuseAccountsName(Name);
    Tables().SetField(Name, QStringLiteral("Completed"), false);
}
