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

/// A control array of the weekly review, one element a line of its matrix. Element 0 is designed,
/// the others are loaded at the end and unloaded from there. Places are in twips. An index outside
/// raises 9.
class MatrixControls {
public:
    virtual ~MatrixControls() = default;
    virtual int Count() const = 0;
    /// Adds a hidden element in the place of element 0.
    virtual void LoadElement() = 0;
    virtual void UnloadLast() = 0;
    virtual int Left(int index) const = 0;
    virtual int Top(int index) const = 0;
    virtual int Width(int index) const = 0;
    virtual int Height(int index) const = 0;
    virtual void SetLeft(int index, int twips) = 0;
    virtual void SetTop(int index, int twips) = 0;
    virtual void SetVisible(int index, bool visible) = 0;
};

/// Such an array of labels.
class MatrixLabels : public MatrixControls {
public:
    virtual QString Caption(int index) const = 0;
    virtual void SetCaption(int index, const QString& caption) = 0;
    /// 0 transparent, 1 opaque.
    virtual void SetBackStyle(int index, int backStyle) = 0;
    /// A 32-bit colour value, red in the low byte.
    virtual void SetForeColor(int index, qint32 color) = 0;
};

/// The matrix of the weekly review: one line a job, the last one for the totals.
class ChartMatrix {
public:
    virtual ~ChartMatrix() = default;
    virtual CaptionTarget& Title() = 0;
    virtual MatrixLabels& Jobs() = 0;
    virtual MatrixLabels& Values() = 0;
    /// `day`: 1 Sunday to 7 Saturday.
    virtual MatrixLabels& Cells(int day) = 0;
    virtual MatrixLabels& JobTotals() = 0;
    virtual MatrixControls& Outlines() = 0;
    /// Indexes 0 to 6, Sunday to Saturday.
    virtual MatrixLabels& DayTotals() = 0;
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
