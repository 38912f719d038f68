#pragma once

#include <QFileDialog>
#include <QUrl>

class QLabel;
class QListView;

/// The open-file dialog, in which pictures are chosen by looking: files as large pictures in a
/// grid, and beside them the chosen one, larger. Every folder can be gone to; nothing can be
/// deleted or renamed.
class PictureDialog : public QFileDialog {
    Q_OBJECT

public:
    /// `folder` "": the one where the dialog was last, and with files of every kind; `place` is
    /// then among the places to go to.
    PictureDialog(QWidget* parent, const QString& folder, const QString& place = QString());
    ~PictureDialog() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ShowAsGrid(QListView& list);
    void AddPreview();
    void ShowPreview(const QString& path);

    QListView* grid_;
    QLabel* preview_ = nullptr;
    QUrl place_;
};
