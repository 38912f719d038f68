#pragma once

#include "tests/common/TestWorld.h"

/// Shorthand for tests of the store: charts without an editor, small fakes of the forms' parts.
class StoreTest : public ProgramTest {
protected:
    static inline const QString Anna = QStringLiteral("Anna");
    static inline const QString Chores = QStringLiteral("Chores Anna");
    static inline const QDate Sunday{2001, 3, 4};

    // Whoever calls the store commits: these do, as the handlers that they stand for; a test that
    // calls it itself does so where the handler would end.

    /// Saves rows as a chart, as the editor would, for the week of Sunday 4 March 2001.
    void SaveChart(const QString& name, const QList<EditorRow>& rows,
                   const QString& owner = QStringLiteral("Anna"), bool autoCreate = false,
                   const QDate& first = QDate(2001, 3, 4), const QDate& last = QDate(2001, 3, 10)) {
        Editor.rows = rows;
        Database().WriteInfoToChart(name, 0, false, owner, first, last, autoCreate);
        Database().Commit();
    }

    static EditorRow Job(const QString& text, const QString& day,
                         const QString& points = QStringLiteral("5")) {
        return {text, day, QStringLiteral("Mum"), QStringLiteral("Easy"), points};
    }

    /// Makes the table as the engine would hold it, without a row.
    static void MakeEmptyChart(const QString& name) {
        Database().CreateChart(name);
        Database().Commit();
    }

    /// Ticks all rows of a day, as the viewer would.
    void TickDay(const QString& chart, const QString& day) {
        Viewer.rows = {ViewerRow{}};
        Database().ReadInfoFromChart(chart, 0, true, day);
        for (ViewerRow& row : Viewer.rows)
            row.Completed = true;
        Database().WriteInfoToChart(chart, 0, true, QString(), QDate(), QDate(), false);
        Database().Commit();
    }

    FakeEditor Editor;
    FakeViewer Viewer;
};

class FakeCaption : public CaptionTarget {
public:
    QString caption = QStringLiteral("as it was");
    void SetCaption(const QString& text) override { caption = text; }
};

class FakePicture : public PictureTarget {
public:
    QImage picture = QImage(1, 1, QImage::Format_RGB32);
    QImage Picture() const override { return picture; }
    void SetPicture(const QImage& image) override { picture = image; }
};
