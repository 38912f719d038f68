#include "tests/platform/tables/TablesTest.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <limits>

namespace {

class FieldValues : public TablesTest {
protected:
    FieldValues() : Rows(MakeTable()) {
        Rows.AddNew();
        Rows.Update();
        Rows.MoveFirst();
    }

    /// Stores the value and reads it back through a new connection.
    QString Kept(const char* field, const QVariant& value) {
        const QString name = QLatin1String(field);
        Rows.Edit();
        Rows.SetValue(name, value);
        Rows.Update();
        const QString here = Shown(Rows.Value(name));
        Store->Commit();
        const auto other = TableStore::OpenDatabase(File);
        EXPECT_EQ(Shown(other->OpenRecordset(QStringLiteral("Chart")).Value(name)), here);
        return here;
    }

    void Set(const char* field, const QVariant& value) {
        Rows.Edit();
        Rows.SetValue(QLatin1String(field), value);
    }

    Recordset Rows;
};

} // namespace

TEST_F(FieldValues, TextStaysText) {
    for (const char* text :
         {"007", "1e3", " 5 ", "", " ", "-1", "0x10", "2001-03-07", "jo\u00e9 🎉"}) {
        const QString value = QString::fromUtf8(text);
        EXPECT_EQ(Kept("Memo", value), QStringLiteral("QString ") + value);
        EXPECT_EQ(Kept("Text", value), QStringLiteral("QString ") + value);
    }
    const QString withZero = QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    EXPECT_EQ(Kept("Memo", withZero), QStringLiteral("QString ") + withZero);
}

TEST_F(FieldValues, NumbersAndDatesBecomeTextInTextFields) {
    EXPECT_EQ(Kept("Memo", 7), QStringLiteral("QString 7"));
    EXPECT_EQ(Kept("Text", 2.5), QStringLiteral("QString 2.5"));
    EXPECT_EQ(Kept("Text", QDate(2001, 3, 7)), QStringLiteral("QString 3/7/2001"));
}

TEST_F(FieldValues, TextIsMeasuredInCharacters) {
    EXPECT_NO_THROW(Set("Text", QString(10, QChar(0xe4))));
    EXPECT_ERROR(3163, Set("Text", QString(11, QLatin1Char('x'))));
    // An emoji counts as two.
    EXPECT_NO_THROW(Set("Text", QString::fromUtf8("🎉🎉🎉🎉🎉")));
    EXPECT_ERROR(3163, Set("Text", QString::fromUtf8("🎉🎉🎉🎉🎉x")));
}

TEST_F(FieldValues, SizesOfTextFieldsSurviveReopening) {
    Store->CreateTable(QStringLiteral("Sized"), {{QStringLiteral("a"), FieldType::Text, 3},
                                                 {QStringLiteral("b"), FieldType::Text}});
    Store->Commit();
    Reopen();
    Recordset rows = Store->OpenRecordset(QStringLiteral("Sized"));
    rows.AddNew();
    EXPECT_ERROR(3163, rows.SetValue(0, QStringLiteral("four")));
    rows.SetValue(1, QString(255, QLatin1Char('x')));
    EXPECT_ERROR(3163, rows.SetValue(1, QString(256, QLatin1Char('x'))));
    rows.Update();
    rows.MoveFirst();
    EXPECT_EQ(Shown(rows.Value(0)), QStringLiteral("Null"));
    EXPECT_EQ(rows.Value(1).toString().size(), 255);
}

TEST_F(FieldValues, MemoHoldsTextOfAnyLength) {
    const QString text(300000, QChar(0x65e5));
    EXPECT_EQ(Kept("Memo", text), QStringLiteral("QString ") + text);
}

TEST_F(FieldValues, WholeNumbersRoundAHalfToTheEvenNeighbour) {
    EXPECT_EQ(Kept("Long", 0.5), QStringLiteral("int 0"));
    EXPECT_EQ(Kept("Long", 1.5), QStringLiteral("int 2"));
    EXPECT_EQ(Kept("Long", 2.5), QStringLiteral("int 2"));
    EXPECT_EQ(Kept("Long", -2.5), QStringLiteral("int -2"));
    EXPECT_EQ(Kept("Long", QStringLiteral("3.5")), QStringLiteral("int 4"));
    EXPECT_EQ(Kept("Long", QStringLiteral("-3")), QStringLiteral("int -3"));
    EXPECT_EQ(Kept("Long", 99999), QStringLiteral("int 99999"));
    EXPECT_EQ(Kept("Long", true), QStringLiteral("int -1"));
    EXPECT_EQ(Kept("Long", QVariant::fromValue<qint16>(-7)), QStringLiteral("int -7"));
}

