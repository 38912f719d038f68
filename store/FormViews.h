#pragma once

#include <QImage>
#include <QString>

/// What the store needs of the windows: rows by index, lists to add to, captions and pictures to
/// set. The forms implement these; the store knows no form.

/// A label: something with a caption.
class CaptionTarget {
public:
    virtual ~CaptionTarget() = default;
    virtual void SetCaption(const QString& caption) = 0;
};

/// A control with a picture; a null image is the empty picture.
class PictureTarget {
public:
    virtual ~PictureTarget() = default;
    virtual QImage Picture() const = 0;
    virtual void SetPicture(const QImage& picture) = 0;
    /// In device pixels: about how many the shorter side of a larger picture needs. 0 where the
    /// picture is shown as it is.
    virtual int SmallSide() const { return 0; }
};

/// A list, combo box or one-column list view that names are added to.
class NameList {
public:
    virtual ~NameList() = default;
    virtual void Clear() = 0;
    virtual void AddItem(const QString& text) = 0;
};

/// An image list: pictures that list items show by index.
class ImageList {
public:
    virtual ~ImageList() = default;
    /// Adds a picture and returns the count of pictures then.
    virtual int AddPicture(const QImage& picture) = 0;
};

/// A list view that may show its items as large icons.
class IconList : public NameList {
public:
    /// 0 large icons; any other value a view without them.
    virtual int View() const = 0;
    virtual void SetIcons(ImageList& images) = 0;
    /// `icon`: index in the image list, 1 the first.
    virtual void AddItemWithIcon(const QString& text, int icon) = 0;
};

/// The texts of one row of a chart editor.
struct EditorRow {
    QString Instructions;
    QString DayOfWeek;
    QString AdultResponsable;
    QString Difficulty;
    QString Points;
};

/// The rows of a chart editor. Row 0 always exists; an index outside raises 9.
class ChartEditorRows {
public:
    virtual ~ChartEditorRows() = default;
    virtual int RowCount() const = 0;
    virtual EditorRow Row(int index) const = 0;
    virtual void SetRow(int index, const EditorRow& row) = 0;
    /// Adds one empty row at the end.
    virtual void NewTask_Click() = 0;
};

/// What one row of a chart viewer shows.
struct ViewerRow {
    QString Instructions;
    QString Difficulty;
    QString Points;
    QString AdultResponsable;
    bool Completed = false;
};

/// The rows of a chart viewer: one day's jobs with their marks. An index outside raises 9.
class ChartViewerRows {
public:
    virtual ~ChartViewerRows() = default;
    virtual void SetRow(int index, const ViewerRow& row) = 0;
    /// The mark of row `index`: whether its ticked picture is the visible one.
    virtual bool CheckVisible(int index) const = 0;
    virtual void CreateNewTask(int index) = 0;
    virtual void SetDayCaption(const QString& caption) = 0;
};

/// The matrix of the weekly review: a line for each job, in the order in which they are added, and
/// a last one for the totals. Each call shows at once what it is given.
class ChartMatrix {
public:
    virtual ~ChartMatrix() = default;
    /// Shows the title, above a matrix without jobs.
    virtual void Begin(const QString& title) = 0;
    virtual void AddJob(const QString& job) = 0;
    /// What the job added last is worth, and what it has earned over the week.
    virtual void SetJobValue(const QString& value) = 0;
    virtual void SetJobTotal(qint16 points) = 0;
    /// A job falls on a day, and has been done there once or not. `line`: 0 the job added first;
    /// `day`: 1 Sunday to 7 Saturday.
    virtual void AddMark(int line, int day, bool completed) = 0;
    /// Adds the line of the totals.
    virtual void AddTotals(const QString& heading) = 0;
    virtual void SetGrandTotal(qint16 points) = 0;
    virtual void SetDayTotal(int day, qint16 points) = 0;
};

/// The session as the store sees it.
class ChartForms {
public:
    virtual ~ChartForms() = default;
    /// The form in a slot; one that holds none yet is made. Raises 9 outside the slots.
    virtual ChartEditorRows& Editor(qint16 formIndex) = 0;
    virtual ChartViewerRows& Viewer(qint16 formIndex) = 0;
    /// The weekly review, made if there is none.
    virtual ChartMatrix& Review() = 0;
    virtual QString CurrentUserName() const = 0;
    /// The school version, else the home version.
    virtual bool IsSchool() const = 0;
};
