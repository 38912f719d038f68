#pragma once

#include "platform/tables/TableStore.h"
#include "store/FormViews.h"
#include "store/Mode.h"

#include <QDate>
#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

/// A chart table and the child it is for, "" for nobody.
struct ChildsChart {
    QString Chart;
    QString Kid;
};

/// The store: every read and write of the program's lasting data.
///
/// Each operation opens the tables it needs afresh and keeps nothing between calls but the
/// members named here. A failure of the engine, a missing table or a bad value is raised as the
/// RuntimeError of the failing call; what was written until then stands. Whatever writes to a
/// chart raises 5 for the name of the accounts' table in any case, and writes nothing.
class DatabaseCls {
public:
    explicit DatabaseCls(ChartForms& forms);
    ~DatabaseCls();
    DatabaseCls(const DatabaseCls&) = delete;
    DatabaseCls& operator=(const DatabaseCls&) = delete;

    /// The results of ReadDates: the chart's first and last date as short date text and as eight
    /// digits, year, month, day. They keep their values until the next ReadDates.
    QString FirstDateText;
    QString LastDateText;
    QString FirstDateKey;
    QString LastDateKey;

    /// Opens Database/Charts.mdb beneath the program folder, or makes an empty one where there is
    /// none. Each call opens the file anew and lets go of the former one, once the picture being
    /// stored through it, if any, is whole. Raises 3000.
    void InitDatabse();

    // Chart tables

    /// Makes the empty chart table `Name`, in the place of one of that name.
    void CreateChart(const QString& Name);

    /// With `UpdateTicks` false replaces the table `Name` by the rows of the chart editor in slot
    /// `FormIndex`; a day range becomes one row a day. With true stores the marks of the chart
    /// viewer in that slot in the rows of the day last read; the other arguments are unused then.
    void WriteInfoToChart(const QString& Name, qint16 FormIndex, Mode UpdateTicks,
                          const QString& UserName, const QDate& FirstDate, const QDate& LastDate,
                          bool AutoCreate);

    /// Fills the chart viewer (`ToViewer`) with the rows of `Day` ("Sun" to "Sat"), or the chart
    /// editor with all rows. Raises 91 if no table has exactly that name.
    void ReadInfoFromChart(const QString& Name, qint16 FormIndex, Mode ToViewer,
                           const QString& Day);

    /// Reads the chart's week into the four members; an empty chart leaves them as they are.
    void ReadDates(const QString& Name);

    /// True if a table of that name exists in any case.
    bool ChartExist(const QString& Name);

    /// The number of the chart's rows that fall on the day; 0 for "". Raises 3021 for an empty
    /// chart.
    qint16 PrintReturnNr_Articles(const QString& DayAbbreviation, const QString& ChartName);
    /// The days of the week, 1 for Sunday to 7, on which rows of the chart fall. Raises 3021 for an
    /// empty chart.
    QSet<int> DaysWithJobs(const QString& ChartName);

    // Account records

    /// Adds an account with 0 points, a child's with an incentive cost of 500. `ImagePath` ""
    /// stores no picture. Raises 53 or 75 for an unreadable picture file and stores nothing then.
    void AddUser(const QString& Name, const QString& Password, const QString& State,
                 const QString& ImagePath);
    void ChangePicture(const QString& Name, const QString& ImagePath);
    /// "" if there is no such account; of several the last one's.
    QString RetrevePassword(const QString& Name);
    void ChangePassword(const QString& Name, const QString& NewPassword);
    /// "" if there is no such account. No form asks for it: the list in which an account is chosen
    /// tells its kind.
    QString RetreveState(const QString& Name);
    /// Loads the account's picture into `Target`, which is emptied first.
    void RetrevePicture(const QString& Name, PictureTarget& Target);
    /// Adds the adults to `Teachers` and the children to `Students`; without `Teachers` the
    /// children alone. The lists are not cleared.
    void PopulateUserList(NameList* Teachers, NameList& Students);
    void AddUsersImages(ImageList& Images, IconList& People, const QString& State,
                        PictureTarget& Scratch);
    /// True if a row has both this name and this password.
    bool CheckForUserDuplicates(const QString& Name, const QString& Password);
    /// Removes the account and then, walking forward while deleting, its tables.
    void DeleteAccount(const QString& Name);

    // Points and incentives

    /// Adds `Delta` points to the account, or sets them to 0 (`Reset`). A balance that would fall
    /// below 0 stays as it is, with a message. Raises 6 beyond 16 bits, 94 for Null points, 3021
    /// if there is no account at all.
    void AddPoints(const QString& UserName, qint16 Delta, Mode Reset);
    void RetrievePoints(const QString& UserName, CaptionTarget& Target);
    /// Replaces the account's incentive; "" and 0 store Null. Raises 3021 if there is no account
    /// at all.
    void AddToy(const QString& UserName, const QString& ToyName, const QString& PicturePath,
                qint16 Cost);
    void RetrieveToy(const QString& UserName, CaptionTarget& NameLabel, PictureTarget& Picture,
                     CaptionTarget& CostLabel);
    /// True if every row of the chart is completed, also if it has none.
    bool AllChecked(const QString& Name);
    /// Unticks every row of the chart.
    void ClearChartPoints(const QString& Name);