TEST_F(FieldValues, WholeNumbersOutOfRangeOverflow) {
    EXPECT_EQ(Kept("Long", std::numeric_limits<int>::max()), QStringLiteral("int 2147483647"));
    EXPECT_EQ(Kept("Long", std::numeric_limits<int>::min()), QStringLiteral("int -2147483648"));
    EXPECT_ERROR(6, Set("Long", 2147483648.0));
    EXPECT_ERROR(6, Set("Long", qint64{1} << 40));
    EXPECT_ERROR(6, Set("Long", -1e300));
    EXPECT_ERROR(6, Set("Long", std::numeric_limits<double>::quiet_NaN()));
    EXPECT_ERROR(6, Set("Long", QStringLiteral("2147483648")));
}

TEST_F(FieldValues, TextThatIsNoNumberIsAMismatch) {
    for (const char* text : {"", " ", "five", "5 points", "nan", "inf", "1,5"})
        EXPECT_ERROR(13, Set("Long", QString::fromUtf8(text))) << text;
    EXPECT_ERROR(13, Set("Long", QDate(2001, 3, 7)));
    EXPECT_ERROR(13, Set("Boolean", QStringLiteral("perhaps")));
    EXPECT_ERROR(13, Set("Date", QStringLiteral("someday")));
    EXPECT_ERROR(13, Set("Date", 5));
    EXPECT_ERROR(13, Set("Bytes", QByteArray("x")));
}

TEST_F(FieldValues, BooleansAreTrueOrFalse) {
    EXPECT_EQ(Kept("Boolean", true), QStringLiteral("bool true"));
    EXPECT_EQ(Kept("Boolean", 0), QStringLiteral("bool false"));
    EXPECT_EQ(Kept("Boolean", -1), QStringLiteral("bool true"));
    EXPECT_EQ(Kept("Boolean", QStringLiteral("False")), QStringLiteral("bool false"));
    EXPECT_EQ(Kept("Boolean", QStringLiteral("True")), QStringLiteral("bool true"));
    EXPECT_ERROR(94, Set("Boolean", QVariant()));
}

TEST_F(FieldValues, DatesAreDays) {
    EXPECT_EQ(Kept("Date", QDate(2001, 3, 7)), QStringLiteral("QDate 2001-03-07"));
    EXPECT_EQ(Kept("Date", QDate(2004, 2, 29)), QStringLiteral("QDate 2004-02-29"));
    EXPECT_EQ(Kept("Date", QStringLiteral("12/31/1999")), QStringLiteral("QDate 1999-12-31"));
    EXPECT_EQ(Kept("Date", QDate(9999, 12, 31)), QStringLiteral("QDate 9999-12-31"));
    EXPECT_EQ(Kept("Date", QDate()), QStringLiteral("Null"));
    EXPECT_ERROR(6, Set("Date", QDate(10000, 1, 1)));
    EXPECT_ERROR(6, Set("Date", QDate(-5, 1, 1)));
}

TEST_F(FieldValues, FieldsGoBackToNull) {
    for (const char* field : {"Memo", "Text", "Long"}) {
        EXPECT_EQ(Kept(field, 5).right(1), QStringLiteral("5"));
        EXPECT_EQ(Kept(field, QVariant()), QStringLiteral("Null"));
    }
}

TEST_F(FieldValues, RefusedValueLeavesWhatWasSet) {
    Rows.Edit();
    Rows.SetValue(QStringLiteral("Text"), QStringLiteral("good"));
    EXPECT_ERROR(3163, Rows.SetValue(QStringLiteral("Text"), QString(11, QLatin1Char('x'))));
    EXPECT_ERROR(6, Rows.SetValue(QStringLiteral("Long"), 1e10));
    Rows.Update();
    EXPECT_EQ(Shown(Rows.Value(QStringLiteral("Text"))), QStringLiteral("QString good"));
    EXPECT_EQ(Shown(Rows.Value(QStringLiteral("Long"))), QStringLiteral("Null"));
}

TEST_F(FieldValues, AreStoredInTheirOwnForms) {
    Rows.Edit();
    Rows.SetValue(QStringLiteral("Text"), QStringLiteral("007"));
    Rows.SetValue(QStringLiteral("Long"), 7);
    Rows.SetValue(QStringLiteral("Boolean"), true);
    Rows.SetValue(QStringLiteral("Date"), QDate(2001, 3, 7));
    Rows.AppendChunk(QStringLiteral("Bytes"), "x");
    Rows.Update();
    Store->Commit();
    SQLite::Database raw(File.toStdString());
    const std::string form =
        raw.execAndGet("SELECT quote(Memo)||' '||quote(Text)||' '||quote(Long)||' '||"
                       "quote(Boolean)||' '||quote(Date)||' '||quote(Bytes) FROM Rows1")
            .getString();
    EXPECT_EQ(form, "NULL '007' 7 -1 '2001-03-07' X'78'");
}

TEST_F(FieldValues, WhatThisProgramCannotHaveStoredIsAMismatch) {
    Store->Commit();
    {
        SQLite::Database raw(File.toStdString(), SQLite::OPEN_READWRITE);
        raw.exec("UPDATE Rows1 SET Long='many', Boolean=NULL, Date='soon', Memo=X'4142'");
    }
    Recordset rows = Store->OpenRecordset(QStringLiteral("Chart"));
    EXPECT_ERROR(13, rows.Value(QStringLiteral("Long")));
    EXPECT_ERROR(13, rows.Value(QStringLiteral("Date")));
    EXPECT_EQ(Shown(rows.Value(QStringLiteral("Boolean"))), QStringLiteral("bool false"));
    EXPECT_EQ(Shown(rows.Value(QStringLiteral("Memo"))), QStringLiteral("QString AB"));
    {
        SQLite::Database raw(File.toStdString(), SQLite::OPEN_READWRITE);
        raw.exec("UPDATE Rows1 SET Long=9999999999");
    }
    EXPECT_ERROR(6, Store->OpenRecordset(QStringLiteral("Chart")).Value(2));
}

TEST_F(FieldValues, PiecesOfALongBinaryFieldAreJoined) {
    const QString bytes = QStringLiteral("Bytes");
    Rows.Edit();
    Rows.AppendChunk(bytes, QByteArray("ab\0c", 4));
    Rows.AppendChunk(bytes, {});
    Rows.AppendChunk(bytes, "de");
    EXPECT_EQ(Rows.FieldSize(bytes), 0);
    Rows.Update();
    EXPECT_EQ(Rows.FieldSize(bytes), 6);
    EXPECT_EQ(Rows.GetChunk(bytes, 0, 100), QByteArray("ab\0cde", 6));
    EXPECT_EQ(Rows.GetChunk(bytes, 1, 3), QByteArray("b\0c", 3));
    EXPECT_EQ(Rows.GetChunk(bytes, 6, 3), QByteArray());
    EXPECT_EQ(Rows.GetChunk(bytes, 99, 3), QByteArray());
    EXPECT_EQ(Rows.GetChunk(bytes, -3, 2), QByteArray("ab"));
    EXPECT_EQ(Rows.GetChunk(bytes, 0, -1), QByteArray());
}

TEST_F(FieldValues, FirstPieceReplacesWhatALongBinaryFieldHeld) {
    const QString bytes = QStringLiteral("Bytes");
    for (const char* content : {"first", "2nd"}) {
        Rows.Edit();
        Rows.AppendChunk(bytes, content);
        Rows.Update();
        EXPECT_EQ(Rows.GetChunk(bytes, 0, 100), QByteArray(content));
    }
    Rows.Edit();
    Rows.SetValue(bytes, QVariant());
    Rows.Update();
    EXPECT_EQ(Rows.FieldSize(bytes), 0);
    EXPECT_EQ(Rows.GetChunk(bytes, 0, 100), QByteArray());
}

TEST_F(FieldValues, LongBinaryPiecesAreLiveToo) {
    const QString bytes = QStringLiteral("Bytes");
    Rows.Edit();
    Rows.AppendChunk(bytes, "old");
    Rows.Update();
    Recordset reader = Store->OpenRecordset(QStringLiteral("Chart"));
    EXPECT_EQ(reader.GetChunk(bytes, 0, 9), QByteArray("old"));
    Rows.Edit();
    Rows.AppendChunk(bytes, "newer");
    Rows.Update();
    EXPECT_EQ(reader.FieldSize(bytes), 5);
    EXPECT_EQ(reader.GetChunk(bytes, 0, 9), QByteArray("newer"));
}

TEST_F(FieldValues, LargePictureSurvivesReopening) {
    const QString bytes = QStringLiteral("Bytes");
    QByteArray picture;
    for (int i = 0; i < 3'000'000; ++i)
        picture.append(static_cast<char>(i * 31 >> 3));
    Rows.Edit();
    for (qsizetype at = 0; at < picture.size(); at += 32769)
        Rows.AppendChunk(bytes, picture.mid(at, 32769));
    Rows.Update();
    Store->Commit();
    Reopen();
    Recordset rows = Store->OpenRecordset(QStringLiteral("Chart"));
    ASSERT_EQ(rows.FieldSize(bytes), picture.size());
    QByteArray read;
    while (read.size() < picture.size())
        read.append(rows.GetChunk(bytes, read.size(), 32768));
    EXPECT_TRUE(read == picture);
}

TEST_F(FieldValues, OnlyLongBinaryFieldsHavePieces) {
    Rows.Edit();
    EXPECT_ERROR(13, Rows.AppendChunk(QStringLiteral("Memo"), "x"));
    EXPECT_ERROR(13, Rows.FieldSize(QStringLiteral("Memo")));
    EXPECT_ERROR(13, Rows.GetChunk(QStringLiteral("Memo"), 0, 1));
    Rows.AppendChunk(QStringLiteral("Bytes"), "x");
    Rows.Update();
    EXPECT_ERROR(13, Rows.Value(QStringLiteral("Bytes")));
}