    // Catalogue

    /// Drops the chart. Raises 3078 if there is none of that name.
    void DeleteChart(const QString& Name);
    /// True if a table of exactly that name exists, case included.
    bool CheckForDuplicates(const QString& Name);
    /// Adds all charts (`OwnOnly` false), or rolls every auto-create chart of the week just past
    /// on and adds the current user's charts of the week that holds today. Not cleared first.
    void PopulateChartList(NameList& List, Mode OwnOnly);
    /// The chart's owner. Raises 3021 for an empty chart.
    QString ReturnExistingKidName(const QString& Name);
    /// False also for a missing or empty chart.
    bool ReturnAutoCreate(const QString& Name);
    /// Lists the account's charts, or its history tables, whose first date lies in a month of
    /// today's number.
    void RetreveChartsAvailable(const QString& UserName, NameList& List);
    void RetreveHistoryChartsAvailable(const QString& UserName, NameList& List);
    /// Collects the account's history tables that begin within the dates, in a month of today's
    /// number, in table order; leaves `Names` as it is if there are none.
    void CreateChartNames(const QString& UserName, QStringList& Names, const QDate& StartDate,
                          const QDate& EndDate);

    // History

    /// Copies the chart, ticks and all, into its history table of the same first date, in the
    /// place of a former copy. Raises 3021 for an empty chart.
    void DuplicateChartHistory(const QString& Name);

    // Paper

    /// Prints one chart. `OpenMark`: the text in the mark cell of a row that is not completed,
    /// when `BlankBoxes` is false. `SheetOf`: the chart by whose name the sheet is kept, where that
    /// is not ChartName. Raises 3021 for an empty chart, 482 for a printer fault.
    void PrintChart(const QString& ChartName, Mode BlankBoxes, const QString& KidName,
                    const QString& OpenMark, const QString& SheetOf = QString());
    /// Prints charts with empty boxes as one job, each on a sheet of its own. Raises the same, and
    /// prints nothing then.
    void PrintChartsOf(const QList<ChildsChart>& Charts);
    /// Prints every account with its password.
    void PrintUsersPasswords();
    /// Prints the child's job report over the tables `ChartNames`, or over all history tables of
    /// the child for the single element "All", with the jobs of the mode's job-name file.
    /// `DateRangeText` stands under the title. Raises 482 for a printer fault, 53 or 76 for a
    /// missing file, 9 for no names, 3078 for a missing table, and with "All" 3021 for a history
    /// table without rows; prints nothing then.
    void PrintReport2(const QString& KidName, const QStringList& ChartNames,
                      const QString& DateRangeText);
    /// The same with the jobs of the file `JobFile`.
    void Report2(const QString& KidName, const QStringList& ChartNames, const QString& JobFile,
                 const QString& DateRangeText);
    /// The period of the tables `ChartNames` in words; with "All" that of all tables of the
    /// database, whoever owns them. A name is passed over while the table at the same place of the
    /// catalogue is the accounts'. Raises 9 for no names, 3078 for a missing table, 3021 for one
    /// without rows.
    QString ReturnDateRange(const QString& KidName, const QStringList& ChartNames);

    // Weekly review

    /// Fills the matrix of the weekly review: a line for each distinct job of the chart, with the
    /// counts of what was done on each day, and a last line of totals. Raises 3021 for an empty
    /// chart, before anything on the form has changed; 6 for a sum beyond 16 bits, with what was
    /// filled until then.
    void FillMatrix(const QString& ChartName);

    /// Makes durable what the action under way has written. Raises 3000.
    void Commit();

private:
    /// The open database. Raises 91 before InitDatabse.
    TableStore& Tables() const;
    /// Runs an operation that stores pictures, and so lets events run between their pieces. If one
    /// of them opens the file anew, the operation still ends on the connection that it began on.
    void OnOneConnection(const std::function<void()>& operation);
    /// Puts a chart's first and last date into the four members.
    void KeepDates(const QVariant& first, const QVariant& last);

    ChartForms& forms_;
    /// The day last read into a viewer, whose rows its marks go to.
    QString CurrentDay;
    /// The distinct jobs of the chart last reviewed, in the order of their first rows.
    QStringList JobNames;
    /// Shared with the operations that let events run (OnOneConnection).
    std::shared_ptr<TableStore> ChartDb;
};
